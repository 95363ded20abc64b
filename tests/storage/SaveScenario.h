#pragma once

#include "kit/BudgetBuilder.h"
#include "kit/ScratchHome.h"
#include "storage/CVDocumentFile.h"
#include "storage/FaultyCalls.h"

/// One save by the real document file, over a prepared state of the disk and with injected faults, and the conditions
/// that must hold afterwards.
class SaveScenario final {
public:
    enum class Before {
        /// A budget that the program has read.
        Good,
        /// The same budget behind a symbolic link.
        Linked,
        /// An encrypted file, which must be kept.
        Unreadable,
        /// A folder at the path of the file.
        Folder,
        /// Another program's budget in the place of one that this program has saved; both must be kept.
        Changed,
        /// Neither the file nor its folder.
        Absent
    };

    explicit SaveScenario(Before before);
    SaveScenario(const SaveScenario&) = delete;
    SaveScenario& operator=(const SaveScenario&) = delete;

    /// Saves with these faults and returns the calls made.
    const FaultyCalls::Record& save(std::vector<FaultyCalls::Fault> faults = {},
                                    std::vector<FaultyCalls::Unsupported> unsupported = {});
    [[nodiscard]] bool wasSaved() const { return mOutcome.saved; }
    [[nodiscard]] const CVSaveOutcome& outcome() const { return mOutcome; }
    /// Where the data file really is, what it holds before the save, null when there is nothing, and what it is to
    /// hold.
    [[nodiscard]] const QString& path() const { return mPath; }
    [[nodiscard]] const QByteArray& oldBytes() const { return mOld; }
    /// What both budgets had in common before another program changed the file; null unless one did.
    [[nodiscard]] const QByteArray& commonBytes() const { return mCommon; }
    [[nodiscard]] QByteArray text();
    /// The broken conditions after the save, on the disk and in the messages; empty when all hold.
    [[nodiscard]] QStringList broken() const;
    /// Changes the document, saves again without faults and returns the broken conditions.
    [[nodiscard]] QStringList brokenAfterNextSave();

private:
    /// The bytes at the path of the data file; null when there is no file.
    [[nodiscard]] QByteArray bytesOnDisk() const;
    void changeOutside();
    [[nodiscard]] QString brokenFile() const;
    [[nodiscard]] QString brokenWord() const;
    [[nodiscard]] QString brokenKeeping() const;
    [[nodiscard]] QString brokenVersion() const;
    [[nodiscard]] QString brokenCommonState() const;
    [[nodiscard]] QString brokenLeftovers() const;
    [[nodiscard]] QString brokenModes() const;
    [[nodiscard]] bool failedAfterReplacing() const;
    [[nodiscard]] bool failedToSyncTheNewFile() const;
    [[nodiscard]] bool movedAside() const;

    Before mBefore;
    ScratchHome mHome;
    /// The folder that really contains the file.
    QString mFolder;
    QString mPath;
    /// The content before the save; null when there is none.
    QByteArray mOld;
    QByteArray mCommon;
    QByteArray mNew;
    BudgetBuilder mBudget;
    CVDocumentFile mFile;
    CVSaveOutcome mOutcome;
    bool mHadVersionTrouble = false;
    /// Where the outcomes said that another program's file is kept.
    QStringList mToldCopies;
    FaultyCalls::Record mRecord;
};
