#include "workspace/CVReportCellDelegate.h"

#include "shared/widgets/CVMoneyField.h"
#include "workspace/CVFrequencyBox.h"
#include "workspace/CVReportModel.h"

#include <QApplication>
#include <QKeyEvent>

namespace {

bool endsEditing(const QEvent& event) {
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab || key == Qt::Key_Backtab;
}

} // namespace

QWidget* CVReportCellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                            const QModelIndex& index) const {
    const auto* const model = qobject_cast<const CVReportModel*>(index.model());
    if (model && model->column(index.column()).kind == CVReportColumnKind::Frequency) {
        auto* const box = new CVFrequencyBox(parent);
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
        // What is being typed outlives a reload.
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
    auto* const field = qobject_cast<CVMoneyField*>(editor);
    if (field && endsEditing(*event)) {
        field->endEditing();
        if (!field->isReadable()) {
            QApplication::beep();
            return true;
        }
    }
    return CVFigureCellDelegate::eventFilter(editor, event);
}
