#include "base/CVNotifications.h"
#include "kit/BudgetBuilder.h"
#include "kit/FixedToday.h"
#include "kit/NotificationCounter.h"
#include "kit/RandomBudget.h"

#include <gmock/gmock.h>

#include <vector>

namespace {

using testing::ElementsAre;

/// The days of the document's transactions in their order.
std::vector<std::optional<QBDate>> daysOf(const CVDocument& document) {
    std::vector<std::optional<QBDate>> days;
    for (const auto& transaction : document.transactions())
        days.push_back(transaction->effectiveDate());
    return days;
}

TEST(CVDocumentInsert, PlacesNewerBeforeOlderAndTheUndatedLast) {
    BudgetBuilder budget;
    CVDocument& document = budget.document();
    for (const auto& date : {std::optional(day(2014, 3, 7)), std::optional(day(2014, 3, 9)), std::optional<QBDate>(),
                             std::optional(day(2014, 3, 1)), std::optional(day(2014, 3, 8))})
        document.insertTransaction(makeTransaction({.date = date}));
    EXPECT_THAT(daysOf(document),
                ElementsAre(day(2014, 3, 9), day(2014, 3, 8), day(2014, 3, 7), day(2014, 3, 1), std::nullopt));
}

TEST(CVDocumentInsert, PutsTheFirstTheNewestAndTheOldestAtTheEnds) {
    BudgetBuilder budget;
    CVDocument& document = budget.document();
    const auto first = makeTransaction({.date = day(2014, 3, 7)});
    document.insertTransaction(first);
    EXPECT_THAT(document.transactions(), ElementsAre(first));
    const auto newest = makeTransaction({.date = day(2014, 3, 8)});
    document.insertTransaction(newest);
    EXPECT_THAT(document.transactions(), ElementsAre(newest, first));
    const auto oldest = makeTransaction({.date = day(2014, 3, 6)});
    document.insertTransaction(oldest);
    EXPECT_THAT(document.transactions(), ElementsAre(newest, first, oldest));
}

TEST(CVDocumentInsert, AnnouncesEachTransactionOnce) {
    BudgetBuilder budget;
    budget.set("Checking", 27).category("Food", 12);
    NotificationCounter counter(budget.notificationCenter());
    budget.document().insertTransaction(makeTransaction({.date = day(2014, 3, 7), .categoryID = 12}));
    EXPECT_EQ(counter.count(CVNotifications::kTransactionAddedRemoved), 1);
    budget.document().insertTransaction(makeTransaction({}));
    EXPECT_EQ(counter.count(CVNotifications::kTransactionAddedRemoved), 2);
    EXPECT_EQ(counter.total(), 2);
}

TEST(CVDocumentInsert, IsDoneWhenItAnnounces) {
    BudgetBuilder budget;
    CVDocument& document = budget.document();
    std::size_t count = 0;
    std::optional<QBDate> latest;
    QObject observer;
    budget.notificationCenter().addObserver(CVNotifications::kTransactionAddedRemoved, &observer,
                                            [&](const QBNotification& notification) {
                                                count = document.transactions().size();
                                                latest = document.latestTransactionDate();
                                                EXPECT_FALSE(notification.object.has_value());
                                            });
    document.insertTransaction(makeTransaction({.date = day(2014, 3, 7)}));
    EXPECT_EQ(count, 1U);
    EXPECT_EQ(latest, day(2014, 3, 7));
}

TEST(CVDocumentInsert, IgnoresNull) {
    BudgetBuilder budget;
    NotificationCounter counter(budget.notificationCenter());
    budget.document().insertTransaction(nullptr);
    EXPECT_EQ(counter.total(), 0);
    EXPECT_TRUE(budget.document().transactions().empty());
}

TEST(CVDocumentInsert, FilesTheTransactionUnderTheCurrentSet) {
    struct {
        std::vector<quint32> sets;
        quint32 current;
        quint32 filed;
    } const rows[]{
        {{}, 0, 0},
        {{}, 5, 0},
        {{27, 28}, 27, 27},
        {{27, 28}, 28, 28},
        {{0}, 0, 0},
        // An unknown ID selects the last set.
        {{27, 28}, 99, 28},
        {{27, 28}, 0, 28},
    };
    for (const auto& row : rows) {
        BudgetBuilder budget;
        for (const quint32 id : row.sets)
            budget.set("set", id);
        budget.currentSet(row.current);
        const auto transaction = makeTransaction({.setID = 77});
        budget.document().insertTransaction(transaction);
        EXPECT_EQ(transaction->transactionSetID(), row.filed);
        EXPECT_EQ(transaction->document(), &budget.document());
        EXPECT_EQ(budget.document().currentTransactionSet(), row.current);
    }
}

TEST(CVDocumentAdd, AppendsWithoutOrderOrAnnouncement) {
    BudgetBuilder budget;
    CVDocument& document = budget.document();
    NotificationCounter counter(budget.notificationCenter());
    const auto older = makeTransaction({.date = day(2014, 3, 6), .setID = 77});
    const auto newer = makeTransaction({.date = day(2014, 3, 7)});
    document.addTransaction(older);
    document.addTransaction(newer);
    EXPECT_THAT(document.transactions(), ElementsAre(older, newer));
    EXPECT_EQ(older->transactionSetID(), 77U);
    EXPECT_EQ(document.earliestTransactionDate(), std::nullopt);
    EXPECT_EQ(counter.total(), 0);
}

TEST(CVDocumentRemove, RemovesThatVeryTransactionAndAnnouncesItOnce) {
    BudgetBuilder budget;
    // Three equal transactions: the object itself decides which one is meant.
    for (int i = 0; i < 3; ++i)
        budget.transaction({.date = day(2014, 3, 7), .amount = 5});
    const auto first = budget.transactionAt(0);
    const auto second = budget.transactionAt(1);
    const auto third = budget.transactionAt(2);
    NotificationCounter counter(budget.notificationCenter());
    budget.document().removeTransaction(second);
    EXPECT_THAT(budget.document().transactions(), ElementsAre(first, third));
    EXPECT_EQ(counter.count(CVNotifications::kTransactionAddedRemoved), 1);
    EXPECT_EQ(counter.total(), 1);
}

TEST(CVDocumentRemove, OfATransactionThatIsNotThereAnnouncesAndUpdatesTheDates) {
    BudgetBuilder budget;
    budget.category("Food", 12).transaction({.date = day(2014, 3, 7), .category = "Food"});
    NotificationCounter counter(budget.notificationCenter());
    budget.document().removeTransaction(makeTransaction({.date = day(2014, 3, 7), .categoryID = 12}));
    EXPECT_EQ(budget.document().transactions().size(), 1U);
    EXPECT_EQ(counter.count(CVNotifications::kTransactionAddedRemoved), 1);
    EXPECT_EQ(budget.document().latestTransactionDate(), day(2014, 3, 7));
}

TEST(CVDocumentRemove, OfNullUpdatesTheDatesWithoutAnAnnouncement) {
    BudgetBuilder budget;
    budget.transaction({.date = day(2014, 3, 7)});
    NotificationCounter counter(budget.notificationCenter());
    budget.document().removeTransaction(nullptr);
    EXPECT_EQ(counter.total(), 0);
    EXPECT_EQ(budget.document().latestTransactionDate(), day(2014, 3, 7));
}

TEST(CVDocumentRemoveSeveral, AnnouncesOnceAndNothingForNone) {
    BudgetBuilder budget;
    for (int i = 1; i <= 4; ++i)
        budget.transaction({.date = day(2014, 3, i)});
    const CVTransactions all = budget.document().transactions();
    NotificationCounter counter(budget.notificationCenter());
    budget.document().removeTransactions({});
    EXPECT_EQ(counter.total(), 0);
    EXPECT_EQ(budget.document().latestTransactionDate(), std::nullopt) << "the dates were updated for nothing";

    const CVTransactions removed{all[2], all[0], all[2], makeTransaction({}), nullptr};
    budget.document().removeTransactions(removed);
    EXPECT_THAT(budget.document().transactions(), ElementsAre(all[1], all[3]));
    EXPECT_EQ(counter.count(CVNotifications::kTransactionAddedRemoved), 1);
    EXPECT_EQ(counter.total(), 1);
    EXPECT_EQ(budget.document().latestTransactionDate(), day(2014, 3, 2));
}

/// The comparable state of a document. The bounds are left out for a document without dates, because such a document
/// keeps its former bounds.
std::vector<QByteArray> stateOf(const CVDocument& document) {
    std::vector<QByteArray> state;
    bool dated = false;
    for (const auto& transaction : document.transactions()) {
        state.push_back(transaction->xmlRepresentation().toByteArray());
        dated = dated || transaction->effectiveDate();
    }
    if (dated) {
        state.push_back(document.earliestTransactionDate()->corvellaXMLRepresentation());
        state.push_back(document.latestTransactionDate()->corvellaXMLRepresentation());
    }
    for (const auto& category : document.categories()) {
        state.push_back(category->earliestTransactionDate().corvellaXMLRepresentation());
        state.push_back(category->latestTransactionDate().corvellaXMLRepresentation());
    }
    return state;
}

TEST(CVDocumentRemoveSeveral, EqualsAsManySingleRemovals) {
    const FixedToday today(day(2014, 3, 1));
    for (quint32 seed = 0; seed < 500; ++seed) {
        RandomBudget one(seed);
        RandomBudget other(seed);
        const CVTransactions all = one.document().transactions();
        CVTransactions removed;
        CVTransactions removedSingly;
        for (std::size_t i = 0; i < all.size(); ++i) {
            if (one.oneIn(3)) {
                removed.push_back(all[i]);
                removedSingly.push_back(other.document().transactions()[i]);
            }
        }
        // Sorted as in the document, reversed, or with one transaction out of order.
        if (seed % 3 == 1)
            std::reverse(removed.begin(), removed.end());
        else if (seed % 3 == 2 && removed.size() > 2)
            std::swap(removed[removed.size() / 2], removed.back());
        one.document().updateDates();
        other.document().updateDates();
        one.document().removeTransactions(removed);
        for (const auto& transaction : removedSingly)
            other.document().removeTransaction(transaction);
        ASSERT_EQ(one.document().transactions().size() + removed.size(), all.size());
        ASSERT_EQ(stateOf(one.document()), stateOf(other.document())) << seed;
    }
}

TEST(CVDocumentRemoveSeveral, LeavesTheDatesOfTheDocumentWhenAllGo) {
    BudgetBuilder budget;
    budget.transaction({.date = day(2014, 3, 9)}).transaction({.date = day(2014, 3, 1)}).inOrder();
    budget.document().removeTransactions(CVTransactions(budget.document().transactions()));
    EXPECT_EQ(budget.document().earliestTransactionDate(), day(2014, 3, 1));
    EXPECT_EQ(budget.document().latestTransactionDate(), day(2014, 3, 9));
}

TEST(CVDocumentRemoveForSet, RemovesAllOfTheSetAndAnnouncesOnce) {
    BudgetBuilder budget;
    budget.transaction({.date = day(2014, 3, 9), .setID = 1})
        .transaction({.date = day(2014, 3, 8), .setID = 2})
        .transaction({.date = day(2014, 3, 7), .setID = 1})
        .transaction({.date = day(2014, 3, 6), .setID = 0});
    const CVTransactions all = budget.document().transactions();
    NotificationCounter counter(budget.notificationCenter());
    budget.document().removeTransactionsForSet(1);
    EXPECT_THAT(budget.document().transactions(), ElementsAre(all[1], all[3]));
    EXPECT_EQ(counter.count(CVNotifications::kTransactionAddedRemoved), 1);
    EXPECT_EQ(counter.total(), 1);
    EXPECT_EQ(budget.document().latestTransactionDate(), day(2014, 3, 8));
    budget.document().removeTransactionsForSet(0);
    EXPECT_THAT(budget.document().transactions(), ElementsAre(all[1]));
}

TEST(CVDocumentRemoveForSet, AnnouncesOnceAlsoWhenNoneMatches) {
    BudgetBuilder budget;
    budget.transaction({.date = day(2014, 3, 7), .setID = 1});
    NotificationCounter counter(budget.notificationCenter());
    budget.document().removeTransactionsForSet(2);
    EXPECT_EQ(budget.document().transactions().size(), 1U);
    EXPECT_EQ(counter.total(), 1);
    EXPECT_EQ(budget.document().latestTransactionDate(), day(2014, 3, 7));
}

TEST(CVDocumentRemoveForSet, DoesNothingWithoutTransactions) {
    const FixedToday today(day(2014, 3, 7));
    BudgetBuilder budget;
    budget.category("Food", 12);
    budget.categoryNamed("Food")->setEarliestTransactionDate(day(2001, 1, 1));
    NotificationCounter counter(budget.notificationCenter());
    budget.document().removeTransactionsForSet(0);
    EXPECT_EQ(counter.total(), 0);
    EXPECT_EQ(budget.categoryNamed("Food")->earliestTransactionDate(), day(2001, 1, 1));
}

} // namespace
