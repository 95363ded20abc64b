#include "history/CVHistoryWindow.h"

#include "base/CVNotifications.h"
#include "differences/CVBudgetDifferences.h"
#include "history/CVHistoryHost.h"
#include "history/CVVersionTableModel.h"
#include "history/HistoryFixture.h"
#include "kit/DefaultLocale.h"
#include "kit/ScriptedAlerts.h"
#include "versions/CVVersionLimit.h"
#include "widgets/CVHelpOpener.h"
#include "widgets/tables/CVTableView.h"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QTest>

namespace {

class ScriptedHost final : public CVHistoryHost {
public:
    int bringBack(const CVDocument& version, const CVBudgetDifferences& lines) override {
        mTransactionsOfVersion = version.transactions().size();
        for (const CVTransactionDifference& line : lines.transactions)
            mBroughtBack.append(line.before->payTo());
        return mFits ? static_cast<int>(lines.transactions.size()) : 0;
    }
    bool returnTo(const QString& path, QWidget& asker) override {
        mReturnedTo.append(path);
        mAskers.append(asker.windowTitle());
        return mSucceeds;
    }
    bool saveCopy(const QString& path, QWidget& asker) override {
        mCopied.append(path);
        mAskers.append(asker.windowTitle());
        return mSucceeds;
    }

    bool mFits = true;
    bool mSucceeds = true;
    std::size_t mTransactionsOfVersion = 0;
    QStringList mBroughtBack;
    QStringList mReturnedTo;
    QStringList mCopied;
    QStringList mAskers;
};

class RecordingHelp final : public CVHelpOpener {
public:
    void showHelpPage(const QString& page, QWidget& /*asker*/) override { mPages.append(page); }
    QStringList mPages;
};

class CVHistoryWindowTest : public HistoryFixture {
protected:
    void open() {
        if (!mWindow)
            mWindow = std::make_unique<CVHistoryWindow>(mBudget.document(), mHost, mAlerts, &mHelp);
        mWindow->showWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(mWindow.get()));
        for (CVTableView* const table : {&versions(), &lines()})
            mTesters.push_back(std::make_unique<QAbstractItemModelTester>(
                table->model(), QAbstractItemModelTester::FailureReportingMode::Fatal));
        settle();
    }

    /// Waits until every version was compared.
    void settle() const {
        ASSERT_TRUE(QTest::qWaitFor(
            [this] {
                for (int row = 1; row < versions().model()->rowCount(); ++row) {
                    if (cell(versions(), row, CVVersionTableModel::Differences) == "…")
                        return false;
                }
                return !lines().accessibleDescription().startsWith("Reading");
            },
            30'000));
    }

    template <typename Widget>
    [[nodiscard]] Widget& find(const char* name) const {
        auto* const widget = mWindow->findChild<Widget*>(name);
        if (!widget)
            qFatal("the window has no %s", name);
        return *widget;
    }
    [[nodiscard]] CVTableView& versions() const { return find<CVTableView>("mVersionTable"); }
    [[nodiscard]] CVTableView& lines() const { return find<CVTableView>("mLineTable"); }
    [[nodiscard]] QString remark() const { return find<QLabel>("mRemark").text(); }
    [[nodiscard]] QString message() const { return lines().accessibleDescription(); }
    void click(const char* name) const { QTest::mouseClick(&find<QPushButton>(name), Qt::LeftButton); }
    [[nodiscard]] bool isEnabled(const char* name) const { return find<QPushButton>(name).isEnabled(); }

    [[nodiscard]] static QString cell(const CVTableView& table, int row, int column) {
        return table.model()->index(row, column).data().toString();
    }
    [[nodiscard]] static QStringList column(const CVTableView& table, int column) {
        QStringList texts;
        for (int row = 0; row < table.model()->rowCount(); ++row)
            texts.append(cell(table, row, column));
        return texts;
    }
    [[nodiscard]] QStringList payees() const { return column(lines(), CVVersionLinesColumn::ToFrom); }

    void chooseVersion(int row) const {
        versions().selectRow(row);
        settle();
    }

    /// A version with one purchase that is gone, without the butcher and with another amount of the baker's.
    QString keepMixed(const QDateTime& when) {
        BudgetBuilder version;
        version.category("Food", kFood).lastID(kFood);
        purchase(version, 1, 10, "Market");
        purchase(version, 2, 12, "Baker");
        purchase(version, 4, 1234.5, "Gone");
        return keep(bytesOf(version), CVVersionReason::FirstOfDay, when);
    }

    struct CVVersionLinesColumn {
        enum { What, Date, Amount, ToFrom };
    };

    ScriptedHost mHost;
    ScriptedAlerts mAlerts;
    RecordingHelp mHelp;
    std::unique_ptr<CVHistoryWindow> mWindow;
    std::vector<std::unique_ptr<QAbstractItemModelTester>> mTesters;
};

TEST_F(CVHistoryWindowTest, OpensWithTheNewestVersionAndWhatDiffersFromIt) {
    keepWith(2, CVVersionReason::Removal, at(7, 14, 2));
    keepMixed(at(6, 9, 15));
    open();
    EXPECT_EQ(mWindow->windowTitle(), "Earlier Versions");
    EXPECT_EQ(column(versions(), CVVersionTableModel::When),
              (QStringList{"now", "today 2:02 PM", "yesterday 9:15 AM"}));
    EXPECT_EQ(column(versions(), CVVersionTableModel::Kept),
              (QStringList{"the present budget", "before removing", "first change of the day"}));
    EXPECT_EQ(column(versions(), CVVersionTableModel::Transactions), (QStringList{"3", "5", "3"}));
    EXPECT_EQ(column(versions(), CVVersionTableModel::Differences), (QStringList{"", "−2", "+1 −1 ~1"}));
    EXPECT_EQ(versions().currentIndex().row(), 1);
    EXPECT_TRUE(versions().hasFocus());
    EXPECT_EQ(payees(), (QStringList{"Gone", "Gone"}));
    EXPECT_EQ(find<QCheckBox>("mRemovedBox").text(), "&Removed (2)");
    EXPECT_EQ(find<QCheckBox>("mAddedBox").text(), "&Added (0)");
}

TEST_F(CVHistoryWindowTest, ShowsTheLinesOfTheChosenVersionInTheFormatsOfTheUser) {
    keepWith(2, CVVersionReason::Removal, at(7, 14, 2));
    keepMixed(at(6, 9, 15));
    open();
    chooseVersion(2);
    EXPECT_EQ(column(lines(), CVVersionLinesColumn::What), (QStringList{"Removed", "Added", "Changed"}));
    EXPECT_EQ(column(lines(), CVVersionLinesColumn::Date), (QStringList{"3/4/14", "3/3/14", "3/2/14"}));
    EXPECT_EQ(column(lines(), CVVersionLinesColumn::Amount), (QStringList{"$1,234.50", "$30.00", "$12.00 → $20.00"}));
    EXPECT_EQ(payees(), (QStringList{"Gone", "Butcher", "Baker"}));
    const auto alignment = lines().model()->index(0, CVVersionLinesColumn::Amount).data(Qt::TextAlignmentRole);
    EXPECT_EQ(alignment.toInt(), static_cast<int>(Qt::AlignRight | Qt::AlignVCenter));
    const DefaultLocale german(QLocale(QLocale::German, QLocale::Germany));
    mBudget.notificationCenter().postNotification(CVNotifications::kMoneyFormatterChanged);
    EXPECT_EQ(cell(lines(), 0, CVVersionLinesColumn::Amount), "€1.234,50");
    EXPECT_EQ(cell(lines(), 0, CVVersionLinesColumn::Date), "04.03.14");
}

TEST_F(CVHistoryWindowTest, TheBoxesAndTheSearchChooseAmongTheLines) {
    keepMixed(at(6, 9, 15));
    open();
    find<QCheckBox>("mRemovedBox").click();
    EXPECT_EQ(payees(), (QStringList{"Butcher", "Baker"}));
    find<QCheckBox>("mChangedBox").click();
    EXPECT_EQ(payees(), QStringList{"Butcher"});
    find<QCheckBox>("mAddedBox").click();
    EXPECT_EQ(payees(), QStringList{});
    EXPECT_EQ(message(), "No line matches.");
    for (const char* const box : {"mRemovedBox", "mAddedBox", "mChangedBox"})
        find<QCheckBox>(box).setChecked(true);
    QTest::keyClick(mWindow.get(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(&find<QLineEdit>("mSearchField"), "baK");
    EXPECT_EQ(payees(), QStringList{"Baker"});
    QTest::keyClick(&find<QLineEdit>("mSearchField"), Qt::Key_Escape);
    EXPECT_EQ(payees().size(), 3) << "Escape clears the search first";
    EXPECT_TRUE(mWindow->isVisible());
    QTest::keyClick(&find<QLineEdit>("mSearchField"), Qt::Key_Escape);
    EXPECT_FALSE(mWindow->isVisible());
}

TEST_F(CVHistoryWindowTest, AClickOnAColumnSortsAndKeepsTheSelection) {
    keepMixed(at(6, 9, 15));
    open();
    lines().selectRow(0);
    QHeaderView& header = *lines().horizontalHeader();
    const int x = header.sectionViewportPosition(CVVersionLinesColumn::Amount) + 5;
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, QPoint(x, header.height() / 2));
    EXPECT_EQ(payees(), (QStringList{"Baker", "Butcher", "Gone"}));
    ASSERT_EQ(lines().selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(lines().selectionModel()->selectedRows()[0].row(), 2);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, QPoint(x, header.height() / 2));
    EXPECT_EQ(payees(), (QStringList{"Gone", "Butcher", "Baker"}));
}

TEST_F(CVHistoryWindowTest, BringsBackTheSelectedLinesThatWereRemovedOrChanged) {
    keepMixed(at(6, 9, 15));
    open();
    QPushButton& button = find<QPushButton>("mBringBackButton");
    EXPECT_FALSE(button.isEnabled());
    lines().selectRow(1);
    EXPECT_FALSE(button.isEnabled()) << "an added line has nothing to bring back";
    lines().selectRow(0);
    EXPECT_EQ(button.text(), "&Bring Back 1 Line");
    lines().selectAll();
    EXPECT_EQ(button.text(), "&Bring Back 2 Lines");
    EXPECT_EQ(button.accessibleName(), "Bring Back 2 Lines");
    click("mBringBackButton");
    EXPECT_EQ(mHost.mBroughtBack, (QStringList{"Gone", "Baker"}));
    EXPECT_EQ(mHost.mTransactionsOfVersion, 3U);
    EXPECT_EQ(remark(), "2 lines brought back");
    EXPECT_TRUE(lines().hasFocus());
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    mHost.mFits = false;
    lines().selectRow(0);
    click("mBringBackButton");
    EXPECT_EQ(remark(), "0 of 1 lines brought back; the others no longer fit the present budget");
}

TEST_F(CVHistoryWindowTest, AsksBeforeItReturnsToAVersion) {
    const QString path = keepMixed(at(6, 9, 15));
    open();
    mAlerts.answer({CVAlert::kAlternate});
    click("mReturnButton");
    EXPECT_EQ(mHost.mReturnedTo, QStringList{});
    click("mReturnButton");
    EXPECT_EQ(mHost.mReturnedTo, QStringList{path});
    ASSERT_EQ(mAlerts.shown().size(), 2);
    const CVAlert& alert = mAlerts.shown()[0];
    EXPECT_EQ(alert.title, "Return to the version “yesterday 9:15 AM”?");
    EXPECT_TRUE(alert.message.contains("kept as a version first"));
    EXPECT_EQ(alert.defaultButton, "Return");
    EXPECT_EQ(alert.alternateButton, "Cancel");
    EXPECT_EQ(alert.escapeAnswer, CVAlert::kAlternate);
    EXPECT_TRUE(remark().contains("yesterday 9:15 AM"));
    EXPECT_EQ(mAlerts.owners(), (QStringList{"Earlier Versions", "Earlier Versions"}));
}

TEST_F(CVHistoryWindowTest, SavesACopyOfAVersionAndOfTheBudget) {
    const QString path = keepMixed(at(6, 9, 15));
    open();
    click("mSaveCopyButton");
    EXPECT_EQ(remark(), "The copy was saved");
    chooseVersion(0);
    EXPECT_TRUE(isEnabled("mSaveCopyButton"));
    EXPECT_FALSE(isEnabled("mReturnButton"));
    mHost.mSucceeds = false;
    click("mSaveCopyButton");
    EXPECT_EQ(mHost.mCopied, (QStringList{path, ""}));
    EXPECT_EQ(remark(), "") << "nothing was saved";
}

TEST_F(CVHistoryWindowTest, AVersionThatCannotBeReadSaysWhyAndCanOnlyBeCopied) {
    keep(bytesOf(mBudget).chopped(60), CVVersionReason::Removal, at(7, 14));
    open();
    EXPECT_TRUE(cell(versions(), 1, CVVersionTableModel::Differences).startsWith("cannot be read: "));
    EXPECT_TRUE(message().startsWith("This version cannot be read: ")) << message().toStdString();
    EXPECT_FALSE(isEnabled("mReturnButton"));
    EXPECT_FALSE(isEnabled("mBringBackButton"));
    EXPECT_TRUE(isEnabled("mSaveCopyButton"));
}

TEST_F(CVHistoryWindowTest, FollowsTheBudget) {
    keepWith(0, CVVersionReason::Removal, at(7, 14));
    open();
    EXPECT_EQ(message(), "Nothing has changed since then.");
    mBudget.document().removeTransaction(mBudget.transactionAt(0));
    ASSERT_TRUE(QTest::qWaitFor([this] { return payees() == QStringList{"Market"}; }));
    EXPECT_EQ(column(versions(), CVVersionTableModel::Transactions), (QStringList{"2", "3"}));
    EXPECT_EQ(cell(versions(), 1, CVVersionTableModel::Differences), "−1");
    // A change of a field is announced by the save alone.
    mBudget.transactionAt(0)->setAmount(25);
    mWindow->versionsChanged();
    ASSERT_TRUE(QTest::qWaitFor([this] { return payees().size() == 2; }));
}

TEST_F(CVHistoryWindowTest, TheSelectionAndThePlaceStayWhenTheBudgetChanges) {
    keepWith(60, CVVersionReason::Removal, at(7, 14));
    open();
    ASSERT_EQ(payees().size(), 60);
    lines().selectRow(41);
    QScrollBar& bar = *lines().verticalScrollBar();
    bar.setValue(bar.maximum() / 2);
    const int place = bar.value();
    ASSERT_GT(place, 0);
    const QString amount = cell(lines(), 41, CVVersionLinesColumn::Amount);
    mBudget.document().removeTransaction(mBudget.transactionAt(0));
    ASSERT_TRUE(QTest::qWaitFor([this] { return payees().size() == 61; }));
    const QModelIndexList selected = lines().selectionModel()->selectedRows();
    ASSERT_EQ(selected.size(), 1);
    EXPECT_EQ(cell(lines(), selected[0].row(), CVVersionLinesColumn::Amount), amount);
    EXPECT_EQ(bar.value(), place);
    EXPECT_TRUE(isEnabled("mBringBackButton"));
}

TEST_F(CVHistoryWindowTest, AVersionThatIsKeptMeanwhileIsChosenOnlyWhileTheUserHasChosenNone) {
    keepWith(1, CVVersionReason::FirstOfDay, at(6, 9));
    open();
    keepWith(2, CVVersionReason::Removal, at(7, 14));
    mWindow->versionsChanged();
    ASSERT_TRUE(QTest::qWaitFor([this] { return payees().size() == 2; })) << "the newest one";
    EXPECT_EQ(versions().currentIndex().row(), 1);
    chooseVersion(2);
    ASSERT_EQ(payees().size(), 1);
    keepWith(5, CVVersionReason::Removal, at(7, 15));
    mWindow->versionsChanged();
    ASSERT_TRUE(QTest::qWaitFor([this] { return versions().model()->rowCount() == 4; }));
    settle();
    EXPECT_EQ(versions().currentIndex().row(), 3);
    EXPECT_EQ(payees().size(), 1);
}

TEST_F(CVHistoryWindowTest, WithoutVersionsItSaysWhenOneIsKept) {
    open();
    EXPECT_EQ(column(versions(), CVVersionTableModel::When), QStringList{"now"});
    EXPECT_TRUE(message().contains("no earlier versions yet")) << message().toStdString();
    CVSetVersionLimit(mBudget.userDefaults(), 0);
    mWindow->close();
    open();
    EXPECT_TRUE(message().startsWith("No earlier versions are kept.")) << message().toStdString();
}

TEST_F(CVHistoryWindowTest, ClosingStopsTheReadingAndForgetsTheLines) {
    keepWith(2, CVVersionReason::Removal, at(7, 14));
    open();
    QTest::keyClick(&versions(), Qt::Key_Escape);
    EXPECT_FALSE(mWindow->isVisible());
    EXPECT_EQ(lines().model()->rowCount(), 0);
    mBudget.document().removeTransaction(mBudget.transactionAt(0));
    mWindow->versionsChanged();
    open();
    EXPECT_EQ(payees().size(), 3);
}

TEST_F(CVHistoryWindowTest, AnotherDocumentIsComparedFromThenOn) {
    keepWith(0, CVVersionReason::Removal, at(7, 14));
    open();
    BudgetBuilder other;
    other.category("Food", kFood).lastID(kFood);
    CountingSaver saver;
    saver.setDataFiles({mDataFile});
    other.document().setSaver(&saver);
    mWindow->setDocument(other.document());
    ASSERT_TRUE(QTest::qWaitFor([this] { return payees().size() == 3; }));
    mWindow.reset();
}

TEST_F(CVHistoryWindowTest, LooksAreRemembered) {
    keepMixed(at(6, 9, 15));
    open();
    mWindow->resize(700, 500);
    lines().setColumnWidth(CVVersionLinesColumn::ToFrom, 77);
    versions().setColumnWidth(CVVersionTableModel::Kept, 99);
    find<QSplitter>("mSplitter").setSizes({150, 250});
    const QList<int> sizes = find<QSplitter>("mSplitter").sizes();
    mWindow.reset();
    mTesters.clear();
    open();
    EXPECT_EQ(mWindow->size(), QSize(700, 500));
    EXPECT_EQ(lines().columnWidth(CVVersionLinesColumn::ToFrom), 77);
    EXPECT_EQ(versions().columnWidth(CVVersionTableModel::Kept), 99);
    EXPECT_EQ(find<QSplitter>("mSplitter").sizes(), sizes);
}

TEST_F(CVHistoryWindowTest, EveryControlHasANameAndAPlaceInTheTabOrder) {
    keepMixed(at(6, 9, 15));
    open();
    lines().selectRow(0);
    QStringList order;
    QWidget* control = &versions();
    do {
        order.append(control->objectName());
        EXPECT_FALSE(control->accessibleName().isEmpty() && qobject_cast<QCheckBox*>(control) == nullptr)
            << control->objectName().toStdString();
        QTest::keyClick(control, Qt::Key_Tab);
        control = mWindow->focusWidget();
    } while (control != &versions() && order.size() < 20);
    EXPECT_EQ(order,
              (QStringList{"mVersionTable", "mRemovedBox", "mAddedBox", "mChangedBox", "mSearchField", "mLineTable",
                           "mSaveCopyButton", "mReturnButton", "mBringBackButton", "mHelpButton", "mCloseButton"}));
    click("mHelpButton");
    EXPECT_EQ(mHelp.mPages, QStringList{"EarlierVersions.html"});
}

} // namespace
