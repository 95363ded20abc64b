#include "widgets/CVWrappingLayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

CVWrappingLayout::CVWrappingLayout(QWidget* parent) : QLayout(parent) {
    setContentsMargins(0, 0, 0, 0);
}

CVWrappingLayout::~CVWrappingLayout() = default;

void CVWrappingLayout::addPart(QLayout* part, int stretch) {
    addChildLayout(part);
    addItem(part);
    mParts.back().stretch = stretch;
}

void CVWrappingLayout::addItem(QLayoutItem* item) {
    mParts.push_back({std::unique_ptr<QLayoutItem>(item), 0});
    invalidate();
}

int CVWrappingLayout::count() const {
    return static_cast<int>(mParts.size());
}

QLayoutItem* CVWrappingLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? mParts[static_cast<std::size_t>(index)].item.get() : nullptr;
}

QLayoutItem* CVWrappingLayout::takeAt(int index) {
    if (!itemAt(index))
        return nullptr;
    const auto part = mParts.begin() + index;
    QLayoutItem* const item = part->item.release();
    mParts.erase(part);
    invalidate();
    return item;
}

int CVWrappingLayout::heightForWidth(int width) const {
    int height = 0;
    for (const Line& line : lines(width))
        height += line.height + (height > 0 ? gap(Qt::Vertical) : 0);
    return height;
}

QSize CVWrappingLayout::sizeHint() const {
    QSize size(gap(Qt::Horizontal) * (count() - 1), 0);
    for (const Part& part : mParts) {
        const QSize hint = part.item->sizeHint();
        size = QSize(size.width() + hint.width(), qMax(size.height(), hint.height()));
    }
    return size;
}

QSize CVWrappingLayout::minimumSize() const {
    QSize size(0, 0);
    for (const Part& part : mParts)
        size = size.expandedTo(part.item->minimumSize());
    return size;
}

void CVWrappingLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    int top = rect.top();
    for (const Line& line : lines(rect.width())) {
        place(line, QRect(rect.left(), top, rect.width(), line.height));
        top += line.height + gap(Qt::Vertical);
    }
}

int CVWrappingLayout::gap(Qt::Orientation orientation) const {
    const QWidget* const widget = parentWidget();
    if (spacing() >= 0 || !widget)
        return qMax(0, spacing());
    const auto metric =
        orientation == Qt::Horizontal ? QStyle::PM_LayoutHorizontalSpacing : QStyle::PM_LayoutVerticalSpacing;
    return qMax(0, widget->style()->pixelMetric(metric, nullptr, widget));
}

std::vector<CVWrappingLayout::Line> CVWrappingLayout::lines(int width) const {
    std::vector<Line> lines;
    int used = 0;
    for (std::size_t i = 0; i < mParts.size(); ++i) {
        const QLayoutItem& part = *mParts[i].item;
        const int needed = part.minimumSize().width();
        used += gap(Qt::Horizontal) + needed;
        if (lines.empty() || used > width) {
            lines.push_back({i, i, 0});
            used = needed;
        }
        lines.back().end = i + 1;
        lines.back().height = qMax(lines.back().height, part.sizeHint().height());
    }
    return lines;
}

/// Each part gets its minimum width. The remaining room is shared out in two steps: first up to the parts' size hints,
/// then by their stretch.
std::vector<int> CVWrappingLayout::widths(const Line& line, int width) const {
    int rest = width - gap(Qt::Horizontal) * static_cast<int>(line.end - line.first - 1);
    int wishes = 0;
    int stretches = 0;
    std::vector<int> widths;
    for (std::size_t i = line.first; i < line.end; ++i) {
        const Part& part = mParts[i];
        widths.push_back(part.item->minimumSize().width());
        rest -= widths.back();
        wishes += qMax(0, part.item->sizeHint().width() - widths.back());
        stretches += part.stretch;
    }
    int granted = qBound(0, rest, wishes);
    rest -= granted;
    for (std::size_t i = line.first; i < line.end; ++i) {
        int& own = widths[i - line.first];
        const int wish = qMax(0, mParts[i].item->sizeHint().width() - own);
        const int wished = wishes > 0 ? granted * wish / wishes : 0;
        const int stretched = stretches > 0 ? qMax(0, rest) * mParts[i].stretch / stretches : 0;
        // Each share is taken from what is left, so that no pixel is lost to rounding.
        granted -= wished;
        wishes -= wish;
        rest -= stretched;
        stretches -= mParts[i].stretch;
        own += wished + stretched;
    }
    return widths;
}

void CVWrappingLayout::place(const Line& line, const QRect& rect) const {
    const std::vector<int> widths = this->widths(line, rect.width());
    const Qt::LayoutDirection direction = parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    int left = rect.left();
    for (std::size_t i = line.first; i < line.end; ++i) {
        const int width = widths[i - line.first];
        const bool isAtEdge = i > 0 && i + 1 == line.end;
        const QRect own(isAtEdge ? qMax(left, rect.right() + 1 - width) : left, rect.top(), width, rect.height());
        mParts[i].item->setGeometry(QStyle::visualRect(direction, rect, own));
        left += width + gap(Qt::Horizontal);
    }
}
