#pragma once

#include <QLoggingCategory>

/// The category under which reading and saving write to the system log.
Q_DECLARE_LOGGING_CATEGORY(lcStorage)
