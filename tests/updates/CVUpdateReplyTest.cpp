#include "updates/CVUpdateReply.h"

#include "kit/Printers.h"
#include "kit/UpdateServer.h"

#include <gtest/gtest.h>

namespace {

/// The version of the chosen entry; null when none is chosen.
QString chosen(const QByteArray& reply, const QString& version) {
    const auto entry = CVChooseUpdateEntry(reply, version);
    return entry ? entry->value("Version").toString() : QString();
}

TEST(CVUpdateReply, ABetaBuildTakesTheBetaAndOthersTheRelease) {
    const QByteArray reply = updateReply("1.1", "1.2b1");
    EXPECT_EQ(chosen(reply, "1.0"), "1.1");
    EXPECT_EQ(chosen(reply, "1.1b2"), "1.2b1");
}

TEST(CVUpdateReply, ABetaBuildTakesTheReleaseWhereThereIsNoBeta) {
    EXPECT_EQ(chosen(updateReply("1.1"), "1.2b3"), "1.1");
}

TEST(CVUpdateReply, AReleaseNeverTakesTheBeta) {
    EXPECT_EQ(chosen(updateReply({}, "1.2b1"), "1.0"), QString());
}

TEST(CVUpdateReply, ABinaryListIsReadToo) {
    // {Release: {Version: 1.1}, Beta: {Version: 1.2b1}}, each with a Download.
    const QByteArray reply = QByteArray::fromHex(
        "62706c6973743030d20102030854426574615752656c65617365d20405060758446f776e6c6f61645756657273696f6e"
        "5f101368747470733a2f2f782e6578616d706c652f6255312e326231d20405090a5f101268747470733a2f2f782e6578"
        "616d706c652f53312e31080d121a1f2830464c51660000000000000101000000000000000b0000000000000000000000"
        "000000006a");
    EXPECT_EQ(chosen(reply, "1.0"), "1.1");
    EXPECT_EQ(chosen(reply, "1.0b2"), "1.2b1");
}

TEST(CVUpdateReply, ATextWithANULRefusesTheReply) {
    // {Release: {Version: "1\0"}}, the version in UTF-16.
    const QByteArray reply = QByteArray::fromHex(
        "62706c6973743030d101025752656c65617365d103045756657273696f6e6200310000080b13161e0000000000000101"
        "000000000000000500000000000000000000000000000023");
    EXPECT_FALSE(CVChooseUpdateEntry(reply, "1.0").has_value());
    EXPECT_EQ(chosen(QByteArray(reply).replace(QByteArray("1\0\0", 3), QByteArray("1\0.", 3)), "1.0"), "1.");
}

TEST(CVUpdateReply, WhatIsNoReplyHasNoEntry) {
    for (const char* const bytes :
         {"", "garbage", "<!DOCTYPE html><html><body>Sign in</body></html>",
          "<plist version=\"1.0\"><string>Release</string></plist>",
          "<plist version=\"1.0\"><dict><key>Release</key><string>1.1</string></dict></plist>",
          "<plist version=\"1.0\"><dict><key>Relea", "bplist00"})
        EXPECT_FALSE(CVChooseUpdateEntry(bytes, "1.0").has_value()) << bytes;
}

TEST(CVUpdateReply, OnlyWebPagesAreDownloadPages) {
    struct Row {
        const char* address;
        bool isPage;
    };
    for (const auto& [address, isPage] :
         {Row{"https://www.quenbylabs.example/download?a=1", true}, Row{"http://www.quenbylabs.example/", true},
          Row{"HTTPS://www.quenbylabs.example/", true}, Row{"file:///usr/bin/true", false}, Row{"/usr/bin/true", false},
          Row{"javascript:alert(1)", false}, Row{"ftp://www.quenbylabs.example/x", false}, Row{"https:", false},
          Row{"smb://server/share", false}, Row{"", false}, Row{"https://a b", false}})
        EXPECT_EQ(CVDownloadAddressOfEntry({{"Download", address}}).has_value(), isPage) << address;
    EXPECT_FALSE(CVDownloadAddressOfEntry({}).has_value());
    EXPECT_FALSE(CVDownloadAddressOfEntry({{"Download", QVariantList{1}}}).has_value());
}

} // namespace
