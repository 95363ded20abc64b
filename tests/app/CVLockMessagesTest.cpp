#include "app/CVLockMessages.h"

#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using Asked = CVLockMessages::Asked;
using BudgetLockOutcome = CVBudgetLock::Outcome;

CVLockHolder annaOnDesk() {
    return {"desk", "anna", "m", "b", 7, 7, "p", "t"};
}

CVLockHolder annaHere() {
    CVLockHolder holder = CVLockHolder::ofThisProcess();
    holder.user = "anna";
    holder.process = 7;
    return holder;
}

const QDateTime kSign(QDate::currentDate(), QTime(14, 2, 5));

TEST(CVLockMessages, SayWhoHasItOpenAndWhatCanBeDone) {
    const CVAlert elsewhere = CVLockMessages::held({BudgetLockOutcome::Held, annaOnDesk(), kSign},
                                                   "/share/Corvella Data.corvella", Asked::AtStart, {});
    EXPECT_EQ(elsewhere.title, "The budget is open elsewhere");
    EXPECT_EQ(
        elsewhere.message,
        "anna has “Corvella Data.corvella” open on “desk”, with the last sign of life at 14:02:05. If that computer "
        "was switched off, the budget is free five minutes after its last sign of life.\n\nRead-only you can look at "
        "it, search, print and export, but change nothing.");
    const CVAlert here = CVLockMessages::held({BudgetLockOutcome::Held, annaHere(), kSign},
                                              "/share/Corvella Data.corvella", Asked::AtStart, QTime(14, 3, 6));
    EXPECT_TRUE(here.message.startsWith("Corvella tried again at 14:03:06. anna has “Corvella Data.corvella” open in "
                                        "another Corvella on this computer (process 7).\n\n"))
        << here.message.toStdString();
}

TEST(CVLockMessages, OfADayBeforeSayTheDate) {
    const CVAlert alert =
        CVLockMessages::held({BudgetLockOutcome::Held, annaOnDesk(), kSign.addDays(-1)}, "/f", Asked::AtStart, {});
    EXPECT_FALSE(alert.message.contains("sign of life at 14:02:05"));
}

struct ButtonsRow {
    Asked asked;
    BudgetLockOutcome outcome;
    const char* buttons;
};

const std::array kButtons{
    ButtonsRow{Asked::AtStart, BudgetLockOutcome::Held, "Open Read-Only|Quit|Try Again|"},
    ButtonsRow{Asked::ForOtherFile, BudgetLockOutcome::Held, "Open Read-Only|Cancel|Try Again|"},
    ButtonsRow{Asked::ForReplacing, BudgetLockOutcome::Held, "Try Again|Cancel||"},
    ButtonsRow{Asked::ToEdit, BudgetLockOutcome::Held, "Try Again|Cancel||"},
    ButtonsRow{Asked::AtStart, BudgetLockOutcome::Doubtful, "Open Read-Only|Quit|Try Again|Open Anyway…"},
    ButtonsRow{Asked::ForOtherFile, BudgetLockOutcome::Doubtful, "Open Read-Only|Cancel|Try Again|Open Anyway…"},
    ButtonsRow{Asked::ForReplacing, BudgetLockOutcome::Doubtful, "Try Again|Cancel||Replace Anyway…"},
    ButtonsRow{Asked::ToEdit, BudgetLockOutcome::Doubtful, "Try Again|Cancel||Open Anyway…"},
};

TEST(CVLockMessages, OfferWhatIsPossible) {
    for (const ButtonsRow& row : kButtons) {
        for (const bool isKnown : {true, false}) {
            // A lock that is held is known.
            if (row.outcome == BudgetLockOutcome::Held && !isKnown)
                continue;
            const auto holder = isKnown ? std::optional(annaOnDesk()) : std::nullopt;
            const CVAlert alert = CVLockMessages::held({row.outcome, holder, kSign}, "/share/f", row.asked, {});
            EXPECT_EQ(
                (QStringList{alert.defaultButton, alert.alternateButton, alert.otherButton, alert.furtherButton}.join(
                    '|')),
                row.buttons);
            EXPECT_EQ(alert.escapeAnswer, CVAlert::kAlternate);
            EXPECT_TRUE(alert.message.contains("“f”")) << alert.message.toStdString();
        }
    }
}

TEST(CVLockMessages, SayInTheWindowWhyNothingCanBeChanged) {
    EXPECT_EQ(CVLockMessages::readOnly(annaOnDesk(), {}), "Read-only: anna has this budget open on “desk”.");
    EXPECT_EQ(CVLockMessages::readOnly(annaHere(), QTime(14, 3, 6)),
              "Read-only: anna has this budget open in another Corvella on this computer. Still so at 14:03:06.");
    EXPECT_EQ(CVLockMessages::readOnly({}, {}), "Read-only: this budget may be open in another Corvella.");
    EXPECT_EQ(CVLockMessages::lost(annaOnDesk()), "anna has opened this budget on “desk” too.");
}

TEST(CVLockMessages, AskOnceMoreBeforeALockIsOverridden) {
    EXPECT_EQ(CVLockMessages::overridden(Asked::AtStart).defaultButton, "Open Anyway");
    EXPECT_EQ(CVLockMessages::overridden(Asked::ForReplacing).defaultButton, "Replace Anyway");
    EXPECT_EQ(CVLockMessages::overridden(Asked::AtStart).escapeAnswer, CVAlert::kAlternate);
}

} // namespace
