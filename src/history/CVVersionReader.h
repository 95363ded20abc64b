#pragma once

#include "comparing/CVReadingThread.h"
#include "contents/CVVersionSign.h"
#include "model/CVDocumentText.h"

#include <QObject>
#include <QStringList>

#include <array>
#include <memory>
#include <optional>

class CVDetachedDocument;
class CVDocument;
class CVDocumentReader;
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

/// Reads earlier versions one after the other on a thread of its own and compares each with the present budget, of
/// which it gets the text. Used from the main thread.
class CVVersionReader final : public QObject {
    Q_OBJECT

public:
    /// Begins anew, in this order, with another present state. What was found before this call is no longer told.
    void read(CVDocumentText present, const QStringList& paths);
    /// Reads that version next and tells its differences; an empty path chooses none.
    void choose(const QString& path);

signals:
    /// Always emitted from the event loop.
    void found(const CVVersionFindings& findings);

private:
    /// The present budget as the thread has read it; only the thread touches it.
    struct Present {
        std::shared_ptr<CVDetachedDocument> budget;
        quint64 round = 0;
    };

    /// The version to read next; absent when there is none.
    [[nodiscard]] std::optional<QString> next() const;
    void readNext();
    [[nodiscard]] static CVVersionFindings examine(CVDocumentReader& reader, const QString& path,
                                                   const Present& present, bool isChosen);
    void take(const CVVersionFindings& findings, bool wasChosen);

    CVDocumentText mText;
    QStringList mWaiting;
    QString mChosen;
    bool mChosenIsWaiting = false;
    /// Counts the calls of `read`.
    quint64 mRound = 0;
    std::shared_ptr<Present> mPresent = std::make_shared<Present>();
    CVReadingThread mThread;
};
