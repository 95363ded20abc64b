#pragma once

#include "reports/CVReportPages.h"

#include <QString>
#include <QStringList>

#include <optional>

/// Writes pages of a report as a PDF file, which stands there whole or as it was, and is none of the `spared` ones.
/// Absent when that succeeded, and when `progress` ended it; else the reason.
[[nodiscard]] std::optional<QString> CVWriteReportFile(const QString& path, const CVReportView& view, CVPageRange pages,
                                                       const CVPaintProgress& progress = {},
                                                       const QStringList& spared = {});

/// Writes them to what is open already; the same answer.
[[nodiscard]] std::optional<QString> CVWriteReport(int descriptor, const CVReportView& view, CVPageRange pages,
                                                   const QStringList& spared = {});
