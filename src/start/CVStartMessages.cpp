#include "start/CVStartMessages.h"

#include "start/CVMissingPlace.h"
#include "storage/CVDocumentFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace CVStartMessages {

namespace {

struct StartMessagesText {
    Q_DECLARE_TR_FUNCTIONS(CVStartMessages)
};

QString quoted(QStringList files) {
    for (QString& file : files)
        file = StartMessagesText::tr("“%1”").arg(file);
    return files.join(QStringLiteral(", "));
}

} // namespace

QString waitingForOther() {
    return StartMessagesText::tr(
        "Waiting for the Corvella that is running already. Cancel leaves it alone and opens no second one.");
}

QString waitingForPlace(const QString& path) {
    return StartMessagesText::tr(
               "Waiting for the disk or share of your data file:\n%1\nCancel ends Corvella and changes nothing.")
        .arg(QDir::toNativeSeparators(path));
}

CVAlert otherIsSilent() {
    return {
        StartMessagesText::tr("Corvella is running already and does not answer"),
        StartMessagesText::tr(
            "Your data file is not opened a second time, so that nothing is lost. The other Corvella may be busy or "
            "just ending: wait a moment and try again. If it hangs, end it first."),
        StartMessagesText::tr("Try Again"), StartMessagesText::tr("Quit")};
}

CVAlert notOpened(const QStringList& files, const QString& dataFile) {
    const QString own = dataFile.isEmpty()
                            ? QString()
                            : StartMessagesText::tr("Your data file is “%1”. ").arg(QDir::toNativeSeparators(dataFile));
    CVAlert alert{
        StartMessagesText::tr("Corvella opens your own data file only"),
        (files.size() == 1 ? StartMessagesText::tr("%1 is not opened.") : StartMessagesText::tr("%1 are not opened."))
                .arg(quoted(files)) +
            u' ' + own +
            StartMessagesText::tr(
                "To use a budget in another place, start Corvella without a file and change the location of your data "
                "file in its preferences."),
        StartMessagesText::tr("OK")};
    alert.style = CVAlert::Style::Information;
    return alert;
}

CVAlert missingPlace(const CVMissingPlace& place) {
    const QString what = StartMessagesText::tr("Corvella keeps your budget in “%1”, but nothing is there. If that is a "
                                               "memory stick or a network share, connect it and choose Try Again.")
                             .arg(QDir::toNativeSeparators(place.missing));
    const QString instead =
        place.other ? StartMessagesText::tr("The other one, “%1”, may be an older state of your budget. If you open "
                                            "it, Corvella uses it from now on.")
                          .arg(QDir::toNativeSeparators(*place.other))
                    : StartMessagesText::tr(
                          "A new one begins empty. When the missing file is back, the preferences lead to it.");
    return {StartMessagesText::tr("Your data file is missing"), what + QStringLiteral("\n\n") + instead,
            StartMessagesText::tr("Try Again"), StartMessagesText::tr("Quit"),
            place.other ? StartMessagesText::tr("Open the Other One") : StartMessagesText::tr("Start a New One")};
}

CVAlert notRead(const CVLoadReport& report) {
    const QFileInfo file(report.path);
    const QString what =
        report.isReadOnly ? StartMessagesText::tr("“%1” could not be read: %2.\n\nIt is untouched and stays so: an "
                                                  "empty budget is read-only too.\n\nThe folder is “%3”.")
                          : StartMessagesText::tr(
                                "“%1” could not be read: %2.\n\nIt is untouched. If you open an empty budget, it "
                                "stays so until something is saved; then Corvella keeps it beside the new file, with "
                                "“(unreadable …)” in its name.\n\nThe folder is “%3”.");
    return {StartMessagesText::tr("Your budget could not be read"),
            what.arg(file.fileName(), report.reason, QDir::toNativeSeparators(file.path())),
            StartMessagesText::tr("Try Again"), StartMessagesText::tr("Quit"), StartMessagesText::tr("Open Empty")};
}

} // namespace CVStartMessages
