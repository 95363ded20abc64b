#include "commands/CVImportCommand.h"

#include "commands/CVBudgetImportRun.h"
#include "commands/CVBudgetToChange.h"
#include "commands/CVDryRunText.h"
#include "commands/CVErrorLine.h"
#include "commands/CVNamedDataFile.h"
#include "commands/CVReadOnlyBudget.h"
#include "commands/CVStandardStreams.h"
#include "commands/CVStraightQuotes.h"
#include "commands/CVUsageText.h"
#include "files/CVFileSignature.h"
#include "importing/CVImportIntoBudget.h"
#include "importing/CVNotesFile.h"
#include "importing/CVPrepareImport.h"
#include "importing/CVReadAsLastTime.h"
#include "importing/CVReadStatement.h"
#include "importing/budgets/CVBudgetFileKind.h"
#include "model/CVTransactionSet.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSettings>

#include <algorithm>
#include <utility>

namespace {

struct ImportCommandText {
    Q_DECLARE_TR_FUNCTIONS(CVImportCommand)
};

using Income = CVImportRequest::Income;

constexpr int kNotImported = 1;
constexpr int kNotUnderstood = 2;
constexpr qsizetype kMostNumbers = 10;

int endWith(QTextStream& errors, const QString& message) {
    CVWriteErrorLine(errors, message);
    return kNotImported;
}

QString pathOfStatement(const CVImportRequest& request) {
    const bool isInput = request.file == QLatin1String(CVStandardStreams::kName);
    return isInput ? QString::fromLatin1(CVStandardStreams::kInputPath) : request.file;
}

int notRead(const CVImportRequest& request, const QString& why, QTextStream& errors) {
    return endWith(
        errors, ImportCommandText::tr("\"%1\" could not be read: %2").arg(QDir::toNativeSeparators(request.file), why));
}

int refuseRequest(QTextStream& errors, const QString& problem) {
    CVWriteErrorLine(errors, problem);
    errors << CVUsageText(QStringLiteral("import")) << Qt::flush;
    return kNotUnderstood;
}

QString questionWithOptions(const CVStatementQuestion& question) {
    QStringList options;
    for (const auto& answer : question.answers)
        options.append(answer.option + u' ' + u'(' + answer.label + u')');
    return ImportCommandText::tr("%1 Answer with %2").arg(question.text, options.join(ImportCommandText::tr(" or ")));
}

/// The run of one command. Each step answers false after one line on the errors.
class ImportRun final {
public:
    ImportRun(const CVImportRequest& request, QFile& file, QTextStream& errors)
        : mRequest(request)
        , mFile(file)
        , mErrors(errors) {}

    [[nodiscard]] int dryRun();
    [[nodiscard]] int import();

private:
    [[nodiscard]] bool readBytes();
    [[nodiscard]] bool readStatement();
    [[nodiscard]] bool settleStatement();
    void writeNote(const QString& note) const;
    [[nodiscard]] bool findSets(const CVDocument& document);
    void prepare(const CVDocument& document);
    [[nodiscard]] QString whyNotRecorded() const;
    [[nodiscard]] QString unreadableLines() const;
    [[nodiscard]] QString linesWithoutCategory() const;
    [[nodiscard]] int tellUnreadable() const;
    void learn(const CVDocument& document, const CVImported& imported);
    [[nodiscard]] int writeCount(std::size_t count, const QStringList& spared) const;

    const CVImportRequest& mRequest;
    QFile& mFile;
    QTextStream& mErrors;
    QByteArray mBytes;
    /// Of the data file; empty when there is none.
    QString mDataFile;
    CVImportNotes mNotes;
    CVStatement mStatement;
    CVImportTargets mTargets;
    /// Those that there are not.
    QStringList mMissingSets;
    CVImportLines mLines;
};

bool ImportRun::readBytes() {
    mBytes = mFile.read(kCVLargestStatement + 1);
    return mFile.error() == QFileDevice::NoError || notRead(mRequest, mFile.errorString(), mErrors) == 0;
}

/// As the options say, and beside them as a statement with that header was read the last time.
bool ImportRun::readStatement() {
    if (!mDataFile.isEmpty() && mDataFile != QLatin1String(CVStandardStreams::kName))
        mNotes = CVNotesFile(mDataFile).read().notes;
    auto known = std::optional(mRequest.statement.mapping);
    if (mRequest.mappingName)
        known = mNotes.mappingNamed(*mRequest.mappingName);
    if (!known) {
        CVWriteErrorLine(mErrors,
                         ImportCommandText::tr("no mapping has the name \"%1\"; how a statement is read is kept by its "
                                               "header and used without --mapping")
                             .arg(*mRequest.mappingName));
        return false;
    }
    mStatement = CVReadAsLastTime(mBytes, *known, mNotes).statement;
    return settleStatement();
}

bool ImportRun::settleStatement() {
    QStringList open;
    if (!mStatement.problemOption.isEmpty())
        open.append(ImportCommandText::tr("%1 Answer with %2").arg(mStatement.problem, mStatement.problemOption));
    else if (!mStatement.problem.isEmpty())
        open.append(mStatement.problem);
    else
        std::transform(mStatement.questions.begin(), mStatement.questions.end(), std::back_inserter(open),
                       questionWithOptions);
    if (!open.isEmpty())
        CVWriteErrorLine(mErrors, CVStraightQuotes(open.join(QStringLiteral("; "))));
    else if (!mStatement.balanceRemark.isEmpty())
        writeNote(mStatement.balanceRemark);
    return open.isEmpty();
}

void ImportRun::writeNote(const QString& note) const {
    CVWriteErrorLine(mErrors, ImportCommandText::tr("note: %1").arg(note));
}

/// Takes a set that there is not by its name, under which nothing is recorded yet; false for one that is needed.
bool ImportRun::findSets(const CVDocument& document) {
    const auto find = [&](const QString& name, quint32& set, QString& newSet) {
        const auto& sets = document.transactionSets();
        const auto found = std::find_if(sets.begin(), sets.end(),
                                        [&name](const auto& each) { return each->transactionSetName() == name; });
        if (found != sets.end()) {
            set = (*found)->uniqueID();
            return;
        }
        newSet = name;
        mMissingSets.append(name);
    };
    mTargets.income = mRequest.income;
    find(mRequest.set, mTargets.set, mTargets.newSet);
    if (mRequest.income == Income::OwnSet)
        find(mRequest.incomeSet, mTargets.incomeSet, mTargets.newIncomeSet);
    if (mMissingSets.isEmpty() || mDataFile.isEmpty())
        return true;
    const QString missing = ImportCommandText::tr("there is no transaction set \"%1\"; \"corvella sets\" lists them")
                                .arg(mMissingSets.constFirst());
    CVWriteErrorLine(mErrors, mRequest.dryRun ? ImportCommandText::tr("note: %1").arg(missing) : missing);
    return mRequest.dryRun;
}

void ImportRun::prepare(const CVDocument& document) {
    mLines = CVPrepareImport(document, mNotes).lines(mStatement.lines, mTargets);
    for (CVImportLine& line : mLines) {
        if (!line.checked || !line.category.isEmpty() || mRequest.categoryForRest.isEmpty())
            continue;
        line.category = mRequest.categoryForRest;
        if (line.note == CVImportLine::Note::NoCategory) {
            line.note = CVImportLine::Note::None;
            line.noteText.clear();
        }
    }
    const auto foreign =
        std::count_if(mLines.begin(), mLines.end(), [](const auto& line) { return !line.otherCurrency.isEmpty(); });
    if (foreign > 0)
        writeNote(foreign == 1
                      ? ImportCommandText::tr("1 line is in another currency and is left out")
                      : ImportCommandText::tr("%1 lines are in another currency and are left out").arg(foreign));
}

int ImportRun::dryRun() {
    CVReadOnlyBudget budget;
    const auto named = CVNamedDataFile::find(mRequest.dataFile, CVStandardFolders::ofUser(), budget.userDefaults());
    if (!readBytes() || (!named.isMissing && !budget.readAndSort(mRequest.dataFile, mErrors)))
        return kNotImported;
    if (!named.isMissing)
        mDataFile = named.path;
    if (!readStatement() || !findSets(budget.document()))
        return kNotImported;
    prepare(budget.document());
    const QString text = CVDryRunText(mLines, mStatement, mRequest);
    const QStringList spared = budget.dataFiles() + QStringList{pathOfStatement(mRequest)};
    const int status = CVStandardStreams::write(text.toUtf8(), spared, mErrors);
    return status == 0 && !mRequest.skipUnreadable ? tellUnreadable() : status;
}

int ImportRun::tellUnreadable() const {
    const QString unreadable = unreadableLines();
    return unreadable.isEmpty() ? 0 : endWith(mErrors, unreadable);
}

QString ImportRun::unreadableLines() const {
    const auto count = std::count_if(mLines.begin(), mLines.end(),
                                     [](const auto& line) { return line.note == CVImportLine::Note::Unreadable; });
    if (count == 0)
        return {};
    return count == 1 ? ImportCommandText::tr("1 line could not be read")
                      : ImportCommandText::tr("%1 lines could not be read").arg(count);
}

QString ImportRun::linesWithoutCategory() const {
    QStringList numbers;
    for (const CVImportLine& line : mLines) {
        if (line.checked && line.category.trimmed().isEmpty())
            numbers.append(QString::number(line.number));
    }
    if (numbers.isEmpty())
        return {};
    const auto count = numbers.size();
    QString listed = numbers.mid(0, kMostNumbers).join(QStringLiteral(", "));
    if (count > kMostNumbers)
        listed = ImportCommandText::tr("%1 and %2 more").arg(listed).arg(count - kMostNumbers);
    return count == 1 ? ImportCommandText::tr("line %1 has no category").arg(listed)
                      : ImportCommandText::tr("%1 lines have no category: %2").arg(QString::number(count), listed);
}

QString ImportRun::whyNotRecorded() const {
    const QString unreadable = mRequest.skipUnreadable ? QString() : unreadableLines();
    if (!unreadable.isEmpty())
        return ImportCommandText::tr("%1, so nothing was imported; --dry-run shows why, --skip-unreadable imports the "
                                     "others")
            .arg(unreadable);
    const QString uncategorized = linesWithoutCategory();
    if (uncategorized.isEmpty())
        return {};
    return ImportCommandText::tr("%1, so nothing was imported; --category-for-rest NAME gives one to all that have "
                                 "none, --dry-run shows them")
        .arg(uncategorized);
}

int ImportRun::import() {
    const QBUserDefaults defaults(QBUserDefaults::standardStore(), QBUserDefaults::Changes::Forgotten);
    const CVStandardFolders folders = CVStandardFolders::ofUser();
    const auto named = CVNamedDataFile::find(mRequest.dataFile, folders, defaults);
    if (!named.problem.isEmpty())
        return endWith(mErrors, named.problem);
    mDataFile = named.path;
    if (CVIsSameFile(pathOfStatement(mRequest), mDataFile))
        return endWith(mErrors, ImportCommandText::tr("the statement is the data file"));
    CVBudgetToChange budget;
    if (!readBytes() || !budget.open(mDataFile, mErrors) || !readStatement() || !findSets(budget.document()))
        return kNotImported;
    prepare(budget.document());
    if (const QString why = whyNotRecorded(); !why.isEmpty())
        return endWith(mErrors, why);
    const QStringList spared = CVOwnDataFiles(folders, defaults) + QStringList{mDataFile, pathOfStatement(mRequest)};
    if (std::none_of(mLines.begin(), mLines.end(), [](const auto& line) { return line.checked; }))
        return writeCount(0, spared);
    const CVImported imported = CVImportIntoBudget(budget.document(), mLines, mTargets);
    if (!imported.problem.isEmpty())
        return endWith(mErrors, imported.problem);
    if (!budget.waitUntilSaved(mErrors))
        return kNotImported;
    learn(budget.document(), imported);
    return writeCount(imported.entries.size(), spared);
}

void ImportRun::learn(const CVDocument& document, const CVImported& imported) {
    const QByteArray& header = mStatement.headerDigest;
    mNotes.noteTargets(document, header, imported.targets);
    mNotes.noteMapping(header, mNotes.contents().mappings.value(header).name, mStatement.lasting);
    mNotes.noteLines(imported.account, imported.targets, mLines);
    const auto written = CVNotesFile(mDataFile).write(mNotes, QDateTime::currentDateTime());
    if (written.ok() && !written.kept.isEmpty())
        writeNote(ImportCommandText::tr("what former statements taught could not be read; it is kept as \"%1\"")
                      .arg(QDir::toNativeSeparators(written.kept)));
    if (!written.ok())
        CVWriteErrorLine(mErrors, ImportCommandText::tr("note: what this statement taught could not be kept for the "
                                                        "next one: %1")
                                      .arg(written.error));
}

int ImportRun::writeCount(std::size_t count, const QStringList& spared) const {
    const QString text = count == 1 ? ImportCommandText::tr("1 transaction imported")
                                    : ImportCommandText::tr("%1 transactions imported").arg(count);
    return CVStandardStreams::write((text + u'\n').toUtf8(), spared, mErrors);
}

} // namespace

int CVRunImport(const CVImportRequest& request, QTextStream& errors) {
    QFile file(pathOfStatement(request));
    if (!file.open(QIODevice::ReadOnly))
        return notRead(request, file.errorString(), errors);
    const CVBudgetFileKind kind = CVKindOfBudgetFile(file.peek(kCVTellingBytes));
    if (kind == CVBudgetFileKind::None) {
        if (request.set.isEmpty())
            return refuseRequest(errors,
                                 ImportCommandText::tr("import needs --set with the name of a transaction set"));
        ImportRun run(request, file, errors);
        return request.dryRun ? run.dryRun() : run.import();
    }
    CVBudgetImportRun run(request, file, errors);
    if (const QString problem = run.refusal(kind); !problem.isEmpty())
        return refuseRequest(errors, problem);
    return request.dryRun ? run.dryRun() : run.import();
}
