#pragma once

#include "widgets/tables/CVCellDelegate.h"

/// The cells of an editor's table: boxes stand in the middle of their cells, and one that cannot be turned round is
/// greyed. A click on a cell with a box, or Space anywhere in its row, turns it round.
class CVEditorCellDelegate final : public CVCellDelegate {
    Q_OBJECT

public:
    using CVCellDelegate::CVCellDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
};
