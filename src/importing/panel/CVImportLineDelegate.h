#pragma once

#include "widgets/tables/CVCellDelegate.h"

#include <QStringList>

/// Paints and edits the cells of the lines of a statement: a box to click, the fields of the entry strip, and a pop-up
/// for the set. Unreadable and unchanged values are not committed.
class CVImportLineDelegate final : public CVCellDelegate {
    Q_OBJECT

public:
    using CVCellDelegate::CVCellDelegate;

    /// The items to which the editors of payees and categories complete.
    void setPayees(const QStringList& payees) { mPayees = payees; }
    void setCategories(const QStringList& categories) { mCategories = categories; }

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

    QStringList mPayees;
    QStringList mCategories;
};
