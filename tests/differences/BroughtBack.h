#pragma once

#include "differences/CVBudgetDifferences.h"
#include "kit/BudgetBuilder.h"

#include <QStringList>

/// What has changed in the present budget since the version.
CVBudgetDifferences differencesTo(BudgetBuilder& version, BudgetBuilder& present);
/// "SET/CATEGORY PAYEE AMOUNT" for each transaction, in order of these texts.
QStringList entriesOf(const CVDocument& document);
/// "ID NAME" for each set.
QStringList setsOf(const CVDocument& document);
/// "ID NAME TARGET" for each category.
QStringList categoriesOf(const CVDocument& document);
BudgetBuilder::Entry market(const QString& set = "Checking", const QString& category = "Food");
