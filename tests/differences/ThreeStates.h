#pragma once

#include "differences/CVMergeBudgets.h"
#include "kit/BudgetBuilder.h"

/// A common state and two that come from it, as their files hold them; every fifth common state is unknown.
struct ThreeStates {
    explicit ThreeStates(quint32 seed);

    [[nodiscard]] const CVDocument* known() { return isKnown ? &common.document() : nullptr; }
    [[nodiscard]] CVMergedBudget merged() { return CVMergeBudgets(known(), ours.document(), theirs.document()); }

    bool isKnown;
    BudgetBuilder common;
    BudgetBuilder ours;
    BudgetBuilder theirs;

private:
    void makeByHands(quint32 seed);
    /// What files may contain, with changes of the same kind; now and then theirs is of another origin.
    void makeOfAnything(quint32 seed);
};
