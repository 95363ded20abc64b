#pragma once

#include <QLoggingCategory>

/// What reading and saving tell the system log.
Q_DECLARE_LOGGING_CATEGORY(lcStorage)
