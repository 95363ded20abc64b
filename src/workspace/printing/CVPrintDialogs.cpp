#include "workspace/printing/CVPrintDialogs.h"

#include "format/QBLocale.h"
#include "reports/CVReportFile.h"
#include "reports/CVReportView.h"
#include "widgets/CVProgressPanel.h"
#include "workspace/printing/CVPaperChoice.h"
#include "workspace/printing/CVPrintQueue.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QPageSetupDialog>
#include <QPaintEngine>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QScopedValueRollback>
#include <QTemporaryDir>

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
    // A printer without that paper refuses the layout as a whole.
    printer.setPageOrientation(view.printInfo().orientation);
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

void paintPreview(QWidget& window, QPrinter& printer, const CVReportView& view, CVPageRange pages) {
    PrintProgress progress(window, pages.count());
    // What was painted before the user cancelled is shown.
    (void)CVPaintPages(view, printer, pages, std::ref(progress));
}

Failure writeFile(QWidget& window, const QString& path, const CVReportView& view, CVPageRange pages,
                  const QStringList& spared) {
    PrintProgress progress(window, pages.count());
    const auto failure = CVWriteReportFile(path, view, pages, std::ref(progress), spared);
    if (!failure)
        return std::nullopt;
    return PrintDialogText::tr("The file “%1” could not be written: %2").arg(QDir::toNativeSeparators(path), *failure);
}

/// The pages are held in a file until all of them are painted: the queue begins to print with the first that it gets.
Failure sendToQueue(QWidget& window, CVPrintQueue& queue, const QPrinter& printer, const CVReportView& view,
                    CVPageRange pages) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("pages.pdf"));
    PrintProgress progress(window, pages.count());
    if (const auto failure = CVWriteReportFile(path, view, pages, std::ref(progress)))
        return PrintDialogText::tr("The pages could not be kept in “%1” for the printer: %2")
            .arg(QDir::toNativeSeparators(QDir::tempPath()), *failure);
    const bool isCancelled = !QFile::exists(path);
    if (isCancelled)
        return std::nullopt;
    auto refusal = queue.print(path, view.printInfo().paper, printer);
    if (!refusal)
        return std::nullopt;
    if (refusal->endsWith(u'.'))
        refusal->chop(1);
    return PrintDialogText::tr("“%1” does not accept the pages: %2").arg(printer.printerName(), *refusal);
}

/// On the paper that the user chose in the dialog, and on the side that was chosen there.
void usePaper(CVReportView& view, const QPrinter& printer, const CVPaperChoice& choice) {
    QPageLayout layout = printer.pageLayout();
    layout.setPageSize(choice.paperOn(printer));
    view.usePaperOf(layout);
}

/// Prints, or draws a preview. A file is written by the program itself.
Failure printPages(QWidget& window, CVPrintQueue& queue, QPrinter& printer, const CVReportView& view,
                   const QStringList& spared) {
    const auto pages = chosenPages(printer, view);
    if (!pages)
        return PrintDialogText::tr("the report ends before page %1").arg(printer.fromPage());
    if (isPreview(printer)) {
        paintPreview(window, printer, view, *pages);
        return std::nullopt;
    }
    const QString path = printer.outputFileName();
    return path.isEmpty() ? sendToQueue(window, queue, printer, view, *pages)
                          : writeFile(window, path, view, *pages, spared);
}

/// Of the page set-up, which concerns no printer: one would bring its own usual paper, and offer only what it has.
std::unique_ptr<QPageSetupDialog> makeSetUpDialog(QPrinter& printer, const CVPrintInfo& printInfo, QWidget& window) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setPageLayout(printInfo.pageLayout());
    // The toolkit would remark on standard error that there is no printer.
    const auto handler = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    auto dialog = std::make_unique<QPageSetupDialog>(&printer, &window);
    qInstallMessageHandler(handler);
    return dialog;
}

} // namespace

std::optional<QString> CVPrintDialogs::print(QWidget& window, CVReportView& view) {
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer, view);
    QPrintDialog dialog(&printer, &window);
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setMinMax(1, qMax(1, view.knowsPageRange()));
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    const CVPaperChoice choice(dialog, view.printInfo().paper);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    usePaper(view, printer, choice);
    return printPages(window, mQueue, printer, view, spared());
}

std::optional<QString> CVPrintDialogs::preview(QWidget& window, CVReportView& view) {
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer, view);
    QPrintPreviewDialog dialog(&printer, &window);
    dialog.setWindowModality(Qt::ApplicationModal);
    const CVPaperChoice choice(dialog, view.printInfo().paper);
    Failure failure;
    bool isPainting = false;
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter* target) {
        // Events run while a long report is painted, among them those that ask for the pages anew.
        if (isPainting)
            return;
        const QScopedValueRollback painting(isPainting, true);
        usePaper(view, *target, choice);
        failure = printPages(dialog, mQueue, *target, view, spared());
    });
    dialog.exec();
    return failure;
}

void CVPrintDialogs::setUpPage(QWidget& window, CVPrintInfo& printInfo) {
    QPrinter printer(QPrinter::HighResolution);
    const auto dialog = makeSetUpDialog(printer, printInfo, window);
    dialog->setWindowModality(Qt::ApplicationModal);
    const CVPaperChoice choice(*dialog, printInfo.paper);
    if (dialog->exec() != QDialog::Accepted)
        return;
    printInfo.setPageLayout(printer.pageLayout());
    printInfo.paper = choice.paperOn(printer);
}
