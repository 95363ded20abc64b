#pragma once

#include "kit/BudgetBuilder.h"

#include <memory>
#include <random>

/// A budget drawn from a seed: the same seed makes the same budget and the same changes on every machine. It holds what
/// a file may hold: no order, no dates, null texts, markup and other scripts in texts, negative and huge amounts,
/// categories that share an ID, differ only in case or have no name, IDs that refer to nothing, several sets.
class RandomBudget final {
public:
    /// With up to `mostTransactions` transactions.
    explicit RandomBudget(quint32 seed, quint32 mostTransactions = 40);

    [[nodiscard]] BudgetBuilder& builder() { return mBuilder; }
    [[nodiscard]] CVDocument& document() { return mBuilder.document(); }

    /// One change as a user could make it: a field, an insertion, a removal, a category, a set, a sort.
    void change();

    /// 0 to bound - 1.
    [[nodiscard]] quint32 below(quint32 bound) { return static_cast<quint32>(mEngine() % bound); }
    [[nodiscard]] bool oneIn(quint32 chances) { return below(chances) == 0; }
    [[nodiscard]] std::optional<QBDate> date();
    [[nodiscard]] double amount();
    [[nodiscard]] QString text();
    [[nodiscard]] quint32 recordID() { return below(kIDs); }
    [[nodiscard]] std::shared_ptr<CVTransaction> transaction();

private:
    /// So few that some are shared and some are missing.
    static constexpr quint32 kIDs = 10;

    void addSet();
    void addCategory();
    /// With one unknown code below and one above the known ones.
    [[nodiscard]] qint64 frequency();
    void changeTransaction(CVTransaction& transaction);
    void changeCategories();
    void changeSets();

    std::mt19937 mEngine;
    BudgetBuilder mBuilder;
};
