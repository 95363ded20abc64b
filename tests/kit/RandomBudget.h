#pragma once

#include "kit/BudgetBuilder.h"

#include <memory>
#include <random>

/// A random budget. The same seed gives the same budget and the same changes on every machine. The budget contains what
/// a file may contain: unsorted records, missing dates, null texts, markup and other scripts in texts, negative and
/// huge amounts, categories that share an ID, differ only in case or have no name, IDs that refer to nothing, several
/// sets.
class RandomBudget final {
public:
    /// A budget with at most `mostTransactions` transactions.
    explicit RandomBudget(quint32 seed, quint32 mostTransactions = 40);

    [[nodiscard]] BudgetBuilder& builder() { return mBuilder; }
    [[nodiscard]] CVDocument& document() { return mBuilder.document(); }

    /// Makes one change that a user could make: a field, an insertion, a removal, a category, a set, a sort.
    void change();

    /// A number from 0 to `bound` - 1.
    [[nodiscard]] quint32 below(quint32 bound) { return static_cast<quint32>(mEngine() % bound); }
    [[nodiscard]] bool oneIn(quint32 chances) { return below(chances) == 0; }
    [[nodiscard]] std::optional<QBDate> date();
    [[nodiscard]] double amount();
    [[nodiscard]] QString text();
    [[nodiscard]] quint32 recordID() { return below(kIDs); }
    [[nodiscard]] std::shared_ptr<CVTransaction> transaction();

private:
    /// The number of different IDs, so small that some are shared and some are missing.
    static constexpr quint32 kIDs = 10;

    void addSet();
    void addCategory();
    /// A frequency; one unknown code below the known ones and one above them are drawn too.
    [[nodiscard]] qint64 frequency();
    void changeTransaction(CVTransaction& transaction);
    void changeCategories();
    void changeSets();

    std::mt19937 mEngine;
    BudgetBuilder mBuilder;
};
