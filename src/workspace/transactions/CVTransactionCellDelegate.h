#pragma once

#include "widgets/tables/CVCellDelegate.h"

#include <QStringList>

/// Paints and edits the cells of the transaction table: pictures and boxes in the middle, one row tinted. Dates,
/// amounts, payees and categories are edited as in the entry strip; a click or Space turns a flag round. What cannot be
/// read, or has not changed, is not committed.
class CVTransactionCellDelegate final : public CVCellDelegate {
    Q_OBJECT

public:
    using CVCellDelegate::CVCellDelegate;

    /// -1 for none.
    void setTintedRow(int row) { mTintedRow = row; }
    /// What the editors of payees and categories complete to.
    void setPaidToItems(const QStringList& items) { mPaidToItems = items; }
    void setCategoryItems(const QStringList& items) { mCategoryItems = items; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

protected:
    bool eventFilter(QObject* editor, QEvent* event) override;

private:
    [[nodiscard]] QWidget* makeEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const;

    int mTintedRow = -1;
    QStringList mPaidToItems;
    QStringList mCategoryItems;
};
