#include "importing/delimited/CVSettleAmounts.h"

#include "importing/delimited/CVProvenAmounts.h"
#include "importing/statements/CVHeadingWords.h"
#include "importing/statements/CVStatementAmount.h"
#include "importing/statements/CVStatementWords.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace {

using About = CVStatementQuestion::About;
using Rules = std::vector<CVAmountRule>;
using Amounts = CVTriedRule::Amounts;

std::vector<int> orNone(const std::vector<int>& columns) {
    return columns.empty() ? std::vector<int>{-1} : columns;
}

/// All that the columns allow: without a column for the balance.
class PossibleRules {
public:
    PossibleRules(const CVStatementColumns& columns, CVAmountRule known, bool isSignKnown)
        : mColumns(columns)
        , mKnown(std::move(known))
        , mIsSignKnown(isSignKnown) {}

    Rules rules() {
        for (const int amount : mColumns.amounts)
            addOneColumn(amount);
        const bool isGuessed = !mColumns.areAmountsNamed;
        const auto& out = isGuessed ? mColumns.amounts : orNone(mColumns.moneyOut);
        const auto& in = isGuessed ? mColumns.amounts : orNone(mColumns.moneyIn);
        for (const int moneyOut : out) {
            for (const int moneyIn : in)
                addTwoColumns(moneyOut, moneyIn);
        }
        return mRules;
    }

private:
    void addOneColumn(int amount) {
        CVAmountRule rule = mKnown;
        rule.amount = amount;
        std::vector<int> fees = mColumns.fees;
        if (!mColumns.isFeeGiven)
            fees.insert(fees.begin(), -1);
        for (const int fee : fees) {
            rule.fee = fee;
            if (!mColumns.isMarkerGiven)
                mRules.push_back(rule);
            if (!mColumns.isMarkerGiven && !mIsSignKnown) {
                CVAmountRule other = rule;
                other.positiveIsOut = true;
                mRules.push_back(other);
            }
            for (const int marker : mColumns.markers) {
                CVAmountRule marked = rule;
                marked.marker = marker;
                mRules.push_back(marked);
            }
        }
    }

    void addTwoColumns(int moneyOut, int moneyIn) {
        if (moneyOut == moneyIn)
            return;
        CVAmountRule rule = mKnown;
        rule.positiveIsOut = false;
        rule.moneyOut = moneyOut;
        rule.moneyIn = moneyIn;
        mRules.push_back(rule);
    }

    const CVStatementColumns& mColumns;
    CVAmountRule mKnown;
    bool mIsSignKnown;
    Rules mRules;
};

CVTriedRule tried(const CVStatementTable& table, CVAmountRule rule) {
    if (rule.amount < 0)
        CVFindSignsOfColumns(table, rule);
    CVTriedRule one{rule};
    for (std::size_t at = 0; at < std::min(table.likely.size(), kCVMostLinesForRules); ++at) {
        const CVRuledAmount amount = CVAmountOfRow(table.rows[table.likely[at]], rule);
        one.amounts.push_back(amount.hundredths);
        one.covered += amount.isEmpty || amount.isContradiction ? 0 : 1;
    }
    return one;
}

/// Drops the rules that find nothing in lines in which others find something.
void keepCovering(std::vector<CVTriedRule>& rules) {
    int most = 0;
    for (const CVTriedRule& one : rules)
        most = std::max(most, one.covered);
    std::erase_if(rules, [most](const CVTriedRule& one) { return one.covered < most || one.covered == 0; });
}

/// The signs of a column of amounts.
struct SignCount {
    int negative = 0;
    int positive = 0;
    /// Positive with a plus sign.
    int plus = 0;
    int in = 0;
    int out = 0;

    [[nodiscard]] int all() const { return negative + positive; }
};

SignCount signsOf(const CVStatementTable& table, const CVAmountRule& rule) {
    SignCount count;
    for (const std::size_t row : table.likely) {
        const auto amount = CVReadStatementAmount(CVStatementTable::cell(table.rows[row], rule.amount), rule.mark);
        if (!amount || amount->hundredths == 0)
            continue;
        ++(amount->hundredths < 0 ? count.negative : count.positive);
        count.plus += amount->isSigned && amount->hundredths > 0 ? 1 : 0;
        count.in += amount->marker > 0 ? 1 : 0;
        count.out += amount->marker < 0 ? 1 : 0;
    }
    return count;
}

/// What a marker's column says beside the signs.
struct MarkerCount {
    int in = 0;
    int out = 0;
    int contradictions = 0;
};

MarkerCount markersOf(const CVStatementTable& table, const CVAmountRule& rule, int marker) {
    MarkerCount count;
    for (const std::size_t row : table.likely) {
        const auto amount = CVReadStatementAmount(CVStatementTable::cell(table.rows[row], rule.amount), rule.mark);
        const int says = CVMarkerOf(CVStatementTable::cell(table.rows[row], marker));
        count.in += says > 0 ? 1 : 0;
        count.out += says < 0 ? 1 : 0;
        count.contradictions +=
            amount && amount->hundredths != 0 && says != 0 && (amount->hundredths < 0) != (says < 0) ? 1 : 0;
    }
    return count;
}

CVAmountRule withSign(CVAmountRule rule, bool positiveIsOut) {
    rule.positiveIsOut = positiveIsOut;
    return rule;
}

CVAmountRule withMarker(CVAmountRule rule, int marker) {
    rule.marker = marker;
    return rule;
}

/// Whether the headings are those of a card, whose company often writes what is spent without a minus.
bool isOfCard(const CVStatementTable& table) {
    constexpr std::array kCardWords{u"card",   u"merchant", u"karte", u"carte",   u"kort",   u"tarjeta", u"carta",
                                    u"cartao", u"kaart",    u"karta", u"handler", u"カード", u"利用"};
    const QString headings = CVPlainWords(table.headings.join(u' '));
    return std::any_of(kCardWords.begin(), kCardWords.end(),
                       [&headings](const char16_t* word) { return headings.contains(QString::fromUtf16(word)); });
}

/// How many lines say in words what their sign says, and how many the contrary.
struct WordCount {
    int agreeing = 0;
    int contradicting = 0;
};

WordCount wordsOf(const CVStatementTable& table, const CVAmountRule& rule) {
    WordCount count;
    for (std::size_t at = 0; at < std::min(table.likely.size(), kCVMostLinesForRules); ++at) {
        const CVStatementRow& row = table.rows[table.likely[at]];
        const auto amount = CVAmountOfRow(row, rule).hundredths;
        const int expected = CVExpectedSign(row.cells.join(u' '));
        if (amount && *amount != 0 && expected != 0)
            ++((*amount > 0) == (expected > 0) ? count.agreeing : count.contradicting);
    }
    return count;
}

/// The rule with its sign settled, or the two that are possible.
Rules signsOfOneColumn(const CVStatementTable& table, const CVStatementColumns& columns, const CVAmountRule& rule) {
    const SignCount signs = signsOf(table, rule);
    for (const int marker : columns.markers) {
        const MarkerCount markers = markersOf(table, rule, marker);
        const bool isUnsigned = signs.negative == 0 && signs.plus == 0;
        // A letter that is the same in every line may be anything, unless its heading says more.
        const bool saysBoth = markers.in > 0 && markers.out > 0;
        const bool isNamed = table.headings.isEmpty() || CVHeadingOf(table.headings.value(marker)).rank > 0;
        if (!saysBoth && !isNamed)
            continue;
        if (isUnsigned || (markers.contradictions == 0 && markers.in + markers.out > 0))
            return {withMarker(rule, marker)};
        // A word that stands in every line alike says nothing about the sign.
        if (saysBoth)
            return {withMarker(rule, marker), rule};
    }
    // CR alone makes what has none money out, DR alone money in.
    if (signs.in > 0 || signs.out > 0)
        return {withSign(rule, signs.out == 0)};
    if (signs.all() == 0 || signs.plus == signs.all())
        return {rule};
    if (signs.negative == 0)
        return {withSign(rule, true), rule};
    const bool isMostlyPositive = signs.all() > 3 && 4 * signs.positive >= 3 * signs.all();
    const WordCount words = wordsOf(table, rule);
    // Most lines of most accounts are money out; a plus sign is written only where both signs mean what they say.
    const bool isBalanced = signs.all() > 3 && signs.plus == 0 && signs.positive >= signs.negative;
    const bool isDoubtful = isMostlyPositive || isBalanced || (isOfCard(table) && signs.positive >= signs.negative);
    if (words.contradicting > words.agreeing || (isDoubtful && words.agreeing == 0))
        return {withSign(rule, true), rule};
    return {rule};
}

/// The rules of one column, of those with a plain sign and without a guessed fee or marker, whose amounts differ.
Rules differingColumns(const std::vector<CVTriedRule>& rules, const CVStatementColumns& columns, bool sign) {
    Rules chosen;
    std::vector<Amounts> seen;
    for (const CVTriedRule& one : rules) {
        const bool isPlain = one.rule.positiveIsOut == sign && (one.rule.marker < 0 || columns.isMarkerGiven) &&
                             (one.rule.fee < 0 || columns.isFeeGiven);
        if (one.rule.amount < 0 || !isPlain || std::find(seen.begin(), seen.end(), one.amounts) != seen.end())
            continue;
        seen.push_back(one.amounts);
        chosen.push_back(one.rule);
    }
    return chosen;
}

std::vector<CVTriedRule> ofTwoColumns(const std::vector<CVTriedRule>& rules) {
    std::vector<CVTriedRule> two;
    std::copy_if(rules.begin(), rules.end(), std::back_inserter(two),
                 [](const CVTriedRule& one) { return one.rule.amount < 0; });
    return two;
}

/// Whether one of the two columns holds minus signs alone and the other one none: it is then money out.
bool isProvenBySigns(const CVStatementTable& table, const CVAmountRule& rule) {
    CVAmountRule out = rule;
    out.amount = rule.moneyOut;
    CVAmountRule in = rule;
    in.amount = rule.moneyIn;
    const SignCount outSigns = signsOf(table, out);
    return outSigns.negative > 0 && outSigns.positive == 0 && signsOf(table, in).negative == 0;
}

std::size_t firstDifference(const CVStatementTable& table, const Rules& rules) {
    for (const std::size_t row : table.likely) {
        for (const CVAmountRule& rule : rules) {
            if (CVAmountOfRow(table.rows[row], rule).hundredths !=
                CVAmountOfRow(table.rows[row], rules.front()).hundredths)
                return row;
        }
    }
    return table.likely.empty() ? 0 : table.likely.front();
}

CVSettledAmounts settledWith(const CVStatementTable& table, const Rules& rules, About about) {
    return {rules, about, firstDifference(table, rules)};
}

/// Two columns for money out and money in.
CVSettledAmounts settleTwoColumns(const CVStatementTable& table, const std::vector<CVTriedRule>& two, bool isNamed) {
    for (const CVTriedRule& one : two) {
        if (!isNamed && isProvenBySigns(table, one.rule))
            return {{one.rule}};
    }
    Rules rules;
    std::vector<Amounts> seen;
    for (const CVTriedRule& one : two) {
        if (std::find(seen.begin(), seen.end(), one.amounts) == seen.end())
            rules.push_back(one.rule);
        seen.push_back(one.amounts);
    }
    return settledWith(table, rules, About::MoneyOutColumn);
}

/// The rule with the fee on top, where there is one that changes the amounts.
std::optional<CVAmountRule> withFee(const CVStatementTable& table, const std::vector<CVTriedRule>& rules,
                                    const CVAmountRule& rule) {
    const Amounts amounts = tried(table, rule).amounts;
    for (const CVTriedRule& one : rules) {
        CVAmountRule without = one.rule;
        without.fee = rule.fee;
        if (one.rule.fee != rule.fee && without == rule && one.amounts != amounts)
            return one.rule;
    }
    return std::nullopt;
}

CVSettledAmounts settleOneColumn(const CVStatementTable& table, const CVStatementColumns& columns,
                                 const std::vector<CVTriedRule>& rules, const Rules& differing, bool isSignKnown) {
    if (differing.size() > 1)
        return settledWith(table, differing, About::AmountColumn);
    const CVAmountRule rule = differing.empty() ? rules.front().rule : differing.front();
    if (const auto fee = columns.isFeeGiven ? std::nullopt : withFee(table, rules, rule))
        return settledWith(table, {*fee, rule}, About::FeeColumn);
    if (isSignKnown || columns.isMarkerGiven)
        return {{rule}};
    return settledWith(table, signsOfOneColumn(table, columns, rule), About::Sign);
}

/// What the balances prove; a question where the words speak against it, for a balance may also be what is owed.
CVSettledAmounts settleProven(const CVStatementTable& table, const CVStatementColumns& columns,
                              const std::vector<CVTriedRule>& rules, const CVAmountRule& proven, bool isSignKnown) {
    const WordCount words = wordsOf(table, proven);
    const bool isOfOne = proven.amount >= 0;
    const bool mayBeOwed = isOfOne && !proven.positiveIsOut && isOfCard(table) && words.agreeing == 0 &&
                           signsOf(table, proven).positive >= signsOf(table, proven).negative;
    if (isSignKnown || proven.marker >= 0 || (words.contradicting <= words.agreeing && !mayBeOwed))
        return {{proven}};
    if (isOfOne)
        return settledWith(table, {withSign(proven, true), withSign(proven, false)}, About::Sign);
    for (const CVTriedRule& one : rules) {
        if (!columns.areAmountsNamed && one.rule.moneyOut == proven.moneyIn && one.rule.moneyIn == proven.moneyOut)
            return settledWith(table, {proven, one.rule}, About::MoneyOutColumn);
    }
    return {{proven}};
}

/// What the columns say without balances.
CVSettledAmounts settleByColumns(const CVStatementTable& table, const CVStatementColumns& columns,
                                 const std::vector<CVTriedRule>& rules, bool isSignKnown, bool positiveIsOut) {
    const auto two = ofTwoColumns(rules);
    const Rules differing = differingColumns(rules, columns, positiveIsOut);
    // Where one column holds what two others hold as well, the one is enough.
    const bool isSame = !differing.empty() && std::any_of(two.begin(), two.end(), [&](const CVTriedRule& one) {
        return one.amounts == tried(table, differing.front()).amounts;
    });
    if (isSame)
        return {{differing.front()}};
    if (!two.empty() && differing.empty())
        return settleTwoColumns(table, two, columns.areAmountsNamed);
    if (!two.empty() && columns.areAmountsNamed) {
        Rules all = differing;
        all.push_back(two.front().rule);
        return settledWith(table, all, About::AmountColumn);
    }
    return settleOneColumn(table, columns, rules, differing, isSignKnown);
}

/// Whether amounts stand both with and without a sign, or with and without CR or DR: minus signs alone say nothing of
/// an amount that has none.
bool isSignProvenByTexts(const CVStatementTable& table, const CVAmountRule& rule) {
    const SignCount signs = signsOf(table, rule);
    const int marked = signs.in + signs.out;
    return (marked > 0 && marked < signs.all()) || (signs.negative > 0 && signs.positive > signs.plus);
}

CVSettledAmounts settleTriedRules(const CVStatementTable& table, const CVStatementColumns& columns,
                                  std::vector<CVTriedRule> rules, const CVAmountClues& clues) {
    const bool isSignKnown = clues.positiveIsOut.has_value();
    const Rules proven = CVAmountRulesProvenByBalances(table, columns, rules, clues.days);
    if (proven.size() > 1 && proven.front().amount < 0)
        return settledWith(table, proven, About::MoneyOutColumn);
    if (proven.size() > 1 && proven.front().marker < 0)
        return settledWith(table, signsOfOneColumn(table, columns, withSign(proven.front(), false)), About::Sign);
    if (proven.size() == 1) {
        CVSettledAmounts settled = settleProven(table, columns, rules, proven.front(), isSignKnown);
        settled.isProven = settled.isSettled();
        return settled;
    }
    if (columns.areAmountsNamed && !columns.balances.empty()) {
        for (CVTriedRule& one : rules)
            one.rule.balance = columns.balances.front();
    }
    return settleByColumns(table, columns, rules, isSignKnown, clues.positiveIsOut.value_or(false));
}

} // namespace

CVSettledAmounts CVSettleAmounts(const CVStatementTable& table, const CVStatementColumns& columns,
                                 const CVAmountClues& clues) {
    CVAmountRule known;
    known.mark = clues.mark;
    known.positiveIsOut = clues.positiveIsOut.value_or(false);
    known.outMarker = clues.outMarker;
    std::vector<CVTriedRule> rules;
    for (const CVAmountRule& rule : PossibleRules(columns, known, clues.positiveIsOut.has_value()).rules())
        rules.push_back(tried(table, rule));
    keepCovering(rules);
    if (rules.empty())
        return {};
    CVSettledAmounts settled = settleTriedRules(table, columns, std::move(rules), clues);
    const CVAmountRule& rule = settled.rules.front();
    const bool isPlain = settled.isSettled() && rule.amount >= 0 && rule.marker < 0;
    settled.isSignProven = isPlain && (settled.isProven || isSignProvenByTexts(table, rule));
    return settled;
}
