#pragma once

#include "widgets/CVAlerts.h"

#include <QStringList>

struct CVLoadReport;
struct CVMissingPlace;

/// The messages when the program does not open the budget at its start.
namespace CVStartMessages {

/// Says what the program waits for at its start, and what Cancel does.
[[nodiscard]] QString waitingForOther();
/// Says the same about the place of the data file.
[[nodiscard]] QString waitingForPlace(const QString& path);
/// Default tries again, alternate quits.
[[nodiscard]] CVAlert otherIsSilent();
/// `dataFile` is the file that is opened without an argument; empty when there is none.
[[nodiscard]] CVAlert notOpened(const QStringList& files, const QString& dataFile);

/// Asks what to do about a stored place where nothing is; its buttons are `place.choices()` in their order, default,
/// other and alternate.
[[nodiscard]] CVAlert missingPlace(const CVMissingPlace& place);
/// Asks what to do about a data file that could not be read: default tries again, other opens an empty budget,
/// alternate quits.
[[nodiscard]] CVAlert notRead(const CVLoadReport& report);

} // namespace CVStartMessages
