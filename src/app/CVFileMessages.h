#pragma once

#include "widgets/CVAlerts.h"

struct CVLoadReport;
struct CVSaveOutcome;

/// What the user is told of reading and saving the data file: what happened, what it means for the data, what to do.
namespace CVFileMessages {

/// At the start: the file could not be read. `outcome` is that of the save that replaced it, if there was one.
[[nodiscard]] CVAlert unreadable(const CVLoadReport& report, const CVSaveOutcome& outcome);
/// A file that this program had not read was kept before it was written over.
[[nodiscard]] CVAlert keptCopy(const CVSaveOutcome& outcome);
/// One line for the status of the window.
[[nodiscard]] QString notSaved(const CVSaveOutcome& outcome);
/// The window is to close although the last save failed: default tries again, alternate stays, other quits.
[[nodiscard]] CVAlert quitUnsaved(const CVSaveOutcome& outcome);

} // namespace CVFileMessages
