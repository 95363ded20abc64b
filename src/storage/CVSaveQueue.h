#pragma once

#include "model/CVDocumentText.h"

#include <QObject>
#include <QString>

#include <condition_variable>
#include <mutex>
#include <optional>
#include <set>
#include <thread>

/// What became of one save. Failing: a sentence that says what failed and where; the file is then as it was before.
struct CVSaveOutcome {
    bool saved = true;
    QString path;
    QString message;
    /// Where the file that stood there, and that this program had not read, is kept; empty when there was none.
    QString keptCopy;
};

/// Writes texts to files on one worker thread, strictly in order; of the requests that arrive during a write only the
/// newest is carried out. Before it first writes over a file that this program neither read nor wrote, it keeps that
/// file beside it. Used from the main thread; destroying it waits for what is pending.
class CVSaveQueue final : public QObject {
    Q_OBJECT

public:
    CVSaveQueue();
    ~CVSaveQueue() override;

    /// The file at `path` was read whole: it may be written over.
    void markAsRead(const QString& path);
    void save(const QString& path, CVDocumentText text);
    /// Announces a save that failed before there was anything to write to.
    void fail(const QString& message);

    /// Whether a save is under way or waiting.
    [[nodiscard]] bool isSaving() const;
    /// Blocks until nothing is under way or waiting, and returns the outcome of the last save.
    CVSaveOutcome waitForFinished();

signals:
    void saveStarted();
    /// Always from the event loop of the thread that the queue lives in.
    void saveFinished(const CVSaveOutcome& outcome);
    /// The worker's own word, on its way there.
    void written(const CVSaveOutcome& outcome);

private:
    struct Job {
        QString path;
        CVDocumentText text;
    };

    void work();
    [[nodiscard]] CVSaveOutcome perform(const Job& job);

    mutable std::mutex mMutex;
    std::condition_variable mChanged;
    std::optional<Job> mPending;
    bool mWriting = false;
    bool mStopping = false;
    CVSaveOutcome mLastOutcome;
    std::set<QString> mOwnFiles;
    /// Last, so that everything above exists as long as the worker runs.
    std::thread mWorker;
};
