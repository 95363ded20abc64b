#pragma once

#include "base/CVFileSignature.h"
#include "model/CVDocumentText.h"
#include "model/CVVersionReason.h"
#include "versions/CVVersionName.h"

#include <QObject>
#include <QString>

#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <thread>

struct CVKeptCopy;

/// What a save keeps of the file that it replaces.
struct CVVersionKeeping {
    /// Why the change that is saved asks for a version; absent when it asks for none.
    std::optional<CVVersionReason> asked;
    /// The most bytes that all versions may take; 0 keeps none and thins none.
    qint64 limit = 0;
};

/// The outcome of one save.
struct CVSaveOutcome {
    bool saved = true;
    QString path;
    /// What failed and where, in a sentence for the user; empty on success. The file is whole even then: the old one,
    /// or the new one when only the last step, syncing the folder, failed.
    QString message;
    /// Whether the save failed only because the disk is full.
    bool diskIsFull = false;
    /// Where a file that was there and that this program had not read is kept; empty when there was none.
    QString keptCopy;
    /// Why an earlier version could not be kept or thinned, in a sentence for the user; empty when there was no
    /// trouble.
    QString versionTrouble;
};

/// Writes texts to files on one worker thread, strictly in order. Of successive requests for one file that arrive
/// during a write, only the newest is carried out, unless it asks for a version of what an earlier one writes. Keeps a
/// file whose signature differs from that of the file that this program last read or wrote there, even when it came at
/// the last moment, and keeps earlier versions of its own. Used from the main thread; destroying it waits for the
/// pending saves.
class CVSaveQueue final : public QObject {
    Q_OBJECT

public:
    CVSaveQueue();
    ~CVSaveQueue() override;

    /// Allows the file at `path` to be written over, because it was read whole when it had that signature.
    void markAsRead(const QString& path, const std::optional<CVFileSignature>& signature);
    void save(const QString& path, CVDocumentText text, CVVersionKeeping keeping = {});
    /// Announces, in its turn, a save that failed before there was a path to write to.
    void fail(const QString& message);

    /// Whether a save is under way or waiting.
    [[nodiscard]] bool isSaving() const;
    /// Blocks until nothing is under way or waiting, and returns the outcome of the last save.
    CVSaveOutcome waitForFinished();

signals:
    void saveStarted();
    /// Always emitted from the event loop of the queue's thread.
    void saveFinished(const CVSaveOutcome& outcome);
    /// Emitted by the worker thread when there is another outcome.
    void written();

private:
    struct Job {
        QString path;
        CVDocumentText text;
        /// Why there is no path to write to; empty when there is one.
        QString failure;
        CVVersionKeeping keeping;
    };

    void enqueue(Job job);
    void work();
    void announceNext();
    [[nodiscard]] CVSaveOutcome perform(const Job& job);
    void write(const Job& job, CVSaveOutcome& outcome);
    [[nodiscard]] CVKeptCopy keepUnreadFile(const QString& path, const CVFileSignature& signature);
    /// Why the file that this program read or wrote is to be kept as a version before it is replaced.
    [[nodiscard]] std::optional<CVVersionReason> dueVersion(const Job& job, const CVFileSignature& present) const;
    void keepVersion(const Job& job, const QString& former, CVVersionReason reason, CVSaveOutcome& outcome);

    mutable std::mutex mMutex;
    std::condition_variable mChanged;
    std::deque<Job> mPending;
    bool mWriting = false;
    bool mStopping = false;
    CVSaveOutcome mLastOutcome;
    /// The outcomes that are not announced yet.
    std::deque<CVSaveOutcome> mOutcomes;
    /// The files as this program last read, wrote or kept them, by path.
    std::map<QString, CVFileSignature> mKnownFiles;
    /// What failed saves asked for, by path; the next save of that path asks for it. The worker's own.
    std::map<QString, CVVersionReason> mStillAsked;
    /// The last versions that could not be kept, by path: they count as kept, so that not every save leaves a file with
    /// a temporary name. The worker's own.
    std::map<QString, CVVersionName> mNotKept;
    /// Declared last, so that all other members exist as long as the worker runs.
    std::thread mWorker;
};
