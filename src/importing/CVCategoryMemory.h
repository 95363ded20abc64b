#pragma once

#include "importing/CVPayeeKey.h"
#include "model/CVCollections.h"

#include <QHash>
#include <QString>

#include <memory>
#include <vector>

class CVDocument;
class CVRecordedLines;
struct CVRecordedLine;

/// How sure a proposal is.
enum class CVSureness { None, Likely, Sure };

/// What was recorded for a payee so far.
struct CVRememberedCategory {
    /// Empty when `sure` is `None`.
    QString category;
    /// What most of the transactions were for; empty when they differ.
    QString purpose;
    CVSureness sure = CVSureness::None;
    /// The transactions from which it comes, at most 5, the newest first.
    CVTransactions from;
};

/// Knows from what was recorded which category a payee usually has. Does not follow later changes. Notes the present
/// state at once, in 15 ms for 100,000 transactions; the rest is done at the first call that needs it, so a memory is
/// for one thread at a time.
class CVCategoryMemory final {
public:
    explicit CVCategoryMemory(const CVDocument& document);
    explicit CVCategoryMemory(std::shared_ptr<const CVRecordedLines> recorded);
    ~CVCategoryMemory();
    CVCategoryMemory(const CVCategoryMemory&) = delete;
    CVCategoryMemory& operator=(const CVCategoryMemory&) = delete;

    /// The usual category of a payee: as the payee was recorded before; else of the payees with the same key; else of
    /// the likest ones; else of those who share a word that only one category has. Where a payee has several
    /// categories, a purpose that was recorded with one of them decides. Categories that were deleted are forgotten.
    [[nodiscard]] CVRememberedCategory of(const QString& payee, const QString& purpose = {}) const;

private:
    /// Places of recorded lines, the newest first, at most as many as a vote looks at.
    using Lines = std::vector<quint32>;
    struct RecordedPayee {
        QString payee;
        Lines lines;
    };
    struct KnownKey {
        CVPayeeKey key;
        Lines lines;
    };

    void rememberPayees() const;
    [[nodiscard]] quint32 placeOf(const QString& payee) const;
    void rememberKeys() const;
    void rememberWords(quint32 place) const;
    [[nodiscard]] const CVRecordedLine& line(quint32 place) const;
    [[nodiscard]] CVRememberedCategory known(const Lines& lines, const QString& purpose) const;
    [[nodiscard]] CVRememberedCategory vote(const Lines& lines) const;
    [[nodiscard]] CVRememberedCategory remembered(const Lines& lines, quint32 category, CVSureness sure) const;
    [[nodiscard]] QString usualPurpose(const Lines& lines) const;
    [[nodiscard]] Lines withPurpose(const Lines& lines, const QString& purpose) const;
    [[nodiscard]] std::vector<quint32> keysThatBeginAlike(const CVPayeeKey& key) const;
    [[nodiscard]] CVRememberedCategory ofLikestKeys(const CVPayeeKey& key) const;
    [[nodiscard]] CVRememberedCategory ofWords(const CVPayeeKey& key) const;
    [[nodiscard]] CVRememberedCategory ofWord(const QString& word) const;

    std::shared_ptr<const CVRecordedLines> mRecorded;
    mutable bool mKnowsPayees = false;
    /// In the order in which they were last used, the newest first.
    mutable std::vector<RecordedPayee> mPayees;
    mutable QHash<QString, quint32> mPlacesOfPayees;

    mutable bool mKnowsKeys = false;
    mutable std::vector<KnownKey> mKeys;
    /// Places in `mKeys`: by the text of the key, by each of its words, and by the first letters of each.
    mutable QHash<QString, quint32> mPlacesOfKeys;
    mutable QHash<QString, std::vector<quint32>> mKeysWithWord;
    mutable QHash<QString, std::vector<quint32>> mKeysWithBegin;
    /// What was found for keys that were never recorded, by their text.
    mutable QHash<QString, CVRememberedCategory> mGuesses;
};
