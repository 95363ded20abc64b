#pragma once

#include <QStringList>
#include <QStyledItemDelegate>

/// Paints and edits the cells of the transaction table: texts in one line, pictures and boxes in the middle, one row
/// tinted. A text that is cut shows as tooltip. Dates, amounts, payees and categories are edited as in the entry strip;
/// a click or Space turns a flag round. What cannot be read, or has not changed, is not committed.
class CVTransactionCellDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// -1 for none.
    void setTintedRow(int row) { mTintedRow = row; }
    /// What the editors of payees and categories complete to.
    void setPaidToItems(const QStringList& items) { mPaidToItems = items; }
    void setCategoryItems(const QStringList& items) { mCategoryItems = items; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QString displayText(const QVariant& value, const QLocale& locale) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

    [[nodiscard]] QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

protected:
    bool eventFilter(QObject* editor, QEvent* event) override;
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    int mTintedRow = -1;
    QStringList mPaidToItems;
    QStringList mCategoryItems;
};
