#pragma once

#include <QStyledItemDelegate>

/// Paints each cell of a table in one line. The tooltip is the one of the model, or else the full text of a cell whose
/// text is cut. Icons and check boxes are left to derived delegates.
class CVCellDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const override;
    /// A formatted field is made wide enough for its text and buttons, beyond a cell that is too narrow.
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
