#include "widgets/CVFileDialogs.h"

#include "kit/Printers.h"
#include "kit/ScratchHome.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace {

/// Asks for a place to save, among three kinds of which two have the same suffix.
class CVFileDialogsTest : public testing::Test {
protected:
    /// `use` is called with the open dialog, and closes it.
    std::optional<CVSaveLocation> chosen(const std::function<void(QFileDialog& dialog)>& use) {
        QTimer::singleShot(0, &mWindow, [this, use] {
            auto* const dialog = mWindow.findChild<QFileDialog*>();
            ASSERT_TRUE(dialog);
            dialog->setDirectory(mHome.path());
            use(*dialog);
        });
        return mDialogs.chooseSaveLocation(
            mWindow, {"Export", "Export", "Mine", {{"Text", "txt"}, {"CSV", "csv"}, {"CSV, all", "csv"}}});
    }

    static QLineEdit& nameIn(const QFileDialog& dialog) { return *dialog.findChild<QLineEdit*>("fileNameEdit"); }

    /// Chooses a kind as a user does.
    static void pick(QFileDialog& dialog, int kind) {
        auto* const kinds = dialog.findChild<QComboBox*>("fileTypeCombo");
        for (int at = 0; at < kind; ++at)
            QTest::keyClick(kinds, Qt::Key_Down);
    }

    static void accept(QFileDialog& dialog) { QMetaObject::invokeMethod(&dialog, "accept"); }

    ScratchHome mHome;
    QWidget mWindow;
    CVFileDialogs mDialogs;
};

TEST_F(CVFileDialogsTest, TheFirstKindAndTheProposedNameAreChosenAtFirst) {
    const auto location = chosen(accept);
    ASSERT_TRUE(location);
    EXPECT_EQ(location->path, mHome.path("Mine.txt"));
    EXPECT_EQ(location->kind, 0);
    EXPECT_FALSE(chosen([](QFileDialog& dialog) { dialog.reject(); }));
}

TEST_F(CVFileDialogsTest, TheNameFollowsTheKind) {
    const auto location = chosen([](QFileDialog& dialog) {
        pick(dialog, 2);
        EXPECT_EQ(nameIn(dialog).text(), "Mine.csv");
        accept(dialog);
    });
    ASSERT_TRUE(location);
    EXPECT_EQ(location->path, mHome.path("Mine.csv"));
    EXPECT_EQ(location->kind, 2);
}

TEST_F(CVFileDialogsTest, ANameWithoutASuffixGetsThatOfTheKind) {
    const auto location = chosen([](QFileDialog& dialog) {
        pick(dialog, 1);
        nameIn(dialog).setText("another");
        accept(dialog);
    });
    ASSERT_TRUE(location);
    EXPECT_EQ(location->path, mHome.path("another.csv"));
    EXPECT_EQ(location->kind, 1);
}

TEST_F(CVFileDialogsTest, TheSuffixThatIsTypedTellsTheKindUnlessOneIsChosen) {
    struct Row {
        int picked;
        const char* name;
        int kind;
    };
    for (const Row& row :
         {Row{0, "a.csv", 1}, {0, "a.CSV", 1}, {2, "a.csv", 2}, {2, "a.txt", 2}, {2, "a.dat", 2}, {0, "a.b.txt", 0}}) {
        const auto location = chosen([&row](QFileDialog& dialog) {
            pick(dialog, row.picked);
            nameIn(dialog).setText(row.name);
            accept(dialog);
        });
        ASSERT_TRUE(location);
        EXPECT_EQ(location->path, mHome.path(row.name));
        EXPECT_EQ(location->kind, row.kind) << row.name;
    }
}

} // namespace
