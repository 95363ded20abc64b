#include "workspace/CVTransactionCellDelegate.h"

#include "shared/base/QBXMLText.h"
#include "shared/widgets/CVCheckCell.h"
#include "shared/widgets/CVCompletingComboBox.h"
#include "shared/widgets/CVDateField.h"
#include "shared/widgets/CVMoneyField.h"
#include "workspace/CVTransactionTableModel.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace {

constexpr int kTintAlpha = 70;

using Model = CVTransactionTableModel;

CVCompletingComboBox* makeBox(const QStringList& items, QWidget* parent) {
    auto* const box = new CVCompletingComboBox(parent);
    box->setItems(items);
    return box;
}

} // namespace

void CVTransactionCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    if (const QVariant state = index.data(Qt::CheckStateRole); state.isValid())
        CVCheckCell::paint(*painter, option, state.toInt() == Qt::Checked);
    const auto picture = index.data(Qt::DecorationRole).value<QIcon>();
    if (picture.isNull())
        return;
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const QRect place = QStyle::alignedRect(option.direction, Qt::AlignCenter, option.decorationSize, option.rect);
    picture.paint(painter, place, Qt::AlignCenter, isSelected ? QIcon::Selected : QIcon::Normal);
}

QString CVTransactionCellDelegate::displayText(const QVariant& value, const QLocale& locale) const {
    return QStyledItemDelegate::displayText(value, locale).simplified();
}

bool CVTransactionCellDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                          const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const bool isCut = index.isValid() && sizeHint(option, index).width() > view->visualRect(index).width();
    if (isCut)
        QToolTip::showText(event->globalPos(), index.data().toString(), view);
    else
        QToolTip::hideText();
    return true;
}

QWidget* CVTransactionCellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                                 const QModelIndex& index) const {
    switch (index.column()) {
    case Model::Date:
        return new CVDateField(parent);
    case Model::Amount:
        return new CVMoneyField(parent);
    case Model::ToFrom:
        return makeBox(mPaidToItems, parent);
    case Model::Category:
        return makeBox(mCategoryItems, parent);
    case Model::For:
        return QStyledItemDelegate::createEditor(parent, option, index);
    default:
        return nullptr;
    }
}

void CVTransactionCellDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    const QVariant value = index.data(Qt::EditRole);
    if (auto* const date = qobject_cast<CVDateField*>(editor))
        date->setQBDateValue(value.value<std::optional<QBDate>>().value_or(QBDate::date()));
    else if (auto* const amount = qobject_cast<CVMoneyField*>(editor))
        amount->setDoubleValue(value.toDouble());
    else if (auto* const box = qobject_cast<CVCompletingComboBox*>(editor)) {
        box->setEditText(value.toString());
        box->lineEdit()->selectAll();
    } else
        QStyledItemDelegate::setEditorData(editor, index);
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
        isSame = day == before.value<std::optional<QBDate>>();
        value = QVariant::fromValue(day);
    } else if (const auto* const amount = qobject_cast<CVMoneyField*>(editor)) {
        isSame = amount->doubleValue() == before.toDouble();
        value = amount->doubleValue();
    } else {
        const auto* const box = qobject_cast<CVCompletingComboBox*>(editor);
        const QString text = xml_storableText(box ? box->currentText() : editor->property("text").toString());
        isSame = text == before.toString();
        value = text;
    }
    if (!isSame)
        model->setData(index, value, Qt::EditRole);
}

bool CVTransactionCellDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                            const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (!Model::isFlag(index.column()))
        return QStyledItemDelegate::editorEvent(event, model, option, index);
    return CVCheckCell::isToggle(*event) && model->setData(index, {}, Qt::CheckStateRole);
}

void CVTransactionCellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    // The styles put pictures and boxes at the edge of their cell; here they are painted in the middle.
    option->features &= ~(QStyleOptionViewItem::HasDecoration | QStyleOptionViewItem::HasCheckIndicator);
    option->icon = QIcon();
    if (index.row() == mTintedRow) {
        QColor tint = option->palette.color(QPalette::Highlight);
        tint.setAlpha(kTintAlpha);
        option->backgroundBrush = tint;
    }
}
