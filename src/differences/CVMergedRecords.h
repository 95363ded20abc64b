#pragma once

#include "differences/CVRecordMatching.h"

#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

/// Issues IDs that nothing in three states of a budget has or names.
struct CVFreeIDs {
    quint32 last = 0;
    std::unordered_set<quint32> taken;

    /// 0 is not issued, because it stands for no category and for no set.
    [[nodiscard]] quint32 issue();
};

/// A record, or a transaction, that was changed on both sides, each time in another way.
template <typename Record>
struct CVTwoChanges {
    std::shared_ptr<Record> ours;
    std::shared_ptr<Record> theirs;
};

/// Which sets, or which categories, of two changed states and of the last one that they had in common are the same, and
/// what becomes of each. The IDs are ours; what is only theirs keeps its ID when that is free. `Record` is
/// `CVTransactionSet` or `CVCategory`.
template <typename Record>
class CVMergedRecords final {
public:
    using Records = std::vector<std::shared_ptr<Record>>;
    /// In each list an ID stands once.
    struct Sides {
        Records common;
        Records ours;
        Records theirs;
    };
    struct Matchings {
        CVRecordMatching theirsToOurs;
        CVRecordMatching commonToOurs;
        CVRecordMatching commonToTheirs;
    };

    /// No record that is only theirs gets one of the IDs in `refused`.
    CVMergedRecords(const Sides& sides, const Matchings& matchings, const std::unordered_set<quint32>& refused,
                    CVFreeIDs& ids);

    /// The ID in the merged budget of what has that ID on one side; absent when that side has no such record. What is
    /// on neither side any more has an ID too, which means nothing else.
    [[nodiscard]] std::optional<quint32> ofCommon(quint32 id) const { return found(mOfCommon, id); }
    [[nodiscard]] std::optional<quint32> ofOurs(quint32 id) const { return found(mOfOurs, id); }
    [[nodiscard]] std::optional<quint32> ofTheirs(quint32 id) const { return found(mOfTheirs, id); }

    /// Copies of the records of the merged budget, ours first; they belong to no document. What one side has removed
    /// and the other has left as it was goes, unless it is among the IDs in `used`.
    [[nodiscard]] Records merged(const std::unordered_set<quint32>& used);
    /// What `merged` has left as ours because both sides have changed it.
    [[nodiscard]] const std::vector<CVTwoChanges<Record>>& changedTwice() const { return mChangedTwice; }

private:
    struct Slot {
        quint32 id = 0;
        /// Null where the sides do not agree which one it was.
        std::shared_ptr<Record> common;
        std::shared_ptr<Record> ours;
        std::shared_ptr<Record> theirs;
    };
    using Places = std::unordered_map<quint32, std::size_t>;

    [[nodiscard]] std::optional<quint32> found(const Places& places, quint32 id) const;
    std::size_t add(quint32 id);
    void place(const std::shared_ptr<Record>& common, const Matchings& matchings, CVFreeIDs& ids);
    [[nodiscard]] std::shared_ptr<Record> mergedRecord(const Slot& slot, bool isUsed);

    std::vector<Slot> mSlots;
    Places mOfCommon;
    Places mOfOurs;
    Places mOfTheirs;
    std::vector<CVTwoChanges<Record>> mChangedTwice;
};
