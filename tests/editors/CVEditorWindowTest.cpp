#include "editors/CVCategoryEditController.h"
#include "editors/CVTransactionSetController.h"
#include "editors/CVTransactionWindowController.h"
#include "editors/EditorFixture.h"
#include "kit/ScreenRows.h"
#include "widgets/CVHelpOpener.h"

#include <QHeaderView>
#include <QLineEdit>

namespace {

class RecordingHelp final : public CVHelpOpener {
public:
    void showHelpPage(const QString& page, QWidget& /*asker*/) override { mPages.append(page); }
    [[nodiscard]] const QStringList& pages() const { return mPages; }

private:
    QStringList mPages;
};

/// The behaviour common to all three editors, tested with the category editor.
class CVEditorWindowTest : public EditorFixture {
protected:
    CVEditorWindowTest() : EditorFixture("mCategoryEditTable") { mBudget.category("Food", 1).category("Fuel", 2); }

    void open(CVHelpOpener* help = nullptr) { EditorFixture::open<CVCategoryEditController>(mAlerts, help); }
};

TEST_F(CVEditorWindowTest, AllAreModalForTheApplication) {
    const CVCategoryEditController categories(document(), mAlerts);
    const CVTransactionSetController sets(document(), mAlerts);
    const CVTransactionWindowController transactions(document(), {});
    for (const QDialog* const window : {static_cast<const QDialog*>(&categories), static_cast<const QDialog*>(&sets),
                                        static_cast<const QDialog*>(&transactions)}) {
        EXPECT_EQ(window->windowModality(), Qt::ApplicationModal) << window->windowTitle().toStdString();
        EXPECT_EQ(window->findChild<CVEditorTable*>()->focusPolicy(), Qt::StrongFocus);
        for (const auto* const button : window->findChildren<QPushButton*>())
            EXPECT_FALSE(button->isDefault() || button->autoDefault()) << button->text().toStdString();
    }
    EXPECT_EQ(categories.findChild<CVEditorTable*>()->accessibleName(), "Categories Editor");
    EXPECT_EQ(sets.findChild<CVEditorTable*>()->accessibleName(), "Transaction Sets Editor");
    EXPECT_EQ(transactions.findChild<CVEditorTable*>()->accessibleName(), "Cell Transactions");
    for (const auto& [field, name] :
         {std::pair("mSpentField", "Spent"), std::pair("mPlannedField", "Planned"),
          std::pair("mDiffereceField", "Difference"), std::pair("mCategoryField", "Category")})
        EXPECT_EQ(transactions.findChild<QLineEdit*>(field)->accessibleName(), name);
}

TEST_F(CVEditorWindowTest, EveryWayOfClosingKeepsWhatIsBeingTyped) {
    struct Case {
        const char* way;
        void (*close)(QDialog& window, QPushButton& button);
    };
    const Case cases[] = {
        {"the window's own button", [](QDialog& window, QPushButton&) { window.close(); }},
        {"Ctrl+W", [](QDialog&, QPushButton&) { press(Qt::Key_W, Qt::ControlModifier); }},
        {"Close", [](QDialog&, QPushButton& button) { QTest::mouseClick(&button, Qt::LeftButton); }},
    };
    for (const auto& [way, close] : cases) {
        open();
        clickCell(0, 0);
        startRenaming(way);
        close(window(), *button("Close"));
        EXPECT_FALSE(window().isVisible()) << way;
        EXPECT_EQ(mBudget.categoryNamed(way)->uniqueID(), 1U);
        mBudget.categoryNamed(way)->setCategoryName("Food");
        document().sortCategories();
    }
    EXPECT_EQ(mSaver.count(), 3);
}

TEST_F(CVEditorWindowTest, ANameIsAsLongAfterItsCellWasOpenedAsBefore) {
    const QString name = QString(40'000, 'x') + "end";
    mBudget.categoryNamed("Food")->setCategoryName(name);
    open();
    table().editRow(0);
    commit();
    EXPECT_EQ(mBudget.categoryNamed(name)->uniqueID(), 1U);
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(CVEditorWindowTest, ATextThatIsSetWithoutTheFocusIsKeptToo) {
    open();
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&other] { return QApplication::activeWindow() == &other; }));
    table().editRow(0);
    auto* const field = qobject_cast<QLineEdit*>(table().indexWidget(cell(0, 0)));
    ASSERT_NE(field, nullptr);
    ASSERT_FALSE(field->hasFocus());
    field->setText("Bread");
    window().close();
    EXPECT_EQ(mBudget.categoryNamed("Bread")->uniqueID(), 1U);
}

TEST_F(CVEditorWindowTest, AWindowThatEndsWithTheProgramKeepsWhatIsBeingTyped) {
    open();
    clickCell(0, 0);
    startRenaming("Bread");
    mWindow.reset();
    EXPECT_EQ(mBudget.categoryNamed("Bread")->uniqueID(), 1U);
    EXPECT_EQ(mSaver.count(), 1);
}

TEST_F(CVEditorWindowTest, EscapeGivesUpAnEditAndThenClosesTheWindow) {
    open();
    clickCell(0, 0);
    startRenaming("Bread");
    commit(Qt::Key_Escape);
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(mSaver.count(), 0);
    commit(Qt::Key_Escape);
    EXPECT_FALSE(window().isVisible());
}

TEST_F(CVEditorWindowTest, ReturnEditsTheRowAndPressesNoButton) {
    open();
    clickCell(1, 1);
    press(Qt::Key_Return);
    ASSERT_NE(qobject_cast<QLineEdit*>(QApplication::focusWidget()), nullptr);
    type("Petrol");
    commit();
    EXPECT_EQ(mBudget.categoryNamed("Petrol")->uniqueID(), 2U);
    EXPECT_TRUE(table().hasFocus());
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(document().countOfCategories(), 2U);
}

TEST_F(CVEditorWindowTest, HomeAndEndLeadToTheFirstAndTheLastRow) {
    for (int i = 3; i < 60; ++i)
        mBudget.category(QString("Rent %1").arg(i), static_cast<quint32>(i));
    open();
    const int last = table().model()->rowCount() - 1;
    for (const Qt::KeyboardModifiers modifiers : {Qt::NoModifier, Qt::ControlModifier}) {
        clickCell(1, 1);
        press(Qt::Key_End, modifiers);
        EXPECT_EQ(table().currentIndex().row(), last);
        EXPECT_TRUE(isVisible(last));
        press(Qt::Key_Home, modifiers);
        EXPECT_EQ(table().currentIndex().row(), 0);
        EXPECT_TRUE(isVisible(0));
    }
    clickCell(1, 1);
    press(Qt::Key_Home);
    EXPECT_EQ(table().selectedRows(), std::vector{0});
    press(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(table().selectedRows().size(), static_cast<std::size_t>(last) + 1) << "as far as the key led";
}

TEST_F(CVEditorWindowTest, TabLeadsFromTheTableToEveryButton) {
    open();
    clickCell(1, 0);
    QStringList visited;
    for (int i = 0; i < 3; ++i) {
        press(Qt::Key_Tab);
        visited.append(QApplication::focusWidget()->accessibleName());
    }
    EXPECT_EQ(visited, (QStringList{"Add", "Delete", "Close"}));
}

TEST_F(CVEditorWindowTest, TheFrameIsRemembered) {
    open();
    window().resize(612, 433);
    window().close();
    EXPECT_FALSE(mBudget.userDefaults().dataForKey("Category Editor").isEmpty());
    open();
    EXPECT_EQ(window().size(), QSize(612, 433));
    const CVTransactionSetController sets(document(), mAlerts);
    EXPECT_NE(sets.size(), QSize(612, 433)) << "each has its own";
}

TEST_F(CVEditorWindowTest, TheWidthsOfTheColumnsAreRemembered) {
    open();
    const int usual = table().columnWidth(1);
    table().setColumnWidth(1, usual + 23);
    window().close();
    open();
    EXPECT_EQ(table().columnWidth(1), usual + 23);
}

TEST_F(CVEditorWindowTest, HelpIsOfferedOnlyWhereThereIsSomeoneToShowIt) {
    open();
    EXPECT_EQ(button("Help"), nullptr);
    RecordingHelp help;
    open(&help);
    clickButton("Help");
    mWindow = std::make_unique<CVTransactionSetController>(document(), mAlerts, &help);
    button("Help")->click();
    EXPECT_EQ(help.pages(), (QStringList{"Categories.html", "TransactionSets.html"}));
}

TEST_F(CVEditorWindowTest, AnEmptyBoxCanBeSeenOnADarkGround) {
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(50, 50, 50), QColor(40, 40, 40));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    QApplication::setPalette(dark);
    mBudget.transaction({.date = day(2014, 3, 6), .amount = 1});
    CVTransactionWindowController transactions(document(), document().transactions());
    transactions.show();
    auto* const table = transactions.findChild<CVEditorTable*>();
    const QImage cell = table->viewport()->grab(table->visualRect(table->model()->index(0, 0))).toImage();
    int brightest = 0;
    for (int x = 0; x < cell.width(); ++x)
        brightest = qMax(brightest, qGray(cell.pixel(x, cell.height() / 2)));
    EXPECT_GT(brightest, 110);
    QApplication::setPalette(before);
}

TEST_F(CVEditorWindowTest, NothingIsCutWithTwiceTheTextSize) {
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPointSizeF(font.pointSizeF() * 2);
    QApplication::setFont(font);
    const auto fits = [](QDialog& window) {
        window.show();
        EXPECT_LE(window.minimumSizeHint().width(), 1280) << window.windowTitle().toStdString();
        EXPECT_LE(window.minimumSizeHint().height(), 720) << window.windowTitle().toStdString();
        for (const auto* const button : window.findChildren<QPushButton*>())
            EXPECT_GE(button->width(), button->minimumSizeHint().width()) << button->text().toStdString();
        const auto* const table = window.findChild<CVEditorTable*>();
        EXPECT_GT(table->verticalHeader()->defaultSectionSize(), table->fontMetrics().height());
        for (int column = 0; column < table->model()->columnCount(); ++column)
            EXPECT_GE(table->columnWidth(column), table->horizontalHeader()->sectionSizeHint(column)) << column;
    };
    CVCategoryEditController categories(document(), mAlerts);
    fits(categories);
    CVTransactionSetController sets(document(), mAlerts);
    fits(sets);
    CVTransactionWindowController transactions(document(), {});
    fits(transactions);
    QApplication::setFont(before);
}

TEST_F(CVEditorWindowTest, EveryEditorFitsEveryScreenWithSomeRows) {
    const QFont before = QApplication::font();
    mBudget.transaction({.date = day(2014, 3, 6), .amount = 98'765'432.1, .category = "Food"});
    RecordingHelp help;
    for (const ScreenRow& screen : kScreenRows) {
        QFont font = before;
        font.setPixelSize(screen.letterPixels);
        QApplication::setFont(font);
        const auto fits = [&screen](QDialog& window) {
            SCOPED_TRACE(window.windowTitle().toStdString() + " on " + screen.name);
            window.show();
            window.resize(screen.inside);
            QCoreApplication::processEvents();
            EXPECT_EQ(window.size(), screen.inside) << "its smallest size is larger";
            for (const auto* const widget : window.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
                EXPECT_TRUE(widget->isHidden() || window.rect().contains(widget->geometry()));
            for (const auto* const button : window.findChildren<QPushButton*>())
                EXPECT_GE(button->width(), button->minimumSizeHint().width()) << button->text().toStdString();
            const auto* const table = window.findChild<CVEditorTable*>();
            EXPECT_GE(table->viewport()->height() / table->rowHeight(), 4);
        };
        CVCategoryEditController categories(document(), mAlerts, &help);
        fits(categories);
        CVTransactionSetController sets(document(), mAlerts, &help);
        fits(sets);
        CVTransactionWindowController transactions(document(), document().transactions());
        fits(transactions);
    }
    QApplication::setFont(before);
}

} // namespace
