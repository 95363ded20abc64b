#include "commands/CVReadOnlyBudget.h"

#include "commands/CVErrorLine.h"
#include "commands/CVNamedDataFile.h"
#include "commands/CVStandardStreams.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTextStream>

#include <unistd.h>

namespace {

struct ReadOnlyBudgetText {
    Q_DECLARE_TR_FUNCTIONS(CVReadOnlyBudget)
};

bool fail(QTextStream& errors, const QString& message) {
    CVWriteErrorLine(errors, message);
    return false;
}

} // namespace

CVReadOnlyBudget::CVReadOnlyBudget()
    : mUserDefaults(QBUserDefaults::standardStore(), QBUserDefaults::Changes::Forgotten)
    , mFolders(CVStandardFolders::ofUser())
    , mDocument(mNotificationCenter, mUserDefaults) {}

bool CVReadOnlyBudget::read(const std::optional<QString>& dataFile, QTextStream& errors) {
    const CVNamedDataFile named = CVNamedDataFile::find(dataFile, mFolders, mUserDefaults);
    if (!named.problem.isEmpty())
        return fail(errors, named.problem);
    const QString& path = named.path;
    const bool isInput = path == QLatin1String(CVStandardStreams::kName);
    const QString shown =
        isInput ? ReadOnlyBudgetText::tr("standard input") : u'"' + QDir::toNativeSeparators(path) + u'"';
    mPath = isInput ? QString::fromLatin1(CVStandardStreams::kInputPath) : path;
    const CVLoadReport report = load(isInput ? QString() : path);
    const bool isEmpty = report.outcome == CVLoadReport::Outcome::NoBudget && !mNeedsBudget;
    if (report.outcome != CVLoadReport::Outcome::Loaded && !isEmpty)
        return fail(errors, ReadOnlyBudgetText::tr("%1 could not be read: %2").arg(shown, report.reason));
    if (!report.reason.isEmpty())
        CVWriteErrorLine(errors, ReadOnlyBudgetText::tr("note: %1").arg(report.reason));
    mPartly = report.partly;
    return true;
}

bool CVReadOnlyBudget::readAndSort(const std::optional<QString>& dataFile, QTextStream& errors) {
    if (!read(dataFile, errors))
        return false;
    mDocument.sortTransactionsByDate();
    mDocument.updateDates();
    return true;
}

/// Reads standard input when the path is empty.
CVLoadReport CVReadOnlyBudget::load(const QString& path) {
    CVDocumentFile file(mFolders, mUserDefaults);
    if (!path.isEmpty())
        return file.readFromURL(mDocument, path);
    QFile input;
    if (!input.open(STDIN_FILENO, QIODevice::ReadOnly))
        return {CVLoadReport::Outcome::NotRead, mPath, input.errorString()};
    return file.readFromOpenFile(mDocument, input);
}

QStringList CVReadOnlyBudget::dataFiles() const {
    return QStringList{mPath} + CVOwnDataFiles(mFolders, mUserDefaults);
}
