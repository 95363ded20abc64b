#include "workspace/CVSetTransactions.h"

#include "model/CVFetchAhead.h"

#include <algorithm>
#include <iterator>

namespace {

const qint64 kUndated = QBDate::orderKey(std::nullopt);

/// Makes `target` those of `source` that `belongs` accepts, and returns what it lost. Most rebuilds follow the change
/// of one transaction: what stands at either end as before is left alone, as counting a reference anew costs more than
/// all the rest.
template <typename Belongs>
CVDocument::Transactions replaceChangedPart(CVDocument::Transactions& target, const CVDocument::Transactions& source,
                                            Belongs belongs) {
    std::size_t front = 0;
    std::size_t targetFront = 0;
    for (; front < source.size() && targetFront < target.size(); ++front) {
        const bool isTaken = belongs(CVFetchAhead(source, front));
        const bool isOther = target[targetFront] != source[front];
        if (isTaken && isOther)
            break;
        targetFront += isTaken ? 1 : 0;
    }
    std::size_t back = source.size();
    std::size_t targetBack = target.size();
    for (; back > front && targetBack > targetFront; --back) {
        const bool isTaken = belongs(CVFetchAhead(source, back - 1, -1));
        const bool isOther = target[targetBack - 1] != source[back - 1];
        if (isTaken && isOther)
            break;
        targetBack -= isTaken ? 1 : 0;
    }
    const auto at = [](auto& transactions, std::size_t index) {
        return transactions.begin() + static_cast<std::ptrdiff_t>(index);
    };
    CVDocument::Transactions changed;
    std::copy_if(at(source, front), at(source, back), std::back_inserter(changed),
                 [&belongs](const auto& transaction) { return belongs(*transaction); });
    CVDocument::Transactions lost;
    std::move(at(target, targetFront), at(target, targetBack), std::back_inserter(lost));
    const auto place = target.erase(at(target, targetFront), at(target, targetBack));
    target.insert(place, std::make_move_iterator(changed.begin()), std::make_move_iterator(changed.end()));
    return lost;
}

} // namespace

void CVSetTransactions::collect() {
    const quint64 now = mDocument.changeCount();
    const quint32 set = mDocument.shownTransactionSet();
    const bool isSameSet = mCollectedAt && mSetID == set;
    if (isSameSet && mCollectedAt == now)
        return;
    if (const auto place = mDocument.lastInsertion(); isSameSet && place && mCollectedAt == now - 1) {
        insert(*place);
    } else {
        auto lost =
            replaceChangedPart(mTransactions, mDocument.transactions(), [set](const CVTransaction& transaction) {
                return transaction.transactionSetID() == set;
            });
        std::move(lost.begin(), lost.end(), std::back_inserter(mTakenOut));
        mFiguredAt.reset();
    }
    mSetID = set;
    mCollectedAt = now;
}

double CVSetTransactions::total() const {
    const auto total = totalInAnyOrder();
    return total ? *total : CVSumRoundedOnce(mTransactions);
}

bool CVSetTransactions::lieIn(const CVDayRange& range) const {
    const Figures& now = figures();
    const bool areDated = now.firstDay <= now.lastDay;
    return !areDated || (range.start.orderKey() <= now.firstDay && now.lastDay <= range.end.orderKey());
}

void CVSetTransactions::Figures::add(const CVTransaction& transaction) {
    const qint64 day = transaction.dayKey();
    sum.add(transaction.amount());
    if (day == kUndated) {
        hasUndated = true;
    } else {
        firstDay = std::min(firstDay, day);
        lastDay = std::max(lastDay, day);
    }
}

const CVSetTransactions::Figures& CVSetTransactions::figures() const {
    const quint64 now = mDocument.changeCount();
    if (mFiguredAt != now) {
        mFigures = Figures();
        for (std::size_t i = 0; i < mTransactions.size(); ++i)
            mFigures.add(CVFetchAhead(mTransactions, i));
        mFiguredAt = now;
    }
    return mFigures;
}

/// Nothing else than this transaction has come since the last collection.
void CVSetTransactions::insert(std::size_t indexInDocument) {
    const auto& all = mDocument.transactions();
    const auto isOfSet = [this](const auto& transaction) { return transaction->transactionSetID() == mSetID; };
    const auto inserted = all.begin() + static_cast<std::ptrdiff_t>(indexInDocument);
    if (isOfSet(*inserted)) {
        const auto next = std::find_if(std::next(inserted), all.end(), isOfSet);
        const auto place =
            next == all.end() ? mTransactions.end() : std::find(mTransactions.begin(), mTransactions.end(), *next);
        mTransactions.insert(place, *inserted);
        mFigures.add(**inserted);
    }
    if (mFiguredAt == mCollectedAt)
        mFiguredAt = mDocument.changeCount();
}
