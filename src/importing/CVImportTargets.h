#pragma once

#include <QString>

struct CVImportLine;

/// Where the lines of a statement go.
struct CVImportTargets {
    enum class Income {
        /// Into a set of its own, as positive amounts.
        OwnSet,
        /// Into the set of the money out, as negative amounts.
        SameSet,
        LeftOut
    };

    /// The ID of the set of the money out; 0 is also that of the transactions of a budget without sets.
    quint32 set = 0;
    /// The name of the set of the money out instead of `set`; made when there is none of that name. Empty: `set`
    /// counts.
    QString newSet = {};
    Income income = Income::OwnSet;
    /// The same for the money in, where it has a set of its own.
    quint32 incomeSet = 0;
    QString newIncomeSet = {};

    friend bool operator==(const CVImportTargets&, const CVImportTargets&) = default;
};

/// Turns money in into money out or back: a line that goes into the set of the income leaves it with its sign changed,
/// so that a refund is negative in its category. With one set for both, only the side changes.
void CVChangeSide(CVImportLine& line, const CVImportTargets& targets);
