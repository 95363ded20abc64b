#include "differences/CVMergedRecords.h"

#include "differences/CVMatchRecords.h"
#include "model/CVCategory.h"
#include "model/CVTransactionSet.h"

namespace {

/// Whose value counts. Without a common record, whatever differs was changed on both sides.
enum class Side { Ours, Theirs, Both };

template <typename Record, typename AreSame>
Side changedBy(const Record* common, const Record& ours, const Record& theirs, AreSame areSame) {
    if (areSame(ours, theirs) || (common && areSame(*common, theirs)))
        return Side::Ours;
    return common && areSame(*common, ours) ? Side::Theirs : Side::Both;
}

/// Takes over into a copy of ours what they alone have changed. Whether anything was changed on both sides.
bool takeOver(CVTransactionSet& merged, const CVTransactionSet* common, const CVTransactionSet& theirs) {
    const Side side =
        changedBy(common, merged, theirs, [](const auto& a, const auto& b) { return CVSayTheSame(a, b); });
    if (side == Side::Theirs)
        merged.setTransactionSetName(theirs.transactionSetName());
    return side == Side::Both;
}

bool takeOver(CVCategory& merged, const CVCategory* common, const CVCategory& theirs) {
    const Side plan = changedBy(common, merged, theirs, CVHaveTheSamePlan);
    const Side name = changedBy(common, merged, theirs, [](const CVCategory& a, const CVCategory& b) {
        return a.categoryName() == b.categoryName();
    });
    if (plan == Side::Theirs) {
        merged.setExpenseFrequency(theirs.expenseFrequency());
        merged.setExpenseTarget(theirs.expenseTarget());
    }
    if (name == Side::Theirs)
        merged.setCategoryName(theirs.categoryName());
    return plan == Side::Both || name == Side::Both;
}

template <typename Record>
std::shared_ptr<Record> copyWithoutDocument(const Record& record) {
    auto copy = std::make_shared<Record>(record);
    copy->setDocument(nullptr);
    return copy;
}

} // namespace

quint32 CVFreeIDs::issue() {
    do
        ++last;
    while (last == 0 || taken.contains(last));
    taken.insert(last);
    return last;
}

template <typename Record>
CVMergedRecords<Record>::CVMergedRecords(const Sides& sides, const Matchings& matchings,
                                         const std::unordered_set<quint32>& refused, CVFreeIDs& ids) {
    for (const auto& record : sides.ours) {
        const std::size_t slot = add(record->uniqueID());
        mSlots[slot].ours = record;
        mOfOurs.emplace(record->uniqueID(), slot);
    }
    for (const auto& record : sides.theirs) {
        const quint32 id = record->uniqueID();
        const auto ours = matchings.theirsToOurs.counterpartOf(id);
        const bool isFree = !mOfOurs.contains(id) && !refused.contains(id);
        const std::size_t slot = ours ? mOfOurs.at(*ours) : add(isFree ? id : ids.issue());
        mSlots[slot].theirs = record;
        mOfTheirs.emplace(id, slot);
    }
    for (const auto& record : sides.common)
        place(record, matchings, ids);
}

template <typename Record>
void CVMergedRecords<Record>::place(const std::shared_ptr<Record>& common, const Matchings& matchings, CVFreeIDs& ids) {
    const auto ours = matchings.commonToOurs.counterpartOf(common->uniqueID());
    const auto theirs = matchings.commonToTheirs.counterpartOf(common->uniqueID());
    const std::size_t slot = ours ? mOfOurs.at(*ours) : theirs ? mOfTheirs.at(*theirs) : add(ids.issue());
    mOfCommon.emplace(common->uniqueID(), slot);
    const auto isThere = [](const std::shared_ptr<Record>& record, const std::optional<quint32>& id) {
        return (record ? std::optional(record->uniqueID()) : std::nullopt) == id;
    };
    if (isThere(mSlots[slot].ours, ours) && isThere(mSlots[slot].theirs, theirs))
        mSlots[slot].common = common;
}

template <typename Record>
std::size_t CVMergedRecords<Record>::add(quint32 id) {
    mSlots.push_back({id, nullptr, nullptr, nullptr});
    return mSlots.size() - 1;
}

template <typename Record>
std::optional<quint32> CVMergedRecords<Record>::found(const Places& places, quint32 id) const {
    const auto slot = places.find(id);
    return slot == places.end() ? std::nullopt : std::optional(mSlots[slot->second].id);
}

template <typename Record>
auto CVMergedRecords<Record>::merged(const std::unordered_set<quint32>& used) -> Records {
    Records records;
    for (const Slot& slot : mSlots) {
        auto record = mergedRecord(slot, used.contains(slot.id));
        if (!record)
            continue;
        record->setUniqueID(slot.id);
        records.push_back(std::move(record));
    }
    return records;
}

/// Null for a record that goes.
template <typename Record>
std::shared_ptr<Record> CVMergedRecords<Record>::mergedRecord(const Slot& slot, bool isUsed) {
    if (slot.ours && slot.theirs) {
        auto record = copyWithoutDocument(*slot.ours);
        if (takeOver(*record, slot.common.get(), *slot.theirs))
            mChangedTwice.push_back({record, slot.theirs});
        return record;
    }
    const auto& only = slot.ours ? slot.ours : slot.theirs;
    const bool isLeft = only && (isUsed || !slot.common || !CVSayTheSame(*slot.common, *only));
    return isLeft ? copyWithoutDocument(*only) : nullptr;
}

template class CVMergedRecords<CVTransactionSet>;
template class CVMergedRecords<CVCategory>;
