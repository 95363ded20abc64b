#include "kit/BudgetBuilder.h"

#include <QSettings>

#include <algorithm>

namespace {

/// An empty settings store that is never written to disk.
std::unique_ptr<QSettings> emptyStore() {
    return std::make_unique<QSettings>(QStringLiteral(":/no settings.ini"), QSettings::IniFormat);
}

template <typename Records, typename NameOf>
const auto& findNamed(const Records& records, const QString& name, NameOf nameOf) {
    const auto found = std::find_if(records.begin(), records.end(),
                                    [&](const auto& record) { return (record.get()->*nameOf)() == name; });
    if (found == records.end())
        qFatal("the budget has nothing named '%s'", qPrintable(name));
    return *found;
}

} // namespace

BudgetBuilder::BudgetBuilder()
    : mUserDefaults(emptyStore(), QBUserDefaults::Changes::Forgotten)
    , mDocument(mNotificationCenter, mUserDefaults) {}

BudgetBuilder& BudgetBuilder::set(const QString& name, quint32 id) {
    const auto set = std::make_shared<CVTransactionSet>();
    set->setTransactionSetName(name);
    set->setUniqueID(id);
    set->setDocument(&mDocument);
    mDocument.transactionSets().push_back(set);
    return *this;
}

BudgetBuilder& BudgetBuilder::currentSet(quint32 id) {
    mDocument.setCurrentTransactionSet(id);
    return *this;
}

BudgetBuilder& BudgetBuilder::category(const QString& name, quint32 id, qint64 frequency, double target) {
    const auto category = std::make_shared<CVCategory>();
    category->setCategoryName(name);
    category->setUniqueID(id);
    category->setExpenseFrequency(frequency);
    category->setExpenseTarget(target);
    category->setDocument(&mDocument);
    mDocument.addCategory(category);
    return *this;
}

BudgetBuilder& BudgetBuilder::transaction(const Entry& entry) {
    const auto transaction = makeTransaction(entry);
    if (!entry.category.isNull())
        transaction->setCategoryID(categoryNamed(entry.category)->uniqueID());
    if (!entry.set.isNull())
        transaction->setTransactionSetID(setNamed(entry.set)->uniqueID());
    transaction->setDocument(&mDocument);
    mDocument.addTransaction(transaction);
    return *this;
}

BudgetBuilder& BudgetBuilder::lastID(quint32 id) {
    mDocument.setUniqueID(id);
    return *this;
}

BudgetBuilder& BudgetBuilder::inOrder() {
    mDocument.sortCategories();
    mDocument.sortTransactionsByDate();
    mDocument.updateDates();
    return *this;
}

const std::shared_ptr<CVTransaction>& BudgetBuilder::transactionAt(std::size_t index) const {
    return mDocument.transactions().at(index);
}

const std::shared_ptr<CVCategory>& BudgetBuilder::categoryNamed(const QString& name) const {
    return findNamed(mDocument.categories(), name, &CVCategory::categoryName);
}

const std::shared_ptr<CVTransactionSet>& BudgetBuilder::setNamed(const QString& name) const {
    return findNamed(mDocument.transactionSets(), name, &CVTransactionSet::transactionSetName);
}

std::shared_ptr<CVTransaction> makeTransaction(const BudgetBuilder::Entry& entry) {
    auto transaction = CVTransaction::initForFileRead();
    transaction->setEffectiveDate(entry.date);
    transaction->setAmount(entry.amount);
    // While the paid-to text is null, setFor() always stores its text.
    transaction->setFor(entry.xfor);
    transaction->setPayTo(entry.payTo);
    transaction->setCategoryID(entry.categoryID);
    transaction->setTransactionSetID(entry.setID);
    transaction->setTaxFlag(entry.taxFlag);
    transaction->setUserFlag(entry.userFlag);
    return transaction;
}
