#pragma once

#include "reports/CVReportPages.h"

#include <QString>

#include <optional>

/// Writes pages of a report as a PDF file, which stands there whole or as it was. Absent when that succeeded, and when
/// `progress` ended it; else the reason.
[[nodiscard]] std::optional<QString> CVWriteReportFile(const QString& path, const CVReportView& view, CVPageRange pages,
                                                       const CVPaintProgress& progress = {});
