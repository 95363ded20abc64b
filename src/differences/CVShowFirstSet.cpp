#include "differences/CVShowFirstSet.h"

#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct FirstSetText {
    Q_DECLARE_TR_FUNCTIONS(CVShowFirstSet)
};

} // namespace

QString CVNameOfInitialSet() {
    return FirstSetText::tr("Initial Transaction Set");
}

void CVShowFirstSet(CVDocument& document, quint32 first) {
    const auto& shown = document.transactions();
    if (std::none_of(shown.begin(), shown.end(), [](const auto& entry) { return entry->transactionSetID() == 0; }))
        return document.setCurrentTransactionSet(first);
    document.setCurrentTransactionSet(0);
    CVTransactionSets& sets = document.transactionSets();
    if (first == 0 || std::any_of(sets.begin(), sets.end(), [](const auto& set) { return set->uniqueID() == 0; }))
        return;
    const auto initial = std::make_shared<CVTransactionSet>();
    initial->setTransactionSetName(CVNameOfInitialSet());
    initial->setDocument(&document);
    sets.insert(sets.begin(), initial);
}
