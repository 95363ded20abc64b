#include "importing/panel/CVSplitWindow.h"

#include "kit/Printers.h"
#include "widgets/fields/CVCompletingComboBox.h"
#include "widgets/fields/CVMoneyField.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class CVSplitWindowTest : public testing::Test {
protected:
    CVSplitWindowTest() {
        CVImportLine line;
        line.hundredths = 5000;
        line.payee = "Market";
        line.category = "Food";
        mWindow = std::make_unique<CVSplitWindow>(line, QStringList{"Food", "Garden"}, nullptr);
        mWindow->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(mWindow.get()));
    }
    [[nodiscard]] CVMoneyField& amount(qsizetype place) const { return *mWindow->findChildren<CVMoneyField*>()[place]; }
    [[nodiscard]] CVCompletingComboBox& category(qsizetype place) const {
        return *mWindow->findChildren<CVCompletingComboBox*>()[place];
    }
    [[nodiscard]] QPushButton& split() const { return *mWindow->findChild<QPushButton*>("mSplitButton"); }
    [[nodiscard]] QString rest() const { return mWindow->findChild<QLabel*>("mRest")->text(); }

    std::unique_ptr<CVSplitWindow> mWindow;
};

TEST_F(CVSplitWindowTest, TheFirstPartKeepsWhatTheOthersLeave) {
    EXPECT_TRUE(amount(0).hasFocus());
    EXPECT_FALSE(split().isEnabled());
    QTest::keyClicks(&amount(0), "12.30");
    QTest::keyClick(&amount(0), Qt::Key_Tab);
    EXPECT_EQ(rest(), "$37.70, the rest");
    EXPECT_FALSE(split().isEnabled()) << "the part has no category";
    QTest::keyClicks(mWindow->focusWidget(), "gar");
    EXPECT_TRUE(split().isEnabled()) << "completed to Garden";
    QTest::keyClick(mWindow->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(mWindow->result(), QDialog::Accepted);
    const auto parts = mWindow->parts();
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_EQ(parts[0].hundredths, 3770);
    EXPECT_EQ(parts[0].category, "Food");
    EXPECT_EQ(parts[1].hundredths, 1230);
    EXPECT_EQ(parts[1].category, "Garden");
}

TEST_F(CVSplitWindowTest, AnAmountThatCannotBeReadSplitsNothing) {
    category(1).setEditText("Garden");
    QTest::keyClicks(&amount(0), "12x");
    QTest::mouseClick(&split(), Qt::LeftButton);
    EXPECT_FALSE(split().isEnabled());
    EXPECT_TRUE(mWindow->isVisible());
}

TEST_F(CVSplitWindowTest, MorePartsCanBeAddedAndEmptyOnesAreLeftOut) {
    QTest::mouseClick(mWindow->findChild<QPushButton*>("mAddPartButton"), Qt::LeftButton);
    EXPECT_TRUE(amount(1).hasFocus());
    QTest::keyClicks(&amount(1), "50");
    category(2).setEditText("Garden");
    QTest::keyClick(&amount(1), Qt::Key_Tab);
    EXPECT_FALSE(split().isEnabled()) << "the only part would be the whole line";
    QTest::keyClick(mWindow.get(), Qt::Key_Escape);
    EXPECT_EQ(mWindow->result(), QDialog::Rejected);
}

} // namespace
