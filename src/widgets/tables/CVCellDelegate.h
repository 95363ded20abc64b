#pragma once

#include <QStyledItemDelegate>

/// Paints the cells of tables in one line each. What the model has to say about a cell shows as tooltip, else the whole
/// text where it is cut. Pictures and boxes are the business of the delegates that derive from it.
class CVCellDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const override;
    /// A field that holds a value gets the room for its buttons, beyond its cell where that is too narrow.
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
