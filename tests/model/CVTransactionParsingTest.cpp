#include "kit/BudgetBuilder.h"
#include "model/CVTransaction.h"
#include "model/RecordingParsingDelegate.h"

#include <gmock/gmock.h>

#include <limits>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CVTransactionParsing : public testing::Test {
protected:
    std::shared_ptr<CVTransaction> mTransaction = CVTransaction::initForFileRead();
    RecordingParsingDelegate mParser;
};

TEST_F(CVTransactionParsing, ReadsAWholeElement) {
    mParser.start(*mTransaction, "Transaction",
                  {"categoryID", "12", "flag", "1", "tax_flag", "0", "transaction_set_id", "27"});
    mParser.start(*mTransaction, "Data", {"date", "2014/03/07", "amount", "45.10"});
    mParser.end(*mTransaction, "Data");
    EXPECT_THAT(mParser.takeCalls(), IsEmpty());
    mParser.start(*mTransaction, "PayToFrom");
    EXPECT_THAT(mParser.takeCalls(), ElementsAre("store"));
    mParser.end(*mTransaction, "PayToFrom", "Dr. Lee & Sons");
    EXPECT_THAT(mParser.takeCalls(), ElementsAre("take"));
    mParser.start(*mTransaction, "For");
    EXPECT_THAT(mParser.takeCalls(), ElementsAre("store"));
    mParser.end(*mTransaction, "For", "Checkup");
    EXPECT_THAT(mParser.takeCalls(), ElementsAre("take"));
    mParser.end(*mTransaction, "Transaction");
    EXPECT_THAT(mParser.takeCalls(), ElementsAre("pop Transaction"));

    EXPECT_EQ(mTransaction->categoryID(), 12U);
    EXPECT_TRUE(mTransaction->userFlag());
    EXPECT_FALSE(mTransaction->taxFlag());
    EXPECT_EQ(mTransaction->transactionSetID(), 27U);
    EXPECT_EQ(mTransaction->effectiveDate(), day(2014, 3, 7));
    EXPECT_EQ(mTransaction->amount(), 45.1);
    EXPECT_EQ(mTransaction->payTo(), "Dr. Lee & Sons");
    EXPECT_EQ(mTransaction->xfor(), "Checkup");
}

TEST_F(CVTransactionParsing, LeavesOutWhatTheFileLeavesOut) {
    mParser.start(*mTransaction, "Transaction");
    mParser.start(*mTransaction, "Data");
    mParser.end(*mTransaction, "Data");
    mParser.end(*mTransaction, "Transaction");
    EXPECT_EQ(mTransaction->effectiveDate(), std::nullopt);
    EXPECT_EQ(mTransaction->amount(), 0);
    EXPECT_TRUE(mTransaction->payTo().isNull());
    EXPECT_TRUE(mTransaction->xfor().isNull());
    EXPECT_EQ(mTransaction->categoryID(), 0U);
}

struct FlagRow {
    const char* value;
    bool set;
};

TEST_F(CVTransactionParsing, TakesAFlagAsSetWhenItsValueBeginsWithOne) {
    for (const auto& [value, set] :
         {FlagRow{"1", true}, FlagRow{"1x", true}, FlagRow{"10", true}, FlagRow{"0", false}, FlagRow{"true", false},
          FlagRow{"", false}, FlagRow{" 1", false}, FlagRow{"01", false}, FlagRow{"-1", false}, FlagRow{"2", false}}) {
        SCOPED_TRACE(value);
        // The flags start in the opposite state, so that the parsed value must set them.
        mTransaction->setUserFlag(!set);
        mTransaction->setTaxFlag(set);
        mParser.start(*mTransaction, "Transaction", {"flag", value});
        EXPECT_EQ(mTransaction->userFlag(), set);
        EXPECT_EQ(mTransaction->taxFlag(), set);
        mTransaction->setTaxFlag(!set);
        mParser.start(*mTransaction, "Transaction", {"tax_flag", value});
        EXPECT_EQ(mTransaction->taxFlag(), set);
        EXPECT_EQ(mTransaction->userFlag(), set);
    }
}

struct NumberRow {
    const char* value;
    quint32 id;
    double amount;
};

TEST_F(CVTransactionParsing, ReadsTheNumberWithWhichAValueBegins) {
    for (const auto& [value, id, amount] :
         {NumberRow{"12", 12, 12}, NumberRow{" 12abc", 12, 12}, NumberRow{"12.75", 12, 12.75}, NumberRow{"", 0, 0},
          NumberRow{"x", 0, 0}, NumberRow{"4294967295", 4294967295U, 4294967295.0}, NumberRow{"nan", 0, 0},
          NumberRow{"-1", 4294967295U, -1}, NumberRow{"1e2", 1, 100}, NumberRow{"1,5", 1, 1}}) {
        SCOPED_TRACE(value);
        mTransaction->setCategoryID(77);
        mTransaction->setTransactionSetID(77);
        mTransaction->setAmount(77);
        mParser.start(*mTransaction, "Transaction", {"categoryID", value, "transaction_set_id", value});
        mParser.start(*mTransaction, "Data", {"amount", value});
        EXPECT_EQ(mTransaction->categoryID(), id);
        EXPECT_EQ(mTransaction->transactionSetID(), id);
        EXPECT_EQ(mTransaction->amount(), amount);
    }
}

TEST_F(CVTransactionParsing, IgnoresOtherAttributes) {
    mParser.start(*mTransaction, "Transaction",
                  {"categoryid", "1", "categoryIDs", "1", "category",        "1", "Flag", "1",          "flags",  "1",
                   "tax_flag2",  "1", "tax",         "1", "transaction_set", "1", "date", "2014/03/07", "amount", "1",
                   "id",         "1"});
    mParser.start(*mTransaction, "Data",
                  {"Date", "2014/03/07", "dates", "2014/03/07", "amounts", "1", "Amount", "1", "flag", "1",
                   "categoryID", "1", "transaction_set_id", "1", "tax_flag", "1"});
    EXPECT_THAT(mParser.takeCalls(), IsEmpty());
    EXPECT_EQ(mTransaction->categoryID(), 0U);
    EXPECT_EQ(mTransaction->transactionSetID(), 0U);
    EXPECT_FALSE(mTransaction->userFlag());
    EXPECT_FALSE(mTransaction->taxFlag());
    EXPECT_EQ(mTransaction->effectiveDate(), std::nullopt);
    EXPECT_EQ(mTransaction->amount(), 0);
}

TEST_F(CVTransactionParsing, ReplacesAnEarlierDateAlsoByNone) {
    mParser.start(*mTransaction, "Data", {"date", "2014/03/07"});
    mParser.start(*mTransaction, "Data", {"date", "2015/01/02"});
    EXPECT_EQ(mTransaction->effectiveDate(), day(2015, 1, 2));
    mParser.start(*mTransaction, "Data", {"amount", "5"});
    EXPECT_EQ(mTransaction->effectiveDate(), day(2015, 1, 2));
    mParser.start(*mTransaction, "Data", {"date", "(null)"});
    EXPECT_EQ(mTransaction->effectiveDate(), std::nullopt);
}

TEST_F(CVTransactionParsing, HasOtherElementsSkipped) {
    for (const char* const name :
         {"Note", "transaction", "Transactions", "Dat", "Data2", "PayTo", "PayToFromX", "for", "Fo", "Category", ""}) {
        mParser.start(*mTransaction, name, {"date", "2014/03/07", "categoryID", "5"});
        EXPECT_THAT(mParser.takeCalls(), ElementsAre("skip", std::string("unknown ") + name));
    }
    EXPECT_EQ(mTransaction->effectiveDate(), std::nullopt);
    EXPECT_EQ(mTransaction->categoryID(), 0U);
}

TEST_F(CVTransactionParsing, IgnoresOtherEndTags) {
    for (const char* const name : {"Data", "Note", "transaction", "Transactions", "PayTo", "fors", "F", ""})
        mParser.end(*mTransaction, name, "text");
    EXPECT_THAT(mParser.takeCalls(), IsEmpty());
    EXPECT_TRUE(mTransaction->payTo().isNull());
    EXPECT_TRUE(mTransaction->xfor().isNull());
}

TEST_F(CVTransactionParsing, TakesTextsAsTheyAreGiven) {
    mParser.end(*mTransaction, "PayToFrom", QString());
    mParser.end(*mTransaction, "For", " padded\n");
    EXPECT_TRUE(mTransaction->payTo().isNull());
    EXPECT_EQ(mTransaction->xfor(), " padded\n");
    mParser.end(*mTransaction, "PayToFrom", "a");
    mParser.end(*mTransaction, "For", QLatin1String(""));
    EXPECT_EQ(mTransaction->payTo(), "a");
    EXPECT_TRUE(mTransaction->xfor().isEmpty());
    EXPECT_FALSE(mTransaction->xfor().isNull());
}

} // namespace
