#pragma once

#include "widgets/tables/CVCellDelegate.h"

/// Paints and edits the cells of an editor's table. Boxes are centred, and a box that cannot be toggled is greyed. A
/// click on a cell with a box, or Space anywhere in its row, toggles the box.
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
