#pragma once

#include "base/QBDate.h"
#include "model/CVCollections.h"
#include "model/CVVersionReason.h"

#include <QStringList>

#include <memory>
#include <optional>
#include <span>
#include <unordered_set>
#include <utility>
#include <vector>

class CVDocumentSaver;
class QBNotificationCenter;
class QBUserDefaults;

/// The budget: owns all transactions (newest day first, see `CVCompareTransactions`), categories (by name without
/// regard to case) and transaction sets (in order of creation), issues IDs, and announces additions and removals.
/// References the notification centre, the user defaults and the saver, which outlive it. Main thread only.
class CVDocument final {
public:
    CVDocument(QBNotificationCenter& notificationCenter, QBUserDefaults& userDefaults);
    ~CVDocument();
    CVDocument(const CVDocument&) = delete;
    CVDocument& operator=(const CVDocument&) = delete;

    /// Without a saver `workbookSave` does nothing.
    void setSaver(CVDocumentSaver* saver) { mSaver = saver; }
    /// Begins to save the present state and returns true at once.
    bool workbookSave();
    /// Asks for the state in the data file to be kept as an earlier version when the next save replaces it. Of several
    /// reasons the last counts, but a removal behind every other. Whatever removes records asks for it.
    void askForVersion(CVVersionReason reason);
    /// What was asked for since the last call; the saver takes it.
    [[nodiscard]] std::optional<CVVersionReason> takeAskedVersion() { return std::exchange(mAskedVersion, {}); }
    /// The paths at which a budget is or will be saved, which no output may take. Empty without a saver.
    [[nodiscard]] QStringList dataFiles() const;
    /// Where the next save writes, without looking at the disk, which may hang. Empty when there is no such place.
    [[nodiscard]] QString placeForSaving() const;
    /// Whether the budget is only looked at: what the windows show cannot be edited, and nothing is saved.
    [[nodiscard]] bool isReadOnly() const;

    [[nodiscard]] QBNotificationCenter& notificationCenter() const { return mNotificationCenter; }
    [[nodiscard]] QBUserDefaults& userDefaults() const { return mUserDefaults; }

    [[nodiscard]] std::size_t countOfTransactionSets() const { return mTransactionSets.size(); }
    [[nodiscard]] const std::shared_ptr<CVTransactionSet>& objectInTransactionSetsAtIndex(std::size_t index) const;
    /// The collection itself: the set editor and the reader add to it directly.
    [[nodiscard]] CVTransactionSets& transactionSets() { return mTransactionSets; }
    [[nodiscard]] const CVTransactionSets& transactionSets() const { return mTransactionSets; }
    /// The ID of the set that is shown, 0 when there is none.
    [[nodiscard]] quint32 currentTransactionSet() const { return mCurrentTransactionSetID; }
    /// The ID that the shown transactions have: that of the current set, 0 when there are no sets.
    [[nodiscard]] quint32 shownTransactionSet() const {
        return mTransactionSets.empty() ? 0 : mCurrentTransactionSetID;
    }
    void setCurrentTransactionSet(quint32 id) { mCurrentTransactionSetID = id; }
    /// The index of the first set with the current ID; 0 when none has it.
    [[nodiscard]] std::size_t popupIndexOfCurrentTransactionSet() const;
    /// The first set with that ID; when none has it, the last set of all (deliberately); null when there are no sets.
    [[nodiscard]] std::shared_ptr<CVTransactionSet> findTransactionSetFromID(quint32 id) const;

    [[nodiscard]] const CVTransactions& transactions() const { return mTransactions; }
    /// Reserves memory for as many as the reader expects; the reader may add more or fewer.
    void reserveTransactions(std::size_t count) { mTransactions.reserve(count); }
    /// Appends without sorting or announcing; for the reader of the data file.
    void addTransaction(std::shared_ptr<CVTransaction> transaction);
    /// Files a transaction under the current set (or the fallback of `findTransactionSetFromID`), widens the bounds of
    /// the document and of its category, places it in order of date and announces it. Null is ignored.
    void insertTransaction(const std::shared_ptr<CVTransaction>& transaction);
    /// Removes this object and announces it, even when the document does not hold it; then calls `updateDates`, also
    /// for null.
    void removeTransaction(const std::shared_ptr<CVTransaction>& transaction);
    /// Removes all of these objects in one walk, with one announcement; does nothing for an empty list. The list must
    /// not be the document's own.
    void removeTransactions(std::span<const std::shared_ptr<CVTransaction>> transactions);
    /// Does the same without announcing it; `finishChanges` follows.
    void dropTransactions(std::span<const std::shared_ptr<CVTransaction>> transactions);
    /// Removes every transaction of that set in one walk and announces it once, even when none matched; does nothing
    /// when the document has no transactions.
    void removeTransactionsForSet(quint32 id);
    void sortTransactionsByDate();
    /// After many records were added or changed without a word: places all in order, computes the bounds, and announces
    /// transactions and categories once each.
    void finishChanges();
    /// The index for a new transaction of that day: before older ones, and among those of the same day where the binary
    /// search first meets one. A missing date is older than all.
    [[nodiscard]] std::size_t indexInTransactionArrayOfDate(const std::optional<QBDate>& date) const;
    /// Recomputes the bounds: each category's from today and its transactions, the document's from the first and the
    /// last dated transaction. Without dated transactions the document's bounds stay.
    void updateDates();
    /// Absent until there was a dated transaction.
    [[nodiscard]] const std::optional<QBDate>& earliestTransactionDate() const { return _earliestTransactionDate; }
    [[nodiscard]] const std::optional<QBDate>& latestTransactionDate() const { return _latestTransactionDate; }
    void setEarliestTransactionDate(const std::optional<QBDate>& date);
    void setLatestTransactionDate(const std::optional<QBDate>& date);

    [[nodiscard]] std::size_t countOfCategories() const { return mCategories.size(); }
    [[nodiscard]] const std::shared_ptr<CVCategory>& objectInCategoriesAtIndex(std::size_t index) const;
    [[nodiscard]] const CVCategories& categories() const { return mCategories; }
    void removeAllCategories();
    /// Adds the standard categories, with IDs that no category has and without announcements. A transaction that
    /// already names such an ID then belongs to the new category.
    void setInitialCategories();
    /// The category of exactly that name: the existing one, or a new one, which is sorted in and announced twice: as
    /// added and as inserted.
    std::shared_ptr<CVCategory> insertCategoryName(const QString& name);
    /// Appends without sorting and announces it. Null is ignored.
    void addCategory(const std::shared_ptr<CVCategory>& category);
    /// Appends without sorting or announcing; `finishChanges` follows.
    void appendCategory(std::shared_ptr<CVCategory> category);
    void sortCategories();
    /// Removes this object without announcing it and returns whether the document held it; `finishChanges` follows.
    bool dropCategory(const std::shared_ptr<CVCategory>& category);
    /// Removes this object and announces it; its transactions keep the ID, which then refers to nothing.
    void removeCategory(const std::shared_ptr<CVCategory>& category);
    /// The first category with that ID; null when there is none.
    [[nodiscard]] std::shared_ptr<CVCategory> getCategoryByUniqueID(quint32 id) const;
    /// The first category with exactly that name (case counts, unlike in the order); null when there is none.
    [[nodiscard]] std::shared_ptr<CVCategory> doesCategoryNameExist(const QString& name) const;
    /// Whether a transaction of the current set has this category.
    [[nodiscard]] bool categoryInUse(const CVCategory& category) const;

    /// Issues the next ID, even if a record already has it.
    [[nodiscard]] quint32 getUniqueID() { return ++_uniqueID; }
    /// Issues an ID for a new category or set. Passes over 0 and every ID that a record of that kind has or a
    /// transaction names, because the counter may be behind: a reset keeps the sets, and a file may say anything.
    [[nodiscard]] quint32 getUniqueCategoryID();
    [[nodiscard]] quint32 getUniqueTransactionSetID();
    /// The last ID issued, 0 on a fresh document.
    [[nodiscard]] quint32 uniqueID() const { return _uniqueID; }
    void setUniqueID(quint32 id) { _uniqueID = id; }

    /// Adds what a document without data has: the standard categories, and ten as the length of the paid-to list.
    void addDefaults();
    /// Removes all categories and transactions, starts over with the standard categories and saves. Sets stay.
    void reset_to_default_info();

    void beginParsingData() {}
    /// Keeps only the first of several sets, and of several categories, with the same ID.
    void finishedParsingData();
    /// Empties the document after a reading that broke off; announces and saves nothing.
    void abandonParsingData();
    /// Gives this empty document everything that `other` has read, and leaves `other` empty. Announces and saves
    /// nothing.
    void takeRecords(CVDocument& other);
    /// Makes this budget what `other` says, and leaves `other` empty. A transaction that says the same as one of
    /// `other` stays the same object, so that whoever shows it finds it again. The shown set stays where `other` has
    /// it. Announces nothing; `finishChanges` follows. Whether anything but the shown set was different.
    bool takeOver(CVDocument& other);
    /// Whether a transaction says what none of `other` says, or is there more often.
    [[nodiscard]] bool saysMoreThan(const CVDocument& other) const;

private:
    void widenBounds(const QBDate& date);
    [[nodiscard]] quint32 getUniqueIDBesides(const std::unordered_set<quint32>& taken);
    [[nodiscard]] bool keepSameTransactions(const CVTransactions& former);
    void announceTransactions() const;
    void announceCategories() const;

    CVTransactions mTransactions;
    CVCategories mCategories;
    CVTransactionSets mTransactionSets;
    quint32 mCurrentTransactionSetID = 0;
    quint32 _uniqueID = 0;
    std::optional<QBDate> _earliestTransactionDate;
    std::optional<QBDate> _latestTransactionDate;
    QBNotificationCenter& mNotificationCenter;
    QBUserDefaults& mUserDefaults;
    CVDocumentSaver* mSaver = nullptr;
    std::optional<CVVersionReason> mAskedVersion;
};
