#include "CVBareParse.h"
#include "CVBudgetFixture.h"
#include "CVComparison.h"
#include "CVFinishedProgram.h"
#include "CVMeasurements.h"
#include "CVPlainWalk.h"
#include "reports/CVReportPages.h"
#include "reports/CVReportPainter.h"
#include "storage/CVDocumentXML.h"
#include "storage/CVWriteDocumentText.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>

#include <benchmark/benchmark.h>

#include <chrono>
#include <thread>

namespace {

/// The part of the yardstick that stands for starting a process; the rest is a bare parse of the file.
constexpr std::chrono::milliseconds kStart(30);
constexpr int kDotsPerInch = 1200;

std::unique_ptr<const CVReport> reportOf(CVDocument& document) {
    return CVReport::initWithTransactions(document.transactions());
}

/// Every text of the report's pages where it is written, without room or font looked at.
struct BareText {
    QPointF baseline;
    QString text;
};

std::vector<std::vector<BareText>> bareTexts(const CVReportView& view) {
    constexpr double kScale = kDotsPerInch / 72.0;
    const CVReport& report = view.report();
    std::vector<std::vector<BareText>> pages;
    for (int number = 1; number <= view.knowsPageRange(); ++number) {
        const CVReportPage page = view.page(number);
        auto& texts = pages.emplace_back();
        const auto write = [&](const QRectF& rect, const QStringList& line) {
            for (qsizetype i = 0; i < line.size(); ++i)
                texts.push_back({QPointF(rect.left() + report.columns()[static_cast<std::size_t>(i)].offset,
                                         page.rect.bottom() - rect.y()) *
                                     kScale,
                                 line[i]});
        };
        write(page.title, {report.title(), CVReport::pageText(number)});
        write(page.header, report.labels());
        for (std::size_t line = 0; line < page.lineCount; ++line)
            write(page.rectOfLine(line), report.line(page.firstLine + line).texts);
    }
    return pages;
}

void writeBare(const std::vector<std::vector<BareText>>& pages, QIODevice& output, const CVPrintInfo& printInfo) {
    QPdfWriter writer(&output);
    writer.setResolution(kDotsPerInch);
    writer.setPageLayout(printInfo.wholeSheet());
    QPainter painter(&writer);
    painter.setFont(CVFontOf(CVReportFont::Main));
    for (const auto& page : pages) {
        if (&page != &pages.front())
            writer.newPage();
        for (const BareText& text : page)
            painter.drawText(text.baseline, text.text);
    }
}

} // namespace

void CVMeasureSummaryReport(benchmark::State& state, std::size_t transactions) {
    const CVScratchFolder folder;
    const QString file = folder.file("budget.corvella");
    CVBudgetFixture fixture(transactions);
    if (!CVWriteDocumentText(file, CVDocumentXMLRepresentation(fixture.document()), std::nullopt, CVFormerFile::Dropped)
             .ok())
        state.SkipWithError("the budget could not be written");
    const QByteArray bytes = fixture.text();
    bool complete = true;
    CVComparison comparison;
    comparison.clock = CVClock::Wall;
    comparison.reset = [] {};
    comparison.yardstick = [&] {
        complete = CVParseBare(bytes) && complete;
        std::this_thread::sleep_for(kStart);
    };
    comparison.subject = [&] {
        complete = CVFinishedProgram::run(
                       {CORVELLA_PROGRAM, "report", "summary", "--period=month", "--data", file.toLocal8Bit()}) &&
                   complete;
    };
    comparison.run(state);
    if (!complete)
        state.SkipWithError("the program did not write the report");
}

void CVMeasurePagination(benchmark::State& state, std::size_t transactions) {
    CVBudgetFixture fixture(transactions);
    CVPrintInfo printInfo;
    std::unique_ptr<const CVReportView> view;
    CVTransactions printed;
    CVComparison comparison;
    comparison.clock = CVClock::Thread;
    comparison.reset = [&] {
        view = nullptr;
        printed = fixture.document().transactions();
    };
    comparison.yardstick = [&] { CVPlainWalk(fixture.document().transactions()); };
    comparison.subject = [&] {
        view = std::make_unique<CVReportView>(CVReport::initWithTransactions(std::move(printed)), printInfo);
        for (int page = 1; page <= view->knowsPageRange(); ++page)
            benchmark::DoNotOptimize(view->page(page));
    };
    comparison.run(state);
}

void CVMeasurePaintingLastPage(benchmark::State& state, std::size_t transactions) {
    // Both pages are full.
    CVBudgetFixture fixture(transactions - transactions % 49);
    CVPrintInfo printInfo;
    const CVReportView view(reportOf(fixture.document()), printInfo);
    QImage sheet(view.frame().size().toSize().width(), static_cast<int>(printInfo.paperSize().height()),
                 QImage::Format_RGB32);
    QPainter painter(&sheet);
    CVReportPainter reportPainter(view, painter);
    CVComparison comparison;
    comparison.clock = CVClock::Thread;
    comparison.reset = [] {};
    comparison.yardstick = [&] { reportPainter.paint(1); };
    comparison.subject = [&] { reportPainter.paint(view.knowsPageRange()); };
    comparison.run(state);
}

void CVMeasurePDF(benchmark::State& state, std::size_t transactions) {
    CVBudgetFixture fixture(transactions);
    CVPrintInfo printInfo;
    const CVReportView view(reportOf(fixture.document()), printInfo);
    const auto texts = bareTexts(view);
    const CVScratchFolder folder;
    QFile output(folder.file("report.pdf"));
    CVComparison comparison;
    comparison.clock = CVClock::Thread;
    comparison.reset = [&] {
        output.close();
        if (!output.open(QIODevice::WriteOnly))
            state.SkipWithError("the file could not be opened");
    };
    comparison.yardstick = [&] { writeBare(texts, output, printInfo); };
    comparison.subject = [&] {
        if (CVWritePDF(view, output, CVPageRange::all(view)) != CVPaintResult::Painted)
            state.SkipWithError("the report could not be painted");
    };
    comparison.run(state);
}
