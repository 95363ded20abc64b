#include "kit/BudgetBuilder.h"
#include "model/CVCategory.h"
#include "model/RecordingParsingDelegate.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CVCategoryParsing : public testing::Test {
protected:
    CVCategory mCategory;
    RecordingParsingDelegate mParser;
};

TEST_F(CVCategoryParsing, ReadsAWholeElement) {
    mParser.start(mCategory, "Category", {"id", "12"});
    EXPECT_THAT(mParser.takeCalls(), ElementsAre("store"));
    mParser.start(mCategory, "ExpenseEstimates", {"frequency", "Quarterly", "target", "50.25"});
    mParser.end(mCategory, "ExpenseEstimates");
    EXPECT_THAT(mParser.takeCalls(), IsEmpty());
    mParser.end(mCategory, "Category", "Medical & more");
    EXPECT_THAT(mParser.takeCalls(), ElementsAre("take", "pop Category"));

    EXPECT_EQ(mCategory.uniqueID(), 12U);
    EXPECT_EQ(mCategory.categoryName(), "Medical & more");
    EXPECT_EQ(mCategory.expenseFrequency(), CVExpenseFrequency::kQuarterly);
    EXPECT_EQ(mCategory.expenseTarget(), 50.25);
}

TEST_F(CVCategoryParsing, KeepsItsDefaultsForWhatTheFileLeavesOut) {
    mParser.start(mCategory, "Category");
    mParser.start(mCategory, "ExpenseEstimates");
    mParser.end(mCategory, "Category", "x");
    EXPECT_EQ(mCategory.uniqueID(), 0U);
    EXPECT_EQ(mCategory.expenseFrequency(), CVExpenseFrequency::kWeekly);
    EXPECT_EQ(mCategory.expenseTarget(), 0);
    EXPECT_EQ(mCategory.budgetExpenseFrequency(), CVExpenseFrequency::kMonthly);
}

TEST_F(CVCategoryParsing, TakesOnlyTheAttributeIdForTheID) {
    mParser.start(mCategory, "Category",
                  {"ID", "1", "ids", "2", "i", "3", "categoryID", "4", "target", "5", "freq", "Monthly"});
    EXPECT_EQ(mCategory.uniqueID(), 0U);
    EXPECT_EQ(mCategory.expenseTarget(), 0);
    EXPECT_EQ(mCategory.expenseFrequency(), 0);
    mParser.start(mCategory, "Category", {"x", "1", "id", " 12abc"});
    EXPECT_EQ(mCategory.uniqueID(), 12U);
}

struct FrequencyRow {
    const char* attribute;
    const char* value;
    qint64 code;
};

constexpr qint64 kUntouched = 99;

TEST_F(CVCategoryParsing, TakesEveryAttributeThatBeginsWithFreqForTheFrequency) {
    const FrequencyRow rows[]{
        {"frequency", "Semi-Monthly", 2},
        {"frequencies", "Annually", 7},
        {"freqX", "Bi-Weekly", 1},
        {"freq", "Weekly", 0},
        {"frequency", "monthly", -1},
        {"frequency", "(null)", -1},
        {"frequency", "", -1},
        {"freqX", "sometimes", -1},
        {"fre", "Monthly", kUntouched},
        {"Frequency", "Monthly", kUntouched},
        {"FREQ", "Monthly", kUntouched},
        {"a_freq", "Monthly", kUntouched},
        {"", "Monthly", kUntouched},
    };
    for (const FrequencyRow& row : rows) {
        SCOPED_TRACE(std::string(row.attribute) + '=' + row.value);
        mCategory.setExpenseFrequency(kUntouched);
        mParser.start(mCategory, "ExpenseEstimates", {row.attribute, row.value});
        EXPECT_EQ(mCategory.expenseFrequency(), row.code);
    }
}

TEST_F(CVCategoryParsing, TakesTheLastOfSeveralFrequencies) {
    mParser.start(mCategory, "ExpenseEstimates", {"frequency", "Monthly", "freqX", "Annually"});
    EXPECT_EQ(mCategory.expenseFrequency(), CVExpenseFrequency::kAnnually);
}

TEST_F(CVCategoryParsing, ReadsTheNumberWithWhichTheTargetBegins) {
    mParser.start(mCategory, "ExpenseEstimates", {"target", "-12.5 each"});
    EXPECT_EQ(mCategory.expenseTarget(), -12.5);
    mParser.start(mCategory, "ExpenseEstimates", {"targets", "1", "Target", "1", "targe", "1", "id", "9"});
    EXPECT_EQ(mCategory.expenseTarget(), -12.5);
    EXPECT_EQ(mCategory.uniqueID(), 0U);
    mParser.start(mCategory, "ExpenseEstimates", {"target", "nan"});
    EXPECT_EQ(mCategory.expenseTarget(), 0);
}

TEST_F(CVCategoryParsing, HasOtherElementsSkipped) {
    for (const char* const name :
         {"Note", "category", "Categories", "Expense", "ExpenseEstimate", "expenseEstimates", ""}) {
        mParser.start(mCategory, name, {"id", "5", "frequency", "Monthly", "target", "5"});
        EXPECT_THAT(mParser.takeCalls(), ElementsAre("skip", std::string("unknown ") + name));
    }
    EXPECT_EQ(mCategory.uniqueID(), 0U);
    EXPECT_EQ(mCategory.expenseFrequency(), 0);
    EXPECT_EQ(mCategory.expenseTarget(), 0);
}

TEST_F(CVCategoryParsing, IgnoresOtherEndTags) {
    for (const char* const name : {"ExpenseEstimates", "Note", "category", "Categories", ""})
        mParser.end(mCategory, name, "text");
    EXPECT_THAT(mParser.takeCalls(), IsEmpty());
    EXPECT_TRUE(mCategory.categoryName().isEmpty());
}

} // namespace
