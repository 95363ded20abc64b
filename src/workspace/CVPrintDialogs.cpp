#include "workspace/CVPrintDialogs.h"

#include "reports/CVReportView.h"
#include "workspace/CVPrintProgress.h"
#include "workspace/CVReportFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QScopedValueRollback>

namespace {

struct PrintDialogText {
    Q_DECLARE_TR_FUNCTIONS(CVPrintDialogs)
};

using Failure = std::optional<QString>;

void setUp(QPrinter& printer, const CVReportView& view) {
    printer.setDocName(view.report().title());
    printer.setPageLayout(view.printInfo().wholeSheet());
}

CVPageRange chosenPages(const QPrinter& printer, const CVReportView& view) {
    const CVPageRange all = CVPageRange::all(view);
    if (printer.fromPage() <= 0)
        return all;
    return {qMin(printer.fromPage(), all.last), qMin(printer.toPage(), all.last)};
}

/// A printer is sent the pages that were painted before the user cancelled: the toolkit cannot take them back.
Failure paint(QWidget& window, QPrinter& printer, const CVReportView& view, CVPageRange pages) {
    CVPrintProgress progress(window, pages.count());
    const auto result = CVPaintPages(view, printer, pages, [&progress](int done) { return progress.pagesDone(done); });
    if (result == CVPaintResult::Failed)
        return PrintDialogText::tr("“%1” does not accept the pages").arg(printer.printerName());
    return std::nullopt;
}

Failure writeFile(QWidget& window, const QString& path, const CVReportView& view, CVPageRange pages) {
    CVPrintProgress progress(window, pages.count());
    const auto failure =
        CVWriteReportFile(path, view, pages, [&progress](int done) { return progress.pagesDone(done); });
    if (!failure)
        return std::nullopt;
    return PrintDialogText::tr("The file “%1” could not be written: %2").arg(QDir::toNativeSeparators(path), *failure);
}

/// Prints as the printer was set up by the user.
Failure printPages(QWidget& window, QPrinter& printer, CVReportView& view) {
    view.usePaperOf(printer.pageLayout());
    const CVPageRange pages = chosenPages(printer, view);
    return printer.outputFormat() == QPrinter::PdfFormat ? writeFile(window, printer.outputFileName(), view, pages)
                                                         : paint(window, printer, view, pages);
}

} // namespace

std::optional<QString> CVPrintDialogs::print(QWidget& window, CVReportView& view) {
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer, view);
    QPrintDialog dialog(&printer, &window);
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setMinMax(1, view.knowsPageRange());
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    return dialog.exec() == QDialog::Accepted ? printPages(window, printer, view) : std::nullopt;
}

std::optional<QString> CVPrintDialogs::preview(QWidget& window, CVReportView& view) {
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer, view);
    QPrintPreviewDialog dialog(&printer, &window);
    dialog.setWindowModality(Qt::WindowModal);
    Failure failure;
    bool isPainting = false;
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter* target) {
        // Events run while a long report is painted, among them those that ask for the pages anew.
        if (isPainting)
            return;
        const QScopedValueRollback painting(isPainting, true);
        view.usePaperOf(target->pageLayout());
        failure = paint(dialog, *target, view, chosenPages(*target, view));
    });
    dialog.exec();
    return failure;
}

void CVPrintDialogs::setUpPage(QWidget& window, CVPrintInfo& printInfo) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(printInfo.pageLayout());
    QPageSetupDialog dialog(&printer, &window);
    dialog.setWindowModality(Qt::WindowModal);
    if (dialog.exec() == QDialog::Accepted)
        printInfo.setPageLayout(printer.pageLayout());
}
