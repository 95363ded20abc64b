#include "app/CVStartMessages.h"

#include <QCoreApplication>
#include <QDir>

namespace CVStartMessages {

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("CVStartMessages", text);
}

} // namespace

CVAlert otherIsSilent() {
    return {tr("Corvella is running already and does not answer"),
            tr("Your data file is not opened a second time, so that nothing is lost. The other Corvella may be busy or "
               "just ending: wait a moment and try again. If it hangs, end it first."),
            tr("Try Again"), tr("Quit")};
}

CVAlert notOpened(const QString& argument, const QString& dataFile) {
    const QString own =
        dataFile.isEmpty() ? QString() : tr("Your data file is “%1”. ").arg(QDir::toNativeSeparators(dataFile));
    CVAlert alert{
        tr("Corvella opens your own data file only"),
        tr("“%1” is not opened. %2To use a budget in another place, start Corvella without a file and change the "
           "location of your data file in its preferences.")
            .arg(argument, own),
        tr("OK")};
    alert.style = CVAlert::Style::Information;
    return alert;
}

} // namespace CVStartMessages
