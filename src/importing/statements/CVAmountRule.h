#pragma once

#include "importing/statements/CVStatementRows.h"
#include "importing/statements/CVStatementTable.h"

#include <QChar>
#include <QString>

#include <optional>
#include <vector>

/// How the amount of a line is made of its cells; a column of -1 is none.
struct CVAmountRule {
    /// Either this one or the two below it.
    int amount = -1;
    int moneyIn = -1;
    int moneyOut = -1;
    int fee = -1;
    int marker = -1;
    int balance = -1;
    /// Whether an amount without a sign or a marker is money out.
    bool positiveIsOut = false;
    QChar mark = u'.';
    /// A marker that means money out, where it is none of the usual ones.
    QString outMarker = {};
    /// Whether most amounts of the columns have a minus sign, which then says nothing.
    bool isOutNegative = false;
    bool isInNegative = false;

    friend bool operator==(const CVAmountRule&, const CVAmountRule&) = default;
};

/// The signed amount of a row, or why there is none.
struct CVRuledAmount {
    std::optional<qint64> hundredths = std::nullopt;
    /// Whether the cells are empty.
    bool isEmpty = false;
    /// Whether two cells contradict each other.
    bool isContradiction = false;
    QString why = {};
};
[[nodiscard]] CVRuledAmount CVAmountOfRow(const CVStatementRow& row, const CVAmountRule& rule);

/// Completes the rule with the signs of the columns for money out and for money in.
void CVFindSignsOfColumns(const CVStatementTable& table, CVAmountRule& rule);

/// How the balances of neighbouring lines agree with the amounts between them.
struct CVBalanceAgreement {
    /// For each of the steps from one balance to the next: whether the amounts explain it, and the row in which it
    /// ends.
    struct Step {
        bool agrees = false;
        std::size_t row = 0;
        qint64 sum = 0;
    };
    std::vector<Step> steps = {};

    [[nodiscard]] int countOfAgreeing() const;
};
/// Compares the balances with the amounts in the direction, down or up the file, in which more agree. At most the first
/// `most` lines.
[[nodiscard]] CVBalanceAgreement CVCompareWithBalances(const CVStatementTable& table, const CVAmountRule& rule,
                                                       std::size_t most);
