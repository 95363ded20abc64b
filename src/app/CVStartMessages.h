#pragma once

#include "widgets/CVAlerts.h"

#include <QStringList>

/// The messages when the program does not open the budget at its start.
namespace CVStartMessages {

/// Says what the program waits for at its start, and what Cancel does.
[[nodiscard]] QString waitingForOther();
/// Default tries again, alternate quits.
[[nodiscard]] CVAlert otherIsSilent();
/// `dataFile` is the file that is opened without an argument; empty when there is none.
[[nodiscard]] CVAlert notOpened(const QStringList& files, const QString& dataFile);

} // namespace CVStartMessages
