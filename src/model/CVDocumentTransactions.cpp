#include "model/CVCategory.h"
#include "model/CVCategoryLookup.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"
#include "model/CVTransactionSort.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace {

/// Removed transactions forget the document, because a view may keep one after the document is gone.
template <typename Leaves>
void eraseLeaving(CVTransactions& transactions, Leaves leaves) {
    std::erase_if(transactions, [&leaves](const auto& transaction) {
        const bool removed = leaves(transaction);
        if (removed)
            transaction->setDocument(nullptr);
        return removed;
    });
}

/// Lets each transaction keep its text. Only then may a view of one be held, because a block moves while it grows.
void render(const CVTransactions& transactions) {
    CVTextArena arena;
    for (const auto& transaction : transactions)
        (void)transaction->xmlRepresentation(arena);
}

struct HashOfText {
    std::size_t operator()(QByteArrayView text) const { return qHash(text); }
};

} // namespace

/// The part of the document that keeps transactions in their order and the bounds of their dates.

void CVDocument::addTransaction(std::shared_ptr<CVTransaction> transaction) {
    mTransactions.push_back(std::move(transaction));
}

/// Puts each former transaction in the place of one that says the same. Whether that was all.
bool CVDocument::keepSameTransactions(const CVTransactions& former) {
    render(former);
    render(mTransactions);
    std::unordered_multimap<QByteArrayView, const std::shared_ptr<CVTransaction>*, HashOfText> byText;
    byText.reserve(former.size());
    for (const auto& transaction : former)
        byText.emplace(transaction->xmlRepresentation(), &transaction);
    bool areSame = former.size() == mTransactions.size();
    for (auto& transaction : mTransactions) {
        const auto same = byText.find(transaction->xmlRepresentation());
        areSame = areSame && same != byText.end();
        if (same == byText.end())
            continue;
        transaction->setDocument(nullptr);
        transaction = *same->second;
        transaction->setDocument(this);
        byText.erase(same);
    }
    return areSame;
}

bool CVDocument::saysMoreThan(const CVDocument& other) const {
    render(mTransactions);
    render(other.mTransactions);
    std::unordered_multiset<QByteArrayView, HashOfText> texts;
    texts.reserve(other.mTransactions.size());
    for (const auto& transaction : other.mTransactions)
        texts.insert(transaction->xmlRepresentation());
    return std::any_of(mTransactions.begin(), mTransactions.end(), [&texts](const auto& transaction) {
        const auto same = texts.find(transaction->xmlRepresentation());
        if (same == texts.end())
            return true;
        texts.erase(same);
        return false;
    });
}

void CVDocument::insertTransaction(const std::shared_ptr<CVTransaction>& transaction) {
    if (!transaction)
        return;
    const auto set = findTransactionSetFromID(mCurrentTransactionSetID);
    transaction->setTransactionSetID(set ? set->uniqueID() : 0);
    transaction->setDocument(this);
    if (const auto date = transaction->effectiveDate()) {
        widenBounds(*date);
        if (const auto category = getCategoryByUniqueID(transaction->categoryID()))
            category->widenBounds(*date);
    }
    const auto index = indexInTransactionArrayOfDate(transaction->effectiveDate());
    mTransactions.insert(mTransactions.begin() + static_cast<std::ptrdiff_t>(index), transaction);
    announceTransactions();
}

void CVDocument::removeTransaction(const std::shared_ptr<CVTransaction>& transaction) {
    if (transaction) {
        const auto found = std::find(mTransactions.begin(), mTransactions.end(), transaction);
        if (found != mTransactions.end()) {
            transaction->setDocument(nullptr);
            mTransactions.erase(found);
            askForVersion(CVVersionReason::Removal);
        }
        announceTransactions();
    }
    updateDates();
}

void CVDocument::removeTransactions(std::span<const std::shared_ptr<CVTransaction>> transactions) {
    if (transactions.empty())
        return;
    dropTransactions(transactions);
    announceTransactions();
    updateDates();
}

void CVDocument::dropTransactions(std::span<const std::shared_ptr<CVTransaction>> transactions) {
    if (transactions.empty())
        return;
    const std::unordered_set<std::shared_ptr<CVTransaction>> removed(transactions.begin(), transactions.end());
    eraseLeaving(mTransactions, [&removed](const auto& transaction) { return removed.contains(transaction); });
    askForVersion(CVVersionReason::Removal);
}

void CVDocument::removeTransactionsForSet(quint32 id) {
    if (mTransactions.empty())
        return;
    eraseLeaving(mTransactions, [id](const auto& transaction) { return transaction->transactionSetID() == id; });
    askForVersion(CVVersionReason::Removal);
    announceTransactions();
    updateDates();
}

void CVDocument::sortTransactionsByDate() {
    CVSortTransactions(mTransactions, {QStringLiteral("date"), true});
}

std::size_t CVDocument::indexInTransactionArrayOfDate(const std::optional<QBDate>& date) const {
    auto low = std::ptrdiff_t(0);
    auto high = static_cast<std::ptrdiff_t>(mTransactions.size()) - 1;
    while (low <= high) {
        const std::ptrdiff_t mid = (low + high) / 2;
        const auto& other = mTransactions[static_cast<std::size_t>(mid)]->effectiveDate();
        if (date > other)
            high = mid - 1;
        else if (date < other)
            low = mid + 1;
        else
            return static_cast<std::size_t>(mid);
    }
    return static_cast<std::size_t>(low);
}

void CVDocument::updateDates() {
    const QBDate today = QBDate::date();
    for (const auto& category : mCategories) {
        category->setEarliestTransactionDate(today);
        category->setLatestTransactionDate(today);
    }
    const CVCategoryLookup lookup(mCategories);
    for (const auto& transaction : mTransactions) {
        CVCategory* const category = lookup.find(transaction->categoryID());
        if (const auto date = transaction->effectiveDate(); date && category)
            category->widenBounds(*date);
    }
    const auto isDated = [](const auto& transaction) { return transaction->effectiveDate().has_value(); };
    const auto newest = std::find_if(mTransactions.begin(), mTransactions.end(), isDated);
    if (newest == mTransactions.end())
        return;
    const auto oldest = std::find_if(mTransactions.rbegin(), mTransactions.rend(), isDated);
    _earliestTransactionDate = (*oldest)->effectiveDate();
    _latestTransactionDate = (*newest)->effectiveDate();
}

void CVDocument::setEarliestTransactionDate(const std::optional<QBDate>& date) {
    _earliestTransactionDate = date;
}

void CVDocument::setLatestTransactionDate(const std::optional<QBDate>& date) {
    _latestTransactionDate = date;
}

void CVDocument::widenBounds(const QBDate& date) {
    if (!_earliestTransactionDate || date.comesBefore(*_earliestTransactionDate))
        _earliestTransactionDate = date;
    if (!_latestTransactionDate || date.comesAfter(*_latestTransactionDate))
        _latestTransactionDate = date;
}
