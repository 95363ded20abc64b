#include "workspace/CVReportFile.h"

#include "shared/base/CVOutputFile.h"

#include <QCoreApplication>

std::optional<QString> CVWriteReportFile(const QString& path, const CVReportView& view, CVPageRange pages,
                                         const CVPaintProgress& progress) {
    auto result = CVPaintResult::Painted;
    auto failure = CVWriteOutputFile(path, [&](QIODevice& output) {
        result = CVWritePDF(view, output, pages, progress);
        return result == CVPaintResult::Painted;
    });
    if (!failure && result == CVPaintResult::Failed)
        failure = QCoreApplication::translate("CVReportFile", "its pages could not be painted");
    return failure;
}
