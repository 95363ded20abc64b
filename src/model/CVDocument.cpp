#include "model/CVDocument.h"

#include "base/CVDefaultsKeys.h"
#include "base/CVNotifications.h"
#include "base/QBNotificationCenter.h"
#include "base/QBUserDefaults.h"
#include "base/QBXMLText.h"
#include "model/CVCategory.h"
#include "model/CVDocumentSaver.h"
#include "model/CVRecordIDs.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <algorithm>

namespace {

constexpr int kInitialNumberOfItems = 10;

/// Moves the records of a document to another one.
template <typename Records>
void hand(Records& records, Records& from, CVDocument& document) {
    records = std::exchange(from, {});
    for (const auto& record : records)
        record->setDocument(&document);
}

/// Empties a collection. Its records forget the document, because a view may keep a record after the document is gone.
template <typename Records>
void release(Records& records) {
    for (const auto& record : records)
        record->setDocument(nullptr);
    records.clear();
}

/// The text of every category and set, as the data file holds it.
QByteArray textOfRecords(const CVDocument& document) {
    QByteArray text = QByteArray::number(document.uniqueID());
    for (const auto& category : document.categories())
        text += '\n' + category->xmlRepresentation();
    for (const auto& set : document.transactionSets())
        text += '\n' + set->xmlRepresentation();
    return text;
}

template <typename Records>
auto findID(const Records& records, quint32 id) {
    return std::find_if(records.begin(), records.end(), [id](const auto& record) { return record->uniqueID() == id; });
}

} // namespace

CVDocument::CVDocument(QBNotificationCenter& notificationCenter, QBUserDefaults& userDefaults)
    : mNotificationCenter(notificationCenter)
    , mUserDefaults(userDefaults) {}

CVDocument::~CVDocument() {
    release(mTransactions);
    release(mCategories);
    release(mTransactionSets);
}

bool CVDocument::workbookSave() {
    return !mSaver || mSaver->workbookSave(*this);
}

void CVDocument::askForVersion(CVVersionReason reason) {
    if (reason != CVVersionReason::Removal || !mAskedVersion)
        mAskedVersion = reason;
}

QStringList CVDocument::dataFiles() const {
    return mSaver ? mSaver->dataFiles() : QStringList();
}

QString CVDocument::placeForSaving() const {
    return mSaver ? mSaver->placeForSaving() : QString();
}

bool CVDocument::isReadOnly() const {
    return mSaver && mSaver->isReadOnly();
}

const std::shared_ptr<CVTransactionSet>& CVDocument::objectInTransactionSetsAtIndex(std::size_t index) const {
    return mTransactionSets.at(index);
}

std::size_t CVDocument::popupIndexOfCurrentTransactionSet() const {
    const auto found = findID(mTransactionSets, mCurrentTransactionSetID);
    return found == mTransactionSets.end() ? 0 : static_cast<std::size_t>(found - mTransactionSets.begin());
}

std::shared_ptr<CVTransactionSet> CVDocument::findTransactionSetFromID(quint32 id) const {
    if (mTransactionSets.empty())
        return nullptr;
    const auto found = findID(mTransactionSets, id);
    return found == mTransactionSets.end() ? mTransactionSets.back() : *found;
}

quint32 CVDocument::getUniqueCategoryID() {
    auto taken = CVIDsOf(mCategories);
    for (const auto& transaction : mTransactions)
        taken.insert(transaction->categoryID());
    return getUniqueIDBesides(taken);
}

quint32 CVDocument::getUniqueTransactionSetID() {
    auto taken = CVIDsOf(mTransactionSets);
    for (const auto& transaction : mTransactions)
        taken.insert(transaction->transactionSetID());
    return getUniqueIDBesides(taken);
}

/// 0 is not issued, because it stands for no category and for no set.
quint32 CVDocument::getUniqueIDBesides(const std::unordered_set<quint32>& taken) {
    quint32 id = getUniqueID();
    while (id == 0 || taken.contains(id))
        id = getUniqueID();
    return id;
}

void CVDocument::addDefaults() {
    mUserDefaults.setInteger(CVDefaultsKeys::kNumberOfItems, kInitialNumberOfItems);
    setInitialCategories();
}

void CVDocument::reset_to_default_info() {
    removeAllCategories();
    release(mTransactions);
    setUniqueID(0);
    addDefaults();
    askForVersion(CVVersionReason::Clearing);
    workbookSave();
}

void CVDocument::finishedParsingData() {
    CVKeepFirstOfEachID(mTransactionSets);
    CVKeepFirstOfEachID(mCategories);
}

void CVDocument::abandonParsingData() {
    release(mTransactions);
    removeAllCategories();
    release(mTransactionSets);
    setUniqueID(0);
    setCurrentTransactionSet(0);
}

void CVDocument::takeRecords(CVDocument& other) {
    hand(mTransactions, other.mTransactions, *this);
    hand(mCategories, other.mCategories, *this);
    hand(mTransactionSets, other.mTransactionSets, *this);
    mCurrentTransactionSetID = other.mCurrentTransactionSetID;
    _uniqueID = other._uniqueID;
    other.abandonParsingData();
}

bool CVDocument::takeOver(CVDocument& other) {
    const QByteArray formerRecords = textOfRecords(*this);
    const quint32 formerSet = mCurrentTransactionSetID;
    const CVTransactions former = mTransactions;
    removeAllCategories();
    release(mTransactions);
    release(mTransactionSets);
    takeRecords(other);
    const bool areSame = keepSameTransactions(former);
    if (findID(mTransactionSets, formerSet) != mTransactionSets.end())
        mCurrentTransactionSetID = formerSet;
    return !areSame || textOfRecords(*this) != formerRecords;
}

const std::shared_ptr<CVCategory>& CVDocument::objectInCategoriesAtIndex(std::size_t index) const {
    return mCategories.at(index);
}

void CVDocument::removeAllCategories() {
    release(mCategories);
}

void CVDocument::setInitialCategories() {
    const QBDate today = QBDate::date();
    const auto taken = CVIDsOf(mCategories);
    for (const QString& name : CVCategory::standardCategoryNames().value_or(QStringList())) {
        const auto category = std::make_shared<CVCategory>(today);
        category->setCategoryName(name);
        category->setUniqueID(getUniqueIDBesides(taken));
        category->setDocument(this);
        mCategories.push_back(category);
    }
    sortCategories();
}

std::shared_ptr<CVCategory> CVDocument::insertCategoryName(const QString& name) {
    const QString storable = xml_storableText(name);
    if (auto existing = doesCategoryNameExist(storable))
        return existing;
    auto category = std::make_shared<CVCategory>();
    category->setCategoryName(storable);
    category->setUniqueID(getUniqueCategoryID());
    category->setDocument(this);
    addCategory(category);
    sortCategories();
    announceCategories();
    return category;
}

void CVDocument::addCategory(const std::shared_ptr<CVCategory>& category) {
    if (!category)
        return;
    mCategories.push_back(category);
    announceCategories();
}

void CVDocument::appendCategory(std::shared_ptr<CVCategory> category) {
    mCategories.push_back(std::move(category));
}

void CVDocument::finishChanges() {
    sortCategories();
    sortTransactionsByDate();
    updateDates();
    announceTransactions();
    announceCategories();
}

void CVDocument::sortCategories() {
    std::stable_sort(mCategories.begin(), mCategories.end(), [](const auto& a, const auto& b) {
        return a->categoryName().compare(b->categoryName(), Qt::CaseInsensitive) < 0;
    });
}

bool CVDocument::dropCategory(const std::shared_ptr<CVCategory>& category) {
    const auto found = std::find(mCategories.begin(), mCategories.end(), category);
    if (found == mCategories.end())
        return false;
    // `category` may refer to the very element that is erased.
    (*found)->setDocument(nullptr);
    mCategories.erase(found);
    askForVersion(CVVersionReason::Deletion);
    return true;
}

void CVDocument::removeCategory(const std::shared_ptr<CVCategory>& category) {
    if (!category)
        return;
    dropCategory(category);
    announceCategories();
}

std::shared_ptr<CVCategory> CVDocument::getCategoryByUniqueID(quint32 id) const {
    const auto found = findID(mCategories, id);
    return found == mCategories.end() ? nullptr : *found;
}

std::shared_ptr<CVCategory> CVDocument::doesCategoryNameExist(const QString& name) const {
    const auto found = std::find_if(mCategories.begin(), mCategories.end(), [&name](const auto& category) {
        return category->categoryName() == name && category->categoryName().isNull() == name.isNull();
    });
    return found == mCategories.end() ? nullptr : *found;
}

bool CVDocument::categoryInUse(const CVCategory& category) const {
    return std::any_of(mTransactions.begin(), mTransactions.end(), [&](const auto& transaction) {
        return transaction->transactionSetID() == mCurrentTransactionSetID &&
               transaction->categoryID() == category.uniqueID();
    });
}

void CVDocument::announceTransactions() const {
    mNotificationCenter.postNotification(QLatin1String(CVNotifications::kTransactionAddedRemoved));
}

void CVDocument::announceCategories() const {
    mNotificationCenter.postNotification(QLatin1String(CVNotifications::kCategoryAddedRemoved));
}
