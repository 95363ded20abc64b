#include "importing/CVImportNotes.h"

#include "importing/CVPayeeKey.h"
#include "model/CVDocument.h"
#include "model/CVTransactionSet.h"

#include <QCryptographicHash>

#include <algorithm>

namespace {

/// Of a digest in hexadecimal digits, which is enough for the numbers of one account.
constexpr qsizetype kLengthOfDigest = 20;

/// The bank's number by itself could be that of a contract, which every payment has; such a payment has another day.
QByteArray digestOfNumber(const QString& bankID, const QBDate& day) {
    const QByteArray text = bankID.simplified().toUtf8() + '\n' + day.corvellaXMLRepresentation();
    return QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex().left(kLengthOfDigest);
}

QString keyOfPayee(const QString& payee) {
    return CVPayeeKey(payee).text();
}

CVImportNotes::NotedSet noteOfSet(const CVDocument& document, quint32 id) {
    for (const auto& set : document.transactionSets()) {
        if (set->uniqueID() == id)
            return {id, set->transactionSetName()};
    }
    return {id};
}

/// Whether it is not recorded because it was found in the budget.
bool saysRecorded(const CVImportLine& line) {
    using Note = CVImportLine::Note;
    return !line.checked && (line.note == Note::RecordedAlready || line.note == Note::PerhapsRecorded);
}

std::optional<quint32> setNamed(const CVDocument& document, const QString& name) {
    const auto& sets = document.transactionSets();
    const auto found = std::find_if(sets.begin(), sets.end(), [&name](const auto& set) {
        return !name.isEmpty() && set->transactionSetName() == name;
    });
    return found == sets.end() ? std::nullopt : std::optional((*found)->uniqueID());
}

std::optional<quint32> findNotedSet(const CVDocument& document, const CVImportNotes::NotedSet& noted) {
    if (const auto byName = setNamed(document, noted.name))
        return byName;
    const auto& sets = document.transactionSets();
    const auto byID =
        std::find_if(sets.begin(), sets.end(), [&noted](const auto& set) { return set->uniqueID() == noted.id; });
    if (byID != sets.end())
        return noted.id;
    return sets.empty() && noted.id == 0 ? std::optional(noted.id) : std::nullopt;
}

} // namespace

std::optional<CVImportTargets> CVImportNotes::targets(const CVDocument& document,
                                                      const QByteArray& headerDigest) const {
    const auto ofHeader = mContents.targets.constFind(headerDigest);
    const auto noted = ofHeader == mContents.targets.constEnd() ? mContents.lastTargets : std::optional(*ofHeader);
    if (!noted)
        return std::nullopt;
    CVImportTargets found{.income = noted->income};
    const auto set = findNotedSet(document, noted->set);
    if (!set)
        return std::nullopt;
    found.set = *set;
    if (noted->incomeSet) {
        const auto incomeSet = findNotedSet(document, *noted->incomeSet);
        if (!incomeSet)
            return std::nullopt;
        found.incomeSet = *incomeSet;
    }
    if (!noted->newIncomeSet.isEmpty()) {
        const auto made = setNamed(document, noted->newIncomeSet);
        found.incomeSet = made.value_or(0);
        found.newIncomeSet = made ? QString() : noted->newIncomeSet;
    }
    return found;
}

void CVImportNotes::noteTargets(const CVDocument& document, const QByteArray& headerDigest,
                                const CVImportTargets& targets) {
    // Nothing went into a set that was not made.
    if (!targets.newSet.isEmpty())
        return;
    NotedTargets noted{noteOfSet(document, targets.set), targets.income};
    if (targets.income == CVImportTargets::Income::OwnSet && targets.newIncomeSet.isEmpty())
        noted.incomeSet = noteOfSet(document, targets.incomeSet);
    else if (targets.income == CVImportTargets::Income::OwnSet)
        noted.newIncomeSet = targets.newIncomeSet;
    mContents.lastTargets = noted;
    if (!headerDigest.isEmpty())
        mContents.targets.insert(headerDigest, noted);
}

std::optional<CVStatementMapping> CVImportNotes::mapping(const QByteArray& headerDigest) const {
    const auto noted = mContents.mappings.constFind(headerDigest);
    return noted == mContents.mappings.constEnd() ? std::nullopt : std::optional(noted->mapping);
}

void CVImportNotes::noteMapping(const QByteArray& headerDigest, const QString& name,
                                const CVStatementMapping& mapping) {
    if (headerDigest.isEmpty())
        return;
    NotedMapping noted{name, mapping};
    noted.mapping.headerLine.reset();
    noted.mapping.year.reset();
    noted.mapping.otherYear.reset();
    noted.mapping.account.reset();
    mContents.mappings.insert(headerDigest, noted);
}

std::optional<CVStatementMapping> CVImportNotes::mappingNamed(const QString& name) const {
    for (const NotedMapping& noted : mContents.mappings) {
        if (!name.isEmpty() && noted.name == name)
            return noted.mapping;
    }
    return std::nullopt;
}

bool CVImportNotes::wasLeftOut(const QString& payeeInStatement) const {
    return mContents.leftOut.contains(keyOfPayee(payeeInStatement));
}

QString CVImportNotes::payeeFor(const QString& payeeInStatement) const {
    return mContents.payees.value(keyOfPayee(payeeInStatement));
}

/// By which its numbers are kept: its own, else the one that it had before it was renamed.
QString CVImportNotes::nameOfAccount(const NotedSet& account) const {
    return mContents.numbers.contains(account.name) ? account.name : mContents.accounts.key(account.id, account.name);
}

bool CVImportNotes::knowsNumber(const NotedSet& account, const QString& bankID, const QBDate& day) const {
    const auto numbers = mContents.numbers.constFind(nameOfAccount(account));
    return !bankID.isEmpty() && numbers != mContents.numbers.constEnd() &&
           numbers->contains(digestOfNumber(bankID, day));
}

void CVImportNotes::noteLines(const NotedSet& account, const CVImportTargets& targets,
                              std::span<const CVImportLine> lines) {
    noteLeftOut(targets, lines);
    const QString formerName = nameOfAccount(account);
    auto& numbers = mContents.numbers[account.name];
    if (formerName != account.name) {
        numbers = mContents.numbers.take(formerName);
        mContents.accounts.remove(formerName);
    }
    mContents.accounts.insert(account.name, account.id);
    for (const CVImportLine& line : lines) {
        notePayee(line);
        if ((line.checked || saysRecorded(line)) && line.dayInStatement && !line.bankID.isEmpty())
            numbers.insert(digestOfNumber(line.bankID, *line.dayInStatement));
    }
}

/// A payee counts as left out when no line of it was recorded.
void CVImportNotes::noteLeftOut(const CVImportTargets& targets, std::span<const CVImportLine> lines) {
    QSet<QString> checked;
    QSet<QString> unchecked;
    for (const CVImportLine& line : lines) {
        const bool isIncomeLeftOut = line.isIncome && targets.income == CVImportTargets::Income::LeftOut;
        const bool isChoice = !saysRecorded(line) && line.note != CVImportLine::Note::Unreadable &&
                              line.hundredths != 0 && line.otherCurrency.isEmpty() && !isIncomeLeftOut;
        if (const QString key = keyOfPayee(line.payeeInStatement); isChoice && !key.isEmpty())
            (line.checked ? checked : unchecked).insert(key);
    }
    mContents.leftOut.unite(unchecked);
    mContents.leftOut.subtract(checked);
}

/// Only what the user records says who it is: a line that is left out may be recorded under another payee, or not be
/// wanted.
void CVImportNotes::notePayee(const CVImportLine& line) {
    const QString key = keyOfPayee(line.payeeInStatement);
    if (!line.checked || key.isEmpty() || line.payee.isEmpty())
        return;
    if (keyOfPayee(line.payee) == key)
        mContents.payees.remove(key);
    else
        mContents.payees.insert(key, line.payee);
}

void CVImportNotes::forgetNumbers(const NotedSet& account, std::span<const CVImportLine> lines) {
    const auto numbers = mContents.numbers.find(nameOfAccount(account));
    if (numbers == mContents.numbers.end())
        return;
    for (const CVImportLine& line : lines) {
        if (line.checked && line.dayInStatement && !line.bankID.isEmpty())
            numbers->remove(digestOfNumber(line.bankID, *line.dayInStatement));
    }
}
