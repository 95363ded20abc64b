#include "commands/CVBudgetToChange.h"

#include "base/CVDefaultsKeys.h"
#include "commands/CVErrorLine.h"
#include "commands/CVStraightQuotes.h"
#include "files/CVFileSignature.h"
#include "lock/CVLockKeeper.h"
#include "storage/CVRecoverInterruptedSaves.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QTextStream>

#include <algorithm>

namespace {

struct BudgetToChangeText {
    Q_DECLARE_TR_FUNCTIONS(CVBudgetToChange)
};

using LockOutcome = CVBudgetLock::Outcome;

bool failToChange(QTextStream& errors, const QString& message) {
    CVWriteErrorLine(errors, message);
    return false;
}

void remarkOnChange(QTextStream& errors, const QString& message) {
    if (!message.isEmpty())
        CVWriteErrorLine(errors, BudgetToChangeText::tr("note: %1").arg(CVStraightQuotes(message)));
}

QString quotedPath(const QString& path) {
    return u'"' + QDir::toNativeSeparators(path) + u'"';
}

QString whoHasIt(const CVBudgetLock::Attempt& attempt, const QString& path, const QString& lock) {
    if (attempt.outcome == LockOutcome::Held && attempt.holder)
        return BudgetToChangeText::tr("%1 has %2 open on \"%3\" (process %4); nothing is written until it is closed "
                                      "there")
            .arg(attempt.holder->user, quotedPath(path), attempt.holder->host,
                 QString::number(attempt.holder->process));
    return BudgetToChangeText::tr("%1 may be open elsewhere: the lock %2 cannot be judged; nothing is written. Open "
                                  "the budget in Corvella, which asks what to do")
        .arg(quotedPath(path), quotedPath(lock));
}

} // namespace

CVBudgetToChange::CVBudgetToChange()
    : mUserDefaults(QBUserDefaults::standardStore(), QBUserDefaults::Changes::Forgotten)
    , mFolders(CVStandardFolders::ofUser())
    , mFile(mFolders, mUserDefaults)
    , mDocument(mNotificationCenter, mUserDefaults) {}

CVBudgetToChange::~CVBudgetToChange() = default;

bool CVBudgetToChange::open(const QString& path, QTextStream& errors) {
    if (!QFileInfo(path).isFile())
        return failToChange(errors,
                            BudgetToChangeText::tr("%1 is not a file that can be written").arg(quotedPath(path)));
    const QString absolute = QFileInfo(path).absoluteFilePath();
    if (!lock(absolute, errors))
        return false;
    // What a killed program has left there can be brought back later too.
    (void)CVRecoverInterruptedSaves(absolute);
    mUserDefaults.setString(CVDefaultsKeys::kDataFileLocation, absolute);
    const CVLoadReport report = mFile.initWithChosenFile(mDocument, absolute);
    if (report.outcome != CVLoadReport::Outcome::Loaded)
        return failToChange(errors, BudgetToChangeText::tr("%1 could not be read: %2")
                                        .arg(quotedPath(path), report.reason.isEmpty()
                                                                   ? BudgetToChangeText::tr("it holds no budget")
                                                                   : report.reason));
    remarkOnChange(errors, report.reason);
    return true;
}

bool CVBudgetToChange::lock(const QString& path, QTextStream& errors) {
    CVBudgetLock lock(path);
    lock.removeLeftovers();
    const CVBudgetLock::Attempt attempt = lock.take();
    if (attempt.outcome == LockOutcome::Held || attempt.outcome == LockOutcome::Doubtful)
        return failToChange(errors, whoHasIt(attempt, path, lock.path()));
    mKeeper = std::make_unique<CVLockKeeper>(std::move(lock), attempt.outcome == LockOutcome::Taken);
    if (!isOwn(path))
        return true;
    // A program has the budget open even where it could make no lock beside the file.
    mRunning.emplace(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
    return mRunning->tryLock() != CVFileLock::Outcome::HeldByOther ||
           failToChange(errors,
                        BudgetToChangeText::tr("Corvella is running with your budget; nothing is written until it is "
                                               "closed"));
}

bool CVBudgetToChange::isOwn(const QString& path) const {
    const QStringList own = CVOwnDataFiles(mFolders, mUserDefaults);
    return std::any_of(own.begin(), own.end(), [&path](const QString& file) { return CVIsSameFile(file, path); });
}

bool CVBudgetToChange::waitUntilSaved(QTextStream& errors) {
    const CVSaveOutcome outcome = mFile.saves().waitForFinished();
    if (!outcome.saved)
        return failToChange(errors, CVStraightQuotes(outcome.message));
    remarkOnChange(errors, outcome.versionTrouble);
    remarkOnChange(errors, outcome.accessTrouble);
    if (!outcome.keptCopy.isEmpty())
        remarkOnChange(
            errors, BudgetToChangeText::tr("what stood there before is kept as %1").arg(quotedPath(outcome.keptCopy)));
    return true;
}
