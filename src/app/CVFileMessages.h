#pragma once

#include "widgets/CVAlerts.h"

#include <QTime>

#include <optional>

struct CVLoadReport;
struct CVSaveOutcome;

/// The messages about reading and saving the data file: what happened, what it means for the data, what to do.
namespace CVFileMessages {

/// Says at the start that the file could not be read. `outcome` is that of the save that replaced the file, if there
/// was one.
[[nodiscard]] CVAlert unreadable(const CVLoadReport& report, const CVSaveOutcome& outcome);
/// Says at the start that the file was read, but not everything in it was understood.
[[nodiscard]] CVAlert partlyRead(const CVLoadReport& report);
/// Says which file was kept before it was written over, and why.
[[nodiscard]] CVAlert keptCopy(const CVSaveOutcome& outcome);
/// Says in one line where a file that was read only in part is kept.
[[nodiscard]] QString keptAsRead(const CVSaveOutcome& outcome);
/// Says of a new data file that its disk cannot keep it private.
[[nodiscard]] QString openToOthers();
/// The reason as one line for the window's status.
[[nodiscard]] QString notSaved(const CVSaveOutcome& outcome);
/// Asks whether to close the window although the last save failed: default tries again, alternate stays, other quits.
/// `triedAgain` is the time of the attempt that this alert led to; absent when it is asked for the first time.
[[nodiscard]] CVAlert quitUnsaved(const CVSaveOutcome& outcome, std::optional<QTime> triedAgain = {});
/// Asks the same while the last save is under way, because the disk does not answer: default waits.
[[nodiscard]] CVAlert stillSaving();

} // namespace CVFileMessages
