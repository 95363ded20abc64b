#include "app/CVFileMessages.h"

#include "storage/CVDocumentFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace CVFileMessages {

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("CVFileMessages", text);
}

QString shown(const QString& path) {
    return QDir::toNativeSeparators(path);
}

/// What has become of the file that could not be read.
QString whereabouts(const CVSaveOutcome& outcome) {
    if (!outcome.keptCopy.isEmpty())
        return tr("Every byte of the old file is kept in \"%1\".").arg(shown(outcome.keptCopy));
    if (!outcome.saved)
        return outcome.message + u' ' + tr("The old file is untouched.");
    return tr("It is untouched; before Corvella saves for the first time, it keeps it beside the new file, with "
              "\"(unreadable ...)\" in its name.");
}

} // namespace

CVAlert unreadable(const CVLoadReport& report, const CVSaveOutcome& outcome) {
    return {tr("Your budget could not be read"),
            tr("Corvella has started with an empty budget, because \"%1\" could not be read: %2.\n\n%3")
                .arg(shown(report.path), report.reason, whereabouts(outcome)),
            tr("OK"),
            {},
            {}};
}

CVAlert keptCopy(const CVSaveOutcome& outcome) {
    return {tr("What stood in the place of your file was kept"),
            tr("Something that Corvella had not read, or not as a whole, stood where your budget is saved. It is kept "
               "in \"%1\".")
                .arg(shown(outcome.keptCopy)),
            tr("OK"),
            {},
            {}};
}

QString notSaved(const CVSaveOutcome& outcome) {
    return QFileInfo::exists(outcome.path) ? outcome.message + u' ' + tr("Your last saved file is whole.")
                                           : outcome.message;
}

CVAlert quitUnsaved(const CVSaveOutcome& outcome) {
    return {tr("Your last changes are not saved"),
            notSaved(outcome) + u' ' + tr("If you quit now, what you changed since the last save is lost."),
            tr("Try Again"), tr("Cancel"), tr("Quit Without Saving")};
}

} // namespace CVFileMessages
