#include "app/CVStartMessages.h"

#include <QCoreApplication>
#include <QDir>

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

} // namespace CVStartMessages
