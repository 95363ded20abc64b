#include "PrintDialogsFixture.h"
#include "kit/FixedToday.h"
#include "workspace/printing/CVPaperChoice.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPageSetupDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

TEST_F(PrintDialogs, HandAllPagesToTheQueueAtOnce) {
    const FixedToday today(day(2026, 11, 21));
    CVReportView view(report(49 * 3), printInfo);
    choosePrinter();
    EXPECT_EQ(dialogs.print(window, view), std::nullopt);
    ASSERT_EQ(queue.jobs().size(), 1);
    EXPECT_EQ(queue.jobs().first().pages(), 3);
    EXPECT_EQ(queue.jobs().first().name, "Transaction Report 2026-11-21");
    EXPECT_EQ(queue.jobs().first().copies, 1);
    EXPECT_FALSE(queue.jobs().first().document.contains("Total="));
}

TEST_F(PrintDialogs, HandSomePagesToTheQueue) {
    CVReportView view(report(49 * 5), printInfo);
    whenShown<QPrintDialog>([](QPrintDialog& dialog) {
        dialog.printer()->setFromTo(2, 3);
        dialog.done(QDialog::Accepted);
    });
    EXPECT_EQ(dialogs.print(window, view), std::nullopt);
    ASSERT_EQ(queue.jobs().size(), 1);
    EXPECT_EQ(queue.jobs().first().pages(), 2);
}

TEST_F(PrintDialogs, HandNothingToTheQueueOnceThePrintingIsCancelled) {
    const ProgressDelay delay = ProgressDelay::none();
    CVReportView view(report(300'000), printInfo);
    choosePrinter();
    bool wasShown = false;
    cancelProgress(wasShown);
    EXPECT_EQ(dialogs.print(window, view), std::nullopt);
    EXPECT_TRUE(wasShown);
    EXPECT_TRUE(queue.jobs().isEmpty());
}

TEST_F(PrintDialogs, TellWhyTheQueueRefusesThePages) {
    CVReportView view(report(1), printInfo);
    queue.refuse("The paper is out.");
    choosePrinter();
    const auto failure = dialogs.print(window, view);
    ASSERT_TRUE(failure.has_value());
    EXPECT_TRUE(failure->endsWith("does not accept the pages: The paper is out")) << failure->toStdString();
}

TEST_F(PrintDialogs, PrintOnThePaperOfThePageSetUpWhateverIsUsualForThePrinter) {
    printInfo.paper = QPageSize(QPageSize::A5);
    CVReportView view(report(1), printInfo);
    choosePrinter(QPageSize::Letter);
    EXPECT_EQ(dialogs.print(window, view), std::nullopt);
    ASSERT_EQ(queue.jobs().size(), 1);
    EXPECT_EQ(queue.jobs().first().paper, QPageSize::A5);
    EXPECT_TRUE(queue.jobs().first().document.contains("/MediaBox [0 0 420.000000 595.000000]"));
}

TEST_F(PrintDialogs, PrintFromThePreviewOnThePaperThatWasPreviewed) {
    printInfo.paper = QPageSize(QPageSize::A5);
    CVReportView view(report(1), printInfo);
    whenShown<QPrintPreviewDialog>([](QPrintPreviewDialog& dialog) {
        dialog.printer()->setPageSize(QPageSize(QPageSize::Letter));
        dialog.findChild<QPrintPreviewWidget*>()->print();
        dialog.reject();
    });
    EXPECT_EQ(dialogs.preview(window, view), std::nullopt);
    ASSERT_EQ(queue.jobs().size(), 1);
    EXPECT_EQ(queue.jobs().first().paper, QPageSize::A5);
}

/// The list of papers in the printer's properties or the page set-up.
QComboBox& papersIn(QDialog& dialog) {
    auto* const papers = dialog.findChild<QComboBox*>("pageSizeCombo");
    if (!papers)
        qFatal("there is no list of papers");
    return *papers;
}

void choosePaper(QDialog& dialog, const QString& paper) {
    QComboBox& papers = papersIn(dialog);
    papers.setCurrentIndex(papers.findText(paper, Qt::MatchStartsWith));
    ASSERT_GE(papers.currentIndex(), 0) << paper.toStdString();
}

TEST_F(PrintDialogs, PrintOnThePaperThatIsChosenThere) {
    CVReportView view(report(1), printInfo);
    QString offered;
    whenShown<QPrintDialog>([&](QPrintDialog& dialog) {
        dialog.findChild<QLineEdit*>("filename")->setText(path);
        whenShown<QDialog>([&offered](QDialog& properties) {
            offered = papersIn(properties).currentText();
            choosePaper(properties, "A5");
            properties.findChild<QRadioButton*>("landscape")->click();
            properties.accept();
        });
        dialog.findChild<QPushButton*>("properties")->click();
        dialog.accept();
    });
    EXPECT_EQ(dialogs.print(window, view), std::nullopt);
    EXPECT_TRUE(offered.startsWith("A4")) << offered.toStdString();
    EXPECT_EQ(view.printInfo().paper.id(), QPageSize::A5);
    EXPECT_EQ(view.printInfo().orientation, QPageLayout::Landscape);
    EXPECT_EQ(printInfo.paper.id(), QPageSize::A4) << "for this printing alone";
}

TEST_F(PrintDialogs, SetThePageUp) {
    whenShown<QPageSetupDialog>([](QPageSetupDialog& dialog) {
        choosePaper(dialog, "A5");
        dialog.findChild<QRadioButton*>("landscape")->click();
        dialog.accept();
    });
    dialogs.setUpPage(window, printInfo);
    EXPECT_EQ(printInfo.paper.id(), QPageSize::A5);
    EXPECT_EQ(printInfo.orientation, QPageLayout::Landscape);
    EXPECT_EQ(printInfo.margins, QMarginsF(72, 72, 72, 72));

    whenShown<QPageSetupDialog>([](QPageSetupDialog& dialog) {
        choosePaper(dialog, "A3");
        dialog.reject();
    });
    dialogs.setUpPage(window, printInfo);
    EXPECT_EQ(printInfo.paper.id(), QPageSize::A5);
}

TEST_F(PrintDialogs, OfferPaperOfASizeOfTheUsersOwnAgain) {
    printInfo.paper = QPageSize(QSizeF(300, 400), QPageSize::Point);
    QString offered;
    whenShown<QPageSetupDialog>([&offered](QPageSetupDialog& dialog) {
        offered = papersIn(dialog).currentText();
        dialog.accept();
    });
    const CVPrintInfo before = printInfo;
    dialogs.setUpPage(window, printInfo);
    EXPECT_TRUE(offered.startsWith("Custom")) << offered.toStdString();
    EXPECT_EQ(printInfo.paperSize(), before.paperSize());
}

/// A printer properties dialog like the toolkit's, which always begins with the default paper of the queue.
struct PropertiesOfAPrinter : QDialog {
    explicit PropertiesOfAPrinter(QWidget* parent) : QDialog(parent) {
        papers->setObjectName("pageSizeCombo");
        for (const auto paper : {QPageSize::Letter, QPageSize::A4, QPageSize::A5})
            papers->addItem(QPageSize::name(paper), QVariant::fromValue(QPageSize(paper)));
        (new QVBoxLayout(this))->addWidget(papers);
    }

    [[nodiscard]] QPageSize::PageSizeId paper() const { return papers->currentData().value<QPageSize>().id(); }

    QComboBox* papers = new QComboBox(this);
};

struct PaperChoice : testing::Test {
    static void SetUpTestSuite() { PrintDialogs::SetUpTestSuite(); }

    QPrinter printer{QPrinter::HighResolution};
    QPrintDialog dialog{&printer};
    CVPaperChoice choice{dialog, QPageSize(QPageSize::A4)};
};

TEST_F(PaperChoice, IsOfferedInThePropertiesWheneverTheyOpen) {
    PropertiesOfAPrinter properties(&dialog);
    for (int time = 0; time < 2; ++time) {
        properties.papers->setCurrentIndex(0);
        properties.show();
        EXPECT_EQ(properties.paper(), QPageSize::A4) << time;
        properties.reject();
    }
    dialog.done(QDialog::Accepted);
    EXPECT_EQ(choice.paperOn(printer).id(), QPageSize::A4);
}

TEST_F(PaperChoice, IsTheUsersOnceBothDialogsAreAccepted) {
    PropertiesOfAPrinter properties(&dialog);
    const auto chooseA5 = [&properties] {
        properties.show();
        properties.papers->setCurrentIndex(2);
        properties.accept();
    };
    chooseA5();
    EXPECT_EQ(choice.paperOn(printer).id(), QPageSize::A4) << "nothing is printed yet";
    dialog.done(QDialog::Rejected);
    EXPECT_EQ(choice.paperOn(printer).id(), QPageSize::A4);
    chooseA5();
    dialog.done(QDialog::Accepted);
    EXPECT_EQ(choice.paperOn(printer).id(), QPageSize::A5);
}

TEST_F(PaperChoice, IsAddedWhereThePrinterDoesNotNameIt) {
    QPrintDialog other(&printer);
    const CVPaperChoice tabloid(other, QPageSize(QPageSize::Tabloid));
    PropertiesOfAPrinter properties(&other);
    properties.show();
    EXPECT_EQ(properties.paper(), QPageSize::Tabloid);
}

} // namespace
