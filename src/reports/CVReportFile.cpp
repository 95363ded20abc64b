#include "reports/CVReportFile.h"

#include "files/CVWriteOutputFile.h"

#include <QCoreApplication>

namespace {

struct ReportFileText {
    Q_DECLARE_TR_FUNCTIONS(CVReportFile)
};

/// Writes the pages through `write`. Absent on success, else the reason.
std::optional<QString> writePages(const std::function<std::optional<QString>(const CVFileContent&)>& write,
                                  const CVReportView& view, CVPageRange pages, const CVPaintProgress& progress) {
    auto result = CVPaintResult::Painted;
    auto failure = write([&](QIODevice& output) {
        result = CVWritePDF(view, output, pages, progress);
        return result == CVPaintResult::Painted;
    });
    if (!failure && result == CVPaintResult::Failed)
        failure = ReportFileText::tr("its pages could not be painted");
    return failure;
}

} // namespace

std::optional<QString> CVWriteReportFile(const QString& path, const CVReportView& view, CVPageRange pages,
                                         const CVPaintProgress& progress, const QStringList& spared) {
    return writePages([&](const CVFileContent& content) { return CVWriteOutputFile(path, content, spared); }, view,
                      pages, progress);
}

std::optional<QString> CVWriteReport(int descriptor, const CVReportView& view, CVPageRange pages,
                                     const QStringList& spared) {
    return writePages([&](const CVFileContent& content) { return CVWriteOutput(descriptor, content, spared); }, view,
                      pages, {});
}
