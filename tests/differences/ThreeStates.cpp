#include "ThreeStates.h"

#include "ReadInto.h"
#include "kit/RandomBudget.h"

#include <array>
#include <random>

namespace {

/// Changes as two people make them who keep the same budget: few contents, so that equal lines are many, and each side
/// issues the same IDs.
class Hand final {
public:
    Hand(BudgetBuilder& budget, quint32 seed) : mBudget(budget), mEngine(seed) {}

    void change() {
        CVDocument& document = mBudget.document();
        switch (below(12)) {
        case 0:
        case 1:
        case 2:
            return add();
        case 3:
        case 4:
            return remove();
        case 5:
        case 6:
            return edit();
        case 7:
            if (document.countOfCategories() > 0)
                category()->setCategoryName(word());
            return document.sortCategories();
        case 8:
            if (document.countOfCategories() > 0)
                category()->setExpenseTarget(below(3) * 100);
            return;
        case 9:
            (void)document.insertCategoryName(word());
            return;
        case 10:
            if (document.countOfCategories() > 0)
                document.removeCategory(category());
            return;
        default:
            return changeSets();
        }
    }

    void add() {
        mBudget.transaction({.date = day(2014, 3, 1 + static_cast<int>(below(2))),
                             .amount = 10.0 + below(2),
                             .payTo = below(2) == 0 ? "Market" : "Baker",
                             .categoryID = categoryID(),
                             .setID = setID(),
                             .taxFlag = below(6) == 0});
    }

    void addSet() {
        CVDocument& document = mBudget.document();
        mBudget.set(word(), document.getUniqueTransactionSetID());
    }

private:
    [[nodiscard]] quint32 below(quint32 bound) { return static_cast<quint32>(mEngine() % bound); }
    [[nodiscard]] QString word() {
        constexpr std::array<const char*, 5> kNames{"Food", "Fuel", "Rent", "Toys", "Cash"};
        return kNames[below(kNames.size())];
    }
    [[nodiscard]] std::shared_ptr<CVCategory> category() {
        const auto& categories = mBudget.document().categories();
        return categories[below(static_cast<quint32>(categories.size()))];
    }
    [[nodiscard]] quint32 categoryID() {
        return mBudget.document().countOfCategories() == 0 || below(8) == 0 ? 0 : category()->uniqueID();
    }
    [[nodiscard]] quint32 setID() {
        const auto& sets = mBudget.document().transactionSets();
        return sets.empty() ? 0 : sets[below(static_cast<quint32>(sets.size()))]->uniqueID();
    }
    void remove() {
        const auto& transactions = mBudget.document().transactions();
        if (!transactions.empty())
            mBudget.document().removeTransaction(
                std::shared_ptr(transactions[below(static_cast<quint32>(transactions.size()))]));
    }
    void edit() {
        const auto& transactions = mBudget.document().transactions();
        if (transactions.empty())
            return;
        CVTransaction& transaction = *transactions[below(static_cast<quint32>(transactions.size()))];
        if (below(2) == 0)
            transaction.setAmount(10.0 + below(4));
        else
            transaction.setCategoryID(categoryID());
    }
    void changeSets() {
        CVDocument& document = mBudget.document();
        auto& sets = document.transactionSets();
        switch (below(3)) {
        case 0:
            return addSet();
        case 1:
            if (!sets.empty())
                sets[below(static_cast<quint32>(sets.size()))]->setTransactionSetName(word());
            return;
        default:
            if (sets.size() > 1) {
                const auto gone = sets[below(static_cast<quint32>(sets.size()))];
                document.removeTransactionsForSet(gone->uniqueID());
                std::erase(sets, gone);
            }
        }
    }

    BudgetBuilder& mBudget;
    std::mt19937 mEngine;
};

} // namespace

ThreeStates::ThreeStates(quint32 seed) : isKnown(seed % 5 != 4) {
    if (seed % 2 == 0)
        makeByHands(seed);
    else
        makeOfAnything(seed);
}

void ThreeStates::makeByHands(quint32 seed) {
    common.category("Food", 1).category("Fuel", 2).category("Rent", 3).lastID(3);
    Hand first(common, seed);
    for (quint32 sets = seed % 3; sets > 0; --sets)
        first.addSet();
    common.currentSet(seed % 4);
    for (int i = 0; i < 12; ++i)
        first.add();
    readInto(ours, common.document());
    readInto(theirs, common.document());
    Hand we(ours, seed + 100'000);
    for (quint32 changes = seed / 7 % 12; changes > 0; --changes)
        we.change();
    Hand they(theirs, seed + 200'000);
    for (quint32 changes = seed / 11 % 12; changes > 0; --changes)
        they.change();
}

void ThreeStates::makeOfAnything(quint32 seed) {
    RandomBudget first(seed);
    readInto(common, first.document());
    RandomBudget we(seed);
    for (quint32 changes = seed % 20; changes > 0; --changes)
        we.change();
    readInto(ours, we.document());
    RandomBudget they(seed % 17 == 0 ? seed + 10'000 : seed);
    (void)they.below(2);
    for (quint32 changes = seed % 23; changes > 0; --changes)
        they.change();
    readInto(theirs, they.document());
}
