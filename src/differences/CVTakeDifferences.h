#pragma once

#include "differences/CVBudgetDifferences.h"
#include "differences/CVTakenRecords.h"

#include <unordered_set>
#include <utility>

/// Gives the present budget, as one change, chosen differences between another state of it and itself: what only the
/// other state has is made, what is not the same there says what it says there. Differences that are none any more,
/// because the budget has changed since they were chosen, are passed over. Tells nobody before `finish`. References
/// both documents, which outlive it.
class CVTakeDifferences final {
public:
    /// `differences` are those that there are now, which may be long after the user saw those to choose from: `before`
    /// is the other state, `after` the present budget.
    CVTakeDifferences(CVDocument& present, const CVDocument& other, CVBudgetDifferences differences,
                      CVRenamedCategory renamed);

    /// Only differences with a `before` are taken.
    void take(const CVBudgetDifferences& chosen);
    /// Removes transactions that only the present budget has.
    void removeTransactions(const CVBudgetDifferences& chosen);
    /// Removes the sets and categories that only the present budget has and that nothing refers to by then. The shown
    /// set stays.
    void removeRecords(const CVBudgetDifferences& chosen);
    /// Announces and saves what was changed, and returns how many of the chosen lines that is.
    [[nodiscard]] int finish();
    /// How many lines were changed up to now.
    [[nodiscard]] int count() const { return mCount; }

private:
    void take(const std::vector<CVRecordDifference<CVTransactionSet>>& chosen);
    void take(const std::vector<CVRecordDifference<CVCategory>>& chosen);
    void take(const std::vector<CVTransactionDifference>& chosen);
    void restore(const CVTransaction& before, CVTransaction* after);
    void noteNamesakes(const CVRecordDifference<CVCategory>& renamed);
    void joinNamesakes();
    void remove(const std::vector<CVRecordDifference<CVTransactionSet>>& chosen);
    void remove(const std::vector<CVRecordDifference<CVCategory>>& chosen);
    [[nodiscard]] std::unordered_set<quint32> idsInUse(quint32 (CVTransaction::*idOf)() const) const;

    CVDocument& mPresent;
    CVBudgetDifferences mDifferences;
    CVRenamedCategory mRenamed;
    CVTakenRecords mRecords;
    /// Categories that go, each with the ID of the one that their transactions join.
    std::vector<std::pair<std::shared_ptr<CVCategory>, quint32>> mNamesakes;
    bool mHasChangedSets = false;
    int mCount = 0;
};
