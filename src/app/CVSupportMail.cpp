#include "app/CVSupportMail.h"

#include "base/CVBundle.h"
#include "base/CVSite.h"
#include "updates/QBUpdateInfo.h"

#include <QCoreApplication>
#include <QSysInfo>

#include <algorithm>
#include <array>

namespace {

constexpr int kHexadecimal = 16;

struct Processor {
    quint32 architecture;
    const char* text;
};

constexpr std::array<Processor, 2> kProcessors{{{10, " (Intel)"}, {2, " (PowerPC)"}}};

QString processorText(std::optional<quint32> architecture) {
    const auto* const found = std::find_if(kProcessors.begin(), kProcessors.end(), [architecture](const Processor& p) {
        return architecture == p.architecture;
    });
    return found == kProcessors.end() ? QString() : QString::fromLatin1(found->text);
}

/// Splits the four digits of the word: the first two, the third and the fourth. Every version word has four.
QString versionText(quint32 word) {
    const QString digits = QString::number(word, kHexadecimal);
    return QStringLiteral("%1.%2.%3").arg(digits.left(2), digits.mid(2, 1), digits.mid(3, 1));
}

} // namespace

CVSystemIdentity CVSystemIdentity::ofThisMachine() {
    CVSystemIdentity system;
    system.words = QBSystemVersionForUpdate() + QLatin1String(" (") + QSysInfo::currentCpuArchitecture() + ')';
    return system;
}

QString CVTextOfSystem(const CVSystemIdentity& system) {
    return (system.versionWord ? versionText(*system.versionWord) : system.words) + processorText(system.architecture);
}

QUrl CVMakeSupportMailAddress(const CVSystemIdentity& system) {
    const QString body =
        QCoreApplication::translate(
            "CVSupportMail", "\n%1 version: %2\nMac OS X version: %3\nMy Name: %4\n\nNOTE TO USERS: Please enter a "
                             "subject line.  Add your comments regarding the %1 application below this line.  Thank "
                             "you.\n\n")
            .arg(QString::fromLatin1(CVBundle::kName), CVBundle::versionText(), CVTextOfSystem(system),
                 QCoreApplication::translate("CVSupportMail", "Your name goes here"));
    return QUrl("mailto:" + CVSite::supportMail() + "?body=" + QString::fromLatin1(QUrl::toPercentEncoding(body)),
                QUrl::StrictMode);
}
