#pragma once

#include "storage/CVOutsideChange.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <optional>

class CVAppDelegate;
class CVDocumentFile;
struct CVSaveOutcome;

/// What the program does when another one changes the data file while it is open: takes the new state over when nothing
/// of its own is unsaved, and says what stands there now. Waits while the user is in the middle of something.
/// References the application and the data file, which outlive it.
class CVOutsideChanges final : public QObject {
    Q_OBJECT

public:
    CVOutsideChanges(CVAppDelegate& app, CVDocumentFile& file);

    /// Whether the data file was seen to be removed or damaged, so that the budget is in this window alone.
    [[nodiscard]] bool isFileLost() const { return mIsFileLost; }
    /// Watches that file, in which the budget that is open now was read or will be saved, and no other. A later save to
    /// another place is followed by itself.
    void watch(const QString& path);

private:
    void handle(const CVOutsideChange& change);
    void handleSave(const CVSaveOutcome& outcome);
    void takeWhenIdle();
    [[nodiscard]] bool mustKeepOurs() const;
    void handleKept(const CVSaveOutcome& outcome);
    void take(const CVOutsideChange& change);
    void tell(const CVOutsideChange& change);
    [[nodiscard]] QStringList namesOfSets() const;

    CVAppDelegate& mApp;
    CVDocumentFile& mFile;
    QString mWatched;
    /// The names of the sets in the last save or reading: a set is renamed without a save.
    QStringList mSavedNames;
    /// The new state that waits to be taken over.
    std::optional<CVOutsideChange> mWaiting;
    /// Asks again while the user is in the middle of something.
    QTimer mAgain;
    bool mLastSaveFailed = false;
    bool mIsFileLost = false;
    /// Whether what the window shows is kept, so that another state may take its place; being kept, and kept.
    bool mIsBeingKept = false;
    bool mIsKept = false;
};
