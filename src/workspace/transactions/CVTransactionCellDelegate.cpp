#include "workspace/transactions/CVTransactionCellDelegate.h"

#include "base/QBXMLText.h"
#include "widgets/CVSetAccessibleName.h"
#include "widgets/fields/CVCompletingComboBox.h"
#include "widgets/fields/CVDateField.h"
#include "widgets/fields/CVFieldNote.h"
#include "widgets/fields/CVMoneyField.h"
#include "widgets/tables/CVCheckCell.h"
#include "widgets/tables/CVRefuseUnreadableText.h"
#include "workspace/transactions/CVTransactionTableModel.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QPainter>

namespace {

constexpr int kTintAlpha = 70;

using Model = CVTransactionTableModel;

/// The property of a date editor that is true once the user has entered a date.
constexpr const char* kTouched = "touched";

CVDateField* makeDateField(QWidget* parent) {
    auto* const field = new CVDateField(parent);
    const auto touch = [field] { field->setProperty(kTouched, true); };
    QObject::connect(field, &QLineEdit::textEdited, field, touch);
    QObject::connect(field, &CVDateField::dateEntered, field, touch);
    return field;
}

QColor tint(const QPalette& palette) {
    QColor tint = palette.color(QPalette::Highlight);
    tint.setAlpha(kTintAlpha);
    return tint;
}

CVCompletingComboBox* makeBox(const QStringList& items, QWidget* parent) {
    auto* const box = new CVCompletingComboBox(parent);
    box->setItems(items);
    return box;
}

} // namespace

void CVTransactionCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const {
    if (index.row() == mTintedRow)
        painter->fillRect(option.rect, tint(option.palette));
    CVCellDelegate::paint(painter, option, index);
    if (!Model::isFlag(index.column()))
        return;
    // A set tax flag is drawn as an icon; an unset one is left empty.
    if (index.column() == Model::UserFlag)
        CVCheckCell::paint(*painter, option, index.data(Qt::CheckStateRole).toInt() == Qt::Checked);
    const auto picture = index.data(Qt::DecorationRole).value<QIcon>();
    if (picture.isNull())
        return;
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const QRect place = QStyle::alignedRect(option.direction, Qt::AlignCenter, option.decorationSize, option.rect);
    picture.paint(painter, place, Qt::AlignCenter, isSelected ? QIcon::Selected : QIcon::Normal);
}

QWidget* CVTransactionCellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                                 const QModelIndex& index) const {
    QWidget* const editor = makeEditor(parent, option, index);
    if (editor)
        CVSetAccessibleName(*editor, CVTransactionText::title(index.column()));
    return editor;
}

QWidget* CVTransactionCellDelegate::makeEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                               const QModelIndex& index) const {
    switch (index.column()) {
    case Model::Date:
        return makeDateField(parent);
    case Model::Amount:
        return new CVMoneyField(parent);
    case Model::ToFrom:
        return makeBox(mPaidToItems, parent);
    case Model::Category:
        return makeCategoryBox(parent);
    case Model::For:
        return CVCellDelegate::createEditor(parent, option, index);
    default:
        return nullptr;
    }
}

/// A note below the box says when its name would make a new category.
QWidget* CVTransactionCellDelegate::makeCategoryBox(QWidget* parent) const {
    CVCompletingComboBox* const box = makeBox(mCategoryItems, parent);
    auto* const note = new CVFieldNote(*box);
    note->setObjectName(QStringLiteral("mNewCategoryNote"));
    connect(box, &QComboBox::editTextChanged, note,
            [box, note] { note->say(box->isNewText() ? tr("new category") : QString()); });
    return box;
}

void CVTransactionCellDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    // A reload must not replace the text that the user is typing.
    const auto* const box = qobject_cast<CVCompletingComboBox*>(editor);
    const auto* const typed = box ? box->lineEdit() : qobject_cast<QLineEdit*>(editor);
    if (typed && typed->isModified())
        return;
    const QVariant value = index.data(Qt::EditRole);
    if (auto* const date = qobject_cast<CVDateField*>(editor))
        date->setQBDateValue(value.value<std::optional<QBDate>>().value_or(QBDate::date()));
    else if (auto* const amount = qobject_cast<CVMoneyField*>(editor))
        amount->setDoubleValue(value.toDouble());
    else if (auto* const category = qobject_cast<CVCompletingComboBox*>(editor)) {
        category->setEditText(value.toString());
        category->lineEdit()->selectAll();
    } else
        CVCellDelegate::setEditorData(editor, index);
}

void CVTransactionCellDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                             const QModelIndex& index) const {
    const QVariant before = index.data(Qt::EditRole);
    if (auto* const field = qobject_cast<CVFormattedField*>(editor)) {
        field->endEditing();
        if (!field->isReadable())
            return;
    }
    QVariant value;
    bool isSame = false;
    if (const auto* const date = qobject_cast<CVDateField*>(editor)) {
        const std::optional<QBDate> day = date->QBDateValue();
        const auto dayBefore = before.value<std::optional<QBDate>>();
        // For a missing date the editor shows today, which the user has not chosen yet.
        isSame = day == dayBefore || (!dayBefore && !editor->property(kTouched).toBool());
        value = QVariant::fromValue(day);
    } else if (const auto* const amount = qobject_cast<CVMoneyField*>(editor)) {
        isSame = amount->doubleValue() == before.toDouble();
        value = amount->doubleValue();
    } else {
        const auto* const box = qobject_cast<CVCompletingComboBox*>(editor);
        const QString typed = box ? box->currentText() : editor->property("text").toString();
        const QString text = box ? box->enteredText() : xml_storableLine(typed);
        // A text with several lines can come from another program; such a text stays unchanged unless the user edits
        // it.
        isSame = typed == before.toString() || text == before.toString();
        value = text;
    }
    if (!isSame)
        model->setData(index, value, Qt::EditRole);
}

bool CVTransactionCellDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                            const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (!Model::isFlag(index.column()))
        return CVCellDelegate::editorEvent(event, model, option, index);
    return CVCheckCell::isToggle(*event) && model->setData(index, {}, Qt::CheckStateRole);
}

/// Keeps the editor of an unreadable text open and marked until the text is corrected or Escape discards it.
bool CVTransactionCellDelegate::eventFilter(QObject* editor, QEvent* event) {
    return CVRefuseUnreadableText(editor, event) || CVCellDelegate::eventFilter(editor, event);
}
