#include "PreferencesFixture.h"
#include "kit/DefaultLocale.h"
#include "versions/CVKeptCopy.h"
#include "versions/CVVersionFolder.h"
#include "versions/CVVersionLimit.h"

#include <QDir>
#include <QFile>

namespace {

constexpr qint64 kMegabyte = 1024 * 1024;

class VersionsPane : public PreferencesFixture {
protected:
    VersionsPane() {
        defaults().setString(CVDefaultsKeys::kDataFileLocation, dataFile());
        write(QByteArray(1024, 'x'));
    }

    [[nodiscard]] QString dataFile() const { return mHome.path("Corvella Data.corvella"); }

    void write(const QByteArray& bytes) const {
        QFile file(dataFile());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    void keepVersion(const QByteArray& bytes) const {
        write(bytes);
        ASSERT_TRUE(CVVersionFolder(dataFile())
                        .keepCopy(dataFile(), CVVersionReason::Removal, QDateTime::currentDateTime())
                        .ok());
    }

    void keepCopy(CVKeptReason reason = CVKeptReason::Unreadable) const {
        ASSERT_FALSE(CVKeptCopy::keep(dataFile(), reason, QDateTime::currentDateTime()).path.isEmpty());
    }

    [[nodiscard]] qsizetype countOfVersions() const { return CVVersionFolder(dataFile()).versions().size(); }
    [[nodiscard]] QString size() const { return control<QLineEdit>("Size of Earlier Versions")->text(); }
    [[nodiscard]] QAbstractButton* deleteButton() const { return control<QAbstractButton>("Delete Earlier Versions"); }

    void typeLimit(const QString& text) const {
        auto* const field = control<QLineEdit>("Megabytes for Earlier Versions");
        showTabOf(field);
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
    }
};

TEST_F(VersionsPane, TheSizeOfVersionsAndKeptCopiesIsShown) {
    const DefaultLocale german(QLocale("de_DE"));
    open();
    EXPECT_EQ(size(), "Nothing");
    EXPECT_FALSE(deleteButton()->isEnabled());
    keepVersion(QByteArray(1024 * 1024 * 3 / 2, 'x'));
    open();
    EXPECT_EQ(size(), "1,5 MB in 1 file");
    keepCopy();
    open();
    EXPECT_EQ(size(), "3,0 MB in 2 files");
    EXPECT_TRUE(deleteButton()->isEnabled());
}

TEST_F(VersionsPane, TheSizeIsReadAnewWhenTheUserComesBackToTheWindow) {
    open();
    showTabOf(deleteButton());
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    keepVersion(QByteArray(1024, 'x'));
    mWindow->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(mWindow.get()));
    EXPECT_EQ(size(), "1.0 kB in 1 file");
}

TEST_F(VersionsPane, WithoutADataFileThereIsNothing) {
    defaults().removeKey(CVDefaultsKeys::kDataFileLocation);
    open();
    EXPECT_EQ(size(), "Nothing");
    EXPECT_FALSE(deleteButton()->isEnabled());
}

TEST_F(VersionsPane, TheLimitIsAGigabyteUntilAnotherIsTyped) {
    open();
    EXPECT_EQ(control<QLineEdit>("Megabytes for Earlier Versions")->text(), "1,024");
    typeLimit("1024");
    EXPECT_FALSE(defaults().hasKey(CVDefaultsKeys::kVersionLimit)) << "a limit that is the same is not stored";
    typeLimit("300");
    EXPECT_EQ(CVVersionLimit(defaults()), 300 * kMegabyte);
    typeLimit("0");
    EXPECT_EQ(CVVersionLimit(defaults()), 300 * kMegabyte) << "0 cannot be read as a limit";
    typeLimit("999999");
    EXPECT_EQ(CVVersionLimit(defaults()), 999'999 * kMegabyte);
    typeLimit("1000000");
    EXPECT_EQ(CVVersionLimit(defaults()), 999'999 * kMegabyte);
    open();
    EXPECT_EQ(control<QLineEdit>("Megabytes for Earlier Versions")->text(), "999,999");
    EXPECT_EQ(QBUserDefaults(mHome.settingsStore()).integerForKey(CVDefaultsKeys::kVersionLimit), 999'999);
}

TEST_F(VersionsPane, ALimitThatIsStillTypedCountsAtTheEnd) {
    open();
    auto* const field = control<QLineEdit>("Megabytes for Earlier Versions");
    showTabOf(field);
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, "77");
    mWindow->keep();
    EXPECT_EQ(CVVersionLimit(defaults()), 77 * kMegabyte);
}

TEST_F(VersionsPane, KeepingCanBeSwitchedOffAndOn) {
    open();
    typeLimit("300");
    click("Keep Earlier Versions");
    EXPECT_EQ(CVVersionLimit(defaults()), 0);
    EXPECT_FALSE(control<QLineEdit>("Megabytes for Earlier Versions")->isEnabled());
    click("Keep Earlier Versions");
    EXPECT_EQ(CVVersionLimit(defaults()), 300 * kMegabyte);
    click("Keep Earlier Versions");
    open();
    EXPECT_FALSE(control<QCheckBox>("Keep Earlier Versions")->isChecked());
    EXPECT_FALSE(control<QLineEdit>("Megabytes for Earlier Versions")->isEnabled());
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(VersionsPane, DeletingAsksFirstAndKeepsUnlessTheUserSaysSo) {
    keepVersion(QByteArray(2048, 'x'));
    keepCopy();
    open();
    click("Delete Earlier Versions");
    ASSERT_EQ(mAlerts.shown().size(), 1);
    const CVAlert& question = mAlerts.shown()[0];
    EXPECT_EQ(question.style, CVAlert::Style::Critical);
    EXPECT_EQ(question.defaultButton, "Keep");
    EXPECT_EQ(question.alternateButton, "Delete");
    EXPECT_EQ(question.escapeAnswer, CVAlert::kDefault);
    EXPECT_TRUE(question.message.startsWith("This deletes 4.0 kB in 2 files.")) << question.message.toStdString();
    EXPECT_TRUE(question.message.contains("(unreadable …)"));
    EXPECT_EQ(countOfVersions(), 1);
    EXPECT_EQ(CVKeptCopy::beside(dataFile()).size(), 1);
    mAlerts.answer({CVAlert::kOther});
    click("Delete Earlier Versions");
    EXPECT_EQ(countOfVersions(), 1);
    EXPECT_EQ(mHost.deletions, 0);

    mAlerts.answer({CVAlert::kAlternate});
    click("Delete Earlier Versions");
    EXPECT_EQ(mAlerts.shown().size(), 3);
    EXPECT_EQ(countOfVersions(), 0);
    EXPECT_TRUE(CVKeptCopy::beside(dataFile()).isEmpty());
    EXPECT_TRUE(QFile::exists(dataFile()));
    EXPECT_EQ(mHost.deletions, 1);
    EXPECT_EQ(size(), "Nothing");
    EXPECT_FALSE(deleteButton()->isEnabled());
    EXPECT_TRUE(control<QCheckBox>("Keep Earlier Versions")->hasFocus()) << "the focus is not lost";
}

TEST_F(VersionsPane, TheQuestionNamesTheMarksOfTheCopiesThatGo) {
    for (const CVKeptReason reason : {CVKeptReason::ReplacedWhenMoved, CVKeptReason::ChangedOutside,
                                      CVKeptReason::ChangedOutside, CVKeptReason::AsItWasRead})
        keepCopy(reason);
    open();
    EXPECT_EQ(size(), "4.0 kB in 4 files");
    mAlerts.answer({CVAlert::kAlternate});
    click("Delete Earlier Versions");
    const QString message = mAlerts.shown()[0].message;
    for (const char* const mark : {"“(changed outside …)”", "“(as it was read …)”", "“(replaced when moved …)”"})
        EXPECT_EQ(message.count(mark), 1) << mark << " in " << message.toStdString();
    EXPECT_FALSE(message.contains("unreadable"));
    EXPECT_TRUE(CVKeptCopy::beside(dataFile()).isEmpty());
}

TEST_F(VersionsPane, OnlyVersionsAreNotSaidToBeUnreadable) {
    keepVersion(QByteArray(2048, 'x'));
    open();
    click("Delete Earlier Versions");
    EXPECT_FALSE(mAlerts.shown()[0].message.contains("unreadable"));
}

TEST_F(VersionsPane, WhatCannotBeDeletedIsTold) {
    keepVersion(QByteArray(2048, 'x'));
    open();
    keepCopy();
    const QString kept = CVKeptCopy::beside(dataFile()).constFirst();
    // During the question, a folder that is not empty takes the place of the kept copy.
    class FolderInPlace final : public CVAlerts {
    public:
        explicit FolderInPlace(QString path) : mPath(std::move(path)) {}
        CVAlert::Answer run(QWidget* /*window*/, const CVAlert& alert) override {
            titles.append(alert.title);
            if (QFile::remove(mPath))
                QDir().mkpath(mPath + "/x");
            return CVAlert::kAlternate;
        }
        QStringList titles;

    private:
        QString mPath;
    } alerts(kept);
    mWindow = std::make_unique<CVPreferenceWindowController>(mDocument, mHost, alerts, mPanels, nullptr);
    mWindow->showWindow();
    click("Delete Earlier Versions");
    EXPECT_EQ(alerts.titles.size(), 2);
    EXPECT_EQ(alerts.titles.constLast(), "Not all earlier versions were deleted");
    EXPECT_EQ(countOfVersions(), 0);
    mWindow.reset();
}

} // namespace
