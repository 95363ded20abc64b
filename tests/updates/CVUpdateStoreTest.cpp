#include "updates/CVUpdateStore.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "kit/Printers.h"
#include "kit/ScratchHome.h"
#include "kit/UpdateServer.h"

#include <QSettings>

#include <gtest/gtest.h>

namespace {

class CVUpdateStoreTest : public testing::Test {
protected:
    /// The update store of a program of that version.
    [[nodiscard]] CVUpdateStore store(const QString& version = "1.0") { return {defaults(), version}; }
    [[nodiscard]] QBUserDefaults& defaults() { return mHome.userDefaults(); }
    [[nodiscard]] QVariantMap info() { return defaults().dictionaryForKey(CVDefaultsKeys::kUpdatedAppInfo); }

    const QDateTime mTime{QDate(2014, 3, 7), QTime(14, 5, 59), Qt::OffsetFromUTC, -5 * 3600};
    ScratchHome mHome;
};

TEST_F(CVUpdateStoreTest, ANewerVersionIsKeptWithTheVersionThatAsked) {
    EXPECT_TRUE(store().keepReply(updateReply("1.1"), mTime));
    EXPECT_EQ(info(), (QVariantMap{{"Version", "1.1"},
                                   {"Download", "https://www.quenbylabs.example/download"},
                                   {"AppCheckedVersion", "1.0"}}));
    EXPECT_EQ(defaults().stringForKey(CVDefaultsKeys::kLastCheckForUpdatesTime), "03/07/14 14:05 -0500");
    EXPECT_EQ(CVTimeOfLastUpdateCheck(defaults()), QDateTime(QDate(2014, 3, 7), QTime(19, 5), Qt::UTC));
    EXPECT_FALSE(store().lastCheckFailed());
    ASSERT_TRUE(store().currentOffer().has_value());
}

TEST_F(CVUpdateStoreTest, AnOfferOutlivesTheProgram) {
    store().keepReply(updateReply("1.1"), mTime);
    defaults().synchronize();
    QBUserDefaults next(mHome.settingsStore());
    const auto offer = CVUpdateStore(next, "1.0").currentOffer();
    ASSERT_TRUE(offer.has_value());
    EXPECT_EQ(offer->value("Version"), "1.1");
}

TEST_F(CVUpdateStoreTest, TheRunningVersionOffersNothingNewButCountsAsACheck) {
    EXPECT_TRUE(store().keepReply(updateReply("1.0"), mTime));
    EXPECT_FALSE(defaults().hasKey(CVDefaultsKeys::kUpdatedAppInfo));
    EXPECT_TRUE(defaults().hasKey(CVDefaultsKeys::kLastCheckForUpdatesTime));
    EXPECT_FALSE(store().lastCheckFailed());
}

TEST_F(CVUpdateStoreTest, TheRunningVersionLeavesAnEarlierOfferAsItWas) {
    store().keepReply(updateReply("1.1"), mTime);
    store().keepReply(updateReply("1.0"), mTime);
    EXPECT_EQ(info().value("Version"), "1.1");
}

TEST_F(CVUpdateStoreTest, AnyOtherVersionIsNewsAlsoAnOlderOne) {
    store().keepReply(updateReply("0.9"), mTime);
    EXPECT_EQ(info().value("Version"), "0.9");
}

TEST_F(CVUpdateStoreTest, AnEntryWithoutAVersionIsUsableAndOffersNothing) {
    EXPECT_TRUE(store().keepReply("<plist version=\"1.0\"><dict><key>Release</key><dict/></dict></plist>", mTime));
    EXPECT_FALSE(defaults().hasKey(CVDefaultsKeys::kUpdatedAppInfo));
    EXPECT_TRUE(defaults().hasKey(CVDefaultsKeys::kLastCheckForUpdatesTime));
}

TEST_F(CVUpdateStoreTest, AVersionThatIsNoTextOrNumberIsNone) {
    struct VersionRow {
        const char* version;
        /// Null where nothing is offered.
        const char* offered;
    };
    for (const auto& [version, offered] :
         {VersionRow{"<string>1.1</string>", "1.1"}, VersionRow{"<real>1.5</real>", "1.5"},
          VersionRow{"<integer>2</integer>", "2"}, VersionRow{"<string>1.0</string>", nullptr},
          VersionRow{"<integer>1</integer>", "1"}, VersionRow{"<date>2026-11-22T14:00:00Z</date>", nullptr},
          VersionRow{"<data>MS4x</data>", nullptr},
          VersionRow{"<dict><key>Number</key><string>1.1</string></dict>", nullptr}, VersionRow{"<dict/>", nullptr},
          VersionRow{"<array><string>1.1</string></array>", nullptr}, VersionRow{"<array/>", nullptr},
          VersionRow{"<true/>", nullptr}, VersionRow{"<false/>", nullptr}}) {
        defaults().removeKey(CVDefaultsKeys::kUpdatedAppInfo);
        defaults().removeKey(CVDefaultsKeys::kLastCheckForUpdatesTime);
        EXPECT_TRUE(store().keepReply("<plist version=\"1.0\"><dict><key>Release</key><dict><key>Version</key>" +
                                          QByteArray(version) + "</dict></dict></plist>",
                                      mTime))
            << version;
        EXPECT_TRUE(defaults().hasKey(CVDefaultsKeys::kLastCheckForUpdatesTime)) << version;
        EXPECT_EQ(store().currentOffer().has_value(), offered != nullptr) << version;
        EXPECT_EQ(info().value("Version").toString(), offered) << version;
    }
}

TEST_F(CVUpdateStoreTest, AnUnusableReplyIsNotedAndChangesNothingElse) {
    store().keepReply(updateReply("1.1"), mTime);
    for (const QByteArray& reply : {QByteArray(), QByteArray("garbage"), updateReply({}, "2.0b1")}) {
        EXPECT_FALSE(store().keepReply(reply, mTime.addDays(1)));
        EXPECT_TRUE(store().lastCheckFailed());
        EXPECT_TRUE(defaults().boolForKey(CVDefaultsKeys::kUpdatedAppError));
        EXPECT_EQ(defaults().stringForKey(CVDefaultsKeys::kLastCheckForUpdatesTime), "03/07/14 14:05 -0500");
        EXPECT_EQ(info().value("Version"), "1.1");
    }
    store().keepReply(updateReply("1.1"), mTime);
    EXPECT_FALSE(defaults().hasKey(CVDefaultsKeys::kUpdatedAppError));
}

TEST_F(CVUpdateStoreTest, AnOfferToAnEarlierVersionIsRemovedUnseen) {
    store("1.0").keepReply(updateReply("1.1"), mTime);
    EXPECT_FALSE(store("1.1").currentOffer().has_value());
    EXPECT_FALSE(defaults().hasKey(CVDefaultsKeys::kUpdatedAppInfo));
}

TEST_F(CVUpdateStoreTest, AnOfferThatIsNoDictionaryIsRemoved) {
    defaults().setString(CVDefaultsKeys::kUpdatedAppInfo, "nonsense");
    EXPECT_FALSE(store().currentOffer().has_value());
    EXPECT_FALSE(defaults().hasKey(CVDefaultsKeys::kUpdatedAppInfo));
}

TEST_F(CVUpdateStoreTest, ATimeThatCannotBeReadIsNone) {
    EXPECT_FALSE(CVTimeOfLastUpdateCheck(defaults()).isValid());
    for (const char* const text : {"yesterday", "03/07/14", "13/40/14 00:00 +0000", "03/07/14 14:05 -0500 "}) {
        defaults().setString(CVDefaultsKeys::kLastCheckForUpdatesTime, text);
        EXPECT_FALSE(CVTimeOfLastUpdateCheck(defaults()).isValid()) << text;
    }
}

} // namespace
