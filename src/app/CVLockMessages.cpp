#include "app/CVLockMessages.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

namespace CVLockMessages {

namespace {

struct LockMessagesText {
    Q_DECLARE_TR_FUNCTIONS(CVLockMessages)
};

QString shownTime(const QTime& time) {
    return QLocale().toString(time, QStringLiteral("H:mm:ss"));
}

/// A sign of life of another day needs its date.
QString shownMoment(const QDateTime& moment) {
    return moment.date() == QDate::currentDate() ? shownTime(moment.time())
                                                 : QLocale().toString(moment, QLocale::ShortFormat);
}

bool isOnThisComputer(const CVLockHolder& holder) {
    return holder.isOnHostOf(CVLockHolder::ofThisProcess());
}

QString whoHasIt(const CVBudgetLock::Attempt& attempt, const QString& file) {
    const CVLockHolder& holder = *attempt.holder;
    if (isOnThisComputer(holder))
        return LockMessagesText::tr("%1 has “%2” open in another Corvella on this computer (process %3).")
            .arg(holder.user, file, QString::number(holder.process));
    return LockMessagesText::tr("%1 has “%2” open on “%3”, with the last sign of life at %4.")
               .arg(holder.user, file, holder.host, shownMoment(attempt.lastSign)) +
           u' ' +
           LockMessagesText::tr("If that computer was switched off, the budget is free five minutes after its last "
                                "sign of life.");
}

QString whoMayHaveIt(const CVBudgetLock::Attempt& attempt, const QString& file, const QString& folder) {
    if (attempt.holder)
        return LockMessagesText::tr(
                   "%1 has had “%2” open on “%3”. Corvella cannot tell whether that is still so from the "
                   "times in the folder “%4”.")
            .arg(attempt.holder->user, file, attempt.holder->host, folder);
    return LockMessagesText::tr("In the folder “%1” lies a lock of “%2” that Corvella cannot read.").arg(folder, file);
}

QString whatToDo(Asked asked) {
    switch (asked) {
    case Asked::ForReplacing:
        return LockMessagesText::tr("Your budget is not moved there, so that nothing is lost. Close that one first.");
    case Asked::ToEdit:
        return LockMessagesText::tr("You can go on looking at it, searching, printing and exporting.");
    case Asked::AtStart:
    case Asked::ForOtherFile:
        break;
    }
    return LockMessagesText::tr("Read-only you can look at it, search, print and export, but change nothing.");
}

} // namespace

CVAlert held(const CVBudgetLock::Attempt& attempt, const QString& dataFile, Asked asked,
             std::optional<QTime> triedAgain) {
    const QFileInfo file(dataFile);
    const bool isHeld = attempt.outcome == CVBudgetLock::Outcome::Held && attempt.holder;
    const QString who = isHeld ? whoHasIt(attempt, file.fileName())
                               : whoMayHaveIt(attempt, file.fileName(), QDir::toNativeSeparators(file.path()));
    const QString attempted =
        triedAgain ? LockMessagesText::tr("Corvella tried again at %1.").arg(shownTime(*triedAgain)) + u' ' : QString();
    const QString again = LockMessagesText::tr("Try Again");
    const QString leave = asked == Asked::AtStart ? LockMessagesText::tr("Quit") : LockMessagesText::tr("Cancel");
    CVAlert alert{isHeld ? LockMessagesText::tr("The budget is open elsewhere")
                         : LockMessagesText::tr("The budget may be open elsewhere"),
                  attempted + who + QStringLiteral("\n\n") + whatToDo(asked), again, leave};
    if (offersReadOnly(asked)) {
        alert.defaultButton = LockMessagesText::tr("Open Read-Only");
        alert.otherButton = again;
    }
    if (!isHeld)
        alert.furtherButton = asked == Asked::ForReplacing ? LockMessagesText::tr("Replace Anyway…")
                                                           : LockMessagesText::tr("Open Anyway…");
    alert.style = CVAlert::Style::Information;
    return alert;
}

bool offersReadOnly(Asked asked) {
    return asked == Asked::AtStart || asked == Asked::ForOtherFile;
}

CVAlert overridden(Asked asked) {
    return {LockMessagesText::tr("Are you sure that the budget is open nowhere else?"),
            LockMessagesText::tr(
                "If another Corvella has it open, both change the same file. Nothing of either is thrown away, but you "
                "may have to bring both together line by line."),
            asked == Asked::ForReplacing ? LockMessagesText::tr("Replace Anyway") : LockMessagesText::tr("Open Anyway"),
            LockMessagesText::tr("Cancel")};
}

QString readOnly(const std::optional<CVLockHolder>& holder, std::optional<QTime> triedAgain) {
    QString text;
    if (!holder)
        text = LockMessagesText::tr("Read-only: this budget may be open in another Corvella.");
    else if (isOnThisComputer(*holder))
        text = LockMessagesText::tr("Read-only: %1 has this budget open in another Corvella on this computer.")
                   .arg(holder->user);
    else
        text = LockMessagesText::tr("Read-only: %1 has this budget open on “%2”.").arg(holder->user, holder->host);
    return triedAgain ? text + u' ' + LockMessagesText::tr("Still so at %1.").arg(shownTime(*triedAgain)) : text;
}

QString lost(const CVLockHolder& holder) {
    return isOnThisComputer(holder)
               ? LockMessagesText::tr("%1 has opened this budget in another Corvella on this computer too.")
                     .arg(holder.user)
               : LockMessagesText::tr("%1 has opened this budget on “%2” too.").arg(holder.user, holder.host);
}

} // namespace CVLockMessages
