#include "reports/CVReportPages.h"

#include "ReportSamples.h"
#include "kit/Printers.h"
#include "reports/CVReportView.h"
#include "reports/CVSummaryTable.h"

#include <QBuffer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct ReportPages : testing::Test {
    /// A report of `count` transactions.
    [[nodiscard]] std::unique_ptr<const CVReport> longReport(std::size_t count) const {
        return CVReport::initWithTransactions(CVTransactions(count, makeTransaction({.amount = 1, .payTo = "Market"})));
    }

    /// The output of a poppler tool about a file.
    [[nodiscard]] static QString ask(const QString& tool, const QString& path) {
        QProcess process;
        process.start(tool, {path});
        EXPECT_TRUE(process.waitForFinished()) << "poppler-utils are missing";
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    [[nodiscard]] QString write(const CVReportView& view, CVPageRange pages) const {
        QString path = mFolder.filePath("report.pdf");
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(CVWritePDF(view, file, pages), CVPaintResult::Painted);
        return path;
    }

    QTemporaryDir mFolder;
    CVPrintInfo mPrintInfo;
};

TEST_F(ReportPages, AreADocumentWithATitleAndEmbeddedFonts) {
    const ReportSamples samples;
    const CVReportView view(samples.report(CVReportType::CategoryTax), mPrintInfo);
    const QString path = write(view, CVPageRange::all(view));
    const QString facts = ask("pdfinfo", path);
    EXPECT_TRUE(facts.contains(QRegularExpression("Title: +Tax Report 2014-03-12\n"))) << facts.toStdString();
    EXPECT_TRUE(facts.contains(QRegularExpression("Pages: +1\n")));
    EXPECT_TRUE(facts.contains(QRegularExpression("Page size: +595 x 842 pts"))) << facts.toStdString();
    const QStringList fonts = ask("pdffonts", path).split('\n', Qt::SkipEmptyParts).mid(2);
    ASSERT_FALSE(fonts.isEmpty());
    EXPECT_TRUE(fonts.first().contains("LiberationSans"));
    for (const QString& font : fonts)
        EXPECT_TRUE(font.contains(QRegularExpression("yes +(yes|no) +yes"))) << font.toStdString();
}

TEST_F(ReportPages, LieOnTheSheetAsTheReportDoes) {
    const ReportSamples samples;
    const CVReportView view(samples.report(CVReportType::Summary), mPrintInfo);
    EXPECT_TRUE(
        ask("pdfinfo", write(view, CVPageRange::all(view))).contains(QRegularExpression("Page size: +842 x 595 pts")));
}

TEST_F(ReportPages, CanBeSomeOfThem) {
    const CVReportView view(longReport(49 * 4), mPrintInfo);
    const QString text = ask("pdfinfo", write(view, {2, 3}));
    EXPECT_TRUE(text.contains(QRegularExpression("Pages: +2\n")));
}

TEST_F(ReportPages, TellHowManyAreDoneAndStopWhenTheyAreCancelled) {
    const CVReportView view(longReport(49 * 10), mPrintInfo);
    QBuffer output;
    ASSERT_TRUE(output.open(QIODevice::WriteOnly));
    std::vector<int> heard;
    const auto result = CVWritePDF(view, output, CVPageRange::all(view), [&heard](int done) {
        heard.push_back(done);
        return done < 4;
    });
    EXPECT_EQ(result, CVPaintResult::Cancelled);
    EXPECT_EQ(heard, (std::vector<int>{1, 2, 3, 4}));
}

TEST_F(ReportPages, FailOnADeviceThatCannotBePaintedOn) {
    const CVReportView view(longReport(1), mPrintInfo);
    QBuffer closed;
    EXPECT_EQ(CVWritePDF(view, closed, CVPageRange::all(view)), CVPaintResult::Failed);
}

class NoValues final : public CVSummaryTable {
public:
    [[nodiscard]] QString columnTitle(int /*column*/) const override { return {}; }
    [[nodiscard]] std::optional<double> objectValue(int /*column*/, int /*row*/) const override { return {}; }
};

TEST_F(ReportPages, OfASummaryThatHasNoneAreAnEmptySheet) {
    const CVReportView view(CVReport::initWithSummaryTable(NoValues(), {}, 3), mPrintInfo);
    ASSERT_EQ(view.knowsPageRange(), 0);
    const QString path = write(view, CVPageRange::all(view));
    EXPECT_TRUE(ask("pdfinfo", path).contains(QRegularExpression("Pages: +1\n")));
    EXPECT_TRUE(ask("pdffonts", path).split('\n', Qt::SkipEmptyParts).mid(2).isEmpty());
}

} // namespace
