#include "importing/CVPrepareImport.h"

#include "budget/CVDateFormatWithoutYear.h"
#include "format/QBDateFormatter.h"
#include "importing/CVFindRecorded.h"

#include <QCoreApplication>
#include <QHash>

#include <limits>

namespace {

struct PreparedText {
    Q_DECLARE_TR_FUNCTIONS(CVPrepareImport)
};

using Note = CVImportLine::Note;
using Income = CVImportTargets::Income;

constexpr int kThousandth = 1000;
constexpr quint32 kNoSet = std::numeric_limits<quint32>::max();
/// The stop is asked for after so many lines.
constexpr std::size_t kLinesPerLook = 100;

/// The day as a person would write it beside a line of `near`: the year only where it is another one.
QString shortDay(const QBDate& day, const std::optional<QBDate>& near) {
    const QString format = QBDateFormatter::shortDateFormat();
    const bool isSameYear = near && near->yearOfCommonEra() == day.yearOfCommonEra();
    return QBDateFormatter(isSameYear ? CVDateFormatWithoutYear(format) : format).string(day);
}

CVImportLine unreadable(const CVStatementLine& line) {
    CVImportLine prepared{.checked = false, .number = line.number, .day = line.day, .payee = line.payee};
    prepared.xfor = line.purpose;
    prepared.payeeInStatement = line.payee;
    prepared.hundredths = -line.hundredths.value_or(0);
    prepared.note = Note::Unreadable;
    const QString reason = !line.unreadable.isEmpty() ? line.unreadable
                           : line.day                 ? PreparedText::tr("no amount")
                                                      : PreparedText::tr("no date");
    prepared.noteText = PreparedText::tr("cannot be read: %1").arg(reason);
    return prepared;
}

bool isReadable(const CVStatementLine& line) {
    return line.unreadable.isEmpty() && line.day && line.hundredths;
}

/// Whether the line is one of several that the statement has made of one entry, each with a category of its own.
bool isPart(const std::vector<CVStatementLine>& statement, std::size_t at) {
    const auto isOfSame = [&](std::size_t other) {
        return other < statement.size() && statement[other].number == statement[at].number &&
               !statement[other].category.isEmpty();
    };
    return !statement[at].category.isEmpty() && (isOfSame(at + 1) || (at > 0 && isOfSame(at - 1)));
}

} // namespace

CVPrepareImport::CVPrepareImport(const CVDocument& document, CVImportNotes notes)
    : CVPrepareImport(std::make_shared<const CVRecordedLines>(document), std::move(notes)) {}

CVPrepareImport::CVPrepareImport(std::shared_ptr<const CVRecordedLines> recorded, CVImportNotes notes)
    : mRecorded(std::move(recorded))
    , mMemory(std::make_unique<CVCategoryMemory>(mRecorded))
    , mNotes(std::move(notes)) {}

CVImportLines CVPrepareImport::lines(const std::vector<CVStatementLine>& statement, const CVImportTargets& targets,
                                     const CVStopRequested& stop) const {
    CVImportLines prepared;
    prepared.reserve(statement.size());
    for (const CVStatementLine& line : statement) {
        const auto done = static_cast<int>(prepared.size() * kThousandth / statement.size());
        if (stop && prepared.size() % kLinesPerLook == 0 && stop(done))
            return {};
        const Source source = isPart(statement, prepared.size()) ? Source::Statement : Source::Memory;
        prepared.push_back(isReadable(line) ? readable(line, targets, source) : unreadable(line));
    }
    noteRecorded(prepared, targets);
    return prepared;
}

CVImportLine CVPrepareImport::readable(const CVStatementLine& line, const CVImportTargets& targets,
                                       Source source) const {
    CVImportLine prepared{.number = line.number, .day = line.day};
    prepared.dayInStatement = line.day;
    prepared.isIncome = *line.hundredths > 0;
    prepared.hundredths = prepared.isIncome && targets.income != Income::SameSet ? *line.hundredths : -*line.hundredths;
    // Where a bank has one text for both, it says who it is.
    const bool hasPayee = !line.payee.trimmed().isEmpty();
    prepared.payeeInStatement = (hasPayee ? line.payee : line.purpose).simplified();
    prepared.xfor = hasPayee ? line.purpose.simplified() : QString();
    const QString corrected = mNotes.payeeFor(prepared.payeeInStatement);
    prepared.payee = corrected.isEmpty() ? prepared.payeeInStatement : corrected;
    prepared.bankID = line.bankID;
    prepared.otherCurrency = line.otherCurrency;
    propose(prepared, line.category.simplified(), source);
    noteWhatIsMissing(prepared, targets);
    return prepared;
}

/// What is remembered for sure goes before the statement's own category, which goes before other guesses when the
/// budget has it. The parts of a divided payment have one payee, so that what is remembered of the payee says nothing
/// about them.
void CVPrepareImport::propose(CVImportLine& line, const QString& categoryInStatement, Source source) const {
    const auto remembered = mMemory->of(line.payee, line.xfor);
    line.category = remembered.category;
    line.sure = remembered.sure;
    line.from = remembered.from;
    if (line.xfor.isEmpty() && remembered.sure == CVSureness::Sure)
        line.xfor = remembered.purpose;
    const QString known = mRecorded->categoryMeant(categoryInStatement);
    const bool isBetter = remembered.sure == CVSureness::None || !known.isEmpty();
    const bool isRemembered = remembered.sure == CVSureness::Sure || !isBetter;
    if (categoryInStatement.isEmpty() || (isRemembered && source == Source::Memory))
        return;
    line.category = known.isEmpty() ? categoryInStatement : known;
    line.sure = CVSureness::Likely;
    line.from.clear();
}

void CVPrepareImport::noteWhatIsMissing(CVImportLine& line, const CVImportTargets& targets) const {
    if (line.hundredths == 0) {
        line.checked = false;
        line.noteText = PreparedText::tr("nothing was paid");
    } else if (!line.otherCurrency.isEmpty()) {
        line.checked = false;
        line.noteText = PreparedText::tr("in another currency (%1)").arg(line.otherCurrency);
    } else if (line.isIncome && targets.income == Income::LeftOut) {
        line.checked = false;
        line.noteText = PreparedText::tr("money in is left out");
    } else if (mNotes.wasLeftOut(line.payeeInStatement)) {
        line.checked = false;
        line.note = Note::LeftOutBefore;
        line.noteText = PreparedText::tr("left out before");
    } else if (line.category.isEmpty()) {
        line.note = Note::NoCategory;
        line.noteText = PreparedText::tr("no category yet");
    }
}

void CVPrepareImport::findRecorded(CVImportLines& lines, const CVImportTargets& targets) const {
    for (CVImportLine& line : lines) {
        if (line.note == Note::Unreadable)
            continue;
        line.checked = true;
        line.note = Note::None;
        line.noteText.clear();
        line.recorded.clear();
        noteWhatIsMissing(line, targets);
    }
    noteRecorded(lines, targets);
}

void CVPrepareImport::noteRecorded(CVImportLines& lines, const CVImportTargets& targets) const {
    const auto isKnown = knownNumbers(lines, targets);
    std::vector<CVSoughtLine> sought(lines.size());
    for (std::size_t at = 0; at < lines.size(); ++at) {
        const CVImportLine& line = lines[at];
        const auto set = setOf(line.isIncome, targets);
        if (line.note == Note::Unreadable || line.hundredths == 0 || !set)
            continue;
        sought[at] = {line.day, line.hundredths, line.payee, line.payeeInStatement, *set};
        sought[at].isCertain = isKnown[at];
        if (targets.income == Income::OwnSet)
            sought[at].setOfOtherSide = setOf(!line.isIncome, targets);
    }
    const auto found = CVFindRecorded(sought, *mRecorded);
    for (std::size_t at = 0; at < lines.size(); ++at) {
        CVImportLine& line = lines[at];
        const bool isRecorded = isKnown[at] || found[at].hasSamePayee;
        if (!isRecorded && (found[at].recorded.empty() || line.note == Note::LeftOutBefore))
            continue;
        line.note = isRecorded ? Note::RecordedAlready : Note::PerhapsRecorded;
        line.checked = line.checked && !isRecorded;
        noteFound(line, found[at].recorded);
    }
}

void CVPrepareImport::noteFound(CVImportLine& line, const std::vector<std::size_t>& recorded) const {
    for (const std::size_t each : recorded)
        line.recorded.push_back(mRecorded->lines()[each].transaction);
    if (recorded.empty()) {
        line.noteText = PreparedText::tr("imported before");
        return;
    }
    const QString day = shortDay(*mRecorded->lines()[recorded.front()].day, line.day);
    if (recorded.size() > 1)
        line.noteText = PreparedText::tr("recorded in parts on %1 already").arg(day);
    else if (line.note == Note::RecordedAlready)
        line.noteText = PreparedText::tr("recorded on %1 already").arg(day);
    else
        line.noteText = PreparedText::tr("perhaps recorded on %1").arg(day);
}

/// A number that several lines of a day have is that of something else.
std::vector<bool> CVPrepareImport::knownNumbers(const CVImportLines& lines, const CVImportTargets& targets) const {
    QHash<std::pair<QString, QByteArray>, int> counts;
    const auto placeOf = [](const CVImportLine& line) {
        return std::pair(line.bankID, line.dayInStatement->corvellaXMLRepresentation());
    };
    const auto hasNumber = [](const CVImportLine& line) {
        return line.note != Note::Unreadable && line.dayInStatement && !line.bankID.isEmpty();
    };
    for (const CVImportLine& line : lines) {
        if (hasNumber(line))
            ++counts[placeOf(line)];
    }
    const auto account = accountOf(targets);
    std::vector<bool> isKnown;
    isKnown.reserve(lines.size());
    for (const CVImportLine& line : lines)
        isKnown.push_back(hasNumber(line) && counts.value(placeOf(line)) == 1 &&
                          mNotes.knowsNumber(account, line.bankID, *line.dayInStatement));
    return isKnown;
}

/// The ID of the set in which lines of that side may be recorded already; absent for a set that is only to be made.
std::optional<quint32> CVPrepareImport::setOf(bool isIncome, const CVImportTargets& targets) const {
    if (isIncome && targets.income == Income::LeftOut)
        return std::nullopt;
    const bool isOwn = isIncome && targets.income == Income::OwnSet;
    const QString& name = isOwn ? targets.newIncomeSet : targets.newSet;
    if (!name.isEmpty())
        return mRecorded->setNamed(name);
    return isOwn ? targets.incomeSet : targets.set;
}

CVImportNotes::NotedSet CVPrepareImport::accountOf(const CVImportTargets& targets) const {
    if (targets.newSet.isEmpty())
        return {targets.set, mRecorded->nameOfSet(targets.set)};
    return {mRecorded->setNamed(targets.newSet).value_or(kNoSet), targets.newSet};
}
