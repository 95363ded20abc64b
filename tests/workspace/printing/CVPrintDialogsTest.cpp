#include "PrintDialogsFixture.h"
#include "kit/FixedToday.h"
#include "reports/CVSummaryTable.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QPageSetupDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QProgressDialog>
#include <QScreen>
#include <QTest>

namespace {

TEST_F(PrintDialogs, PrintAllPagesToAFile) {
    CVReportView view(report(49 * 3), printInfo);
    chooseFile();
    EXPECT_EQ(dialogs.print(window, view), std::nullopt);
    EXPECT_TRUE(printed().startsWith("%PDF"));
    EXPECT_EQ(pages(), 3);
}

TEST_F(PrintDialogs, RefuseToPrintOverTheDataFile) {
    CVReportView view(report(1), printInfo);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("a budget") > 0 && file.flush());
    QString dataFile;
    dialogs.spare([&dataFile] { return QStringList{dataFile}; });
    dataFile = path;
    chooseFile();
    const auto failure = dialogs.print(window, view);
    ASSERT_TRUE(failure.has_value());
    EXPECT_TRUE(failure->contains("it is the data file that holds a budget")) << failure->toStdString();
    EXPECT_EQ(printed(), "a budget");
}

TEST_F(PrintDialogs, TellTheReasonOfAFullDisk) {
    if (!QFile::exists("/dev/full"))
        GTEST_SKIP() << "this machine has no device that is always full";
    CVReportView view(report(1), printInfo);
    path = QStringLiteral("/dev/full");
    chooseFile();
    const auto failure = dialogs.print(window, view);
    ASSERT_TRUE(failure.has_value());
    EXPECT_TRUE(failure->contains(qt_error_string(ENOSPC))) << failure->toStdString();
}

TEST_F(PrintDialogs, PrintSomePages) {
    CVReportView view(report(49 * 5), printInfo);
    chooseFile(2, 3);
    EXPECT_EQ(dialogs.print(window, view), std::nullopt);
    EXPECT_EQ(pages(), 2);
}

TEST_F(PrintDialogs, PrintToTheEndWhereMorePagesWereChosenAndNothingBehindIt) {
    CVReportView view(report(49 * 3), printInfo);
    chooseFile(3, 9);
    EXPECT_EQ(dialogs.print(window, view), std::nullopt);
    EXPECT_EQ(pages(), 1);
    ASSERT_TRUE(QFile::remove(path));
    chooseFile(5, 6);
    EXPECT_EQ(dialogs.print(window, view), "the report ends before page 5");
    EXPECT_FALSE(QFile::exists(path));
}

/// A grid without categories.
struct NoRows final : CVSummaryTable {
    [[nodiscard]] QString columnTitle(int /*column*/) const override { return {}; }
    [[nodiscard]] std::optional<double> objectValue(int /*column*/, int /*row*/) const override { return {}; }
};

TEST_F(PrintDialogs, PrintAnEmptySheetForAReportWithoutPages) {
    CVReportView view(CVReport::initWithSummaryTable(NoRows(), {}, 7), printInfo);
    ASSERT_EQ(view.knowsPageRange(), 0);
    chooseFile(1, 1);
    EXPECT_EQ(dialogs.print(window, view), std::nullopt);
    EXPECT_EQ(pages(), 1);
}

TEST_F(PrintDialogs, CallJobAndPreviewByKindAndDayAndSoDoesTheToolkitTheFile) {
    const FixedToday today(day(2026, 11, 21));
    CVReportView view(report(3), printInfo);
    QString job;
    whenShown<QPrintDialog>([&job](QPrintDialog& dialog) {
        job = dialog.printer()->docName();
        dialog.reject();
    });
    EXPECT_EQ(dialogs.print(window, view), std::nullopt);
    EXPECT_EQ(job, "Transaction Report 2026-11-21");
    QString caption;
    whenShown<QPrintPreviewDialog>([&](QPrintPreviewDialog& dialog) {
        job = dialog.printer()->docName();
        caption = dialog.windowTitle();
        dialog.reject();
    });
    EXPECT_EQ(dialogs.preview(window, view), std::nullopt);
    EXPECT_EQ(job, "Transaction Report 2026-11-21");
    EXPECT_TRUE(caption.endsWith("Transaction Report 2026-11-21")) << caption.toStdString();
    EXPECT_FALSE(caption.contains('$'));
}

TEST_F(PrintDialogs, PrintNothingWhenTheyAreCancelled) {
    CVReportView view(report(1), printInfo);
    whenShown<QPrintDialog>([](QPrintDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(dialogs.print(window, view), std::nullopt);
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(PrintDialogs, TellWhichFileCannotBeWritten) {
    CVReportView view(report(1), printInfo);
    path = folder.filePath("missing/report.pdf");
    chooseFile();
    const auto failure = dialogs.print(window, view);
    ASSERT_TRUE(failure.has_value());
    EXPECT_TRUE(failure->contains("missing/report.pdf")) << failure->toStdString();
}

TEST_F(PrintDialogs, ShowAProgressPanelWithWhichALongReportIsCancelled) {
    const ProgressDelay delay = ProgressDelay::none();
    CVReportView view(report(300'000), printInfo);
    chooseFile();
    bool wasShown = false;
    cancelProgress(wasShown);
    EXPECT_EQ(dialogs.print(window, view), std::nullopt);
    EXPECT_TRUE(wasShown);
    EXPECT_FALSE(QFile::exists(path)) << "no half report is left behind";
}

TEST_F(PrintDialogs, PreviewAllPages) {
    CVReportView view(report(49 * 4), printInfo);
    int previewed = 0;
    whenShown<QPrintPreviewDialog>([&previewed](QPrintPreviewDialog& dialog) {
        previewed = dialog.findChild<QPrintPreviewWidget*>()->pageCount();
        dialog.reject();
    });
    EXPECT_EQ(dialogs.preview(window, view), std::nullopt);
    EXPECT_EQ(previewed, 4);
}

TEST_F(PrintDialogs, PrintToAFileFromThePreviewAsWithoutIt) {
    CVReportView view(report(49 * 2), printInfo);
    whenShown<QPrintPreviewDialog>([this](QPrintPreviewDialog& dialog) {
        dialog.printer()->setOutputFileName(path);
        dialog.findChild<QPrintPreviewWidget*>()->print();
        dialog.reject();
    });
    EXPECT_EQ(dialogs.preview(window, view), std::nullopt);
    EXPECT_EQ(pages(), 2);
    EXPECT_TRUE(printed().contains("/Title")) << "as the program itself writes it";

    path = folder.filePath("missing/report.pdf");
    whenShown<QPrintPreviewDialog>([this](QPrintPreviewDialog& dialog) {
        dialog.printer()->setOutputFileName(path);
        dialog.findChild<QPrintPreviewWidget*>()->print();
        dialog.reject();
    });
    EXPECT_TRUE(dialogs.preview(window, view).value_or(QString()).contains("missing/report.pdf"));
}

TEST_F(PrintDialogs, PreviewThePagesThatWerePaintedBeforeItWasCancelled) {
    const ProgressDelay delay = ProgressDelay::none();
    CVReportView view(report(300'000), printInfo);
    int previewed = 0;
    whenShown<QProgressDialog>([&](QProgressDialog& progress) {
        progress.cancel();
        whenShown<QPrintPreviewDialog>([&previewed](QPrintPreviewDialog& dialog) {
            previewed = dialog.findChild<QPrintPreviewWidget*>()->pageCount();
            dialog.reject();
        });
    });
    EXPECT_EQ(dialogs.preview(window, view), std::nullopt);
    EXPECT_GT(previewed, 0);
    EXPECT_LT(previewed, view.knowsPageRange());
}

TEST_F(PrintDialogs, PreviewOnTheOtherSideWhenAsked) {
    CVReportView view(report(49), printInfo);
    int previewed = 0;
    whenShown<QPrintPreviewDialog>([&previewed](QPrintPreviewDialog& dialog) {
        auto* const pages = dialog.findChild<QPrintPreviewWidget*>();
        pages->setLandscapeOrientation();
        QTest::qWait(50);
        previewed = pages->pageCount();
        dialog.reject();
    });
    EXPECT_EQ(dialogs.preview(window, view), std::nullopt);
    EXPECT_EQ(previewed, 2) << "a sheet on its side holds 30 lines";
}

TEST_F(PrintDialogs, KeepTheButtonsOfThePageSetUpOnTheScreenHoweverLargeTheLettersAre) {
    const QFont usual = QApplication::font();
    for (const int letterPixels : {13, 26, 60}) {
        SCOPED_TRACE(letterPixels);
        QFont font = usual;
        font.setPixelSize(letterPixels);
        QApplication::setFont(font);
        whenShown<QPageSetupDialog>([](QPageSetupDialog& dialog) {
            const QRect screen = dialog.screen()->availableGeometry();
            EXPECT_LE(dialog.height(), screen.height());
            EXPECT_LE(dialog.width(), screen.width());
            const auto* const buttons = dialog.findChild<QDialogButtonBox*>();
            EXPECT_TRUE(dialog.rect().contains(buttons->geometry()));
            EXPECT_EQ(buttons->visibleRegion().boundingRect(), buttons->rect());
            auto* const papers = dialog.findChild<QComboBox*>("pageSizeCombo");
            EXPECT_FALSE(papers->visibleRegion().isEmpty());
            dialog.reject();
        });
        dialogs.setUpPage(window, printInfo);
    }
    QApplication::setFont(usual);
}

} // namespace
