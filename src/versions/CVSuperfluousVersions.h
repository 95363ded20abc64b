#pragma once

#include "versions/CVVersion.h"

#include <QList>

/// Which of the versions, newest first, are to go. All of the last day stay; of older ones the first of each day for a
/// month, the first of each month for two years, the first of each year. The first of a day is what stood at the end of
/// the last day of use, so whatever was there over night stays. Of these, the oldest go until the others take no more
/// than `limit` bytes. The newest that is not of the future never goes.
[[nodiscard]] QList<CVVersion> CVSuperfluousVersions(const QList<CVVersion>& versions, const QDateTime& now,
                                                     qint64 limit);
