#include "transfer/CVTransferredRecords.h"

#include "base/QBXMLText.h"
#include "model/CVCategory.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

namespace {

bool isStorableText(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    return xml_storableText(text) == text;
}

} // namespace

bool CVTransferLine::isStorable() const {
    return isStorableText(category) && isStorableText(payTo) && isStorableText(xfor) && isStorableText(set);
}

void CVTransferredRecords::add(const CVTransferLine& line) {
    const auto transaction = CVTransaction::initForFileRead();
    transaction->setEffectiveDate(line.day);
    transaction->setAmount(line.amount);
    // A payee would keep a purpose from being set that was not there.
    transaction->setFor(line.xfor);
    transaction->setPayTo(line.payTo);
    transaction->setTaxFlag(line.taxFlag);
    transaction->setUserFlag(line.userFlag);
    transaction->setCategoryID(categoryNamed(xml_storableText(line.category)));
    transaction->setTransactionSetID(setNamed(xml_storableText(line.set)));
    transaction->setDocument(&**mBudget);
    (*mBudget)->addTransaction(transaction);
}

std::shared_ptr<CVDetachedDocument> CVTransferredRecords::finish() {
    CVDocument& document = **mBudget;
    if (!document.transactionSets().empty())
        document.setCurrentTransactionSet(document.transactionSets().front()->uniqueID());
    document.finishChanges();
    return mBudget;
}

/// `CVDocument::insertCategoryName` would look at every transaction for each new name.
quint32 CVTransferredRecords::categoryNamed(const QString& name) {
    if (name.isEmpty())
        return 0;
    quint32& id = mCategories[name];
    if (id != 0)
        return id;
    CVDocument& document = **mBudget;
    const auto category = std::make_shared<CVCategory>();
    category->setCategoryName(name);
    category->setUniqueID(id = document.getUniqueID());
    category->setDocument(&document);
    document.appendCategory(category);
    return id;
}

quint32 CVTransferredRecords::setNamed(const QString& name) {
    if (name.isEmpty())
        return 0;
    quint32& id = mSets[name];
    if (id != 0)
        return id;
    CVDocument& document = **mBudget;
    const auto set = std::make_shared<CVTransactionSet>();
    set->setTransactionSetName(name);
    set->setUniqueID(id = document.getUniqueID());
    set->setDocument(&document);
    document.transactionSets().push_back(set);
    return id;
}
