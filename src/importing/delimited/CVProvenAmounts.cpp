#include "importing/delimited/CVProvenAmounts.h"

#include "importing/statements/CVStatementAmount.h"

#include <algorithm>

namespace {

bool uses(const CVAmountRule& rule, int column) {
    return rule.amount == column || rule.moneyIn == column || rule.moneyOut == column || rule.fee == column;
}

/// The steps that agree by both rules in the same way.
int countOfCommonSteps(const CVBalanceAgreement& a, const CVBalanceAgreement& b) {
    int count = 0;
    for (const auto& step : a.steps) {
        count += step.agrees && std::any_of(b.steps.begin(), b.steps.end(),
                                            [&step](const auto& other) {
                                                return other.agrees && other.lower == step.lower &&
                                                       other.change == step.change;
                                            })
                     ? 1
                     : 0;
    }
    return count;
}

/// Whether two rules differ in nothing but what is money out and what is money in.
bool areMirrored(const CVAmountRule& a, const CVAmountRule& b) {
    return a.amount == b.amount && a.moneyIn == b.moneyOut && a.moneyOut == b.moneyIn && a.fee == b.fee &&
           a.marker == b.marker && a.balance == b.balance;
}

/// As `CVAmountRulesProvenByBalances`.
std::vector<CVAmountRule> provenByBalance(const CVStatementTable& table, const CVStatementColumns& columns,
                                          const std::vector<CVTriedRule>& rules, const CVDaysOfLines& days) {
    constexpr int kAlsoAgrees = 3;
    std::vector<CVTriedRule> balanced;
    for (const CVTriedRule& one : rules) {
        for (const int balance : columns.balances) {
            if (uses(one.rule, balance))
                continue;
            CVTriedRule with = one;
            with.rule.balance = balance;
            with.agreement = CVCompareWithBalances(table, with.rule, kCVMostLinesForRules, days);
            balanced.push_back(with);
        }
    }
    const auto best =
        std::max_element(balanced.begin(), balanced.end(), [](const CVTriedRule& a, const CVTriedRule& b) {
            return a.agreement.countOfAgreeing() < b.agreement.countOfAgreeing();
        });
    if (best == balanced.end() || best->agreement.countOfAgreeing() == 0 ||
        5 * best->agreement.countOfAgreeing() < 3 * static_cast<int>(best->agreement.steps.size()))
        return {};
    std::vector<CVAmountRule> proven{best->rule};
    for (const CVTriedRule& other : balanced) {
        const int common = countOfCommonSteps(best->agreement, other.agreement);
        const int only = best->agreement.countOfAgreeing() - common;
        const int otherOnly = other.agreement.countOfAgreeing() - common;
        if (other.amounts == best->amounts || (only > 0 && kAlsoAgrees * otherOnly <= only))
            continue;
        if (!areMirrored(other.rule, best->rule))
            return {};
        proven.push_back(other.rule);
    }
    return proven;
}

/// How two balances in each line go on from line to line.
struct ChainOfBalances {
    int down = 0;
    int up = 0;
    /// Of these the ones between lines of different days, which run the same way.
    int downByDays = 0;
    int upByDays = 0;
};

void goOn(ChainOfBalances& chain, bool isDown, bool isUp, const std::optional<QBDate>& upper,
          const std::optional<QBDate>& lower) {
    chain.down += isDown ? 1 : 0;
    chain.up += isUp ? 1 : 0;
    if (!upper || !lower)
        return;
    chain.downByDays += isDown && upper->comesBefore(*lower) ? 1 : 0;
    chain.upByDays += isUp && lower->comesBefore(*upper) ? 1 : 0;
}

/// Whether in each line the second of two balances is the first one and the amount, and goes on as the first one of the
/// next line, down or up the file as the days do. Without days the first one could as well be the one after the line.
bool isBetweenBalances(const CVStatementTable& table, const CVTriedRule& one, int before, int after,
                       const CVDaysOfLines& days) {
    int moved = 0;
    ChainOfBalances chain;
    std::optional<CVStatementAmount> lastFirst;
    std::optional<CVStatementAmount> lastSecond;
    for (std::size_t at = 0; at < one.amounts.size(); ++at) {
        const CVStatementRow& row = table.rows[table.likely[at]];
        const auto first = CVReadStatementAmount(CVStatementTable::cell(row, before), one.rule.mark);
        const auto second = CVReadStatementAmount(CVStatementTable::cell(row, after), one.rule.mark);
        if (!first || !second || !one.amounts[at] || second->hundredths - first->hundredths != *one.amounts[at])
            return false;
        moved += *one.amounts[at] != 0 ? 1 : 0;
        if (at > 0 && at < days.size())
            goOn(chain, lastSecond->hundredths == first->hundredths, lastFirst->hundredths == second->hundredths,
                 days[at - 1], days[at]);
        lastFirst = first;
        lastSecond = second;
    }
    const int all = static_cast<int>(one.amounts.size()) - 1;
    const bool isDown = chain.down == all && chain.downByDays > 0;
    const bool isUp = chain.up == all && chain.upByDays > 0;
    return moved > 1 && (isDown || isUp);
}

/// The rule of one column that stands between the balances before and after each line; absent without such columns.
std::optional<CVAmountRule> provenWithinRows(const CVStatementTable& table, const CVStatementColumns& columns,
                                             const std::vector<CVTriedRule>& rules, const CVDaysOfLines& days) {
    for (const CVTriedRule& one : rules) {
        for (const int before : columns.balances) {
            for (const int after : columns.balances) {
                if (before == after || uses(one.rule, before) || uses(one.rule, after) ||
                    !isBetweenBalances(table, one, before, after, days))
                    continue;
                CVAmountRule proven = one.rule;
                proven.balance = after;
                return proven;
            }
        }
    }
    return std::nullopt;
}

} // namespace

std::vector<CVAmountRule> CVAmountRulesProvenByBalances(const CVStatementTable& table,
                                                        const CVStatementColumns& columns,
                                                        const std::vector<CVTriedRule>& rules,
                                                        const CVDaysOfLines& days) {
    if (const auto proven = provenWithinRows(table, columns, rules, days))
        return {*proven};
    return provenByBalance(table, columns, rules, days);
}
