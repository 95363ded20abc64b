#include "importing/statements/CVProvenAmounts.h"

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
                                                return other.agrees && other.row == step.row && other.sum == step.sum;
                                            })
                     ? 1
                     : 0;
    }
    return count;
}

/// The rule that the balances prove; absent when they do not, or prove another one as well.
std::optional<CVAmountRule> provenByBalance(const CVStatementTable& table, const CVStatementColumns& columns,
                                            const std::vector<CVTriedRule>& rules) {
    constexpr int kAlsoAgrees = 3;
    std::vector<CVTriedRule> balanced;
    for (const CVTriedRule& one : rules) {
        for (const int balance : columns.balances) {
            if (uses(one.rule, balance))
                continue;
            CVTriedRule with = one;
            with.rule.balance = balance;
            with.agreement = CVCompareWithBalances(table, with.rule, kCVMostLinesForRules);
            balanced.push_back(with);
        }
    }
    const auto best =
        std::max_element(balanced.begin(), balanced.end(), [](const CVTriedRule& a, const CVTriedRule& b) {
            return a.agreement.countOfAgreeing() < b.agreement.countOfAgreeing();
        });
    if (best == balanced.end() || best->agreement.countOfAgreeing() == 0 ||
        5 * best->agreement.countOfAgreeing() < 3 * static_cast<int>(best->agreement.steps.size()))
        return std::nullopt;
    for (const CVTriedRule& other : balanced) {
        const int common = countOfCommonSteps(best->agreement, other.agreement);
        const int only = best->agreement.countOfAgreeing() - common;
        const int otherOnly = other.agreement.countOfAgreeing() - common;
        if (other.amounts != best->amounts && (only == 0 || kAlsoAgrees * otherOnly > only))
            return std::nullopt;
    }
    return best->rule;
}

/// Whether in each line the second of two balances is the first one and the amount, and goes on as the first one of the
/// next line, down or up the file.
bool isBetweenBalances(const CVStatementTable& table, const CVTriedRule& one, int before, int after) {
    int moved = 0;
    int down = 0;
    int up = 0;
    std::optional<CVStatementAmount> lastFirst;
    std::optional<CVStatementAmount> lastSecond;
    for (std::size_t at = 0; at < one.amounts.size(); ++at) {
        const CVStatementRow& row = table.rows[table.likely[at]];
        const auto first = CVReadStatementAmount(CVStatementTable::cell(row, before), one.rule.mark);
        const auto second = CVReadStatementAmount(CVStatementTable::cell(row, after), one.rule.mark);
        if (!first || !second || !one.amounts[at] || second->hundredths - first->hundredths != *one.amounts[at])
            return false;
        moved += *one.amounts[at] != 0 ? 1 : 0;
        down += lastSecond && lastSecond->hundredths == first->hundredths ? 1 : 0;
        up += lastFirst && lastFirst->hundredths == second->hundredths ? 1 : 0;
        lastFirst = first;
        lastSecond = second;
    }
    return moved > 1 && std::max(down, up) + 1 == static_cast<int>(one.amounts.size());
}

/// The rule of one column that stands between the balances before and after each line; absent without such columns.
std::optional<CVAmountRule> provenWithinRows(const CVStatementTable& table, const CVStatementColumns& columns,
                                             const std::vector<CVTriedRule>& rules) {
    for (const CVTriedRule& one : rules) {
        for (const int before : columns.balances) {
            for (const int after : columns.balances) {
                if (before >= after || uses(one.rule, before) || uses(one.rule, after) ||
                    !isBetweenBalances(table, one, before, after))
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

std::optional<CVAmountRule> CVAmountRuleProvenByBalances(const CVStatementTable& table,
                                                         const CVStatementColumns& columns,
                                                         const std::vector<CVTriedRule>& rules) {
    const auto proven = provenWithinRows(table, columns, rules);
    return proven ? proven : provenByBalance(table, columns, rules);
}
