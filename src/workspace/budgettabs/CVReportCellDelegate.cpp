#include "workspace/budgettabs/CVReportCellDelegate.h"

#include "widgets/fields/CVMoneyField.h"
#include "widgets/tables/CVRefuseUnreadableText.h"
#include "workspace/budgettabs/CVFrequencyBox.h"
#include "workspace/budgettabs/CVReportModel.h"

QWidget* CVReportCellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                            const QModelIndex& index) const {
    const auto* const model = qobject_cast<const CVReportModel*>(index.model());
    if (model && model->column(index.column()).kind == CVReportColumnKind::Frequency) {
        auto* const box = new CVFrequencyBox(parent);
        box->setObjectName(QStringLiteral("mFrequencyMenu"));
        connect(box, &CVFrequencyBox::chosen, this, &CVReportCellDelegate::commitData);
        connect(box, &CVFrequencyBox::closed, this, &CVReportCellDelegate::closeEditor);
        return box;
    }
    auto* const field = new CVMoneyField(parent);
    field->setAccessibleName(tr("Target"));
    field->setAutoFillBackground(true);
    field->setFrame(false);
    return field;
}

void CVReportCellDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    const QVariant value = index.data(Qt::EditRole);
    if (auto* const box = qobject_cast<CVFrequencyBox*>(editor))
        box->setCurrentIndex(value.toInt());
    else if (auto* const field = qobject_cast<CVMoneyField*>(editor); field && !field->isModified()) {
        // A reload must not replace the amount that the user is typing.
        field->setDoubleValue(value.toDouble());
        field->selectAll();
    }
}

void CVReportCellDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
    if (const auto* const box = qobject_cast<CVFrequencyBox*>(editor)) {
        if (box->currentIndex() >= 0)
            model->setData(index, box->currentIndex());
    } else if (auto* const field = qobject_cast<CVMoneyField*>(editor)) {
        field->endEditing();
        if (field->isReadable())
            model->setData(index, field->doubleValue());
    }
}

bool CVReportCellDelegate::eventFilter(QObject* editor, QEvent* event) {
    return CVRefuseUnreadableText(editor, event) || CVCellDelegate::eventFilter(editor, event);
}
