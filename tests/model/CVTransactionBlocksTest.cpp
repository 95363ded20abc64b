#include "model/CVTransactionBlocks.h"

#include "kit/BudgetBuilder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>

namespace {

/// Enough transactions for several blocks, of which the last is not full.
constexpr std::size_t kMany = 1000;

std::vector<std::shared_ptr<CVTransaction>> make(std::size_t count) {
    CVTransactionBlocks blocks;
    std::vector<std::shared_ptr<CVTransaction>> made;
    for (std::size_t i = 0; i < count; ++i)
        made.push_back(blocks.next());
    return made;
}

TEST(CVTransactionBlocks, GiveTransactionsWithNothingSet) {
    for (const auto& transaction : make(kMany)) {
        EXPECT_EQ(transaction->effectiveDate(), std::nullopt);
        EXPECT_TRUE(transaction->payTo().isNull());
        EXPECT_TRUE(transaction->xfor().isNull());
        EXPECT_EQ(transaction->amount(), 0);
        EXPECT_EQ(transaction->categoryID(), 0U);
        EXPECT_EQ(transaction->document(), nullptr);
        EXPECT_EQ(transaction->xmlRepresentation(), CVTransaction::initForFileRead()->xmlRepresentation());
    }
}

TEST(CVTransactionBlocks, GiveEachTransactionAPlaceOfItsOwn) {
    const auto made = make(kMany);
    std::set<std::uintptr_t> places;
    for (std::size_t i = 0; i < made.size(); ++i) {
        made[i]->setCategoryID(static_cast<quint32>(i));
        places.insert(reinterpret_cast<std::uintptr_t>(made[i].get()));
    }
    ASSERT_EQ(places.size(), kMany);
    std::uintptr_t end = 0;
    for (const std::uintptr_t place : places) {
        EXPECT_EQ(place % alignof(CVTransaction), 0U);
        EXPECT_GE(place, end);
        end = place + sizeof(CVTransaction);
    }
    for (std::size_t i = 0; i < made.size(); ++i)
        EXPECT_EQ(made[i]->categoryID(), i);
}

TEST(CVTransactionBlocks, PlaceTransactionsSideBySide) {
    const auto made = make(2);
    EXPECT_EQ(made[1].get(), made[0].get() + 1);
}

TEST(CVTransactionBlocks, LeaveTransactionsToThoseWhoHoldThem) {
    std::shared_ptr<CVTransaction> kept;
    {
        BudgetBuilder budget;
        for (auto& transaction : make(kMany)) {
            transaction->setDocument(&budget.document());
            transaction->setPayTo(QStringLiteral("Baker"));
            budget.document().addTransaction(std::move(transaction));
        }
        kept = budget.document().transactions()[kMany / 2];
    }
    EXPECT_EQ(kept->document(), nullptr);
    EXPECT_EQ(kept->payTo(), "Baker");
    kept->setPayTo(QStringLiteral("Butcher"));
    EXPECT_TRUE(kept->xmlRepresentation().contains("<PayToFrom>Butcher</PayToFrom>"));
}

TEST(CVTransactionBlocks, FreeABlockWithTheLastOfItsTransactions) {
    auto made = make(2);
    const std::weak_ptr<CVTransaction> first = made[0];
    made.erase(made.begin());
    EXPECT_FALSE(first.expired());
    made.clear();
    EXPECT_TRUE(first.expired());
}

TEST(CVTransactionBlocks, HoldOnlyTheBlockThatIsBeingFilled) {
    CVTransactionBlocks blocks;
    const std::weak_ptr<CVTransaction> first = blocks.next();
    EXPECT_FALSE(first.expired());
    for (std::size_t i = 0; i < kMany; ++i)
        (void)blocks.next();
    EXPECT_TRUE(first.expired());
}

} // namespace
