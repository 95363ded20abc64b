#include "BookFixture.h"
#include "kit/ScratchHome.h"

#include <QFile>

namespace {

class CVHelpBookTest : public BookFixture {};

TEST_F(CVHelpBookTest, OpensTheBookBesideTheProgram) {
    EXPECT_EQ(file(), CORVELLA_PROGRAM_FOLDER "/help/corvella.qch");
    EXPECT_EQ(mBook.problem(), "");
}

TEST_F(CVHelpBookTest, FindsTheBookOfAnInstalledProgram) {
    const ScratchHome prefix;
    ASSERT_TRUE(QDir().mkpath(prefix.path("bin")) && QDir().mkpath(prefix.path("share/corvella/help")));
    EXPECT_EQ(CVHelpBook::fileForProgramIn(prefix.path("bin")), std::nullopt);
    ASSERT_TRUE(QFile::copy(file(), prefix.path("share/corvella/help/corvella.qch")));
    EXPECT_EQ(CVHelpBook::fileForProgramIn(prefix.path("bin")), prefix.path("share/corvella/help/corvella.qch"));
}

TEST_F(CVHelpBookTest, ABookBesideTheProgramComesFirst) {
    const ScratchHome folder;
    for (const char* const place : {"bin/help", "share/corvella/help"}) {
        ASSERT_TRUE(QDir().mkpath(folder.path(place)));
        ASSERT_TRUE(QFile::copy(file(), folder.path(place) + "/corvella.qch"));
    }
    EXPECT_EQ(CVHelpBook::fileForProgramIn(folder.path("bin")), folder.path("bin/help/corvella.qch"));
}

TEST_F(CVHelpBookTest, GivesTheAddressOfAPageAndTheStartPageForOneThatIsMissing) {
    struct Row {
        const char* name;
        const char* page;
    };
    for (const Row& row :
         {Row{"index.html", "index.html"}, Row{"Preferences.html", "Preferences.html"},
          Row{"Categories.html", "Categories.html"}, Row{"TransactionSets.html", "TransactionSets.html"},
          Row{"Nothing.html", "index.html"}, Row{"", "index.html"}})
        EXPECT_EQ(mBook.page(row.name), QUrl(kFolder + QLatin1String(row.page))) << row.name;
}

TEST_F(CVHelpBookTest, TellsItsOwnAddressesFromOthers) {
    EXPECT_TRUE(CVHelpBook::isInside(mBook.page("index.html")));
    EXPECT_FALSE(CVHelpBook::isInside(QUrl("https://www.quenbylabs.example/index.html")));
    EXPECT_FALSE(CVHelpBook::isInside(QUrl("file:///index.html")));
}

TEST_F(CVHelpBookTest, SaysWhyAFileIsNoBook) {
    const ScratchHome folder;
    QFile damaged(folder.path("corvella.qch"));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly) && damaged.write(QByteArray(5000, 'x')) == 5000);
    damaged.close();
    EXPECT_NE(CVHelpBook(damaged.fileName()).problem(), "");
    EXPECT_NE(CVHelpBook(folder.path("missing.qch")).problem(), "");
}

TEST_F(CVHelpBookTest, LeavesNothingBehindAndNothingBesideTheBook) {
    const QStringList before = QDir::temp().entryList(QDir::Dirs);
    const QStringList beside = QFileInfo(file()).dir().entryList(QDir::AllEntries | QDir::Hidden);
    { const CVHelpBook book(file()); }
    EXPECT_EQ(QFileInfo(file()).dir().entryList(QDir::AllEntries | QDir::Hidden), beside);
    for (const QString& folder : QDir::temp().entryList(QDir::Dirs))
        EXPECT_FALSE(folder.startsWith("HelpBookTest-") && !before.contains(folder)) << folder.toStdString();
}

} // namespace
