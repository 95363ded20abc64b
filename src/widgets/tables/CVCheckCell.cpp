#include "widgets/tables/CVCheckCell.h"

#include "widgets/tables/CVCellStyle.h"

#include <QModelIndex>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionViewItem>

namespace {

/// The opacity of the outline, which has the colour of the text.
constexpr int kOutlineAlpha = 130;
constexpr int kDisabledOutlineAlpha = 50;

} // namespace

void CVCheckCell::paint(QPainter& painter, const QStyleOptionViewItem& option, bool checked) {
    const QStyle& style = CVStyleOfCell(option);
    const QSize size(style.pixelMetric(QStyle::PM_IndicatorWidth, &option, option.widget),
                     style.pixelMetric(QStyle::PM_IndicatorHeight, &option, option.widget));
    QStyleOptionViewItem box = option;
    box.features = QStyleOptionViewItem::HasCheckIndicator;
    box.state.setFlag(QStyle::State_On, checked);
    box.state.setFlag(QStyle::State_Off, !checked);
    box.state.setFlag(QStyle::State_HasFocus, false);
    box.rect = QStyle::alignedRect(option.direction, Qt::AlignCenter, size, option.rect);
    painter.save();
    style.drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, &painter, option.widget);
    // Some styles outline a box so faintly that an empty box cannot be seen on a dark background.
    QColor outline = option.palette.color(QPalette::Active, QPalette::Text);
    outline.setAlpha(box.state.testFlag(QStyle::State_Enabled) ? kOutlineAlpha : kDisabledOutlineAlpha);
    painter.setPen(outline);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box.rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

void CVCheckCell::paint(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& cell) {
    const QVariant state = cell.data(Qt::CheckStateRole);
    if (!state.isValid())
        return;
    QStyleOptionViewItem box = option;
    box.state.setFlag(QStyle::State_Enabled, cell.flags().testFlag(Qt::ItemIsUserCheckable));
    paint(painter, box, state.toInt() == Qt::Checked);
}

bool CVCheckCell::isToggle(const QEvent& event) {
    // On a double click, a table passes on the second press but not the second release.
    if (event.type() == QEvent::MouseButtonRelease || event.type() == QEvent::MouseButtonDblClick) {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        return mouse.button() == Qt::LeftButton && mouse.modifiers() == Qt::NoModifier;
    }
    return event.type() == QEvent::KeyPress && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Space;
}
