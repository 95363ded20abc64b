#pragma once

#include "reports/CVReportPages.h"

#include <QString>
#include <QStringList>

#include <optional>

/// Writes pages of a report as a PDF file; when that fails, the old file stays whole. Refuses to write one of the
/// `spared` files. Absent on success and when `progress` ended the writing, else the reason.
[[nodiscard]] std::optional<QString> CVWriteReportFile(const QString& path, const CVReportView& view, CVPageRange pages,
                                                       const CVPaintProgress& progress = {},
                                                       const QStringList& spared = {});

/// Writes pages of a report to an open descriptor; answers as `CVWriteReportFile` does.
[[nodiscard]] std::optional<QString> CVWriteReport(int descriptor, const CVReportView& view, CVPageRange pages,
                                                   const QStringList& spared = {});
