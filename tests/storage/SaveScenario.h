#pragma once

#include "kit/BudgetBuilder.h"
#include "kit/ScratchHome.h"
#include "storage/CVDocumentFile.h"
#include "storage/FaultyCalls.h"

/// One save of a whole document by the real document file, over a state of the disk that is set up before, with faults
/// in between; and what has to hold afterwards, whatever failed.
class SaveScenario final {
public:
    enum class Before {
        /// A budget that the program has read.
        Good,
        /// The same behind a symbolic link.
        Linked,
        /// An encrypted file, which must be kept.
        Unreadable,
        /// A folder in the place of the file.
        Folder,
        /// Neither the file nor its folder.
        Absent
    };

    explicit SaveScenario(Before before);
    SaveScenario(const SaveScenario&) = delete;
    SaveScenario& operator=(const SaveScenario&) = delete;

    /// Saves with these faults and returns the calls that were made meanwhile.
    const FaultyCalls::Record& save(std::vector<FaultyCalls::Fault> faults = {},
                                    std::vector<FaultyCalls::Unsupported> unsupported = {});
    [[nodiscard]] bool wasSaved() const { return mOutcome.saved; }
    [[nodiscard]] const CVSaveOutcome& outcome() const { return mOutcome; }
    /// What is not as it must be after the save, on the disk and in what was said about it; empty when all is well.
    [[nodiscard]] QStringList broken() const;
    /// Changes the document, saves once more without faults, and tells the same.
    [[nodiscard]] QStringList brokenAfterNextSave();

private:
    [[nodiscard]] QByteArray text();
    /// The bytes at the path of the data file; null when there is no file.
    [[nodiscard]] QByteArray bytesOnDisk() const;
    [[nodiscard]] QString brokenFile() const;
    [[nodiscard]] QString brokenWord() const;
    [[nodiscard]] QString brokenKeeping() const;
    [[nodiscard]] QString brokenLeftovers() const;
    [[nodiscard]] QString brokenModes() const;
    [[nodiscard]] bool failedAfterReplacing() const;
    [[nodiscard]] bool failedToSyncTheNewFile() const;
    [[nodiscard]] bool movedAside() const;

    Before mBefore;
    ScratchHome mHome;
    /// Where the file really lies.
    QString mFolder;
    QString mPath;
    /// What stands there before the save; null when nothing does.
    QByteArray mOld;
    QByteArray mNew;
    BudgetBuilder mBudget;
    CVDocumentFile mFile;
    CVSaveOutcome mOutcome;
    FaultyCalls::Record mRecord;
};
