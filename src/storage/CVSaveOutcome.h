#pragma once

#include "model/CVDocumentText.h"
#include "model/CVVersionReason.h"
#include "versions/CVKeptReason.h"

#include <QString>

#include <optional>

/// What a save keeps of the file that it replaces.
struct CVVersionKeeping {
    /// Why the change that is saved asks for a version; absent when it asks for none.
    std::optional<CVVersionReason> asked;
    /// The most bytes that all versions may take; 0 keeps none and thins none.
    qint64 limit = 0;
};

/// What a save does with a file of another program that cannot be read at the moment.
enum class CVUnreadableFile : bool {
    /// Waits: another program may still be writing it.
    AwaitedIfWatched,
    /// Keeps it beside and writes the budget, because nobody can wait any longer.
    Replaced
};

/// The outcome of one save.
struct CVSaveOutcome {
    bool saved = true;
    QString path = {};
    /// What failed and where, in a sentence for the user; empty on success. The file is whole even then: the old one,
    /// or the new one when only the last step, syncing the folder, failed.
    QString message = {};
    /// Whether the save failed only because the disk is full.
    bool diskIsFull = false;
    /// Whether a file stands at the place of a failed save.
    bool isThere = false;
    /// Whether there are earlier versions or kept copies whose deletion makes room on the full disk.
    bool canMakeRoom = false;
    /// Whether the save failed only because what stands there cannot be read at the moment.
    bool awaitsReadable = false;
    /// Where a file that was there and that this program had not read is kept; empty when there was none.
    QString keptCopy = {};
    /// Why it is kept; counts only with a kept copy.
    CVKeptReason keptReason = CVKeptReason::ChangedOutside;
    /// Whether the kept file holds a budget, whose lines can be brought in; known only for one that was changed
    /// outside.
    bool keptIsBudget = false;
    /// Whether the file is new and others may read or write it, because its disk keeps no access rights.
    bool isOpenToOthers = false;
    /// What that file and the saved budget last had in common; absent when nothing is known of that.
    std::optional<CVDocumentText> common = {};
    /// Why an earlier version could not be kept or thinned, in a sentence for the user; empty when there was no
    /// trouble.
    QString versionTrouble = {};
    /// What of the access to the replaced file could not be kept, in a sentence for the user; empty when all was.
    QString accessTrouble = {};
};
