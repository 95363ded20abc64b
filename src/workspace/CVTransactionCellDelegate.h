#pragma once

#include <QStyledItemDelegate>

/// Paints the cells of the transaction table: texts in one line, pictures in the middle, one row tinted. A text that is
/// cut shows as tooltip.
class CVTransactionCellDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// -1 for none.
    void setTintedRow(int row) { mTintedRow = row; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QString displayText(const QVariant& value, const QLocale& locale) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    int mTintedRow = -1;
};
