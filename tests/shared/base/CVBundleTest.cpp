#include "shared/base/CVBundle.h"

#include "shared/base/CVDefaultsKeys.h"
#include "shared/base/CVNotifications.h"
#include "shared/base/QBUserDefaults.h"

#include <QSettings>

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

// These words are in users' settings files and in other programs' observers: a change of spelling loses them.
TEST(CVBundle, SpellsKeysAndNotificationsAsEver) {
    EXPECT_STREQ(CVDefaultsKeys::kDataFileLocation, "Data File Location");
    EXPECT_STREQ(CVDefaultsKeys::kNumberOfItems, "CVNumberOfItems");
    EXPECT_STREQ(CVDefaultsKeys::kClearFields, "CVClearFields");
    EXPECT_STREQ(CVDefaultsKeys::kStartDayOfWeek, "CVSetStartDayfWeek");
    EXPECT_STREQ(CVDefaultsKeys::kTodayColumn, "CVSetTodayColumn");
    EXPECT_STREQ(CVDefaultsKeys::kShowUnusedCategories, "ShowUnusedCategories");
    EXPECT_STREQ(CVDefaultsKeys::kTransactionSortColumn, "kCVTransactionSortColumn");
    EXPECT_STREQ(CVDefaultsKeys::kTransactionSortOrder, "kCVTransactionSortOrder");
    EXPECT_STREQ(CVNotifications::kTransactionAddedRemoved, "CVTransactionAddedRemovedNotificaiton");
    EXPECT_STREQ(CVNotifications::kCategoryAddedRemoved, "CVCategoryAddedRemovedNotificaiton");
    EXPECT_STREQ(CVNotifications::kTransactionSet, "kCVTransactionSetNotification");
}

} // namespace
