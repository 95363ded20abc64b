#include "shared/widgets/CVCheckCell.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionViewItem>

namespace {

/// Of the outline, whose colour is that of the text.
constexpr int kOutlineAlpha = 130;
constexpr int kDisabledOutlineAlpha = 50;

} // namespace

void CVCheckCell::paint(QPainter& painter, const QStyleOptionViewItem& option, bool checked) {
    const QStyle& style = option.widget ? *option.widget->style() : *QApplication::style();
    QStyleOptionViewItem box = option;
    box.features = QStyleOptionViewItem::HasCheckIndicator;
    const QSize size(style.pixelMetric(QStyle::PM_IndicatorWidth, &box, option.widget),
                     style.pixelMetric(QStyle::PM_IndicatorHeight, &box, option.widget));
    box.rect = QStyle::alignedRect(option.direction, Qt::AlignCenter, size, option.rect);
    box.state.setFlag(QStyle::State_HasFocus, false);
    box.state |= checked ? QStyle::State_On : QStyle::State_Off;
    style.drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, &painter, option.widget);
    // Some styles outline a box so faintly that an empty one cannot be seen on a dark ground.
    QColor outline = option.palette.color(QPalette::Active, QPalette::Text);
    outline.setAlpha(box.state.testFlag(QStyle::State_Enabled) ? kOutlineAlpha : kDisabledOutlineAlpha);
    painter.save();
    painter.setPen(outline);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box.rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

bool CVCheckCell::isToggle(const QEvent& event) {
    if (event.type() == QEvent::MouseButtonRelease) {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        return mouse.button() == Qt::LeftButton && mouse.modifiers() == Qt::NoModifier;
    }
    return event.type() == QEvent::KeyPress && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Space;
}
