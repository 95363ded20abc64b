#include "app/CVFileMessages.h"

#include "format/QBLocale.h"
#include "storage/CVDocumentFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

namespace CVFileMessages {

namespace {

struct FileMessagesText {
    Q_DECLARE_TR_FUNCTIONS(CVFileMessages)
};

QString shown(const QString& path) {
    return QDir::toNativeSeparators(path);
}

/// The text in which paths of files in that folder are shortened to their names.
QString withoutFolder(QString text, const QString& folder) {
    return text.remove(shown(folder) + QDir::separator());
}

/// Where the file that could not be read is now.
QString whereabouts(const CVLoadReport& report, const CVSaveOutcome& outcome, const QString& folder) {
    if (report.isReadOnly)
        return FileMessagesText::tr("It is untouched and stays so: what is open read-only is not saved.");
    if (!outcome.keptCopy.isEmpty())
        return FileMessagesText::tr("Every byte of the old file is kept in “%1”.")
            .arg(withoutFolder(shown(outcome.keptCopy), folder));
    if (!outcome.saved)
        return withoutFolder(outcome.message, folder) + u' ' + FileMessagesText::tr("The old file is untouched.");
    return FileMessagesText::tr(
        "It is untouched; before Corvella saves for the first time, it keeps it beside the new file, with "
        "“(unreadable …)” in its name.");
}

/// What failed, and what that means for the file; `fullDisk` replaces the reason when only the disk is full.
QString failure(const CVSaveOutcome& outcome, const QString& fullDisk) {
    QString text = outcome.diskIsFull ? fullDisk : outcome.message;
    if (!outcome.awaitsReadable && outcome.isThere)
        text += u' ' + FileMessagesText::tr("Your last saved file is whole.");
    if (outcome.canMakeRoom)
        text += u' ' + FileMessagesText::tr("Deleting earlier versions makes room.");
    return text;
}

/// The alert at the end has no button left that leads there.
QString whereToMakeRoom(const CVSaveOutcome& outcome) {
    return outcome.canMakeRoom
               ? FileMessagesText::tr("To do that, choose Cancel, then Delete Earlier Versions… in the window.") + u' '
               : QString();
}

} // namespace

CVAlert unreadable(const CVLoadReport& report, const CVSaveOutcome& outcome) {
    const QFileInfo file(report.path);
    return {FileMessagesText::tr("Your budget could not be read"),
            FileMessagesText::tr(
                "Corvella has started with an empty budget, because “%1” could not be read: %2.\n\n%3\n\nThe folder is "
                "“%4”.")
                .arg(file.fileName(), report.reason, whereabouts(report, outcome, file.path()), shown(file.path())),
            FileMessagesText::tr("OK"),
            {},
            {}};
}

CVAlert partlyRead(const CVLoadReport& report) {
    const QFileInfo file(report.path);
    const qint64 count = report.partly.count;
    const QString what =
        count == 1 ? FileMessagesText::tr("1 place in “%1” was not understood, or only in part:").arg(file.fileName())
                   : FileMessagesText::tr("%2 places in “%1” were not understood, or only in part:", nullptr,
                                          static_cast<int>(count))
                         .arg(file.fileName(), QBLocaleInForce().toString(count));
    QStringList lines = report.partly.lines;
    if (count > lines.size())
        lines.append(FileMessagesText::tr("… and %1 more").arg(QBLocaleInForce().toString(count - lines.size())));
    const QString next =
        report.isReadOnly
            ? FileMessagesText::tr("Everything else has been read. The file stays as it is: what is open read-only is "
                                   "not saved.")
            : FileMessagesText::tr("Everything else has been read. The next save leaves out what was not understood. "
                                   "Before it, Corvella keeps the file as it is beside the new one, with “(as it was "
                                   "read …)” in its name.");
    return {
        FileMessagesText::tr("Your data file was read only in part"),
        QStringList{what, lines.join(u'\n'), next, FileMessagesText::tr("The folder is “%1”.").arg(shown(file.path()))}
            .join(QStringLiteral("\n\n")),
        FileMessagesText::tr("OK"),
        {},
        {}};
}

CVAlert keptCopy(const CVSaveOutcome& outcome) {
    QString title;
    QString message;
    switch (outcome.keptReason) {
    case CVKeptReason::Unreadable:
        title = FileMessagesText::tr("The file that could not be read was kept");
        message = FileMessagesText::tr("It stood where your budget is saved. Every byte of it is kept in “%1”.");
        break;
    case CVKeptReason::ChangedOutside:
        title = FileMessagesText::tr("What was changed outside Corvella was kept");
        message = FileMessagesText::tr(
            "Another program or computer had written the file in which your budget is saved. What it wrote is kept "
            "whole in “%1”. File > Earlier Versions… lists it.");
        break;
    case CVKeptReason::AsItWasRead:
        title = FileMessagesText::tr("Your data file was kept as it was read");
        message = FileMessagesText::tr("Corvella could read some of its values only in part. The file as it was is "
                                       "kept whole in “%1”. File > Earlier Versions… lists it.");
        break;
    case CVKeptReason::ReplacedWhenMoved:
        title = FileMessagesText::tr("The file that you replaced was kept");
        message = FileMessagesText::tr(
            "It stood at the new place of your budget and is kept whole in “%1”. File > Earlier Versions… lists it.");
        break;
    }
    CVAlert alert{title, message.arg(shown(outcome.keptCopy)), FileMessagesText::tr("OK")};
    if (outcome.keptReason == CVKeptReason::ReplacedWhenMoved)
        alert.style = CVAlert::Style::Information;
    return alert;
}

QString keptAsRead(const CVSaveOutcome& outcome) {
    return FileMessagesText::tr("Your file is kept as it was read in “%1”.")
        .arg(QFileInfo(outcome.keptCopy).fileName());
}

QString openToOthers() {
    return FileMessagesText::tr(
        "Others who can use this disk can read your data file: the disk keeps no access rights.");
}

QString notSaved(const CVSaveOutcome& outcome) {
    // The window shows the text after "Not saved: ".
    return failure(outcome, FileMessagesText::tr("the disk is full."));
}

CVAlert quitUnsaved(const CVSaveOutcome& outcome, std::optional<QTime> triedAgain) {
    const QString attempt = triedAgain ? FileMessagesText::tr("Corvella tried again at %1, which failed too. ")
                                             .arg(QLocale().toString(*triedAgain, QStringLiteral("H:mm:ss")))
                                       : QString();
    return {FileMessagesText::tr("Your last changes are not saved"),
            attempt + failure(outcome, FileMessagesText::tr("The disk is full.")) + u' ' + whereToMakeRoom(outcome) +
                FileMessagesText::tr("If you quit now, what you changed since the last save is lost."),
            FileMessagesText::tr("Try Again"), FileMessagesText::tr("Cancel"),
            FileMessagesText::tr("Quit Without Saving")};
}

CVAlert stillSaving() {
    return {
        FileMessagesText::tr("Your last changes are still being saved"),
        FileMessagesText::tr("The disk with your data file does not answer. If you quit now, what you changed since "
                             "the last save may be lost."),
        FileMessagesText::tr("Keep Waiting"), FileMessagesText::tr("Cancel"),
        FileMessagesText::tr("Quit Without Saving")};
}

} // namespace CVFileMessages
