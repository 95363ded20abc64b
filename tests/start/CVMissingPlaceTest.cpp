#include "start/CVMissingPlace.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "kit/Printers.h"
#include "kit/ScratchHome.h"
#include "kit/ScriptedAlerts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

#include <gtest/gtest.h>

#include <functional>

namespace {

using Choice = CVMissingPlace::Choice;
using Next = CVMissingPlace::Next;

/// A user whose budget lies on a stick, and perhaps an older one in the standard place.
class CVMissingPlaceTest : public testing::Test {
protected:
    CVMissingPlaceTest() { defaults().setString(CVDefaultsKeys::kDataFileLocation, mStored); }

    [[nodiscard]] QBUserDefaults& defaults() { return mHome.userDefaults(); }
    [[nodiscard]] std::optional<CVMissingPlace> place() { return CVMissingPlace::of(mHome.folders(), defaults()); }
    /// The stored place where nothing is; absent when there is none.
    [[nodiscard]] std::optional<QString> missing() {
        const auto found = place();
        return found ? std::optional(found->missing) : std::nullopt;
    }
    /// The stored place as the next start reads it.
    [[nodiscard]] std::optional<QString> stored() {
        defaults().synchronize();
        return QBUserDefaults(mHome.settingsStore()).stringForKey(CVDefaultsKeys::kDataFileLocation);
    }

    static void makeFile(const QString& path) {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("x") == 1);
    }

    ScratchHome mHome;
    ScriptedAlerts mAlerts;
    QString mStored = mHome.path("stick/Corvella Data.corvella");
    QString mOther = mHome.folders().documents + "/Quenby Labs/Corvella/Corvella Data.corvella";
};

TEST_F(CVMissingPlaceTest, IsOneWhereNothingIsAtTheStoredPlace) {
    struct Row {
        const char* what;
        std::function<void()> prepare;
        bool isMissing;
    };
    const Row rows[] = {
        {"no folder", [] {}, true},
        {"an empty mount point", [this] { ASSERT_TRUE(QDir().mkpath(mHome.path("stick"))); }, true},
        {"a link to nothing", [this] { ASSERT_TRUE(QFile::link(mHome.path("nowhere"), mStored)); }, true},
        {"the file",
         [this] {
             ASSERT_TRUE(QFile::remove(mStored));
             makeFile(mStored);
         },
         false},
        {"a folder in its place",
         [this] {
             ASSERT_TRUE(QFile::remove(mStored));
             ASSERT_TRUE(QDir().mkpath(mStored));
         },
         false},
        {"no stored place", [this] { defaults().removeKey(CVDefaultsKeys::kDataFileLocation); }, false}};
    for (const Row& row : rows) {
        row.prepare();
        EXPECT_EQ(missing(), row.isMissing ? std::optional(mStored) : std::nullopt) << row.what;
    }
}

TEST_F(CVMissingPlaceTest, OffersWhatTheSearchFindsOrElseANewFile) {
    ASSERT_TRUE(place());
    EXPECT_EQ(place()->other, std::nullopt);
    EXPECT_EQ(place()->choices(), (QList{Choice::TryAgain, Choice::StartNew, Choice::Quit}));
    makeFile(mOther);
    EXPECT_EQ(place()->other, mOther);
    EXPECT_EQ(place()->choices(), (QList{Choice::TryAgain, Choice::OpenOther, Choice::Quit}));
    EXPECT_EQ(stored(), mStored) << "looking stores nothing";
}

TEST_F(CVMissingPlaceTest, CarriesOutWhatTheUserChooses) {
    struct Row {
        const char* what;
        Choice choice;
        /// What the user was asked about, and what there is by now.
        bool wasOther;
        bool isOther;
        bool isBack;
        Next next;
        bool isForgotten;
    };
    const Row rows[] = {
        {"try again, in vain", Choice::TryAgain, false, false, false, Next::Ask, false},
        {"try again, with the stick", Choice::TryAgain, true, true, true, Next::Search, false},
        {"open the other one", Choice::OpenOther, true, true, false, Next::Search, false},
        {"open the other one, which is gone", Choice::OpenOther, true, false, false, Next::Ask, false},
        {"start a new one", Choice::StartNew, false, false, false, Next::Search, true},
        {"start a new one, with the stick", Choice::StartNew, false, false, true, Next::Search, false},
        {"start a new one, where another appeared", Choice::StartNew, false, true, false, Next::Ask, false},
        {"quit", Choice::Quit, true, true, false, Next::Quit, false},
        {"quit, with the stick", Choice::Quit, false, false, true, Next::Quit, false}};
    for (const Row& row : rows) {
        defaults().setString(CVDefaultsKeys::kDataFileLocation, mStored);
        QFile::remove(mStored);
        QFile::remove(mOther);
        const CVMissingPlace asked{mStored, row.wasOther ? std::optional(mOther) : std::nullopt};
        if (row.isOther)
            makeFile(mOther);
        if (row.isBack)
            makeFile(mStored);
        EXPECT_EQ(asked.carryOut(row.choice, mHome.folders(), defaults()), row.next) << row.what;
        EXPECT_EQ(stored(), row.isForgotten ? std::nullopt : std::optional(mStored)) << row.what;
    }
}

TEST_F(CVMissingPlaceTest, IsAskedAboutUntilTheUserHasChosen) {
    mAlerts.answer({CVAlert::kDefault, CVAlert::kDefault, CVAlert::kAlternate});
    EXPECT_FALSE(CVMissingPlace::settle(mHome.folders(), defaults(), mAlerts));
    EXPECT_EQ(mAlerts.shown().size(), 3);
    mAlerts.answer({CVAlert::kOther});
    EXPECT_TRUE(CVMissingPlace::settle(mHome.folders(), defaults(), mAlerts));
    EXPECT_EQ(stored(), std::nullopt);
    EXPECT_TRUE(CVMissingPlace::settle(mHome.folders(), defaults(), mAlerts));
    EXPECT_EQ(mAlerts.shown().size(), 4) << "without a stored place nothing is asked";
}

} // namespace
