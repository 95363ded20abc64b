#include "workspace/MainWindowFixture.h"

#include <QPushButton>
#include <QSet>
#include <QTabWidget>

namespace {

/// The focus after a command that was given while another widget had the focus.
class MainWindowFocusTest : public MainWindowFixture {
protected:
    void SetUp() override {
        mBudget.category("Food", 1).lastID(1);
        for (int i = 1; i <= 3; ++i) {
            mBudget.transaction(
                {.date = day(2014, 3, i), .amount = 10.0 * i, .payTo = QString("Shop %1").arg(i), .category = "Food"});
        }
        mBudget.inOrder();
        open();
    }

    /// Opens the editor of the first payee, types a text and leaves the editor open.
    void typeIntoCell(const QString& text) const {
        table().setFocus();
        table().setCurrentIndex(table().model()->index(0, Column::ToFrom));
        press(Qt::Key_F2);
        ASSERT_NE(QApplication::focusWidget(), &table());
        type(text);
    }

    static std::string nameOf(const QWidget& widget) {
        return (widget.objectName() + u' ' + widget.metaObject()->className()).toStdString();
    }

    /// Whether one widget stands above the other or before it on the same line.
    [[nodiscard]] bool isReadBefore(const QWidget& one, const QWidget& other) const {
        const QRect first(one.mapTo(&window(), QPoint()), one.size());
        const QRect second(other.mapTo(&window(), QPoint()), other.size());
        const bool isOnOneLine = first.top() <= second.center().y() && second.top() <= first.center().y();
        return isOnOneLine ? first.left() < second.left() : first.top() < second.top();
    }

    [[nodiscard]] QWidget* focused() const { return window().focusWidget(); }
};

TEST_F(MainWindowFocusTest, AHeaderClickedWhileACellIsEditedLeadsToTheTable) {
    typeIntoCell("Bazaar");
    clickHeader(Column::Amount);
    EXPECT_EQ(column(Column::ToFrom), (QStringList{"Shop 1", "Shop 2", "Bazaar"}));
    EXPECT_EQ(focused(), &table());
    const int before = table().currentIndex().row();
    press(Qt::Key_Up);
    EXPECT_EQ(table().currentIndex().row(), before - 1);
}

TEST_F(MainWindowFocusTest, ACancelledExportLeadsToTheTable) {
    typeIntoCell("Bazaar");
    mController->exportTransactions();
    press(Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(mPanels.asked().size(), 2);
    EXPECT_EQ(column(Column::ToFrom).first(), "Bazaar");
    EXPECT_EQ(focused(), &table());
}

TEST_F(MainWindowFocusTest, TheRemoveButtonLeadsToTheTable) {
    table().selectRow(1);
    auto* const remove = find<QPushButton>("mRemoveTransactionButton");
    remove->setFocus();
    mAlerts.answer({CVAlert::kDefault});
    press(Qt::Key_Space);
    EXPECT_EQ(column(Column::ToFrom), (QStringList{"Shop 3", "Shop 1"}));
    EXPECT_FALSE(remove->isEnabled());
    EXPECT_EQ(focused(), &table());
}

/// Collects the toolkit's warnings while this object lives.
class Complaints {
public:
    Complaints() { qInstallMessageHandler(note); }
    ~Complaints() { qInstallMessageHandler(nullptr); }
    Complaints(const Complaints&) = delete;
    Complaints& operator=(const Complaints&) = delete;

    [[nodiscard]] static QStringList& all() {
        static QStringList all;
        return all;
    }

private:
    static void note(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& text) {
        all().append(text);
    }
};

TEST_F(MainWindowFocusTest, TabFollowsTheEyeFromTopToBottomAndFromLeftToRight) {
    mBudget.set("Checking", 4).set("Savings", 5);
    mController->getStarted();
    for (int tab = 0; tab < 3; ++tab) {
        SCOPED_TRACE(tab);
        find<QTabWidget>("mMainTabView")->setCurrentIndex(tab);
        auto* const first = find<QWidget>("mExpenseDate");
        first->setFocus();
        QSet<const QWidget*> met;
        const QWidget* before = first;
        for (press(Qt::Key_Tab); focused() != first; press(Qt::Key_Tab)) {
            EXPECT_TRUE(isReadBefore(*before, *focused())) << nameOf(*before) << ", then " << nameOf(*focused());
            before = focused();
            met.insert(before);
            ASSERT_LT(met.size(), 40);
        }
        EXPECT_TRUE(met.contains(find<QWidget>("mTransactionSet")));
        EXPECT_GT(met.size(), 10);
    }
}

TEST_F(MainWindowFocusTest, ReturnOnAFlagEditsNothing) {
    table().setFocus();
    table().setCurrentIndex(table().model()->index(0, Column::UserFlag));
    Complaints::all().clear();
    const Complaints complaints;
    press(Qt::Key_Return);
    EXPECT_EQ(Complaints::all(), QStringList()) << "the toolkit was asked to edit what has no editor";
    EXPECT_EQ(focused(), &table());
}

TEST_F(MainWindowFocusTest, SpaceMovesNothingWhereThereIsNoFlag) {
    table().setFocus();
    table().setCurrentIndex(table().model()->index(1, Column::ToFrom));
    press(Qt::Key_Space);
    EXPECT_EQ(table().currentIndex(), table().model()->index(1, Column::ToFrom));
    for (int i = 0; i < 3; ++i)
        press(Qt::Key_Right);
    press(Qt::Key_Space);
    EXPECT_TRUE(document().transactions()[1]->taxFlag());
}

TEST_F(MainWindowFocusTest, TheEditorsOfCellsHaveTheNamesOfTheirColumns) {
    for (const Column column : {Column::Date, Column::Amount, Column::ToFrom, Column::For, Column::Category}) {
        table().setFocus();
        table().setCurrentIndex(table().model()->index(0, column));
        press(Qt::Key_F2);
        QWidget* const editor = table().indexWidget(table().currentIndex());
        ASSERT_NE(editor, nullptr) << column;
        EXPECT_EQ(editor->accessibleName(), CVTransactionText::title(column));
        press(Qt::Key_Escape);
    }
}

} // namespace
