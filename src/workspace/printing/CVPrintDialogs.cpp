#include "workspace/printing/CVPrintDialogs.h"

#include "format/QBLocale.h"
#include "reports/CVReportFile.h"
#include "reports/CVReportView.h"
#include "widgets/CVProgressPanel.h"
#include "widgets/CVScrollArea.h"
#include "widgets/CVWindowFrame.h"
#include "workspace/printing/CVPaperChoice.h"
#include "workspace/printing/CVPrintQueue.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QPageSetupDialog>
#include <QPaintEngine>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QScopedValueRollback>
#include <QStyle>
#include <QTemporaryDir>

#include <functional>

namespace {

struct PrintDialogText {
    Q_DECLARE_TR_FUNCTIONS(CVPrintDialogs)
};

using Failure = std::optional<QString>;

void setUp(QPrinter& printer, const CVReportView& view) {
    // The toolkit also uses this name for the output file and for the title of the preview.
    printer.setDocName(view.report().name());
    printer.setPageLayout(view.printInfo().wholeSheet());
    // The parts of the layout are set one by one, because a printer that lacks the paper refuses a whole layout.
    printer.setPageOrientation(view.printInfo().orientation);
}

/// The pages that the user chose; absent where they are all beyond the last page. A report without pages prints one
/// empty sheet.
std::optional<CVPageRange> chosenPages(const QPrinter& printer, const CVReportView& view) {
    const CVPageRange all = CVPageRange::all(view);
    if (printer.fromPage() <= 0 || all.last <= 0)
        return all;
    if (printer.fromPage() > all.last)
        return std::nullopt;
    return CVPageRange{printer.fromPage(), qMin(printer.toPage(), all.last)};
}

/// Whether the printer makes a preview: the toolkit then records pages with a picture engine.
bool isPreview(const QPrinter& printer) {
    const QPaintEngine* const engine = printer.paintEngine();
    return engine && engine->type() == QPaintEngine::Picture;
}

/// Shows the progress of painting the pages and asks whether to go on.
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
    // After a cancel the preview shows the pages that were painted.
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

/// Paints all pages into a file first: a queue begins to print as soon as it gets the first page.
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

/// Takes over the paper and the orientation that the user chose in the dialog.
void usePaper(CVReportView& view, const QPrinter& printer, const CVPaperChoice& choice) {
    QPageLayout layout = printer.pageLayout();
    layout.setPageSize(choice.paperOn(printer));
    view.usePaperOf(layout);
}

/// Prints the pages or paints a preview. The program writes PDF files itself instead of the toolkit.
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

/// Lets the contents of a toolkit's dialog scroll above its buttons, and makes the dialog fit the screen: with large
/// letters the buttons would lie below the edge of a small screen.
void letContentsScroll(QDialog& dialog) {
    auto* const rows = qobject_cast<QBoxLayout*>(dialog.layout());
    QWidget* const contents = rows ? rows->itemAt(0)->widget() : nullptr;
    if (!contents)
        return;
    rows->insertWidget(0, new CVScrollArea(*contents, &dialog), 1);
    const QSize room = CVWindowFrame::largestSize(dialog);
    QSize wish = dialog.sizeHint();
    if (wish.height() > room.height())
        wish.rwidth() += dialog.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &dialog);
    dialog.resize(wish.boundedTo(room));
}

/// Makes the page set-up dialog without a printer: a printer would bring its own default paper and offer only its own
/// sizes.
std::unique_ptr<QPageSetupDialog> makeSetUpDialog(QPrinter& printer, const CVPrintInfo& printInfo, QWidget& window) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setPageLayout(printInfo.pageLayout());
    // Silences the toolkit's message on standard error that there is no printer.
    const auto handler = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    auto dialog = std::make_unique<QPageSetupDialog>(&printer, &window);
    qInstallMessageHandler(handler);
    letContentsScroll(*dialog);
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
        // Events run while a long report is painted, and one of them may ask for the pages again.
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
