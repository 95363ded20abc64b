#pragma once

#include <QtGlobal>

#include <memory>
#include <optional>
#include <unordered_map>

class CVCategory;
class CVDocument;
class CVTransaction;
class CVTransactionSet;
struct CVBudgetDifferences;

/// Whether what another state of the budget has in a category that was renamed belongs to the one of the former name,
/// which is made again where there is none, or to the renamed one.
enum class CVRenamedCategory : bool { IsAnother, IsTheSame };

/// The sets and categories of the present budget to which the transactions of another state belong. Makes those that
/// the present budget lacks, under the same ID unless another record has it by now, and announces nothing. References
/// both documents and the differences between them, which outlive it.
class CVTakenRecords final {
public:
    CVTakenRecords(CVDocument& present, const CVDocument& other, const CVBudgetDifferences& differences,
                   CVRenamedCategory renamed)
        : mPresent(present)
        , mOther(other)
        , mDifferences(differences)
        , mRenamed(renamed) {}

    /// The present IDs. A transaction without a set keeps its ID.
    [[nodiscard]] quint32 setFor(quint32 idThere);
    [[nodiscard]] quint32 categoryFor(quint32 idThere);
    /// Makes a record that the present budget lacks, once.
    void make(const CVTransactionSet& there);
    void make(const CVCategory& there);
    [[nodiscard]] bool hasMadeSets() const { return mHasMadeSets; }

private:
    [[nodiscard]] bool hasTransactionsWithoutSet() const;
    [[nodiscard]] std::shared_ptr<CVCategory> presentCategory(const CVCategory& there) const;
    [[nodiscard]] quint32 noCategoryFor(quint32 idThere);
    /// An ID that is issued and that no record of the other state may get.
    [[nodiscard]] quint32 newID(quint32 (CVDocument::*issue)(), quint32 (CVTransaction::*idOf)() const) const;

    CVDocument& mPresent;
    const CVDocument& mOther;
    const CVBudgetDifferences& mDifferences;
    CVRenamedCategory mRenamed;
    /// As far as they were asked for.
    std::unordered_map<quint32, quint32> mSets;
    std::unordered_map<quint32, quint32> mCategories;
    /// An ID that no category has; absent until one is needed.
    std::optional<quint32> mNoCategory;
    bool mHasMadeSets = false;
};

/// Gives a category another name and plan without announcing them.
void CVSetNameAndPlan(CVCategory& category, const CVCategory& from);
