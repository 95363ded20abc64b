#pragma once

#include <QString>

#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

/// Tells which categories, or which sets, of two states of a budget are the same. Two records are the same when ID and
/// name agree, or when an earlier state that both have in common had that ID (the record was then renamed), or else
/// when the names agree. Each record has at most one counterpart.
class CVRecordMatching final {
public:
    struct Record {
        quint32 id = 0;
        QString name;
    };
    /// Two places in the lists that the matching was made of; an absent one means that the record was added or removed.
    struct Pair {
        std::optional<std::size_t> before;
        std::optional<std::size_t> after;
    };

    /// What refers to an ID that only a later record has. A set may be made for transactions that had none; a category
    /// that has an ID by chance is not meant.
    enum class WithoutRecord { MeansNoLaterOne, MeansTheLaterOne };

    /// Each ID stands once in `before` and once in `after`. `common` holds the IDs of the common earlier state.
    CVRecordMatching(std::vector<Record> before, std::vector<Record> after, const std::unordered_set<quint32>& common,
                     WithoutRecord withoutRecord = WithoutRecord::MeansNoLaterOne);

    /// All records, each once: first those of `before` in their order, then those that were added.
    [[nodiscard]] const std::vector<Pair>& pairs() const { return mPairs; }
    /// The ID of the same record in the later state; absent when the record is gone or never was.
    [[nodiscard]] std::optional<quint32> counterpartOf(quint32 idBefore) const;
    /// The ID by which the later state refers to what the earlier one calls `idBefore`. An ID without a record stays as
    /// it is. Absent when the later state has nothing that could be meant: the record is gone, and its ID belongs to
    /// another one.
    [[nodiscard]] std::optional<quint32> idAfter(quint32 idBefore) const;
    /// The first ID in the later state whose record is named exactly like this one of the earlier state, or of the
    /// later one; absent when there is none.
    [[nodiscard]] std::optional<quint32> namesakeOfBefore(quint32 idBefore) const;
    [[nodiscard]] std::optional<quint32> namesakeOfAfter(quint32 idAfter) const;

private:
    template <typename AreSame>
    void match(AreSame areSame);
    [[nodiscard]] std::optional<quint32> namesake(const std::vector<Record>& records, quint32 id) const;

    std::vector<Record> mBefore;
    std::vector<Record> mAfter;
    std::vector<Pair> mPairs;
    std::vector<bool> mIsTaken;
    std::unordered_map<quint32, quint32> mCounterparts;
    std::unordered_set<quint32> mIDsBefore;
    std::unordered_set<quint32> mIDsAfter;
    WithoutRecord mWithoutRecord;
};
