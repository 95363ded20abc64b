#include "contents/CVEntry.h"

#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

const char* const kAmountTooSmall = "Transaction amounts must be greater than 0.00";
const char* const kNoRecipient = "You must specify the recipient";
const char* const kNoCategory = "You must select a category";

CVEntry entry(double amount, const QString& payTo, const QString& category) {
    CVEntry entry;
    entry.amount = amount;
    entry.payTo = payTo;
    entry.category = category;
    return entry;
}

TEST(CVFirstProblemOfEntry, IsTheFirstOfAmountRecipientAndCategory) {
    struct {
        CVEntry entry;
        CVEntryField field = CVEntryField::Date;
        const char* message = nullptr;
    } const rows[] = {
        {entry(0.009, "Market", "Food"), CVEntryField::Amount, kAmountTooSmall},
        {entry(0, "Market", "Food"), CVEntryField::Amount, kAmountTooSmall},
        {entry(-5, "Market", "Food"), CVEntryField::Amount, kAmountTooSmall},
        {entry(std::numeric_limits<double>::quiet_NaN(), "Market", "Food"), CVEntryField::Amount, kAmountTooSmall},
        {entry(0, "", ""), CVEntryField::Amount, kAmountTooSmall},
        {entry(1, "", ""), CVEntryField::PayTo, kNoRecipient},
        {entry(1, QString(), "Food"), CVEntryField::PayTo, kNoRecipient},
        {entry(1, "Market", ""), CVEntryField::Category, kNoCategory},
        {entry(1, "Market", QString()), CVEntryField::Category, kNoCategory},
    };
    for (const auto& row : rows) {
        const auto problem = CVFirstProblemOfEntry(row.entry);
        ASSERT_TRUE(problem);
        EXPECT_EQ(problem->title, "Input Error");
        EXPECT_EQ(problem->message, row.message);
        EXPECT_EQ(problem->field, row.field);
    }
}

TEST(CVFirstProblemOfEntry, IsAbsentForAnEntryThatCanBeRecorded) {
    EXPECT_FALSE(CVFirstProblemOfEntry(entry(0.01, "Market", "Food")));
    EXPECT_FALSE(CVFirstProblemOfEntry(entry(1e12, " ", " "))) << "blanks are a text";
}

} // namespace
