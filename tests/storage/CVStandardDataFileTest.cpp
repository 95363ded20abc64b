#include "storage/CVStandardDataFile.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "kit/ScratchHome.h"
#include "storage/ScratchFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

enum class Place { Preferred, Documents, Support, Older };

class CVStandardDataFileTest : public testing::Test {
protected:
    [[nodiscard]] QString pathOf(Place place) const {
        switch (place) {
        case Place::Preferred:
            return mHome.path(QStringLiteral("Anywhere/My Budget.corvella"));
        case Place::Documents:
            return mFolders.documents + "/Quenby Labs/Corvella/Corvella Data.corvella";
        case Place::Support:
            return mFolders.applicationSupport + "/Quenby Labs/Corvella/Corvella Data.corvella";
        case Place::Older:
            return mFolders.applicationSupport + "/Quenby/Corvella/Corvella Data.corvella";
        }
        return {};
    }
    void prefer(const QString& path) { mHome.userDefaults().setString(CVDefaultsKeys::kDataFileLocation, path); }
    [[nodiscard]] std::optional<QString> open() {
        return CVStandardDataFileURL(CVLookForExisting::Yes, mFolders, mHome.userDefaults());
    }
    [[nodiscard]] std::optional<QString> save() {
        return CVStandardDataFileURL(CVLookForExisting::No, mFolders, mHome.userDefaults());
    }
    /// The stored location as the next start of the program reads it.
    [[nodiscard]] std::optional<QString> preference() const {
        return QBUserDefaults(mHome.settingsStore()).stringForKey(CVDefaultsKeys::kDataFileLocation);
    }

    ScratchHome mHome;
    CVStandardFolders mFolders = mHome.folders();
};

TEST_F(CVStandardDataFileTest, isNowhereAtFirst) {
    EXPECT_EQ(open(), std::nullopt);
    EXPECT_EQ(preference(), std::nullopt);
    EXPECT_FALSE(QFileInfo::exists(mFolders.applicationSupport));
    EXPECT_FALSE(QFileInfo::exists(mFolders.documents));
}

TEST_F(CVStandardDataFileTest, isFoundInEachPlaceAndRemembered) {
    for (const Place place : {Place::Documents, Place::Support, Place::Older}) {
        ScratchHome other;
        const CVStandardFolders folders = other.folders();
        const QString path = pathOf(place).replace(mHome.path(), other.path());
        writeFile(path, "data");
        EXPECT_EQ(CVStandardDataFileURL(CVLookForExisting::Yes, folders, other.userDefaults()), path);
        EXPECT_EQ(QBUserDefaults(other.settingsStore()).stringForKey(CVDefaultsKeys::kDataFileLocation), path);
        EXPECT_EQ(CVStandardDataFileURL(CVLookForExisting::No, folders, other.userDefaults()), path);
    }
}

TEST_F(CVStandardDataFileTest, isTheFirstInTheOrderOfThePlaces) {
    const Place order[]{Place::Preferred, Place::Documents, Place::Support, Place::Older};
    for (std::size_t first = 0; first < std::size(order); ++first) {
        for (std::size_t i = first; i < std::size(order); ++i)
            writeFile(pathOf(order[i]), "data");
        prefer(pathOf(Place::Preferred));
        EXPECT_EQ(open(), pathOf(order[first])) << first;
        QFile::remove(pathOf(order[first]));
    }
    prefer(pathOf(Place::Preferred));
    EXPECT_EQ(open(), std::nullopt);
}

TEST_F(CVStandardDataFileTest, inDocumentsWinsOverApplicationSupport) {
    writeFile(pathOf(Place::Documents), "data");
    writeFile(pathOf(Place::Support), "data");
    EXPECT_EQ(open(), pathOf(Place::Documents));
    EXPECT_EQ(preference(), pathOf(Place::Documents));
}

TEST_F(CVStandardDataFileTest, isNoFolder) {
    for (const Place place : {Place::Preferred, Place::Documents, Place::Support, Place::Older})
        QDir().mkpath(pathOf(place));
    prefer(pathOf(Place::Preferred));
    EXPECT_EQ(open(), std::nullopt);
    EXPECT_EQ(mHome.userDefaults().stringForKey(CVDefaultsKeys::kDataFileLocation), pathOf(Place::Preferred));
}

TEST_F(CVStandardDataFileTest, maySitBehindALink) {
    writeFile(mHome.path(QStringLiteral("Elsewhere/real")), "data");
    QDir().mkpath(QFileInfo(pathOf(Place::Support)).path());
    makeLink(mHome.path(QStringLiteral("Elsewhere/real")), pathOf(Place::Support));
    EXPECT_EQ(open(), pathOf(Place::Support));
}

TEST_F(CVStandardDataFileTest, thatIsPreferredIsTakenWithoutWritingThePreferenceAgain) {
    writeFile(pathOf(Place::Preferred), "data");
    writeFile(pathOf(Place::Documents), "data");
    prefer(pathOf(Place::Preferred));
    EXPECT_EQ(open(), pathOf(Place::Preferred));
    EXPECT_EQ(mHome.userDefaults().stringForKey(CVDefaultsKeys::kDataFileLocation), pathOf(Place::Preferred));
}

TEST_F(CVStandardDataFileTest, whosePreferredPathIsGoneIsLookedForInTheStandardPlaces) {
    prefer(pathOf(Place::Preferred));
    writeFile(pathOf(Place::Support), "data");
    EXPECT_EQ(open(), pathOf(Place::Support));
    EXPECT_EQ(preference(), pathOf(Place::Support));
}

TEST_F(CVStandardDataFileTest, isSavedToThePreferredPathUnseen) {
    prefer(pathOf(Place::Preferred));
    EXPECT_EQ(save(), pathOf(Place::Preferred));
    EXPECT_EQ(namesIn(mHome.path()).filter(QStringLiteral("A")), QStringList());
}

TEST_F(CVStandardDataFileTest, isFirstSavedToApplicationSupport) {
    writeFile(pathOf(Place::Documents), "data");
    EXPECT_EQ(save(), pathOf(Place::Support));
    EXPECT_TRUE(QFileInfo(QFileInfo(pathOf(Place::Support)).path()).isDir());
    EXPECT_FALSE(QFileInfo::exists(pathOf(Place::Support)));
    EXPECT_EQ(preference(), pathOf(Place::Support));
}

TEST_F(CVStandardDataFileTest, liesInFoldersThatAreTheUsersOwnWhateverTheUmask) {
    for (const mode_t mask : {0000U, 0022U, 0077U}) {
        ScratchHome other;
        const mode_t previous = ::umask(mask);
        const auto path = CVStandardDataFileURL(CVLookForExisting::No, other.folders(), other.userDefaults());
        ::umask(previous);
        ASSERT_TRUE(path);
        for (QString folder = QFileInfo(*path).path(); folder != other.path(); folder = QFileInfo(folder).path())
            EXPECT_EQ(modeOf(folder), 0700) << folder.toStdString();
    }
}

TEST_F(CVStandardDataFileTest, leavesASharedFolderAsItIs) {
    ASSERT_TRUE(QDir().mkpath(mFolders.applicationSupport + "/Quenby Labs"));
    setMode(mFolders.applicationSupport + "/Quenby Labs", 0775);
    EXPECT_TRUE(save());
    EXPECT_EQ(modeOf(mFolders.applicationSupport + "/Quenby Labs"), 0775);
    EXPECT_EQ(modeOf(mFolders.applicationSupport + "/Quenby Labs/Corvella"), 0700);
}

TEST_F(CVStandardDataFileTest, isSavedToAFolderThatExistsAlready) {
    QDir().mkpath(QFileInfo(pathOf(Place::Support)).path());
    EXPECT_EQ(save(), pathOf(Place::Support));
}

TEST_F(CVStandardDataFileTest, neverMakesTheOlderFolder) {
    EXPECT_EQ(open(), std::nullopt);
    EXPECT_TRUE(save());
    EXPECT_EQ(namesIn(mFolders.applicationSupport), QStringList({"Quenby Labs"}));
}

TEST_F(CVStandardDataFileTest, inTheOlderFolderIsSavedThere) {
    writeFile(pathOf(Place::Older), "data");
    EXPECT_EQ(open(), pathOf(Place::Older));
    EXPECT_EQ(save(), pathOf(Place::Older));
    EXPECT_FALSE(QFileInfo::exists(QFileInfo(pathOf(Place::Support)).path()));
}

TEST_F(CVStandardDataFileTest, withoutADocumentsFolderIsLookedForElsewhere) {
    mFolders.documents.clear();
    writeFile(pathOf(Place::Support), "data");
    EXPECT_EQ(open(), pathOf(Place::Support));
}

TEST_F(CVStandardDataFileTest, withoutAnApplicationSupportFolderCanBeOpenedButNotFirstSaved) {
    writeFile(pathOf(Place::Documents), "data");
    mFolders.applicationSupport.clear();
    EXPECT_EQ(save(), std::nullopt);
    EXPECT_EQ(preference(), std::nullopt);
    EXPECT_EQ(open(), pathOf(Place::Documents));
    EXPECT_EQ(save(), pathOf(Place::Documents));
}

TEST_F(CVStandardDataFileTest, hasNoPlaceWhereItsFolderCannotBeMade) {
    writeFile(mFolders.applicationSupport, "a file in the way");
    EXPECT_EQ(save(), std::nullopt);
    EXPECT_EQ(preference(), std::nullopt);
    EXPECT_EQ(readFile(mFolders.applicationSupport), "a file in the way");
}

TEST_F(CVStandardDataFileTest, isRememberedOnTheDiskAtOnce) {
    const auto isOnDisk = [this](const QString& path) {
        return readFile(mHome.path(QStringLiteral("settings.ini"))).contains(path.toUtf8());
    };
    writeFile(pathOf(Place::Documents), "data");
    EXPECT_EQ(open(), pathOf(Place::Documents));
    EXPECT_TRUE(isOnDisk(pathOf(Place::Documents)));
    mHome.userDefaults().removeKey(CVDefaultsKeys::kDataFileLocation);
    EXPECT_EQ(save(), pathOf(Place::Support));
    EXPECT_TRUE(isOnDisk(pathOf(Place::Support)));
}

TEST_F(CVStandardDataFileTest, followsThePreferenceAtEverySave) {
    EXPECT_EQ(save(), pathOf(Place::Support));
    prefer(pathOf(Place::Preferred));
    EXPECT_EQ(save(), pathOf(Place::Preferred));
}

/// Sets an environment variable as long as this object lives.
class Environment final {
public:
    Environment(const char* name, const QString& value) : mName(name), mPrevious(qgetenv(name)) {
        qputenv(name, value.toUtf8());
    }
    ~Environment() { mPrevious.isNull() ? qunsetenv(mName) : qputenv(mName, mPrevious); }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    const char* mName;
    QByteArray mPrevious;
};

TEST_F(CVStandardDataFileTest, isKnownWithThePlaceOfTheNextSaveAndNothingIsMadeOrRemembered) {
    EXPECT_EQ(CVOwnDataFiles(mFolders, mHome.userDefaults()), QStringList{pathOf(Place::Support)});
    EXPECT_FALSE(QFileInfo::exists(mFolders.applicationSupport));
    writeFile(pathOf(Place::Documents), "data");
    EXPECT_EQ(CVOwnDataFiles(mFolders, mHome.userDefaults()),
              (QStringList{pathOf(Place::Support), pathOf(Place::Documents)}));
    EXPECT_EQ(preference(), std::nullopt);
    prefer(pathOf(Place::Preferred));
    EXPECT_EQ(CVOwnDataFiles(mFolders, mHome.userDefaults()),
              (QStringList{pathOf(Place::Preferred), pathOf(Place::Documents)}));
    writeFile(pathOf(Place::Preferred), "data");
    EXPECT_EQ(CVOwnDataFiles(mFolders, mHome.userDefaults()), QStringList{pathOf(Place::Preferred)});
}

TEST(CVStandardFoldersTest, areWhereTheUserKeepsDataAndDocuments) {
    const ScratchHome home;
    const Environment itself("HOME", home.path());
    const Environment data("XDG_DATA_HOME", home.path(QStringLiteral("Data Home")));
    const Environment config("XDG_CONFIG_HOME", home.path(QStringLiteral("Config")));
    writeFile(home.path(QStringLiteral("Config/user-dirs.dirs")), "XDG_DOCUMENTS_DIR=\"$HOME/My Papers\"\n");
    const CVStandardFolders folders = CVStandardFolders::ofUser();
    EXPECT_EQ(folders.applicationSupport, home.path(QStringLiteral("Data Home")));
    EXPECT_EQ(folders.documents, home.path(QStringLiteral("My Papers")));
}

TEST_F(CVStandardDataFileTest, isMissingOnlyWhereTheStoredOneIsNotThere) {
    EXPECT_EQ(CVMissingDataFile(mHome.userDefaults()), std::nullopt);
    const QString stored = pathOf(Place::Preferred);
    prefer(stored);
    EXPECT_EQ(CVMissingDataFile(mHome.userDefaults()), stored);
    writeFile(stored, "a budget");
    EXPECT_EQ(CVMissingDataFile(mHome.userDefaults()), std::nullopt);
}

} // namespace
