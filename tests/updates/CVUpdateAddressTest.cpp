#include "updates/CVUpdateAddress.h"

#include "kit/Printers.h"
#include "updates/QBUpdateInfo.h"

#include <QUrlQuery>

#include <gtest/gtest.h>

namespace {

const CVUpdateService kService{"https://updates.quenbylabs.example/check", "com.quenbylabs.corvella", "1.2b3"};

TEST(CVUpdateAddress, TheFirstParameterHasAQuestionMarkAndTheOthersAnAmpersand) {
    QString address = "https://x.example/";
    url_appendValue(address, "a value&more=ü", "first", QBURLParam::First);
    url_appendValue(address, "2/3?", "second", QBURLParam::Further);
    EXPECT_EQ(address, "https://x.example/?first=a%20value%26more%3D%C3%BC&second=2%2F3%3F");
}

TEST(CVUpdateAddress, SaysWhoAsksAndNoMore) {
    const QUrl address = CVMakeUpdateAddress(kService, CVSystemInfo::Omitted);
    const QUrlQuery query(address);
    QStringList names;
    for (const auto& [name, value] : query.queryItems())
        names.append(name);
    EXPECT_EQ(names.join(' '), "app vers sys");
    EXPECT_EQ(query.queryItemValue("app"), "com.quenbylabs.corvella");
    EXPECT_EQ(query.queryItemValue("vers"), "1.2b3");
    EXPECT_EQ(query.queryItemValue("sys", QUrl::FullyDecoded), QBSystemVersionForUpdate());
    EXPECT_EQ(address.adjusted(QUrl::RemoveQuery).toString(), kService.address);
}

TEST(CVUpdateAddress, TheSystemInformationIsWhatIsDisplayed) {
    const QUrlQuery query(CVMakeUpdateAddress(kService, CVSystemInfo::Included));
    QMap<QString, QString> sent;
    for (const auto& [name, value] : query.queryItems(QUrl::FullyDecoded))
        sent.insert(name, value);
    for (const char* const name : {"app", "vers", "sys"})
        EXPECT_EQ(sent.remove(name), 1) << name;
    EXPECT_EQ(sent, QBGatherUpdateInfoInDictionary());
    EXPECT_FALSE(sent.isEmpty());
}

TEST(QBUpdateInfo, TheSystemIsNamedWithoutTheBuildOfItsKernel) {
    EXPECT_TRUE(QBSystemVersionForUpdate().startsWith("Linux ")) << QBSystemVersionForUpdate().toStdString();
    EXPECT_EQ(QBSystemVersionForUpdate().count('.'), 1);
}

} // namespace
