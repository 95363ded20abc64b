#include "widgets/CVAlertPanel.h"

#include "kit/Printers.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

const CVAlert kThreeButtons{"Really?", "It <b>matters</b>.", "Do It", "Cancel", "Later"};
const CVAlert kOneButton{"Input Error", "You must select a category", "OK"};

/// Shows an alert and calls `act` once the alert is on the screen.
template <typename Act>
CVAlert::Answer run(const CVAlert& alert, Act act, QWidget* window = nullptr) {
    QTimer::singleShot(0, [act] {
        auto* const panel = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(panel, nullptr);
        act(*panel);
    });
    return CVAlertPanel().run(window, alert);
}

CVAlert::Answer click(const CVAlert& alert, const QString& label) {
    return run(alert, [label](QMessageBox& panel) {
        for (QAbstractButton* const button : panel.buttons()) {
            if (button->text() == label)
                button->click();
        }
    });
}

CVAlert::Answer press(const CVAlert& alert, Qt::Key key) {
    return run(alert, [key](QMessageBox& panel) { QTest::keyClick(&panel, key); });
}

TEST(CVAlertPanel, AnswersWithTheButtonThatWasChosen) {
    EXPECT_EQ(click(kThreeButtons, "Do It"), CVAlert::kDefault);
    EXPECT_EQ(click(kThreeButtons, "Cancel"), CVAlert::kAlternate);
    EXPECT_EQ(click(kThreeButtons, "Later"), CVAlert::kOther);
    EXPECT_EQ(click(kOneButton, "OK"), CVAlert::kDefault);
    EXPECT_EQ(CVAlert::kDefault, 1);
    EXPECT_EQ(CVAlert::kAlternate, 0);
    EXPECT_EQ(CVAlert::kOther, -1);
}

TEST(CVAlertPanel, AFourthButtonHasAnAnswerOfItsOwn) {
    CVAlert alert = kThreeButtons;
    alert.furtherButton = "Otherwise";
    EXPECT_EQ(click(alert, "Otherwise"), CVAlert::kFurther);
    EXPECT_EQ(click(alert, "Later"), CVAlert::kOther);
    EXPECT_EQ(press(alert, Qt::Key_Escape), CVAlert::kAlternate);
    EXPECT_EQ(press(alert, Qt::Key_Return), CVAlert::kDefault);
    EXPECT_EQ(CVAlert::kFurther, -2);
}

TEST(CVAlertPanel, ReturnAnswersWithTheDefaultButton) {
    EXPECT_EQ(press(kThreeButtons, Qt::Key_Return), CVAlert::kDefault);
    EXPECT_EQ(press(kOneButton, Qt::Key_Return), CVAlert::kDefault);
}

TEST(CVAlertPanel, EscapeAnswersWithTheAlternateButtonOrWithTheOnlyOne) {
    EXPECT_EQ(press(kThreeButtons, Qt::Key_Escape), CVAlert::kAlternate);
    EXPECT_EQ(press(kOneButton, Qt::Key_Escape), CVAlert::kDefault);
}

TEST(CVAlertPanel, EscapeAndClosingAnswerWithTheDefaultButtonWhereThatIsTheSafeOne) {
    CVAlert alert{"Really?", "It matters.", "No", "Yes"};
    alert.escapeAnswer = CVAlert::kDefault;
    EXPECT_EQ(press(alert, Qt::Key_Escape), CVAlert::kDefault);
    EXPECT_EQ(press(alert, Qt::Key_Return), CVAlert::kDefault);
    EXPECT_EQ(run(alert, [](QMessageBox& panel) { panel.close(); }), CVAlert::kDefault);
    EXPECT_EQ(run(alert, [](QMessageBox& panel) { panel.done(0); }), CVAlert::kDefault) << "ended without an answer";
    EXPECT_EQ(click(alert, "Yes"), CVAlert::kAlternate);
}

TEST(CVAlertPanel, EscapeAnswersWithTheOtherButtonWhereThatIsTheSafeOne) {
    CVAlert alert = kThreeButtons;
    alert.escapeAnswer = CVAlert::kOther;
    EXPECT_EQ(press(alert, Qt::Key_Escape), CVAlert::kOther);
    EXPECT_EQ(run(alert, [](QMessageBox& panel) { panel.close(); }), CVAlert::kOther);
    alert.otherButton.clear();
    EXPECT_EQ(press(alert, Qt::Key_Escape), CVAlert::kAlternate) << "there is no such button";
}

TEST(CVAlertPanel, ItsEndIsNotThatOfTheProgramAlthoughItIsTheOnlyWindow) {
    run(kOneButton, [](QMessageBox& panel) {
        EXPECT_FALSE(panel.testAttribute(Qt::WA_QuitOnClose));
        panel.reject();
    });
}

TEST(CVAlertPanel, ShowsItsTextsAsTheyAreAndBlocksTheWindowThatAsks) {
    QWidget window;
    window.show();
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    auto* const control = new QWidget(&window);
    const auto look = [&window](QMessageBox& panel) {
        EXPECT_EQ(panel.windowTitle(), "Corvella");
        EXPECT_EQ(panel.text(), "Really?");
        EXPECT_EQ(panel.informativeText(), "It <b>matters</b>.");
        EXPECT_EQ(panel.textFormat(), Qt::PlainText);
        EXPECT_EQ(panel.parentWidget(), &window);
        EXPECT_EQ(panel.windowModality(), Qt::WindowModal);
        EXPECT_EQ(panel.buttons().size(), 3);
        panel.reject();
    };
    run(kThreeButtons, look, &window);
    run(kThreeButtons, look, control);
}

TEST(CVAlertPanel, HasRoomForFortyFiveLettersHoweverShortItsHeadlineAndShowsALongOneWhole) {
    for (const QString& title :
         {QString("No"), QString("Are you REALLY sure you want to clear your Corvella data file?"),
          QString("word ").repeated(40).trimmed()}) {
        run({title, "A message of some words, which would be broken into many lines in a narrow panel.", "OK"},
            [&title](QMessageBox& panel) {
                QLabel* headline = nullptr;
                for (auto* const label : panel.findChildren<QLabel*>()) {
                    if (label->text() == title)
                        headline = label;
                }
                ASSERT_NE(headline, nullptr);
                EXPECT_TRUE(headline->font().bold());
                EXPECT_GE(headline->width(), 45 * panel.fontMetrics().averageCharWidth());
                if (headline->wordWrap())
                    EXPECT_GE(headline->height(), headline->heightForWidth(headline->width())) << "cut below";
                else
                    EXPECT_GE(headline->width(), headline->sizeHint().width()) << "cut at the right";
                panel.reject();
            });
    }
}

TEST(CVAlertPanel, BelongsToTheDialogThatBlocksTheWindowThatAsks) {
    QWidget window;
    window.show();
    QDialog dialog(&window);
    dialog.setModal(true);
    dialog.show();
    const auto belongsTo = [](QWidget* owner) {
        return [owner](QMessageBox& panel) {
            EXPECT_EQ(panel.parentWidget(), owner);
            panel.reject();
        };
    };
    run(kOneButton, belongsTo(&dialog), &window);
    run(kOneButton, belongsTo(&dialog), &dialog);
    QDialog onTop(&dialog);
    run(kOneButton, belongsTo(&dialog), &onTop);
}

TEST(CVAlertPanel, TheSheetOfOneWindowDoesNotTakeTheAlertOfAnother) {
    QWidget window;
    window.show();
    QWidget other;
    other.show();
    QDialog sheet(&other);
    sheet.setWindowModality(Qt::WindowModal);
    sheet.show();
    run(
        kOneButton,
        [&window](QMessageBox& panel) {
            EXPECT_EQ(panel.parentWidget(), &window);
            panel.reject();
        },
        &window);
    run(
        kOneButton,
        [&sheet](QMessageBox& panel) {
            EXPECT_EQ(panel.parentWidget(), &sheet);
            panel.reject();
        },
        &other);
}

TEST(CVAlertPanel, BelongsToAnotherWindowWhenTheOneThatAskedHasClosedMeanwhile) {
    QWidget window;
    window.show();
    QWidget closed;
    run(
        kOneButton,
        [&window](QMessageBox& panel) {
            EXPECT_EQ(panel.parentWidget(), &window);
            panel.reject();
        },
        &closed);
}

} // namespace
