#include "base/CVBundle.h"

#include "base/CVDefaultsKeys.h"
#include "base/CVNotifications.h"
#include "base/CVSite.h"
#include "base/QBUserDefaults.h"

#include <QSettings>
#include <QUrl>

#include <gtest/gtest.h>

namespace {

TEST(CVBundle, HasTheVersionOfTheBuild) {
    EXPECT_EQ(CVBundle::version(), CORVELLA_VERSION);
}

TEST(CVBundle, NamesTheUsersSettings) {
    const auto store = QBUserDefaults::standardStore();
    EXPECT_EQ(store->organizationName().toStdString(), CVBundle::kOrganization);
    EXPECT_EQ(store->applicationName().toStdString(), CVBundle::kName);
}

// The addresses come from the maker's build options; a release must be able to open them.
TEST(CVSite, HasAddressesThatCanBeOpened) {
    for (const QString& address : {CVSite::webSite(), CVSite::supportForums(), CVSite::updateCheck()}) {
        EXPECT_TRUE(QUrl(address, QUrl::StrictMode).isValid()) << address.toStdString();
        EXPECT_FALSE(QUrl(address).host().isEmpty()) << address.toStdString();
        EXPECT_FALSE(address.contains('?')) << "parameters are appended: " << address.toStdString();
    }
    EXPECT_EQ(CVSite::supportMail().count('@'), 1);
}

// Users' settings files contain the keys and other programs observe the notifications, so a changed spelling would lose
// them.
TEST(CVBundle, SpellsKeysAndNotificationsAsEver) {
    EXPECT_STREQ(CVDefaultsKeys::kDataFileLocation, "Data File Location");
    EXPECT_STREQ(CVDefaultsKeys::kNumberOfItems, "CVNumberOfItems");
    EXPECT_STREQ(CVDefaultsKeys::kClearFields, "CVClearFields");
    EXPECT_STREQ(CVDefaultsKeys::kStartDayOfWeek, "CVSetStartDayfWeek");
    EXPECT_STREQ(CVDefaultsKeys::kTodayColumn, "CVSetTodayColumn");
    EXPECT_STREQ(CVDefaultsKeys::kShowUnusedCategories, "ShowUnusedCategories");
    EXPECT_STREQ(CVDefaultsKeys::kTransactionSortColumn, "kCVTransactionSortColumn");
    EXPECT_STREQ(CVDefaultsKeys::kTransactionSortOrder, "kCVTransactionSortOrder");
    EXPECT_STREQ(CVDefaultsKeys::kPreferencesTab, "Prefs: Selected Tab");
    EXPECT_STREQ(CVDefaultsKeys::kCheckUpdatesAutomatically, "QBCheckUpdatesAutomatically");
    EXPECT_STREQ(CVDefaultsKeys::kIncludeSysInfo, "QBIncludeSysInfoWithCheckForUpdate");
    EXPECT_STREQ(CVDefaultsKeys::kLastCheckForUpdatesTime, "QBLastCheckForUpdatesTime");
    EXPECT_STREQ(CVDefaultsKeys::kUpdatedAppInfo, "QBUpdatedAppInfo");
    EXPECT_STREQ(CVDefaultsKeys::kUpdatedAppError, "QBUpdatedAppError");
    EXPECT_STREQ(CVNotifications::kPreference, "CVPreferenceNotification");
    EXPECT_STREQ(CVNotifications::kCheckedForUpdates, "QBNotification_CheckedForUpdates");
    EXPECT_STREQ(CVNotifications::kTransactionAddedRemoved, "CVTransactionAddedRemovedNotificaiton");
    EXPECT_STREQ(CVNotifications::kCategoryAddedRemoved, "CVCategoryAddedRemovedNotificaiton");
    EXPECT_STREQ(CVNotifications::kTransactionSet, "kCVTransactionSetNotification");
}

} // namespace
