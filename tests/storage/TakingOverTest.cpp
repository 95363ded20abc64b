#include "kit/RandomBudget.h"
#include "model/CVDetachedDocument.h"
#include "storage/CVDocumentReader.h"
#include "storage/CVDocumentXML.h"

#include <gtest/gtest.h>

#include <set>

namespace {

QByteArray textOf(const CVDocument& document) {
    return CVDocumentXMLRepresentation(document).joined();
}

/// The same budget as the data file gives it to another program.
std::unique_ptr<CVDetachedDocument> readAgain(const QByteArray& text) {
    auto document = std::make_unique<CVDetachedDocument>();
    EXPECT_TRUE(CVDocumentReader().readFromData(**document, text, QLatin1String(CVDocumentReader::kXMLDocumentType)));
    return document;
}

TEST(TakingOver, givesTheOtherBudgetToTheByteApartFromTheShownSet) {
    for (quint32 seed = 0; seed < 300; ++seed) {
        RandomBudget ours(seed);
        RandomBudget theirs(seed);
        for (quint32 change = seed % 7; change > 0; --change)
            theirs.change();
        const auto other = readAgain(textOf(theirs.document()));
        const auto expected = readAgain(textOf(theirs.document()));
        CVDocument& document = ours.document();
        const quint32 shown = document.currentTransactionSet();
        (void)document.takeOver(**other);
        const bool isThere = std::any_of(document.transactionSets().begin(), document.transactionSets().end(),
                                         [shown](const auto& set) { return set->uniqueID() == shown; });
        if (isThere)
            (*expected)->setCurrentTransactionSet(shown);
        EXPECT_EQ(textOf(document), textOf(**expected)) << "seed " << seed;
        for (const auto& transaction : document.transactions())
            EXPECT_EQ(transaction->document(), &document);
        EXPECT_TRUE((*other)->transactions().empty());
    }
}

TEST(TakingOver, saysWhetherAnythingButTheShownSetIsDifferent) {
    BudgetBuilder ours;
    ours.category("Food", 1).set("Checking", 2).set("Savings", 3).currentSet(2).lastID(3);
    ours.transaction({.date = day(2020, 1, 2), .payTo = "Baker", .category = "Food", .set = "Checking"});
    const auto same = readAgain(textOf(ours.document()));
    (*same)->setCurrentTransactionSet(3);
    EXPECT_FALSE(ours.document().takeOver(**same));
    EXPECT_EQ(ours.document().currentTransactionSet(), 2U);
    const auto renamed = readAgain(textOf(ours.document()));
    (*renamed)->categories()[0]->setCategoryName("Groceries");
    EXPECT_TRUE(ours.document().takeOver(**renamed));
    const auto removed = readAgain(textOf(ours.document()));
    (*removed)->removeTransactions(std::vector{(*removed)->transactions()[0]});
    EXPECT_TRUE(ours.document().takeOver(**removed));
    EXPECT_TRUE(ours.document().transactions().empty());
}

TEST(TakingOver, keepsTheObjectsOfTransactionsThatSayTheSame) {
    BudgetBuilder ours;
    for (const char* const payee : {"Baker", "Grocer", "Grocer", "Butcher"})
        ours.transaction({.date = day(2020, 1, 2), .payTo = payee});
    const CVTransactions before = ours.document().transactions();
    const auto other = readAgain(textOf(ours.document()));
    (*other)->transactions()[0]->setPayTo("Bakery");
    EXPECT_TRUE(ours.document().takeOver(**other));
    const CVTransactions& after = ours.document().transactions();
    ASSERT_EQ(after.size(), 4U);
    EXPECT_EQ(after[0]->payTo(), "Bakery");
    EXPECT_NE(after[0], before[0]);
    EXPECT_EQ((std::set{after[1], after[2]}), (std::set{before[1], before[2]}));
    EXPECT_EQ(after[3], before[3]);
    EXPECT_EQ(before[0]->document(), nullptr);
}

} // namespace
