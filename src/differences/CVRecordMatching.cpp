#include "differences/CVRecordMatching.h"

#include <algorithm>

CVRecordMatching::CVRecordMatching(std::vector<Record> before, std::vector<Record> after,
                                   const std::unordered_set<quint32>& common, WithoutRecord withoutRecord)
    : mBefore(std::move(before))
    , mAfter(std::move(after))
    , mIsTaken(mAfter.size(), false)
    , mWithoutRecord(withoutRecord) {
    for (std::size_t i = 0; i < mBefore.size(); ++i) {
        mPairs.push_back({i, std::nullopt});
        mIDsBefore.insert(mBefore[i].id);
    }
    match([](const Record& a, const Record& b) { return a.id == b.id && a.name == b.name; });
    match([&common](const Record& a, const Record& b) { return a.id == b.id && common.contains(a.id); });
    match([](const Record& a, const Record& b) { return a.name == b.name; });
    for (std::size_t i = 0; i < mAfter.size(); ++i) {
        mIDsAfter.insert(mAfter[i].id);
        if (!mIsTaken[i])
            mPairs.push_back({std::nullopt, i});
    }
}

std::optional<quint32> CVRecordMatching::counterpartOf(quint32 idBefore) const {
    const auto counterpart = mCounterparts.find(idBefore);
    return counterpart == mCounterparts.end() ? std::nullopt : std::optional(counterpart->second);
}

std::optional<quint32> CVRecordMatching::idAfter(quint32 idBefore) const {
    if (const auto counterpart = counterpartOf(idBefore))
        return counterpart;
    if (mWithoutRecord == WithoutRecord::MeansTheLaterOne && !mIDsBefore.contains(idBefore))
        return idBefore;
    return mIDsAfter.contains(idBefore) ? std::nullopt : std::optional(idBefore);
}

std::optional<quint32> CVRecordMatching::namesakeOfBefore(quint32 idBefore) const {
    return namesake(mBefore, idBefore);
}

std::optional<quint32> CVRecordMatching::namesakeOfAfter(quint32 idAfter) const {
    return namesake(mAfter, idAfter);
}

std::optional<quint32> CVRecordMatching::namesake(const std::vector<Record>& records, quint32 id) const {
    const auto record =
        std::find_if(records.begin(), records.end(), [id](const Record& candidate) { return candidate.id == id; });
    if (record == records.end())
        return std::nullopt;
    const auto same = std::find_if(mAfter.begin(), mAfter.end(),
                                   [&name = record->name](const Record& candidate) { return candidate.name == name; });
    return same == mAfter.end() ? std::nullopt : std::optional(same->id);
}

/// Gives each record of the earlier state that has no counterpart yet the first free one that is the same. A budget has
/// some dozens of categories, so that comparing each with each takes no time.
template <typename AreSame>
void CVRecordMatching::match(AreSame areSame) {
    for (Pair& pair : mPairs) {
        for (std::size_t i = 0; i < mAfter.size() && !pair.after; ++i) {
            const Record& record = mBefore[*pair.before];
            if (mIsTaken[i] || !areSame(record, mAfter[i]))
                continue;
            pair.after = i;
            mIsTaken[i] = true;
            mCounterparts.emplace(record.id, mAfter[i].id);
        }
    }
}
