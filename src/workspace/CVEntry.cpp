#include "workspace/CVEntry.h"

#include <QCoreApplication>

namespace {

constexpr double kSmallestAmount = 0.01;

QString tr(const char* text) {
    return QCoreApplication::translate("CVEntry", text);
}

} // namespace

std::optional<CVEntryProblem> CVFirstProblem(const CVEntry& entry) {
    // Not a number is no amount either.
    if (!(entry.amount >= kSmallestAmount))
        return CVEntryProblem{CVEntryField::Amount, tr("Transaction amounts must be greater than 0.00")};
    if (entry.payTo.isEmpty())
        return CVEntryProblem{CVEntryField::PayTo, tr("You must specify the recipient")};
    if (entry.category.isEmpty())
        return CVEntryProblem{CVEntryField::Category, tr("You must select a category")};
    return std::nullopt;
}
