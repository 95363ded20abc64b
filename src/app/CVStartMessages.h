#pragma once

#include "widgets/CVAlerts.h"

#include <QStringList>

/// What the user is told when the program does not open the budget at its start.
namespace CVStartMessages {

/// Default tries again, alternate quits.
[[nodiscard]] CVAlert otherIsSilent();
/// `dataFile` is the one that is opened without an argument; empty when none can be named.
[[nodiscard]] CVAlert notOpened(const QStringList& files, const QString& dataFile);

} // namespace CVStartMessages
