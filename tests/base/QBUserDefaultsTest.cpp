#include "base/QBUserDefaults.h"

#include "base/CVDefaultsKeys.h"
#include "kit/Printers.h"
#include "kit/ScratchHome.h"
#include "storage/ScratchFiles.h"

#include <QDir>
#include <QFile>
#include <QSettings>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <limits>

namespace {

/// The settings as the next start of the program reads them.
QBUserDefaults reopened(ScratchHome& home) {
    home.userDefaults().synchronize();
    return QBUserDefaults(home.settingsStore());
}

TEST(QBUserDefaults, ReadsAbsentKeysAsZeroFalseOrNothing) {
    ScratchHome home;
    const QBUserDefaults& defaults = home.userDefaults();
    EXPECT_EQ(defaults.integerForKey("number"), 0);
    EXPECT_FALSE(defaults.boolForKey("switch"));
    EXPECT_EQ(defaults.stringForKey("text"), std::nullopt);
    EXPECT_TRUE(defaults.dataForKey("data").isNull());
}

TEST(QBUserDefaults, KeepsValuesForTheNextStart) {
    ScratchHome home;
    QBUserDefaults& defaults = home.userDefaults();
    defaults.setInteger(CVDefaultsKeys::kNumberOfItems, 10);
    defaults.setBool("on", true);
    defaults.setBool("off", false);
    defaults.setString("text", "monthly");
    defaults.setData("data", QByteArray("\0\xFF,;", 4));

    const QBUserDefaults next = reopened(home);
    EXPECT_EQ(next.integerForKey(CVDefaultsKeys::kNumberOfItems), 10);
    EXPECT_TRUE(next.boolForKey("on"));
    EXPECT_FALSE(next.boolForKey("off"));
    EXPECT_EQ(next.stringForKey("text"), "monthly");
    EXPECT_EQ(next.dataForKey("data"), QByteArray("\0\xFF,;", 4));
}

TEST(QBUserDefaults, KeepsIntegersOfTheWholeRange) {
    ScratchHome home;
    for (const int value : {0, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        home.userDefaults().setInteger("number", value);
        EXPECT_EQ(reopened(home).integerForKey("number"), value);
    }
}

TEST(QBUserDefaults, KeepsAnyPathToTheLetter) {
    ScratchHome home;
    for (const char* const path : {"/home/zoë/My Budget, 2014; \"new\".corvella", "C:\\Users\\x", " spaces around ",
                                   "100%20", "@Invalid()", "@@at", "~/東京🍕", "a=b#c", "[section]", "new\nline"}) {
        home.userDefaults().setString(CVDefaultsKeys::kDataFileLocation, QString::fromUtf8(path));
        EXPECT_EQ(reopened(home).stringForKey(CVDefaultsKeys::kDataFileLocation), QString::fromUtf8(path));
    }
}

TEST(QBUserDefaults, ReadsAnEmptyStringAsNothing) {
    ScratchHome home;
    home.userDefaults().setString("text", "");
    EXPECT_EQ(home.userDefaults().stringForKey("text"), std::nullopt);
    home.userDefaults().setString("text", QString());
    EXPECT_EQ(reopened(home).stringForKey("text"), std::nullopt);
}

TEST(QBUserDefaults, ForgetsARemovedKey) {
    ScratchHome home;
    home.userDefaults().setInteger("number", 5);
    ASSERT_EQ(reopened(home).integerForKey("number"), 5);
    home.userDefaults().removeKey("number");
    EXPECT_EQ(home.userDefaults().integerForKey("number"), 0);
    EXPECT_EQ(reopened(home).integerForKey("number"), 0);
    EXPECT_FALSE(home.settingsStore()->contains("number"));
}

TEST(QBUserDefaults, DistinguishesKeysByTheirWholeName) {
    ScratchHome home;
    home.userDefaults().setInteger("kCVPeriodType", 1);
    home.userDefaults().setInteger("kCVPeriodTypes", 2);
    home.userDefaults().setInteger("Prefs: Selected Tab", 3);
    const QBUserDefaults next = reopened(home);
    EXPECT_EQ(next.integerForKey("kCVPeriodType"), 1);
    EXPECT_EQ(next.integerForKey("kCVPeriodTypes"), 2);
    EXPECT_EQ(next.integerForKey("Prefs: Selected Tab"), 3);
}

TEST(QBUserDefaults, ReadsAsZeroWhatIsNoNumber) {
    ScratchHome home;
    home.userDefaults().setString("number", "many");
    EXPECT_EQ(home.userDefaults().integerForKey("number"), 0);
}

TEST(QBUserDefaults, ReadsAnUnreadableFileAsEmpty) {
    ScratchHome home;
    QFile file(home.path("settings.ini"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("\0\xFF[[[=%%%\n=\n", 12) + QByteArray(1000, '\xFE'));
    file.close();
    const QBUserDefaults defaults(home.settingsStore());
    EXPECT_EQ(defaults.integerForKey("number"), 0);
    EXPECT_EQ(defaults.stringForKey("text"), std::nullopt);
}

TEST(QBUserDefaults, KeepsADictionary) {
    ScratchHome home;
    const QVariantMap entry{{"Version", "1.1"}, {"Download", "https://x.example/?a=1&b=ü"}, {"Size", 12}};
    home.userDefaults().setDictionary("info", entry);
    EXPECT_EQ(reopened(home).dictionaryForKey("info"), entry);
    EXPECT_TRUE(reopened(home).hasKey("info"));
    home.userDefaults().setString("text", "no dictionary");
    EXPECT_TRUE(home.userDefaults().dictionaryForKey("text").isEmpty());
    EXPECT_TRUE(home.userDefaults().hasKey("text"));
    EXPECT_FALSE(home.userDefaults().hasKey("nothing"));
}

TEST(QBUserDefaults, SaysWhetherTheDiskHasTheSettingsEachTime) {
    ScratchHome home;
    QBUserDefaults& defaults = home.userDefaults();
    const QString path = home.path("settings.ini");
    EXPECT_EQ(defaults.fileName(), path);
    defaults.setInteger("number", 1);
    EXPECT_TRUE(defaults.synchronize());
    // A folder replaces the file, because even the superuser cannot write to a folder.
    ASSERT_TRUE(QFile::remove(path) && QDir().mkdir(path));
    defaults.setInteger("number", 2);
    EXPECT_FALSE(defaults.synchronize());
    EXPECT_EQ(defaults.integerForKey("number"), 2);
    ASSERT_TRUE(QDir().rmdir(path));
    defaults.setInteger("number", 3);
    EXPECT_TRUE(defaults.synchronize()) << "the failure of before is over";
    EXPECT_EQ(reopened(home).integerForKey("number"), 3);
}

TEST(QBUserDefaults, OnlyTheUserCanReadThemWhateverTheUmask) {
    for (const mode_t mask : {0000U, 0022U, 0077U}) {
        const ScratchHome home;
        const QString path = home.path("config/Quenby Labs/Corvella.conf");
        const mode_t previous = ::umask(mask);
        {
            QBUserDefaults defaults(std::make_unique<QSettings>(path, QSettings::IniFormat));
            for (const int number : {1, 2}) {
                defaults.setInteger("number", number);
                EXPECT_TRUE(defaults.synchronize());
                EXPECT_EQ(modeOf(path), 0600) << number;
            }
            setMode(path, 0644);
            defaults.setInteger("number", 3);
            EXPECT_TRUE(defaults.synchronize());
            EXPECT_EQ(modeOf(path), 0600) << "also where an earlier version of the program has made the file";
            ASSERT_TRUE(QFile::remove(path));
            defaults.setInteger("number", 4);
        }
        ::umask(previous);
        EXPECT_EQ(modeOf(path), 0600) << "at the end of the program";
        EXPECT_EQ(modeOf(home.path("config")), 0700);
        EXPECT_EQ(modeOf(home.path("config/Quenby Labs")), 0700);
        EXPECT_TRUE(readFile(path).contains("number=4"));
    }
}

TEST(QBUserDefaults, ThatAreOnlyReadMakeNoFile) {
    const ScratchHome home;
    const QString path = home.path("config/Corvella.conf");
    {
        QBUserDefaults defaults(std::make_unique<QSettings>(path, QSettings::IniFormat),
                                QBUserDefaults::Changes::Forgotten);
        defaults.setInteger("number", 1);
        defaults.synchronize();
    }
    EXPECT_FALSE(QFile::exists(home.path("config")));
}

/// Limits the size of files to a few bytes while this object lives, as on a full disk.
class FullDisk final {
public:
    FullDisk() : mHandler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &mLimit);
        rlimit full = mLimit;
        full.rlim_cur = 8;
        setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &mLimit);
        std::signal(SIGXFSZ, mHandler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit mLimit{};
    void (*mHandler)(int);
};

TEST(QBUserDefaults, AFullDiskIsReportedAndLeavesTheFormerSettings) {
    ScratchHome home;
    QBUserDefaults& defaults = home.userDefaults();
    defaults.setString(CVDefaultsKeys::kDataFileLocation, "/somewhere/else");
    ASSERT_TRUE(defaults.synchronize());
    defaults.setInteger("number", 2);
    {
        const FullDisk fullDisk;
        EXPECT_FALSE(defaults.synchronize());
    }
    QFile file(home.path("settings.ini"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("/somewhere/else"));
    EXPECT_EQ(defaults.integerForKey("number"), 2);
}

TEST(QBUserDefaultsForgotten, ShowsTheStoreUntilSomethingIsSet) {
    ScratchHome home;
    home.userDefaults().setInteger("number", 5);
    home.userDefaults().setString("text", "kept");
    home.userDefaults().synchronize();

    QBUserDefaults defaults(home.settingsStore(), QBUserDefaults::Changes::Forgotten);
    EXPECT_EQ(defaults.integerForKey("number"), 5);
    defaults.setInteger("number", 6);
    defaults.removeKey("text");
    defaults.setBool("new", true);
    EXPECT_EQ(defaults.integerForKey("number"), 6);
    EXPECT_EQ(defaults.stringForKey("text"), std::nullopt);
    EXPECT_TRUE(defaults.boolForKey("new"));
}

TEST(QBUserDefaultsForgotten, WritesNothing) {
    ScratchHome home;
    home.userDefaults().setInteger("number", 5);
    home.userDefaults().setString("text", "kept");
    home.userDefaults().synchronize();
    QFile file(home.path("settings.ini"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    file.close();

    {
        QBUserDefaults defaults(home.settingsStore(), QBUserDefaults::Changes::Forgotten);
        defaults.setInteger("number", 6);
        defaults.setData("data", "x");
        defaults.removeKey("text");
        defaults.synchronize();
    }

    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), before);
    const QBUserDefaults next = reopened(home);
    EXPECT_EQ(next.integerForKey("number"), 5);
    EXPECT_EQ(next.stringForKey("text"), "kept");
}

TEST(QBUserDefaultsForgotten, CreatesNoFile) {
    ScratchHome home;
    {
        QBUserDefaults defaults(home.settingsStore(), QBUserDefaults::Changes::Forgotten);
        defaults.setInteger("number", 6);
        defaults.synchronize();
    }
    EXPECT_FALSE(QFile::exists(home.path("settings.ini")));
}

} // namespace
