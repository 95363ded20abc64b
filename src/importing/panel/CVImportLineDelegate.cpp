#include "importing/panel/CVImportLineDelegate.h"

#include "base/QBXMLText.h"
#include "importing/panel/CVImportLineModel.h"
#include "widgets/CVSetAccessibleName.h"
#include "widgets/fields/CVCompletingComboBox.h"
#include "widgets/fields/CVDateField.h"
#include "widgets/fields/CVMoneyField.h"
#include "widgets/tables/CVCheckCell.h"
#include "widgets/tables/CVRefuseUnreadableText.h"

#include <QLineEdit>

namespace {

CVCompletingComboBox* makeCompletingBox(const QStringList& items, QWidget* parent) {
    auto* const box = new CVCompletingComboBox(parent);
    box->setItems(items);
    return box;
}

/// The sets that a line can go into: that of money out, and that of money in.
CVWheelSafeComboBox* makeSetBox(const CVImportLineModel& model, QWidget* parent) {
    auto* const box = new CVWheelSafeComboBox(parent);
    box->addItem(model.text().nameOfSet(false));
    box->addItem(model.text().nameOfSet(true));
    return box;
}

bool isTyped(const QWidget* editor) {
    const auto* const box = qobject_cast<const QComboBox*>(editor);
    const auto* const field = box ? box->lineEdit() : qobject_cast<const QLineEdit*>(editor);
    return field && field->isModified();
}

/// What the editor says; invalid for a text that cannot be read.
QVariant valueOf(QWidget* editor) {
    if (auto* const field = qobject_cast<CVFormattedField*>(editor)) {
        field->endEditing();
        if (!field->isReadable())
            return {};
    }
    if (const auto* const date = qobject_cast<CVDateField*>(editor))
        return QVariant::fromValue(std::optional(date->QBDateValue()));
    if (const auto* const amount = qobject_cast<CVMoneyField*>(editor))
        return amount->doubleValue();
    if (const auto* const box = qobject_cast<CVCompletingComboBox*>(editor))
        return box->enteredText();
    if (const auto* const set = qobject_cast<CVWheelSafeComboBox*>(editor))
        return set->currentIndex() == 1;
    return xml_storableLine(editor->property("text").toString());
}

bool isSame(const QVariant& value, const QVariant& before) {
    if (value.metaType() == QMetaType::fromType<std::optional<QBDate>>())
        return value.value<std::optional<QBDate>>() == before.value<std::optional<QBDate>>();
    return value == before;
}

} // namespace

void CVImportLineDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    CVCellDelegate::paint(painter, option, index);
    CVCheckCell::paint(*painter, option, index);
}

QWidget* CVImportLineDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                            const QModelIndex& index) const {
    QWidget* const editor = makeEditor(parent, option, index);
    CVSetAccessibleName(*editor, CVImportLineText::title(index.column()));
    return editor;
}

QWidget* CVImportLineDelegate::makeEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                          const QModelIndex& index) const {
    switch (index.column()) {
    case CVImportColumns::Date:
        return new CVDateField(parent);
    case CVImportColumns::Amount:
        return new CVMoneyField(parent);
    case CVImportColumns::ToFrom:
        return makeCompletingBox(mPayees, parent);
    case CVImportColumns::Category:
        return makeCompletingBox(mCategories, parent);
    case CVImportColumns::Into:
        return makeSetBox(*qobject_cast<const CVImportLineModel*>(index.model()), parent);
    default:
        return CVCellDelegate::createEditor(parent, option, index);
    }
}

void CVImportLineDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    // Other lines that change must not replace the text that the user is typing.
    if (isTyped(editor))
        return;
    const QVariant value = index.data(Qt::EditRole);
    if (auto* const date = qobject_cast<CVDateField*>(editor))
        date->setQBDateValue(value.value<std::optional<QBDate>>().value_or(QBDate::date()));
    else if (auto* const amount = qobject_cast<CVMoneyField*>(editor))
        amount->setDoubleValue(value.toDouble());
    else if (auto* const box = qobject_cast<CVCompletingComboBox*>(editor)) {
        box->setEditText(value.toString());
        box->lineEdit()->selectAll();
    } else if (auto* const set = qobject_cast<CVWheelSafeComboBox*>(editor))
        set->setCurrentIndex(value.toBool() ? 1 : 0);
    else
        CVCellDelegate::setEditorData(editor, index);
}

void CVImportLineDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
    const QVariant value = valueOf(editor);
    if (value.isValid() && !isSame(value, index.data(Qt::EditRole)))
        model->setData(index, value, Qt::EditRole);
}

bool CVImportLineDelegate::editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                                       const QModelIndex& index) {
    if (index.column() != CVImportColumns::Checked)
        return CVCellDelegate::editorEvent(event, model, option, index);
    // Space toggles all selected lines, which the table does.
    return event->type() != QEvent::KeyPress && CVCheckCell::isToggle(*event) &&
           model->setData(index, {}, Qt::CheckStateRole);
}

bool CVImportLineDelegate::eventFilter(QObject* editor, QEvent* event) {
    return CVRefuseUnreadableText(editor, event) || CVCellDelegate::eventFilter(editor, event);
}
