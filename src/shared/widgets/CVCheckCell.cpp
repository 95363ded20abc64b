#include "shared/widgets/CVCheckCell.h"

#include "shared/widgets/CVCellStyle.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionViewItem>

#include <algorithm>

namespace {

/// Of the outline, whose colour is that of the text.
constexpr int kOutlineAlpha = 130;
constexpr int kDisabledOutlineAlpha = 50;
/// Greyed or not, checked or not, selected or not, under the mouse or not, in a window with the focus or without; what
/// goes beyond that is of another palette or scale.
constexpr std::size_t kMostLooks = 32;
constexpr QStyle::State kVisibleStates =
    QStyle::State_Enabled | QStyle::State_Active | QStyle::State_Selected | QStyle::State_MouseOver;

QPixmap paintedBox(const QStyle& style, const QStyleOptionViewItem& option, const QSize& size, double pixelRatio) {
    QPixmap picture(size * pixelRatio);
    picture.setDevicePixelRatio(pixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    QStyleOptionViewItem box = option;
    box.rect = QRect(QPoint(), size);
    style.drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, &painter, option.widget);
    // Some styles outline a box so faintly that an empty one cannot be seen on a dark ground.
    QColor outline = option.palette.color(QPalette::Active, QPalette::Text);
    outline.setAlpha(box.state.testFlag(QStyle::State_Enabled) ? kOutlineAlpha : kDisabledOutlineAlpha);
    painter.setPen(outline);
    painter.drawRect(box.rect.adjusted(0, 0, -1, -1));
    return picture;
}

} // namespace

void CVCheckCell::paint(QPainter& painter, const QStyleOptionViewItem& option, bool checked) const {
    const QStyle& style = CVStyleOfCell(option);
    const QSize size(style.pixelMetric(QStyle::PM_IndicatorWidth, &option, option.widget),
                     style.pixelMetric(QStyle::PM_IndicatorHeight, &option, option.widget));
    const QStyle::State state = (option.state & kVisibleStates) | (checked ? QStyle::State_On : QStyle::State_Off);
    const Look look{QApplication::style(), option.palette.cacheKey(), state, size,
                    painter.device()->devicePixelRatioF()};
    auto picture =
        std::find_if(mPictures.begin(), mPictures.end(), [&look](const Picture& known) { return known.look == look; });
    if (picture == mPictures.end()) {
        if (mPictures.size() >= kMostLooks)
            mPictures.clear();
        QStyleOptionViewItem box = option;
        box.features = QStyleOptionViewItem::HasCheckIndicator;
        box.state = state;
        picture = mPictures.insert(mPictures.end(), {look, paintedBox(style, box, size, look.pixelRatio)});
    }
    const QRect place = QStyle::alignedRect(option.direction, Qt::AlignCenter, size, option.rect);
    painter.drawPixmap(place.topLeft(), picture->pixmap);
}

bool CVCheckCell::isToggle(const QEvent& event) {
    // Of a double click a table hands on the second press, but not the release.
    if (event.type() == QEvent::MouseButtonRelease || event.type() == QEvent::MouseButtonDblClick) {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        return mouse.button() == Qt::LeftButton && mouse.modifiers() == Qt::NoModifier;
    }
    return event.type() == QEvent::KeyPress && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Space;
}
