#include "workspace/CVPrintDialogs.h"

#include "reports/CVReportView.h"
#include "shared/format/QBLocale.h"
#include "shared/widgets/CVProgressPanel.h"
#include "workspace/CVReportFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QPageSetupDialog>
#include <QPaintEngine>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QScopedValueRollback>

#include <functional>

namespace {

struct PrintDialogText {
    Q_DECLARE_TR_FUNCTIONS(CVPrintDialogs)
};

using Failure = std::optional<QString>;

void setUp(QPrinter& printer, const CVReportView& view) {
    // The toolkit also makes the name of a file from it, and shows it above the preview.
    printer.setDocName(view.report().name());
    printer.setPageLayout(view.printInfo().wholeSheet());
}

/// None where the pages that were chosen lie behind the end. A report without pages is an empty sheet.
std::optional<CVPageRange> chosenPages(const QPrinter& printer, const CVReportView& view) {
    const CVPageRange all = CVPageRange::all(view);
    if (printer.fromPage() <= 0 || all.last <= 0)
        return all;
    if (printer.fromPage() > all.last)
        return std::nullopt;
    return CVPageRange{printer.fromPage(), qMin(printer.toPage(), all.last)};
}

/// While a preview is made, its pages are recorded.
bool isPreview(const QPrinter& printer) {
    const QPaintEngine* const engine = printer.paintEngine();
    return engine && engine->type() == QPaintEngine::Picture;
}

/// The progress of pages being painted.
class PrintProgress {
public:
    PrintProgress(QWidget& window, int pages)
        : mPanel(PrintDialogText::tr("Printing"), pages, &window)
        , mPages(QBLocaleInForce().toString(pages)) {}

    [[nodiscard]] bool operator()(int done) {
        return mPanel.stepsDone(done,
                                PrintDialogText::tr("Page %1 of %2").arg(QBLocaleInForce().toString(done), mPages));
    }

private:
    CVProgressPanel mPanel;
    QString mPages;
};

/// Most printers are sent the pages that were painted before the user cancelled: the toolkit cannot take them back.
Failure paint(QWidget& window, QPrinter& printer, const CVReportView& view, CVPageRange pages) {
    PrintProgress progress(window, pages.count());
    const auto result = CVPaintPages(view, printer, pages, std::ref(progress));
    if (result == CVPaintResult::Cancelled && !isPreview(printer))
        printer.abort();
    if (result == CVPaintResult::Failed || printer.printerState() == QPrinter::Error)
        return PrintDialogText::tr("“%1” does not accept the pages").arg(printer.printerName());
    return std::nullopt;
}

Failure writeFile(QWidget& window, const QString& path, const CVReportView& view, CVPageRange pages,
                  const QStringList& spared) {
    PrintProgress progress(window, pages.count());
    const auto failure = CVWriteReportFile(path, view, pages, std::ref(progress), spared);
    if (!failure)
        return std::nullopt;
    return PrintDialogText::tr("The file “%1” could not be written: %2").arg(QDir::toNativeSeparators(path), *failure);
}

/// Prints, or draws a preview, on the paper that the user chose for the printer. A file is written by the program
/// itself.
Failure printPages(QWidget& window, QPrinter& printer, CVReportView& view, const QStringList& spared) {
    view.usePaperOf(printer.pageLayout());
    const auto pages = chosenPages(printer, view);
    if (!pages)
        return PrintDialogText::tr("the report ends before page %1").arg(printer.fromPage());
    const bool isFile = printer.outputFormat() == QPrinter::PdfFormat && !isPreview(printer);
    return isFile ? writeFile(window, printer.outputFileName(), view, *pages, spared)
                  : paint(window, printer, view, *pages);
}

} // namespace

std::optional<QString> CVPrintDialogs::print(QWidget& window, CVReportView& view) {
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer, view);
    QPrintDialog dialog(&printer, &window);
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setMinMax(1, qMax(1, view.knowsPageRange()));
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    return dialog.exec() == QDialog::Accepted ? printPages(window, printer, view, spared()) : std::nullopt;
}

std::optional<QString> CVPrintDialogs::preview(QWidget& window, CVReportView& view) {
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer, view);
    QPrintPreviewDialog dialog(&printer, &window);
    dialog.setWindowModality(Qt::ApplicationModal);
    Failure failure;
    bool isPainting = false;
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter* target) {
        // Events run while a long report is painted, among them those that ask for the pages anew.
        if (isPainting)
            return;
        const QScopedValueRollback painting(isPainting, true);
        failure = printPages(dialog, *target, view, spared());
    });
    dialog.exec();
    return failure;
}

void CVPrintDialogs::setUpPage(QWidget& window, CVPrintInfo& printInfo) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(printInfo.pageLayout());
    QPageSetupDialog dialog(&printer, &window);
    dialog.setWindowModality(Qt::ApplicationModal);
    if (dialog.exec() == QDialog::Accepted)
        printInfo.setPageLayout(printer.pageLayout());
}
