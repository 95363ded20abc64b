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

/// A program that fails later has shown itself before, and has something of its own to say.
constexpr std::chrono::seconds kSoon(30);

} // namespace

/// The toolkit, too, hands addresses to xdg-open, but does not look at what becomes of them.
void CVDesktopPrograms::openURL(const QUrl& address, QWidget* asker) {
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (opener.isEmpty()) {
        if (!QDesktopServices::openUrl(address))
            tellNotOpened(address, asker);
        return;
    }
    // Without a parent, and never deleted while it runs: that would end a browser that it waits for.
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

/// The address is shown, so that the user can go there otherwise; of a mail only to whom it goes.
void CVDesktopPrograms::tellNotOpened(const QUrl& address, QWidget* asker) {
    const bool isMail = address.scheme() == QLatin1String("mailto");
    mAlerts.run(asker, {tr("No program could be opened for this address"),
                        tr("Please open it yourself, in a web browser or a mail program:\n\n%1")
                            .arg(isMail ? address.path() : address.toDisplayString()),
                        tr("OK")});
}
