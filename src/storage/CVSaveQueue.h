#pragma once

#include "storage/CVOutsideChange.h"
#include "storage/CVSaveOutcome.h"
#include "versions/CVFilesBeside.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <variant>

class CVFolderWatch;
class CVSavedFile;

/// Writes texts to files on one worker thread, strictly in order, and looks once a second whether a watched file is
/// still what this program last read or wrote. Of successive requests for one file that arrive during a write, only the
/// newest is carried out, unless it asks for a version of what an earlier one writes. `CVSavedFile` says what is kept
/// of a file that is replaced. Used from the main thread; destroying it waits for the pending saves.
class CVSaveQueue final : public QObject {
    Q_OBJECT

public:
    CVSaveQueue();
    ~CVSaveQueue() override;

    /// Allows the file at `path` to be written over, because it was read when it had that signature; does nothing
    /// without a signature. One that was read only in part is kept first.
    void markAsRead(const QString& path, const std::optional<CVFileSignature>& signature,
                    CVReadAs readAs = CVReadAs::Whole);
    /// Notes that what has that signature at `path` may not be readable, which is then why it is kept before it is
    /// written over.
    void markAsUnreadable(const QString& path, const std::optional<CVFileSignature>& signature);
    void save(const QString& path, CVDocumentText text, CVVersionKeeping keeping = {},
              CVUnreadableFile unreadable = CVUnreadableFile::AwaitedIfWatched);
    /// Announces, in its turn, a save that failed before there was a path to write to.
    void fail(const QString& message);

    /// Watches one file from now on, or none when `path` is empty.
    void watch(const QString& path);
    /// Keeps a text as a version before another program's state takes its place; announced by `stateKept`. Versions
    /// are thinned to that many bytes; 0 thins none.
    void keepState(const QString& path, CVDocumentText text, qint64 versionLimit);
    /// Takes a changed file for what this program last read.
    void accept(const CVOutsideChange& change);
    /// Looks through the folder of that data file; announced by `filesBesideListed`.
    void listFilesBeside(const QString& path);

    /// Whether a save is under way or waiting.
    [[nodiscard]] bool isSaving() const;
    /// Whether nothing is under way, waiting or not yet announced.
    [[nodiscard]] bool isSettled() const;
    /// Waits until the worker does nothing, not even look, but no longer than that; whether it does nothing.
    [[nodiscard]] bool waitUntilIdle(std::chrono::milliseconds patience);
    /// Blocks until nothing is under way or waiting, and returns the outcome of the last save.
    CVSaveOutcome waitForFinished();
    /// Does the same, but gives up after that time; then absent.
    std::optional<CVSaveOutcome> waitForFinished(std::chrono::milliseconds patience);

signals:
    void saveStarted();
    /// These are always emitted from the event loop of the queue's thread.
    void saveFinished(const CVSaveOutcome& outcome);
    /// Only the version's trouble of the outcome counts.
    void stateKept(const CVSaveOutcome& outcome);
    void changedOutside(const CVOutsideChange& change);
    /// What lies beside the watched file: emitted when that becomes known, and whenever it has changed.
    void filesBesideChanged(const CVFilesBeside& files);
    void filesBesideListed(const CVFilesBeside& files);
    /// Emitted by the worker thread when there is another message.
    void written();

private:
    enum class Task { Save, KeepState, Accept, List };
    struct Job {
        Task task = Task::Save;
        QString path;
        CVDocumentText text;
        /// Why there is no path to write to; empty when there is one.
        QString failure = {};
        CVVersionKeeping keeping = {};
        CVUnreadableFile unreadable = CVUnreadableFile::AwaitedIfWatched;
        /// The file to be accepted, and how much of it was read.
        CVFileSignature accepted = {};
        CVReadAs acceptedAs = CVReadAs::Whole;
    };
    struct KeptState {
        CVSaveOutcome outcome;
    };
    struct ListedFiles {
        CVFilesBeside files;
    };
    using Message = std::variant<CVSaveOutcome, KeptState, CVOutsideChange, CVFilesBeside, ListedFiles>;

    void enqueue(Job job);
    void work();
    void announceNext();
    void tell(Message message);
    void carryOutNext(std::unique_lock<std::mutex>& lock);
    void look(std::unique_lock<std::mutex>& lock);
    [[nodiscard]] std::optional<Message> perform(const Job& job);
    [[nodiscard]] CVSaveOutcome change(const Job& job);
    [[nodiscard]] std::optional<CVFilesBeside> listWhenChanged(const QString& path, bool isHinted);
    [[nodiscard]] CVSavedFile& fileAt(const QString& path);
    void learnWhatWasRead(std::unique_lock<std::mutex>& lock);

    mutable std::mutex mMutex;
    std::condition_variable mChanged;
    std::deque<Job> mPending;
    bool mWriting = false;
    bool mLooking = false;
    bool mStopping = false;
    CVSaveOutcome mLastOutcome;
    /// What is not announced yet.
    std::deque<Message> mMessages;
    struct ReadFile {
        CVFileSignature signature = {};
        CVReadAs readAs = CVReadAs::Whole;
    };
    /// What was read since the worker last asked: the files that were read, and those that were tried.
    std::map<QString, ReadFile> mRead;
    std::map<QString, CVFileSignature> mUnreadable;
    QString mWatched;
    bool mLooksSoon = false;
    /// Null until a file is watched.
    std::unique_ptr<CVFolderWatch> mFolderWatch;
    /// These are the worker's own: the file whose folder is watched, what lay beside it, and that folder then.
    QString mFollowed;
    CVFilesBeside mBeside;
    std::optional<CVFileSignature> mFolderThen;
    std::map<QString, CVSavedFile> mFiles;
    /// Declared last, so that all other members exist as long as the worker runs.
    std::thread mWorker;
};
