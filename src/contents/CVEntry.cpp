#include "contents/CVEntry.h"

#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"

#include <QCoreApplication>

namespace {

struct EntryText {
    Q_DECLARE_TR_FUNCTIONS(CVEntry)
};

constexpr double kSmallestAmount = 0.01;

CVEntryProblem problem(CVEntryField field, const char* message) {
    return {field, EntryText::tr("Input Error"), EntryText::tr(message)};
}

} // namespace

CVEntry CVEntryOf(const CVTransaction& transaction, const QBDate& date) {
    return {date,
            transaction.amount(),
            transaction.payTo(),
            transaction.xfor(),
            transaction.categoryName(),
            transaction.taxFlag()};
}

std::optional<CVEntryProblem> CVFirstProblemOfEntry(const CVEntry& entry) {
    // The negation also refuses an amount that is not a number.
    if (!(entry.amount >= kSmallestAmount))
        return problem(CVEntryField::Amount,
                       QT_TRANSLATE_NOOP("CVEntry", "Transaction amounts must be greater than 0.00"));
    if (entry.payTo.isEmpty())
        return problem(CVEntryField::PayTo, QT_TRANSLATE_NOOP("CVEntry", "You must specify the recipient"));
    if (entry.category.isEmpty())
        return problem(CVEntryField::Category, QT_TRANSLATE_NOOP("CVEntry", "You must select a category"));
    return std::nullopt;
}

std::shared_ptr<CVTransaction> CVInsertEntry(CVDocument& document, const CVEntry& entry) {
    const auto category = document.insertCategoryName(entry.category);
    auto transaction = std::make_shared<CVTransaction>();
    transaction->setEffectiveDate(entry.date);
    transaction->setAmount(entry.amount);
    transaction->setFor(entry.xfor);
    transaction->setCategoryID(category->uniqueID());
    transaction->setPayTo(entry.payTo);
    transaction->setTaxFlag(entry.taxFlag);
    document.insertTransaction(transaction);
    return transaction;
}
