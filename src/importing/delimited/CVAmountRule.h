#pragma once

#include "base/QBDate.h"
#include "importing/delimited/CVStatementRows.h"
#include "importing/delimited/CVStatementTable.h"

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

/// The days of the likely rows; empty where they are not known.
using CVDaysOfLines = std::vector<std::optional<QBDate>>;

/// How the balances of neighbouring lines agree with the amounts between them.
struct CVBalanceAgreement {
    /// For each of the steps from one balance to the one below it in the file.
    struct Step {
        /// Whether the amounts explain it, and the days do not run the other way.
        bool agrees = false;
        /// The row in which it ends.
        std::size_t row = 0;
        /// The lower row of the file, and its balance less the one above.
        std::size_t lower = 0;
        qint64 change = 0;
    };
    std::vector<Step> steps = {};

    [[nodiscard]] int countOfAgreeing() const;
};
/// Compares the balances, each before or after its line, with the amounts down or up the file; of these four the one
/// in which most agree. At most the first `most` lines. Without `days` a balance after each line with the signs turned
/// round is the same as one before each line read the other way.
[[nodiscard]] CVBalanceAgreement CVCompareWithBalances(const CVStatementTable& table, const CVAmountRule& rule,
                                                       std::size_t most, const CVDaysOfLines& days = {});
