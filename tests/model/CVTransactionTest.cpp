#include "model/CVTransaction.h"

#include "kit/BudgetBuilder.h"
#include "kit/FixedToday.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(CVTransaction, BeginsTodayWithEmptyTextsAndNothingElse) {
    const FixedToday today(day(2014, 3, 7));
    const CVTransaction transaction;
    EXPECT_EQ(transaction.effectiveDate(), day(2014, 3, 7));
    EXPECT_TRUE(transaction.payTo().isEmpty());
    EXPECT_FALSE(transaction.payTo().isNull());
    EXPECT_TRUE(transaction.xfor().isEmpty());
    EXPECT_FALSE(transaction.xfor().isNull());
    EXPECT_EQ(transaction.amount(), 0);
    EXPECT_EQ(transaction.categoryID(), 0U);
    EXPECT_EQ(transaction.transactionSetID(), 0U);
    EXPECT_FALSE(transaction.taxFlag());
    EXPECT_FALSE(transaction.userFlag());
    EXPECT_EQ(transaction.document(), nullptr);
}

TEST(CVTransaction, ForTheReaderBeginsWithNothing) {
    const auto transaction = CVTransaction::initForFileRead();
    EXPECT_EQ(transaction->effectiveDate(), std::nullopt);
    EXPECT_TRUE(transaction->payTo().isNull());
    EXPECT_TRUE(transaction->xfor().isNull());
    EXPECT_EQ(transaction->amount(), 0);
    EXPECT_EQ(transaction->categoryID(), 0U);
    EXPECT_EQ(transaction->transactionSetID(), 0U);
    EXPECT_FALSE(transaction->taxFlag());
    EXPECT_FALSE(transaction->userFlag());
    EXPECT_EQ(transaction->document(), nullptr);
}

TEST(CVTransaction, HasTheNameOfItsCategory) {
    BudgetBuilder budget;
    budget.category("Food", 12).transaction({.category = "Food"}).transaction({.categoryID = 99});
    EXPECT_EQ(budget.transactionAt(0)->categoryName(), "Food");
    budget.categoryNamed("Food")->setCategoryName("Meals");
    EXPECT_EQ(budget.transactionAt(0)->categoryName(), "Meals");
    EXPECT_TRUE(budget.transactionAt(1)->categoryName().isNull());
}

TEST(CVTransaction, HasNoCategoryNameWithoutItsCategoryOrADocument) {
    BudgetBuilder budget;
    budget.category("Food", 12).transaction({.category = "Food"});
    budget.document().removeCategory(std::shared_ptr(budget.categoryNamed("Food")));
    EXPECT_TRUE(budget.transactionAt(0)->categoryName().isNull());
    EXPECT_EQ(budget.transactionAt(0)->categoryID(), 12U);
    EXPECT_TRUE(makeTransaction({.categoryID = 12})->categoryName().isNull());
}

struct WrittenRow {
    BudgetBuilder::Entry entry;
    const char* text = nullptr;
};

const WrittenRow kWritten[]{
    {{.date = day(2014, 3, 7),
      .amount = 45.1,
      .payTo = "Dr. Lee & Sons",
      .xfor = "Checkup",
      .categoryID = 12,
      .setID = 27,
      .taxFlag = true},
     "<Transaction categoryID=\"12\" flag=\"0\" tax_flag=\"1\" transaction_set_id=\"27\">"
     "<Data date=\"2014/03/07\" amount=\"45.10\" /><PayToFrom>Dr. Lee &amp; Sons</PayToFrom><For>Checkup</For>"
     "</Transaction>\n"},
    {{.date = day(2014, 3, 7)},
     "<Transaction categoryID=\"0\" flag=\"0\" tax_flag=\"0\" transaction_set_id=\"0\">"
     "<Data date=\"2014/03/07\" amount=\"0.00\" /><PayToFrom></PayToFrom><For></For></Transaction>\n"},
    {{.payTo = QString(), .xfor = QString()},
     "<Transaction categoryID=\"0\" flag=\"0\" tax_flag=\"0\" transaction_set_id=\"0\">"
     "<Data date=\"(null)\" amount=\"0.00\" /><PayToFrom></PayToFrom><For></For></Transaction>\n"},
    {{.date = day(10000, 1, 1), .amount = -0.004, .categoryID = 4294967295U, .setID = 4294967295U, .userFlag = true},
     "<Transaction categoryID=\"4294967295\" flag=\"1\" tax_flag=\"0\" transaction_set_id=\"4294967295\">"
     "<Data date=\"10000/01/01\" amount=\"-0.00\" /><PayToFrom></PayToFrom><For></For></Transaction>\n"},
    {{.date = day(812, 5, 5),
      .amount = 1234567.5,
      .payTo = "<b>\"Zoë's\"</b>\n",
      .xfor = "\t🍕",
      .taxFlag = true,
      .userFlag = true},
     "<Transaction categoryID=\"0\" flag=\"1\" tax_flag=\"1\" transaction_set_id=\"0\">"
     "<Data date=\"0812/05/05\" amount=\"1234567.50\" />"
     "<PayToFrom>&lt;b&gt;&quot;Zoë's&quot;&lt;/b&gt;\n</PayToFrom><For>\t🍕</For></Transaction>\n"},
};

TEST(CVTransactionText, IsTheElementWithItsLineFeed) {
    for (const WrittenRow& row : kWritten)
        EXPECT_EQ(makeTransaction(row.entry)->xmlRepresentation(), row.text);
}

TEST(CVTransactionText, HasRoomForTheLongestValues) {
    const QString text(1000, u'"');
    const auto transaction = makeTransaction({.date = day(-1'000'000'000, 12, 31),
                                              .amount = -std::numeric_limits<double>::max(),
                                              .payTo = text,
                                              .xfor = text,
                                              .categoryID = 4294967295U,
                                              .setID = 4294967295U});
    const QByteArray written = transaction->xmlRepresentation().toByteArray();
    EXPECT_TRUE(written.contains("date=\"-1000000000/12/31\" amount=\"-17976931348623157"));
    EXPECT_EQ(written.count("&quot;"), 2000);
    EXPECT_TRUE(written.endsWith("</For></Transaction>\n"));
}

TEST(CVTransactionText, IsRenderedOnceAndLiesWhereItWasRendered) {
    const auto transaction = makeTransaction({.date = day(2014, 3, 7)});
    CVTextArena first;
    const CVTextSlice slice = transaction->xmlRepresentation(first);
    CVTextArena second;
    const CVTextSlice again = transaction->xmlRepresentation(second);
    EXPECT_EQ(again.block, slice.block);
    EXPECT_EQ(again.offset, slice.offset);
    EXPECT_EQ(transaction->xmlRepresentation().data(), slice.bytes().data());
}

TEST(CVTransactionText, OutlivesItsArenaAndItsTransaction) {
    auto transaction = makeTransaction({.date = day(2014, 3, 7)});
    CVTextSlice slice;
    {
        CVTextArena arena;
        slice = transaction->xmlRepresentation(arena);
    }
    transaction.reset();
    EXPECT_TRUE(slice.bytes().toByteArray().startsWith("<Transaction "));
}

} // namespace
