#pragma once

#include "files/CVFileSignature.h"
#include "files/CVReplaceFile.h"
#include "storage/CVCommonState.h"
#include "storage/CVOutsideChange.h"
#include "storage/CVSaveOutcome.h"
#include "storage/CVVersionKeeper.h"

#include <QCoreApplication>
#include <QDateTime>

#include <chrono>
#include <optional>

struct CVKeptCopy;

/// One data file as this program last read or wrote it. Replaces it, so that no change of another program and no state
/// worth keeping is lost, and notices such changes. Used on one thread.
class CVSavedFile final {
    Q_DECLARE_TR_FUNCTIONS(CVSavedFile)

public:
    explicit CVSavedFile(const QString& path) : mPath(path), mVersions(path) {}

    /// Allows the file to be written over, because it was read when it had that signature. One that was read only in
    /// part is kept first.
    void markAsRead(const CVFileSignature& signature, CVReadAs readAs = CVReadAs::Whole);
    /// Notes that what has that signature could not be read, which is why it is kept before it is written over.
    void markAsUnreadable(const CVFileSignature& signature) { mUnreadable = signature; }
    /// Replaces the file. One that this program neither read nor wrote is kept first.
    [[nodiscard]] CVSaveOutcome save(const CVDocumentText& text, const CVVersionKeeping& keeping,
                                     CVUnreadableFile unreadable);

    /// Looks whether the file is still what this program last read or wrote, and tells it once when that has changed.
    /// From the first look on, a save waits while the file cannot be read. Absent when there is nothing new, or when
    /// this program has neither read nor written the file.
    [[nodiscard]] std::optional<CVOutsideChange> look();
    /// Keeps a text as a version before another program's state takes its place. Only the version's trouble of the
    /// outcome counts. Thins the versions to `versionLimit` bytes; 0 thins none.
    [[nodiscard]] CVSaveOutcome keepState(const CVDocumentText& text, qint64 versionLimit);
    /// Takes the changed file of that signature for what this program last read.
    void accept(const CVFileSignature& signature, CVReadAs readAs);

private:
    using Clock = std::chrono::steady_clock;

    void know(const CVFileSignature& signature, CVReadAs readAs = CVReadAs::Whole);
    void noteDisk();
    [[nodiscard]] bool isAsKnown(const CVPathStatus& present);
    [[nodiscard]] bool diskIsAway(const CVPathStatus& present) const;
    [[nodiscard]] QString whyNotNow(const CVPathStatus& present, CVUnreadableFile unreadable);
    [[nodiscard]] static CVOutsideChange read(const QString& path);
    [[nodiscard]] bool holdsBudget(const QString& path) const;
    [[nodiscard]] QString write(const CVDocumentText& text, const CVVersionKeeping& keeping,
                                const CVPathStatus& present, bool isKnown, CVSaveOutcome& outcome);
    /// Why a file that this program neither read nor wrote is to be kept before it is replaced.
    [[nodiscard]] CVKeptReason reasonToKeep(const CVFileSignature& present, bool isKnown) const;
    [[nodiscard]] CVKeptCopy keepUnreadFile(const CVFileSignature& signature, CVKeptReason reason);
    [[nodiscard]] CVReplaceResult replace(const CVDocumentText& text, CVKeptCopy& kept,
                                          const std::optional<CVFileSignature>& present, CVFormerFile former);
    void noteResult(const CVReplaceResult& replacing, CVSaveOutcome& outcome) const;
    void keepFormer(const CVReplaceResult& replacing, std::optional<CVVersionReason> due, qint64 limit,
                    CVSaveOutcome& outcome);
    void keepCommonState(const std::optional<CVCommonState>& common, CVVersionReason reason, qint64 limit,
                         CVSaveOutcome& outcome);
    [[nodiscard]] std::optional<CVOutsideChange> tell(CVOutsideChange change);

    QString mPath;
    CVVersionKeeper mVersions;
    /// The file as this program last read, wrote or kept it; absent before that.
    std::optional<CVFileSignature> mKnown;
    CVReadAs mKnownAs = CVReadAs::Whole;
    /// What could not be read when that was last tried.
    std::optional<CVFileSignature> mUnreadable;
    /// Another program's file that was read before a save, which spares reading it again.
    std::optional<CVFileSignature> mReadable;
    /// When the file of that signature was last found to be the known one, as its own time of change; it spares
    /// comparing the bytes.
    qint64 mKnownChange = 0;
    /// What the known file holds; absent while nobody has had the time to read it.
    std::optional<CVCommonState> mCommon;
    Clock::time_point mKnownSince;
    /// The disk on which the known file's folder is.
    quint64 mFolderDevice = 0;
    /// What the last save asked for, if it failed; the next save asks for it.
    std::optional<CVVersionReason> mStillAsked;
    bool mIsWatched = false;
    /// What was told last; absent while the file is as known.
    std::optional<CVOutsideChange::Kind> mTold;
    /// The file as it was when it was last found to be another's, and when that was; absent while it is as known.
    CVPathStatus mJudged;
    std::optional<Clock::time_point> mJudgedAt;
    /// A file that could not be read at the last look; told when it is the same at the next one.
    std::optional<CVOutsideChange> mUntold;
};
