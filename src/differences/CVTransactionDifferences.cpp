#include "differences/CVTransactionDifferences.h"

#include "differences/CVRecordMatching.h"
#include "differences/CVTransactionContent.h"
#include "model/CVTransaction.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

using Differences = std::vector<CVTransactionDifference>;

/// Day, payee, purpose and amount.
CVTransactionContent keyOfTextsAndAmount(CVTransactionContent content) {
    content.category = 0;
    content.taxFlag = content.userFlag = false;
    return content;
}

/// Day, payee and purpose.
CVTransactionContent keyOfTexts(CVTransactionContent content) {
    content.amount.clear();
    return keyOfTextsAndAmount(std::move(content));
}

/// Day and amount.
CVTransactionContent keyOfAmount(CVTransactionContent content) {
    content.payTo = content.xfor = QString();
    return keyOfTextsAndAmount(std::move(content));
}

std::optional<QBDate> dayOf(const CVTransactionDifference& difference) {
    return (difference.after ? difference.after : difference.before)->effectiveDate();
}

class Comparison final {
public:
    Comparison(const CVRecordMatching& sets, const CVRecordMatching& categories)
        : mSets(sets)
        , mCategories(categories) {}

    [[nodiscard]] CVTransactionComparison find(const CVTransactions& before, const CVTransactions& after);

private:
    using Key = CVTransactionContent (*)(CVTransactionContent content);

    void compare(const CVTransactions& before, const CVTransactions& after);
    [[nodiscard]] CVTransactionContent contentBefore(const CVTransaction& transaction) const {
        return {transaction, mSets.idAfter(transaction.transactionSetID()),
                mCategories.idAfter(transaction.categoryID())};
    }
    void setNamesakesAside();
    void joinChanges(Key key);
    template <typename KeyBefore, typename KeyAfter>
    void join(KeyBefore keyBefore, KeyAfter keyAfter);

    const CVRecordMatching& mSets;
    const CVRecordMatching& mCategories;
    Differences mGone;
    CVTransactions mNew;
    Differences mAtNamesakes;
};

CVTransactionComparison Comparison::find(const CVTransactions& before, const CVTransactions& after) {
    compare(before, after);
    setNamesakesAside();
    joinChanges(keyOfTextsAndAmount);
    joinChanges(keyOfTexts);
    joinChanges(keyOfAmount);
    for (const auto& transaction : mNew)
        mGone.push_back({nullptr, transaction});
    std::stable_sort(mGone.begin(), mGone.end(), [](const auto& a, const auto& b) { return dayOf(a) > dayOf(b); });
    return {std::move(mGone), std::move(mAtNamesakes)};
}

void Comparison::compare(const CVTransactions& before, const CVTransactions& after) {
    QHash<CVTransactionContent, int> counts;
    counts.reserve(static_cast<qsizetype>(after.size()));
    for (const auto& transaction : after)
        ++counts[CVTransactionContent(*transaction)];
    for (const auto& transaction : before) {
        const auto same = counts.find(contentBefore(*transaction));
        if (same != counts.end() && *same > 0)
            --*same;
        else
            mGone.push_back({transaction, nullptr});
    }
    for (const auto& transaction : after) {
        int& count = counts[CVTransactionContent(*transaction)];
        if (count > 0) {
            --count;
            mNew.push_back(transaction);
        }
    }
}

/// A transaction whose category was renamed may come back to another category that has the former name.
void Comparison::setNamesakesAside() {
    join(
        [this](const CVTransaction& before) {
            CVTransactionContent content = contentBefore(before);
            content.category = mCategories.namesakeOfBefore(before.categoryID());
            return content;
        },
        [this](const CVTransaction& after) {
            CVTransactionContent content(after);
            content.category = mCategories.namesakeOfAfter(after.categoryID());
            return content;
        });
    const auto aside = std::stable_partition(mGone.begin(), mGone.end(),
                                             [](const CVTransactionDifference& gone) { return !gone.after; });
    mAtNamesakes.assign(std::make_move_iterator(aside), std::make_move_iterator(mGone.end()));
    mGone.erase(aside, mGone.end());
}

void Comparison::joinChanges(Key key) {
    join([this, key](const CVTransaction& before) { return key(contentBefore(before)); },
         [key](const CVTransaction& after) { return key(CVTransactionContent(after)); });
}

/// Makes a change of each transaction that is gone and the first new one with the same key.
template <typename KeyBefore, typename KeyAfter>
void Comparison::join(KeyBefore keyBefore, KeyAfter keyAfter) {
    // The places in mNew, the first last.
    QHash<CVTransactionContent, std::vector<std::size_t>> candidates;
    for (std::size_t place = mNew.size(); place-- > 0;)
        candidates[keyAfter(*mNew[place])].push_back(place);
    for (CVTransactionDifference& difference : mGone) {
        if (difference.after)
            continue;
        const auto found = candidates.find(keyBefore(*difference.before));
        if (found == candidates.end() || found->empty())
            continue;
        difference.after = std::exchange(mNew[found->back()], nullptr);
        found->pop_back();
    }
    std::erase(mNew, nullptr);
}

} // namespace

CVTransactionComparison CVFindTransactionDifferences(const CVTransactions& before, const CVTransactions& after,
                                                     const CVRecordMatching& sets, const CVRecordMatching& categories) {
    return Comparison(sets, categories).find(before, after);
}
