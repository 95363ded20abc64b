#include "ReportSamples.h"
#include "kit/Printers.h"
#include "reports/CVReportPages.h"
#include "reports/CVReportView.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct Page {
    ReportKind kind;
    QPageSize::PageSizeId paper;
    QPageLayout::Orientation orientation;

    [[nodiscard]] QString name() const {
        return QStringLiteral("%1-%2-%3.txt")
            .arg(QLatin1String(kind.name), paper == QPageSize::A4 ? QStringLiteral("a4") : QStringLiteral("letter"),
                 orientation == QPageLayout::Portrait ? QStringLiteral("portrait") : QStringLiteral("landscape"));
    }
};

std::vector<Page> allPages() {
    std::vector<Page> pages;
    for (const ReportKind& kind : kReportKinds) {
        for (const auto paper : {QPageSize::A4, QPageSize::Letter}) {
            for (const auto orientation : {QPageLayout::Portrait, QPageLayout::Landscape})
                pages.push_back({kind, paper, orientation});
        }
    }
    return pages;
}

/// The text of a PDF file in its layout, read with a PDF tool.
QString textOf(const QString& path) {
    QProcess reader;
    reader.start(QStringLiteral("pdftotext"), {"-layout", "-enc", "UTF-8", path, "-"});
    EXPECT_TRUE(reader.waitForFinished()) << "pdftotext of poppler-utils is missing";
    return QString::fromUtf8(reader.readAllStandardOutput());
}

/// The golden text without its first line, which says what the file is for.
QString goldenText(const QString& name) {
    QFile file(QStringLiteral(CORVELLA_SOURCE_DIR "/tests/reports/golden/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << "there is no golden file";
    file.readLine();
    return QString::fromUtf8(file.readAll());
}

class GoldenPages : public testing::TestWithParam<Page> {};

TEST_P(GoldenPages, AreAsTheyWere) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("report.pdf");
    const ReportSamples samples;
    CVPrintInfo printInfo{.paper = QPageSize(GetParam().paper), .orientation = GetParam().orientation};
    {
        const CVReportView view(samples.report(GetParam().kind.type), printInfo);
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(CVWritePDF(view, file, CVPageRange::all(view)), CVPaintResult::Painted);
    }
    const QString text = textOf(path);
    const QString golden = goldenText(GetParam().name());
    if (text == golden)
        return;
    const QString kept = QDir::current().filePath(GetParam().name());
    QFile file(kept);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0);
    const QString differences = QStringLiteral("the pages differ from the golden file; they are kept in ") + kept;
    FAIL() << differences.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Of, GoldenPages, testing::ValuesIn(allPages()),
                         [](const auto& page) { return page.param.name().chopped(4).replace('-', '_').toStdString(); });

} // namespace
