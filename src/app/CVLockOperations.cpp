#include "app/CVLockOperations.h"

#include "app/CVAppDelegate.h"
#include "lock/CVLockKeeper.h"
#include "storage/CVDocumentFile.h"
#include "widgets/CVLeadToWaitingWindow.h"
#include "workspace/CVMainWindowController.h"
#include "workspace/controls/CVSaveStatus.h"

#include <QDir>
#include <QMainWindow>

#include <utility>

namespace {

using LockOutcome = CVBudgetLock::Outcome;

bool isOthers(const CVBudgetLock::Attempt& attempt) {
    return attempt.outcome == LockOutcome::Held || attempt.outcome == LockOutcome::Doubtful;
}

} // namespace

CVLockOperations::CVLockOperations(CVAppDelegate& app, CVDocumentFile& file, CVAlerts& alerts)
    : mApp(app)
    , mFile(file)
    , mAlerts(alerts) {}

CVLockOperations::~CVLockOperations() = default;

bool CVLockOperations::claim(const QString& path, Asked asked, QWidget* asker) {
    abandon();
    if (path.isEmpty())
        return true;
    CVBudgetLock lock(path);
    // This program's own lock would pass for that of another one.
    if (mPresent.keeper && mPresent.path == lock.path())
        return true;
    lock.removeLeftovers();
    CVBudgetLock::Attempt attempt = lock.take();
    if (isOthers(attempt) && !ask(lock, attempt, path, asked, asker))
        return false;
    prepare(std::move(lock), attempt, path);
    return true;
}

void CVLockOperations::prepare(CVBudgetLock lock, const CVBudgetLock::Attempt& attempt, const QString& dataFile) {
    mNext = Claim{lock.path(), dataFile, nullptr, attempt.holder};
    if (isOthers(attempt))
        return;
    const bool isTaken = attempt.outcome == LockOutcome::Taken;
    mNext->keeper = std::make_unique<CVLockKeeper>(std::move(lock), isTaken);
    connect(mNext->keeper.get(), &CVLockKeeper::lost, this, &CVLockOperations::tellLoss);
}

/// Asks until the lock is taken or the user decides. False when the user leaves the file alone.
bool CVLockOperations::ask(CVBudgetLock& lock, CVBudgetLock::Attempt& attempt, const QString& dataFile, Asked asked,
                           QWidget* asker) {
    std::optional<QTime> triedAgain;
    while (isOthers(attempt)) {
        switch (mAlerts.run(asker, CVLockMessages::held(attempt, dataFile, asked, triedAgain))) {
        case CVAlert::kDefault:
            if (CVLockMessages::offersReadOnly(asked))
                return true;
            [[fallthrough]];
        case CVAlert::kOther:
            triedAgain = QTime::currentTime();
            attempt = lock.take();
            break;
        case CVAlert::kFurther:
            if (mAlerts.run(asker, CVLockMessages::overridden(asked)) == CVAlert::kDefault)
                attempt = lock.take(CVBudgetLock::Doubt::Overridden);
            break;
        case CVAlert::kAlternate:
            return false;
        }
    }
    return true;
}

void CVLockOperations::beginReading() {
    if (mNext)
        mFile.setReadOnly(mNext->isReadOnly());
}

void CVLockOperations::adopt() {
    if (!mNext)
        return;
    mPresent = std::move(*mNext);
    mNext.reset();
    mFile.setReadOnly(mPresent.isReadOnly());
}

void CVLockOperations::abandon() {
    mNext.reset();
    mFile.setReadOnly(mPresent.isReadOnly());
}

void CVLockOperations::settle() {
    if (mNext && mNext->path == CVBudgetLock(mFile.dataFiles().value(0)).path())
        adopt();
    else
        abandon();
}

void CVLockOperations::showIn(CVMainWindowController& window) {
    // The window is replaced when the budget can be changed.
    connect(&window, &CVMainWindowController::editingRequested, this, &CVLockOperations::tryToEdit,
            Qt::QueuedConnection);
    const Claim& claim = mNext ? *mNext : mPresent;
    if (claim.isReadOnly())
        window.showReadOnly(CVLockMessages::readOnly(claim.holder, {}));
}

void CVLockOperations::saveFinished() const {
    if (mPresent.keeper)
        mPresent.keeper->giveSignNow();
}

void CVLockOperations::tellLoss(const CVLockHolder& holder) {
    if (mApp.mainWindow())
        mApp.mainWindow()->saveStatus().remark(CVLockMessages::lost(holder));
}

void CVLockOperations::tryToEdit() {
    if (!mPresent.isReadOnly() || CVLeadToWaitingWindow())
        return;
    CVBudgetLock lock(mPresent.dataFile);
    CVBudgetLock::Attempt attempt = lock.take();
    QWidget* const window = mApp.mainWindow()->window();
    if (attempt.outcome == LockOutcome::Held ||
        (attempt.outcome == LockOutcome::Doubtful && !ask(lock, attempt, mPresent.dataFile, Asked::ToEdit, window))) {
        mPresent.holder = attempt.holder;
        mApp.mainWindow()->showReadOnly(CVLockMessages::readOnly(attempt.holder, QTime::currentTime()));
        return;
    }
    prepare(std::move(lock), attempt, mPresent.dataFile);
    const bool showsAllSets = mApp.mainWindow()->showsAllSets();
    const auto failure = mApp.reopenDocument();
    if (!failure) {
        if (showsAllSets)
            mApp.mainWindow()->showAllSets();
        adopt();
        mApp.mainWindow()->saveStatus().remark(tr("The budget was read again and can be changed now."));
        return;
    }
    abandon();
    if (!failure->isEmpty())
        mAlerts.run(mApp.mainWindow()->window(),
                    {tr("The budget could not be read again"),
                     tr("“%1” could not be read: %2.\n\nWhat the window shows stays as it is.")
                         .arg(QDir::toNativeSeparators(mPresent.dataFile), *failure),
                     tr("OK")});
}
