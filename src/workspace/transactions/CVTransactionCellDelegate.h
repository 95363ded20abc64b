#pragma once

#include "widgets/tables/CVCellDelegate.h"

#include <QStringList>

/// Paints and edits the cells of the transaction table. Icons and boxes are centred, and one row can be tinted. Dates,
/// amounts, payees and categories have the fields of the entry strip as editors; a click or Space toggles a flag.
/// Unreadable and unchanged values are not committed.
class CVTransactionCellDelegate final : public CVCellDelegate {
    Q_OBJECT

public:
    using CVCellDelegate::CVCellDelegate;

    /// Tints the row with that index; -1 for none.
    void setTintedRow(int row) { mTintedRow = row; }
    /// Sets the items to which the editor of payees or categories completes.
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
    [[nodiscard]] QWidget* makeCategoryBox(QWidget* parent) const;

    int mTintedRow = -1;
    QStringList mPaidToItems;
    QStringList mCategoryItems;
};
