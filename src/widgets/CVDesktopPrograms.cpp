#include "widgets/CVDesktopPrograms.h"

#include "widgets/CVAlerts.h"

#include <QDeadlineTimer>
#include <QDesktopServices>
#include <QPointer>
#include <QProcess>
#include <QStandardPaths>

#include <unistd.h>

#include <chrono>

namespace {

/// A failure after this time is not reported: the program has shown its window by then and reports its own errors.
constexpr std::chrono::seconds kSoon(30);

} // namespace

/// QDesktopServices also runs xdg-open, but does not look at its exit status.
void CVDesktopPrograms::openURL(const QUrl& address, QWidget* asker) {
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (opener.isEmpty()) {
        if (!QDesktopServices::openUrl(address))
            tellNotOpened(address, asker);
        return;
    }
    // The process has no parent and is not deleted while it runs: deleting it would kill a browser that xdg-open waits
    // for.
    auto* const process = new QProcess;
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->setChildProcessModifier([] { ::setsid(); });
    const QDeadlineTimer soon(kSoon);
    connect(process, &QProcess::finished, this,
            [this, address, asker = QPointer(asker), soon](int code, QProcess::ExitStatus status) {
                if ((code != 0 || status != QProcess::NormalExit) && !soon.hasExpired())
                    tellNotOpened(address, asker);
            });
    connect(process, &QProcess::finished, process, &QObject::deleteLater);
    process->start(opener, {address.toString(QUrl::FullyEncoded)});
    if (process->waitForStarted())
        return;
    delete process;
    tellNotOpened(address, asker);
}

/// The alert shows the address, so that the user can open it in another way; of a mail address only the recipient is
/// shown.
void CVDesktopPrograms::tellNotOpened(const QUrl& address, QWidget* asker) {
    const bool isMail = address.scheme() == QLatin1String("mailto");
    mAlerts.run(asker, {tr("No program could be opened for this address"),
                        tr("Please open it yourself, in a web browser or a mail program:\n\n%1")
                            .arg(isMail ? address.path() : address.toDisplayString()),
                        tr("OK")});
}
