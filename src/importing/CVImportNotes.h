#pragma once

#include "importing/CVImportLine.h"
#include "importing/CVImportTargets.h"
#include "importing/statements/CVStatementMapping.h"

#include <QHash>
#include <QMap>
#include <QSet>
#include <QString>

#include <optional>
#include <span>

class CVDocument;

/// What is remembered of former imports and has no place in the data file. Without it only convenience is lost.
class CVImportNotes final {
public:
    /// A set is found again by its name, else by its ID.
    struct NotedSet {
        quint32 id = 0;
        QString name = {};
    };
    struct NotedTargets {
        NotedSet set = {};
        CVImportTargets::Income income = CVImportTargets::Income::OwnSet;
        /// Absent where the income has no set of its own.
        std::optional<NotedSet> incomeSet = {};
        /// The name of a set of its own that was not made, because there was no income; else empty.
        QString newIncomeSet = {};
    };
    struct NotedMapping {
        /// By which the user names it; may be empty.
        QString name = {};
        CVStatementMapping mapping = {};
    };
    /// What the notes hold, for their file.
    struct Contents {
        /// Of the last import.
        std::optional<NotedTargets> lastTargets = {};
        /// By the digest of a statement's header.
        QMap<QByteArray, NotedTargets> targets = {};
        QMap<QByteArray, NotedMapping> mappings = {};
        /// By the key of the payee in the statement.
        QSet<QString> leftOut = {};
        QMap<QString, QString> payees = {};
        /// Digests of the bank's numbers, by the name of the account.
        QMap<QString, QSet<QByteArray>> numbers = {};
        /// The IDs of these accounts, by which a renamed one is found again.
        QMap<QString, quint32> accounts = {};
    };

    CVImportNotes() = default;
    explicit CVImportNotes(Contents contents) : mContents(std::move(contents)) {}

    [[nodiscard]] const Contents& contents() const { return mContents; }

    /// Where statements with that header went the last time, else where the last statement went. Absent when nothing
    /// was imported yet or a set is gone.
    [[nodiscard]] std::optional<CVImportTargets> targets(const CVDocument& document,
                                                         const QByteArray& headerDigest) const;
    void noteTargets(const CVDocument& document, const QByteArray& headerDigest, const CVImportTargets& targets);

    /// Absent when no statement with that header was imported. Never remembered are the year of days without one, the
    /// account, and the line of the header: its words find it wherever it stands.
    [[nodiscard]] std::optional<CVStatementMapping> mapping(const QByteArray& headerDigest) const;
    /// Does nothing without a digest.
    void noteMapping(const QByteArray& headerDigest, const QString& name, const CVStatementMapping& mapping);
    [[nodiscard]] std::optional<CVStatementMapping> mappingNamed(const QString& name) const;

    /// Whether lines of that payee were left out the last time.
    [[nodiscard]] bool wasLeftOut(const QString& payeeInStatement) const;
    /// The payee as the user has corrected it in an earlier statement; null when he has not.
    [[nodiscard]] QString payeeFor(const QString& payeeInStatement) const;
    /// Whether the bank's number of a line of that day was imported into the account. False without a number.
    [[nodiscard]] bool knowsNumber(const NotedSet& account, const QString& bankID, const QBDate& day) const;

    /// Learns from all the lines of a statement, as they were when it was imported: which payees the user left out or
    /// corrected, and the numbers of what is recorded now. `account` is the set of the money out.
    void noteLines(const NotedSet& account, const CVImportTargets& targets, std::span<const CVImportLine> lines);
    /// Forgets the numbers of lines that were taken back.
    void forgetNumbers(const NotedSet& account, std::span<const CVImportLine> lines);

private:
    void noteLeftOut(const CVImportTargets& targets, std::span<const CVImportLine> lines);
    void notePayee(const CVImportLine& line);
    [[nodiscard]] QString nameOfAccount(const NotedSet& account) const;

    Contents mContents;
};
