#include "kit/Day.h"
#include "kit/FixedToday.h"
#include "kit/Printers.h"
#include "widgets/fields/CVCompletingComboBox.h"
#include "widgets/fields/CVDateField.h"
#include "widgets/fields/CVMoneyField.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

namespace {

enum Column { DateColumn, AmountColumn, CategoryColumn, ColumnCount };

/// Edits the cells of a table with the fields of the entry strip, as the real tables do.
class FieldDelegate final : public QStyledItemDelegate {
public:
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                          const QModelIndex& index) const override {
        if (index.column() == CategoryColumn) {
            auto* const box = new CVCompletingComboBox(parent);
            box->setFrame(false);
            box->setItems({"Car", "Growth", "Groceries"});
            return box;
        }
        CVFormattedField* const field = index.column() == DateColumn
                                            ? static_cast<CVFormattedField*>(new CVDateField(parent))
                                            : new CVMoneyField(parent);
        field->setFrame(false);
        field->setAutoFillBackground(true);
        return field;
    }

    void setEditorData(QWidget* editor, const QModelIndex& index) const override {
        const QVariant value = index.data(Qt::EditRole);
        if (auto* const date = qobject_cast<CVDateField*>(editor))
            date->setQBDateValue(QBDate::dateWithNSDate(value.toDate().startOfDay()));
        else if (auto* const amount = qobject_cast<CVMoneyField*>(editor))
            amount->setDoubleValue(value.toDouble());
        else
            QStyledItemDelegate::setEditorData(editor, index);
    }

    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override {
        auto* const field = qobject_cast<CVFormattedField*>(editor);
        if (!field) {
            QStyledItemDelegate::setModelData(editor, model, index);
            return;
        }
        field->endEditing();
        if (!field->isReadable())
            return;
        if (auto* const date = qobject_cast<CVDateField*>(editor))
            model->setData(index, date->QBDateValue().nsCalendarDate().date());
        else
            model->setData(index, static_cast<CVMoneyField*>(editor)->doubleValue());
    }
};

class FieldsInCellsTest : public testing::Test {
protected:
    FieldsInCellsTest() {
        mModel.setData(mModel.index(0, DateColumn), QDate(2014, 3, 7));
        mModel.setData(mModel.index(0, AmountColumn), 5.0);
        mModel.setData(mModel.index(0, CategoryColumn), "Car");
        mTable.setModel(&mModel);
        mTable.setItemDelegate(&mDelegate);
        mTable.resize(600, 200);
        mTable.show();
        mTable.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mTable));
        mTable.setFocus();
    }

    template <typename Editor>
    [[nodiscard]] Editor* edit(Column column) {
        mTable.setCurrentIndex(mModel.index(0, column));
        mTable.edit(mModel.index(0, column));
        auto* const editor = mTable.viewport()->findChild<Editor*>();
        EXPECT_NE(editor, nullptr);
        return editor;
    }

    static void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    static void type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }

    [[nodiscard]] QVariant value(Column column) const { return mModel.index(0, column).data(Qt::EditRole); }

    [[nodiscard]] bool isEditing() const { return mTable.viewport()->findChild<QLineEdit*>() != nullptr; }

    /// Whether the editor closes; editors are deleted in the event loop.
    [[nodiscard]] bool closes() const {
        return QTest::qWaitFor([this] { return !isEditing(); });
    }

    FixedToday mToday{day(2014, 3, 12)};
    QStandardItemModel mModel{1, ColumnCount};
    FieldDelegate mDelegate;
    QTableView mTable;
};

TEST_F(FieldsInCellsTest, FieldsFillTheirCellsWithTheTextSelected) {
    struct {
        Column column;
        const char* text;
    } const rows[] = {{DateColumn, "3/7/14"}, {AmountColumn, "$5.00"}, {CategoryColumn, "Car"}};
    for (const auto& row : rows) {
        mTable.setColumnWidth(row.column, 180);
        auto* const field = edit<QLineEdit>(row.column);
        EXPECT_EQ(field->selectedText(), row.text);
        const QWidget* const editor = field->parentWidget() == mTable.viewport() ? field : field->parentWidget();
        const QRect cell = mTable.visualRect(mModel.index(0, row.column));
        EXPECT_TRUE(cell.contains(editor->geometry())) << row.text;
        EXPECT_GE(editor->width(), cell.width() - 2) << row.text;
        EXPECT_GE(editor->height(), cell.height() - 2) << row.text;
        press(Qt::Key_Escape);
        EXPECT_TRUE(closes());
    }
}

TEST_F(FieldsInCellsTest, ReturnAndTabCommitWhatWasTyped) {
    struct {
        Column column;
        const char* typed;
        QVariant value;
    } const rows[] = {
        {DateColumn, "9", QDate(2014, 3, 9)}, {AmountColumn, "12+3*2", 18.0}, {CategoryColumn, "gro", "Growth"}};
    for (const auto& row : rows) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab}) {
            const QVariant before = value(row.column);
            EXPECT_NE(edit<QLineEdit>(row.column), nullptr);
            type(row.typed);
            press(key);
            EXPECT_TRUE(QTest::qWaitFor([&] { return value(row.column) == row.value; })) << row.typed << key;
            // Tab opens the editor of the next cell.
            if (isEditing())
                press(Qt::Key_Escape);
            EXPECT_TRUE(closes()) << row.typed << key;
            mModel.setData(mModel.index(0, row.column), before);
        }
    }
}

TEST_F(FieldsInCellsTest, EscapeLeavesTheCellAsItWas) {
    struct {
        Column column;
        const char* typed;
    } const rows[] = {{DateColumn, "9"}, {AmountColumn, "12"}, {CategoryColumn, "gro"}};
    for (const auto& row : rows) {
        const QVariant before = value(row.column);
        EXPECT_NE(edit<QLineEdit>(row.column), nullptr);
        type(row.typed);
        press(Qt::Key_Escape);
        EXPECT_TRUE(closes());
        EXPECT_EQ(value(row.column), before);
    }
}

TEST_F(FieldsInCellsTest, WhatWasTypedAndUndoneIsNotCommitted) {
    for (const char* typed : {"Zed", "gro"}) {
        EXPECT_NE(edit<QLineEdit>(CategoryColumn), nullptr);
        type(typed);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier);
        press(Qt::Key_Return);
        EXPECT_TRUE(closes());
        EXPECT_EQ(value(CategoryColumn), "Car") << typed;
    }
}

TEST_F(FieldsInCellsTest, ATextThatCannotBeReadLeavesTheCellAsItWas) {
    for (const Column column : {DateColumn, AmountColumn}) {
        const QVariant before = value(column);
        EXPECT_NE(edit<QLineEdit>(column), nullptr);
        type("1+x");
        press(Qt::Key_Return);
        EXPECT_TRUE(closes());
        EXPECT_EQ(value(column), before);
    }
}

TEST_F(FieldsInCellsTest, AKeyStartsTheEditorWithItsCharacterInPlaceOfTheText) {
    mTable.setCurrentIndex(mModel.index(0, CategoryColumn));
    mTable.setEditTriggers(QAbstractItemView::AnyKeyPressed);
    QTest::keyClicks(&mTable, "g");
    ASSERT_TRUE(isEditing());
    EXPECT_EQ(mTable.viewport()->findChild<CVCompletingComboBox*>()->currentText(), "Growth");
    press(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return value(CategoryColumn) == "Growth"; }));
}

TEST_F(FieldsInCellsTest, TheArrowKeysStepTheDayWithoutLeavingTheCell) {
    EXPECT_NE(edit<CVDateField>(DateColumn), nullptr);
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return value(DateColumn) == QDate(2014, 3, 9); }));
}

TEST_F(FieldsInCellsTest, TheCalendarOfACellChoosesItsDay) {
    auto* const field = edit<CVDateField>(DateColumn);
    field->showCalendar();
    auto* const calendar = field->findChild<QCalendarWidget*>();
    ASSERT_NE(calendar, nullptr);
    QCoreApplication::processEvents();
    ASSERT_TRUE(isEditing()) << "opening the calendar ends the editing";
    press(Qt::Key_Right);
    press(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([field] { return field->hasFocus(); }));
    press(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return value(DateColumn) == QDate(2014, 3, 8); }));
}

TEST_F(FieldsInCellsTest, GoingOnToAnotherPlaceCommits) {
    EXPECT_NE(edit<CVMoneyField>(AmountColumn), nullptr);
    type("7");
    mTable.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(value(AmountColumn), 7.0);
    EXPECT_TRUE(closes());
}

} // namespace
