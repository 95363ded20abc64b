#include "importing/delimited/CVAmountRule.h"

#include "importing/statements/CVStatementAmount.h"
#include "importing/statements/CVStatementWords.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace {

struct AmountRuleText {
    Q_DECLARE_TR_FUNCTIONS(CVAmountRule)
};

/// An amount in a cell; absent where the cell is empty. `why` says what is wrong with any other text.
std::optional<CVStatementAmount> amountIn(const CVStatementRow& row, int column, QChar mark, QString& why) {
    const QString text = CVStatementTable::cell(row, column);
    if (text.isEmpty())
        return std::nullopt;
    auto amount = CVReadStatementAmount(text, mark);
    const bool isDash = std::all_of(text.begin(), text.end(), [](QChar c) { return c == u'-' || c == u'\u2013'; });
    if (!amount && !isDash)
        why = AmountRuleText::tr("“%1” is no amount").arg(text);
    return amount;
}

CVRuledAmount emptyAmount(const QString& why) {
    if (!why.isEmpty())
        return {std::nullopt, false, false, why};
    return {std::nullopt, true, false, AmountRuleText::tr("there is no amount")};
}

int markerIn(const CVStatementRow& row, const CVAmountRule& rule) {
    const QString text = CVStatementTable::cell(row, rule.marker);
    if (rule.marker < 0 || text.isEmpty())
        return 0;
    if (!rule.outMarker.isEmpty())
        return text.compare(rule.outMarker, Qt::CaseInsensitive) == 0 ? -1 : 1;
    return CVMarkerOf(text);
}

CVRuledAmount amountOfOneColumn(const CVStatementRow& row, const CVAmountRule& rule) {
    QString why;
    const auto amount = amountIn(row, rule.amount, rule.mark, why);
    if (!amount)
        return emptyAmount(why);
    const int columnMarker = markerIn(row, rule);
    const int marker = columnMarker != 0 ? columnMarker : amount->marker;
    if (marker != 0)
        return {marker * std::abs(amount->hundredths)};
    return {rule.positiveIsOut ? -amount->hundredths : amount->hundredths};
}

CVRuledAmount amountOfTwoColumns(const CVStatementRow& row, const CVAmountRule& rule) {
    QString why;
    const auto out = amountIn(row, rule.moneyOut, rule.mark, why);
    const auto in = amountIn(row, rule.moneyIn, rule.mark, why);
    if (!why.isEmpty() || (!out && !in))
        return emptyAmount(why);
    if (out && in && out->hundredths != 0 && in->hundredths != 0)
        return {std::nullopt, false, true, AmountRuleText::tr("Money goes both in and out.")};
    const qint64 outgoing = !out ? 0 : rule.isOutNegative ? out->hundredths : -out->hundredths;
    const qint64 incoming = !in ? 0 : rule.isInNegative ? -in->hundredths : in->hundredths;
    return {outgoing + incoming};
}

/// Whether most of the amounts of a column are negative.
bool isMostlyNegative(const CVStatementTable& table, int column, QChar mark) {
    constexpr std::size_t kEnoughLines = 1000;
    int negative = 0;
    int positive = 0;
    for (std::size_t at = 0; at < std::min(table.likely.size(), kEnoughLines); ++at) {
        const CVStatementRow& row = table.rows[table.likely[at]];
        const auto amount = CVReadStatementAmount(CVStatementTable::cell(row, column), mark);
        if (amount && amount->hundredths != 0)
            ++(amount->hundredths < 0 ? negative : positive);
    }
    return negative > positive;
}

/// What the lines say for the comparison with the balances.
struct BalancedLine {
    std::size_t row;
    std::optional<qint64> amount;
    std::optional<qint64> balance;
    std::optional<QBDate> day;
};

std::vector<BalancedLine> balancedLines(const CVStatementTable& table, const CVAmountRule& rule, std::size_t most,
                                        const CVDaysOfLines& days) {
    std::vector<BalancedLine> lines;
    for (std::size_t at = 0; at < std::min(most, table.likely.size()); ++at) {
        const CVStatementRow& row = table.rows[table.likely[at]];
        const auto balance = CVReadStatementAmount(CVStatementTable::cell(row, rule.balance), rule.mark);
        BalancedLine line{table.likely[at], CVAmountOfRow(row, rule).hundredths, std::nullopt, std::nullopt};
        if (balance)
            line.balance = balance->marker != 0 ? balance->marker * std::abs(balance->hundredths) : balance->hundredths;
        if (at < days.size())
            line.day = days[at];
        lines.push_back(line);
    }
    return lines;
}

/// Which line of the file is the earlier one, and whether a balance is the one after its line.
struct BalanceOrder {
    bool isDown;
    bool isAfter;

    /// Whether the step from one balance to the one below is made by the lines without the upper one.
    [[nodiscard]] bool isMadeByLower() const { return isDown == isAfter; }
};

/// The sum of the amounts that stand between two balances.
std::optional<qint64> sumBetween(const std::vector<BalancedLine>& lines, std::size_t upper, std::size_t lower,
                                 BalanceOrder order) {
    const std::size_t skipped = order.isMadeByLower() ? 1 : 0;
    std::optional<qint64> sum = 0;
    for (std::size_t at = upper + skipped; at < lower + skipped; ++at)
        sum = sum && lines[at].amount ? std::optional(*sum + *lines[at].amount) : std::nullopt;
    return sum;
}

bool contradictsDays(const BalancedLine& upper, const BalancedLine& lower, BalanceOrder order) {
    if (!upper.day || !lower.day)
        return false;
    return order.isDown ? lower.day->comesBefore(*upper.day) : upper.day->comesBefore(*lower.day);
}

CVBalanceAgreement agreementInOrder(const std::vector<BalancedLine>& lines, BalanceOrder order) {
    CVBalanceAgreement agreement;
    std::optional<std::size_t> last;
    for (std::size_t at = 0; at < lines.size(); ++at) {
        if (!lines[at].balance)
            continue;
        const auto sum = last ? sumBetween(lines, *last, at, order) : std::nullopt;
        const qint64 change = last ? *lines[at].balance - *lines[*last].balance : 0;
        // Where nothing moves, any column of equal numbers would agree.
        if (sum && (*sum != 0 || change != 0)) {
            const bool agrees =
                change == (order.isDown ? *sum : -*sum) && !contradictsDays(lines[*last], lines[at], order);
            agreement.steps.push_back({agrees, lines[order.isDown ? at : *last].row, lines[at].row, change});
        }
        last = at;
    }
    return agreement;
}

} // namespace

CVRuledAmount CVAmountOfRow(const CVStatementRow& row, const CVAmountRule& rule) {
    CVRuledAmount amount = rule.amount >= 0 ? amountOfOneColumn(row, rule) : amountOfTwoColumns(row, rule);
    QString why;
    const auto fee = rule.fee >= 0 ? amountIn(row, rule.fee, rule.mark, why) : std::nullopt;
    if (!why.isEmpty() && amount.hundredths)
        return {std::nullopt, false, false, why};
    if (fee && amount.hundredths)
        *amount.hundredths -= std::abs(fee->hundredths);
    return amount;
}

void CVFindSignsOfColumns(const CVStatementTable& table, CVAmountRule& rule) {
    rule.isOutNegative = rule.moneyOut >= 0 && isMostlyNegative(table, rule.moneyOut, rule.mark);
    rule.isInNegative = rule.moneyIn >= 0 && isMostlyNegative(table, rule.moneyIn, rule.mark);
}

int CVBalanceAgreement::countOfAgreeing() const {
    return static_cast<int>(std::count_if(steps.begin(), steps.end(), [](const Step& step) { return step.agrees; }));
}

CVBalanceAgreement CVCompareWithBalances(const CVStatementTable& table, const CVAmountRule& rule, std::size_t most,
                                         const CVDaysOfLines& days) {
    constexpr std::array kOrders{BalanceOrder{true, true}, BalanceOrder{false, true}, BalanceOrder{true, false},
                                 BalanceOrder{false, false}};
    CVBalanceAgreement best;
    if (rule.balance < 0)
        return best;
    const std::vector<BalancedLine> lines = balancedLines(table, rule, most, days);
    for (const BalanceOrder order : kOrders) {
        CVBalanceAgreement agreement = agreementInOrder(lines, order);
        if (best.steps.empty() || agreement.countOfAgreeing() > best.countOfAgreeing())
            best = std::move(agreement);
    }
    return best;
}
