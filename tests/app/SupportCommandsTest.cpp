#include "ShellFixture.h"
#include "app/CVSupportMail.h"
#include "base/CVBundle.h"
#include "base/CVSite.h"

#include <QSysInfo>
#include <QUrlQuery>

namespace {

TEST(CVSupportMail, AVersionWordIsReadAsDecimalDigits) {
    struct Row {
        CVSystemIdentity system;
        const char* text;
    };
    const Row rows[] = {
        {{0x1049, 10, {}}, "10.4.9 (Intel)"},
        {{0x1058, 2, {}}, "10.5.8 (PowerPC)"},
        {{0x1058, 3, {}}, "10.5.8"},
        {{0x1058, std::nullopt, {}}, "10.5.8"},
        {{std::nullopt, 10, {}}, " (Intel)"},
        {{std::nullopt, std::nullopt, {}}, ""},
        {{std::nullopt, std::nullopt, "Linux 6.1 (x86_64)"}, "Linux 6.1 (x86_64)"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(CVTextOfSystem(row.system), row.text);
}

TEST(CVSupportMail, TheMailHasItsLinesToTheLetter) {
    const QUrl address = CVMakeSupportMailAddress({0x1049, 10, {}});
    EXPECT_EQ(address.scheme(), "mailto");
    EXPECT_EQ(address.path(), CVSite::supportMail());
    const QString version = QString::fromLatin1(CVBundle::version().data());
    EXPECT_EQ(QUrlQuery(address).queryItemValue("body", QUrl::FullyDecoded),
              "\nCorvella version: " + version +
                  "\nMac OS X version: 10.4.9 (Intel)\nMy Name: Your name goes here\n\nNOTE TO USERS: Please enter a "
                  "subject line.  Add your comments regarding the Corvella application below this line.  Thank "
                  "you.\n\n");
    const QByteArray encoded = address.toEncoded();
    EXPECT_TRUE(encoded.startsWith("mailto:" + CVSite::supportMail().toLatin1() + "?body=%0ACorvella%20version"))
        << encoded.toStdString();
    EXPECT_FALSE(encoded.contains(' ') || encoded.contains('\n'));
}

TEST(CVSupportMail, TheSystemIsNamedAsItIs) {
    const QString text = CVTextOfSystem(CVSystemIdentity::ofThisMachine());
    EXPECT_TRUE(text.startsWith("Linux ")) << text.toStdString();
    EXPECT_TRUE(text.endsWith('(' + QSysInfo::currentCpuArchitecture() + ')')) << text.toStdString();
}

class SupportCommands : public ShellFixture {};

TEST_F(SupportCommands, EachOpensItsAddressForTheMainWindow) {
    start();
    choose("Contact Support");
    choose("Web Site");
    choose("Support Forums");
    EXPECT_EQ(mURLs.opened(), (QList<QUrl>{CVMakeSupportMailAddress(CVSystemIdentity::ofThisMachine()),
                                           QUrl(CVSite::webSite()), QUrl(CVSite::supportForums())}));
    EXPECT_EQ(mURLs.askers(), QStringList(3, "Corvella Main Window"));
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

} // namespace
