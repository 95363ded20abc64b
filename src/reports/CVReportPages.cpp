#include "reports/CVReportPages.h"

#include "base/CVBundle.h"
#include "reports/CVReportPainter.h"

#include <QIODevice>
#include <QPainter>
#include <QPdfWriter>

namespace {

constexpr int kDotsPerInch = 1200;

} // namespace

CVPageRange CVPageRange::all(const CVReportView& view) {
    return {1, view.knowsPageRange()};
}

CVPaintResult CVPaintPages(const CVReportView& view, QPagedPaintDevice& device, CVPageRange pages,
                           const CVPaintProgress& progress) {
    device.setPageLayout(view.printInfo().wholeSheet());
    QPainter painter;
    if (!painter.begin(&device))
        return CVPaintResult::Failed;
    CVReportPainter reportPainter(view, painter);
    for (int page = pages.first; page <= pages.last; ++page) {
        if (page > pages.first && !device.newPage())
            return CVPaintResult::Failed;
        reportPainter.paint(page);
        if (progress && !progress(page - pages.first + 1))
            return CVPaintResult::Cancelled;
    }
    return painter.end() ? CVPaintResult::Painted : CVPaintResult::Failed;
}

CVPaintResult CVWritePDF(const CVReportView& view, QIODevice& output, CVPageRange pages,
                         const CVPaintProgress& progress) {
    // QPdfWriter does not check this itself.
    if (!output.isWritable())
        return CVPaintResult::Failed;
    QPdfWriter writer(&output);
    writer.setResolution(kDotsPerInch);
    // The title is the report's name, because the printer may show it as it shows the name of the job.
    writer.setTitle(view.report().name());
    writer.setCreator(QString::fromLatin1(CVBundle::kName));
    return CVPaintPages(view, writer, pages, progress);
}
