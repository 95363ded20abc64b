#pragma once

#include "base/CVFileSignature.h"
#include "model/CVDocumentText.h"

#include <QObject>
#include <QString>

#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <thread>

struct CVKeptCopy;

/// What became of one save.
struct CVSaveOutcome {
    bool saved = true;
    QString path;
    /// What failed and where, in a sentence. The file is whole then, the old one or (when only the last step failed,
    /// the sync of the folder) the new one.
    QString message;
    /// Nothing but room is missing.
    bool diskIsFull = false;
    /// Where the file that stood there, and that this program had not read, is kept; empty when there was none.
    QString keptCopy;
};

/// Writes texts to files on one worker thread, strictly in order; of the requests for one file that arrive during a
/// write only the newest is carried out. Before it writes over a file that is not, to the letter of its signature, the
/// one that this program last read or wrote there, it keeps that file beside it. Used from the main thread; destroying
/// it waits for what is pending.
class CVSaveQueue final : public QObject {
    Q_OBJECT

public:
    CVSaveQueue();
    ~CVSaveQueue() override;

    /// The file at `path` was read whole when it had that signature: it may be written over.
    void markAsRead(const QString& path, const std::optional<CVFileSignature>& signature);
    void save(const QString& path, CVDocumentText text);
    /// A save that failed before there was anything to write to: announced in its turn.
    void fail(const QString& message);

    /// Whether a save is under way or waiting.
    [[nodiscard]] bool isSaving() const;
    /// Blocks until nothing is under way or waiting, and returns the outcome of the last save.
    CVSaveOutcome waitForFinished();

signals:
    void saveStarted();
    /// Always from the event loop of the thread that the queue lives in.
    void saveFinished(const CVSaveOutcome& outcome);
    /// The worker's own word that there is another outcome.
    void written();

private:
    struct Job {
        QString path;
        CVDocumentText text;
        /// Why there is nothing to write to; empty when there is.
        QString failure;
    };

    void enqueue(Job job);
    void work();
    void announceNext();
    [[nodiscard]] CVSaveOutcome perform(const Job& job);
    void write(const Job& job, CVSaveOutcome& outcome);
    [[nodiscard]] CVKeptCopy keepStanding(const QString& path, const CVFileSignature& signature);

    mutable std::mutex mMutex;
    std::condition_variable mChanged;
    std::deque<Job> mPending;
    bool mWriting = false;
    bool mStopping = false;
    CVSaveOutcome mLastOutcome;
    /// Not announced yet.
    std::deque<CVSaveOutcome> mOutcomes;
    /// The files as this program last read, wrote or kept them, by path.
    std::map<QString, CVFileSignature> mKnownFiles;
    /// Last, so that everything above exists as long as the worker runs.
    std::thread mWorker;
};
