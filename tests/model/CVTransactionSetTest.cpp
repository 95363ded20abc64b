#include "model/CVTransactionSet.h"

#include "kit/BudgetBuilder.h"
#include "kit/NotificationCounter.h"
#include "model/RecordingParsingDelegate.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(CVTransactionSet, BeginsWithoutANameAndWithID0) {
    const CVTransactionSet set;
    EXPECT_TRUE(set.transactionSetName().isNull());
    EXPECT_EQ(set.uniqueID(), 0U);
    EXPECT_EQ(set.document(), nullptr);
}

TEST(CVTransactionSet, KeepsACleanedNameAndAnnouncesNothing) {
    BudgetBuilder budget;
    budget.set("Checking", 27);
    NotificationCounter counter(budget.notificationCenter());
    CVTransactionSet& set = *budget.setNamed("Checking");
    set.setTransactionSetName("Checking");
    set.setTransactionSetName(QStringLiteral("Sav\u0001ings\r\n\uFFFF"));
    EXPECT_EQ(set.transactionSetName(), "Savings\n");
    set.setTransactionSetName(QString());
    EXPECT_TRUE(set.transactionSetName().isNull());
    set.setUniqueID(28);
    EXPECT_EQ(set.uniqueID(), 28U);
    EXPECT_EQ(set.document(), &budget.document());
    EXPECT_EQ(counter.total(), 0);
}

TEST(CVTransactionSetText, IsTheElementWithoutALineFeed) {
    CVTransactionSet set;
    EXPECT_EQ(set.xmlRepresentation(), R"(<TransactionSet id="0"></TransactionSet>)");
    set.setTransactionSetName("Checking");
    set.setUniqueID(27);
    EXPECT_EQ(set.xmlRepresentation(), R"(<TransactionSet id="27">Checking</TransactionSet>)");
    set.setTransactionSetName("<Lee> & \"Söhne\"");
    set.setUniqueID(4294967295U);
    EXPECT_EQ(set.xmlRepresentation(),
              R"(<TransactionSet id="4294967295">&lt;Lee&gt; &amp; &quot;Söhne&quot;</TransactionSet>)");
}

class CVTransactionSetParsing : public testing::Test {
protected:
    CVTransactionSet mSet;
    RecordingParsingDelegate mParser;
};

TEST_F(CVTransactionSetParsing, ReadsAWholeElement) {
    mParser.start(mSet, "TransactionSet", {"name", "x", "id", "27"});
    EXPECT_THAT(mParser.takeCalls(), ElementsAre("store"));
    mParser.end(mSet, "TransactionSet", "Checking & more");
    EXPECT_THAT(mParser.takeCalls(), ElementsAre("take", "pop TransactionSet"));
    EXPECT_EQ(mSet.uniqueID(), 27U);
    EXPECT_EQ(mSet.transactionSetName(), "Checking & more");
}

TEST_F(CVTransactionSetParsing, ReadsAnUnnamedSetBackWithAnEmptyName) {
    mParser.start(mSet, "TransactionSet", {"id", "0"});
    mParser.end(mSet, "TransactionSet");
    EXPECT_TRUE(mSet.transactionSetName().isEmpty());
    EXPECT_FALSE(mSet.transactionSetName().isNull());
}

TEST_F(CVTransactionSetParsing, TakesOnlyTheAttributeIdForTheID) {
    mParser.start(mSet, "TransactionSet", {"ID", "1", "ids", "2", "set_id", "3"});
    EXPECT_EQ(mSet.uniqueID(), 0U);
    mParser.start(mSet, "TransactionSet");
    EXPECT_EQ(mSet.uniqueID(), 0U);
    mParser.start(mSet, "TransactionSet", {"id", " 5x"});
    EXPECT_EQ(mSet.uniqueID(), 5U);
}

TEST_F(CVTransactionSetParsing, HasOtherElementsSkipped) {
    for (const char* const name : {"Note", "transactionSet", "TransactionSets", "Transaction", ""}) {
        mParser.start(mSet, name, {"id", "5"});
        EXPECT_THAT(mParser.takeCalls(), ElementsAre("skip", std::string("unknown ") + name));
    }
    EXPECT_EQ(mSet.uniqueID(), 0U);
}

TEST_F(CVTransactionSetParsing, IgnoresOtherEndTags) {
    for (const char* const name : {"Note", "transactionset", "TransactionSets", "Transaction", ""})
        mParser.end(mSet, name, "text");
    EXPECT_THAT(mParser.takeCalls(), IsEmpty());
    EXPECT_TRUE(mSet.transactionSetName().isNull());
}

} // namespace
