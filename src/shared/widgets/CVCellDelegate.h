#pragma once

#include "shared/widgets/CVTextGlyphs.h"

#include <QStyledItemDelegate>

#include <vector>

/// Role of a QStringView: the text of Qt::DisplayRole, valid until the model is asked for the next one. A model that
/// answers it spares a copy of the text for each cell that is painted.
inline constexpr int kCVTextViewRole = Qt::UserRole + 1;

/// Paints the cells of tables in one line each, quickly: scrolling allocates nothing for a text that was shown before.
/// What the model has to say about a cell shows as tooltip, else the whole text where it is cut.
/// Pictures and boxes are the business of the delegates that derive from it.
class CVCellDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const override;
    /// A field that holds a value gets the room for its buttons, beyond its cell where that is too narrow.
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    void paintText(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    [[nodiscard]] CVTextGlyphs& glyphs(const QStyleOptionViewItem& option, const QModelIndex& index) const;

    /// One for each font that the table's cells have.
    mutable std::vector<CVTextGlyphs> mGlyphs;
};
