#pragma once

#include "widgets/tables/CVCellDelegate.h"

/// Edits the cells of the reports: a frequency is chosen from a list, a target is typed as an amount. An unreadable
/// amount stays in its field with the reason.
class CVReportCellDelegate final : public CVCellDelegate {
    Q_OBJECT

public:
    using CVCellDelegate::CVCellDelegate;

    [[nodiscard]] QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

protected:
    bool eventFilter(QObject* editor, QEvent* event) override;
};
