#pragma once

#include "contents/CVVersionSign.h"
#include "model/CVDocumentText.h"

#include <QObject>
#include <QStringList>

#include <array>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

class CVDetachedDocument;
class CVDocument;
class CVDocumentFile;
struct CVBudgetDifferences;

/// What became known of an earlier version.
struct CVVersionFindings {
    QString path;
    /// Why it cannot be read; empty when it was read.
    QString problem = {};
    std::size_t transactions = 0;
    /// How many sets, categories and transactions were removed, added and changed since, in the order of
    /// `CVVersionSign`.
    std::array<std::size_t, kCVVersionSigns> counts{};
    /// The version and the differences between it and the present budget, for the chosen version alone. The differences
    /// keep the version and a copy of the present budget alive.
    std::shared_ptr<const CVDocument> version = nullptr;
    std::shared_ptr<const CVBudgetDifferences> differences = nullptr;
};

/// Reads earlier versions on a thread of its own and compares each with the present budget, of which it gets the text:
/// the thread touches no document of the program. Used from the main thread. Destroying the reader stops the thread: a
/// reading is cancelled, and only one that is just being compared is awaited.
class CVVersionReader final : public QObject {
    Q_OBJECT

public:
    CVVersionReader();
    ~CVVersionReader() override;

    /// Begins anew, in this order, with another present state. What was found before this call is no longer told.
    void read(CVDocumentText present, const QStringList& paths);
    /// Reads that version next and tells its differences; an empty path chooses none.
    void choose(const QString& path);

signals:
    /// Always emitted from the event loop.
    void found(const CVVersionFindings& findings);
    /// Emitted by the thread when there is another finding.
    void examined();

private:
    using Budget = std::shared_ptr<CVDetachedDocument>;

    void work();
    /// The version to read next; absent when there is none.
    [[nodiscard]] std::optional<QString> next() const;
    [[nodiscard]] static Budget parse(CVDocumentFile& file, const CVDocumentText& text);
    [[nodiscard]] static CVVersionFindings examine(CVDocumentFile& file, const QString& path, const Budget& present,
                                                   bool isChosen);
    void tellNext();

    std::mutex mMutex;
    std::condition_variable mWanted;
    CVDocumentText mPresent;
    QStringList mWaiting;
    struct Finding {
        CVVersionFindings findings;
        quint64 round = 0;
    };
    /// What is not told yet.
    std::deque<Finding> mFound;
    QString mChosen;
    bool mChosenIsWaiting = false;
    bool mEnds = false;
    /// Counts the calls of `read`.
    quint64 mRound = 0;
    /// Counts what makes the present reading useless; that reading is then cancelled.
    std::atomic<quint64> mWishes = 0;
    /// Declared last, so that all other members exist as long as the thread runs.
    std::thread mThread;
};
