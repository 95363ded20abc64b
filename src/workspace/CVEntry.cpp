#include "workspace/CVEntry.h"

#include <QCoreApplication>

namespace {

constexpr double kSmallestAmount = 0.01;

} // namespace

std::optional<CVEntryProblem> CVFirstProblem(const CVEntry& entry) {
    // Not a number is no amount either.
    if (!(entry.amount >= kSmallestAmount))
        return CVEntryProblem{CVEntryField::Amount,
                              QCoreApplication::translate("CVEntry", "Transaction amounts must be greater than 0.00")};
    if (entry.payTo.isEmpty())
        return CVEntryProblem{CVEntryField::PayTo,
                              QCoreApplication::translate("CVEntry", "You must specify the recipient")};
    if (entry.category.isEmpty())
        return CVEntryProblem{CVEntryField::Category,
                              QCoreApplication::translate("CVEntry", "You must select a category")};
    return std::nullopt;
}
