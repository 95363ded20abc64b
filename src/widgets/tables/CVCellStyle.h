#pragma once

#include <QApplication>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QWidget>

/// The style in which a cell is painted.
[[nodiscard]] inline const QStyle& CVStyleOfCell(const QStyleOptionViewItem& option) {
    return option.widget ? *option.widget->style() : *QApplication::style();
}

/// The distance between a text and the edge of its cell: the styles add one pixel to their own metric.
[[nodiscard]] inline int CVTextMarginOfCell(const QStyleOptionViewItem& option) {
    return CVStyleOfCell(option).pixelMetric(QStyle::PM_FocusFrameHMargin, &option, option.widget) + 1;
}
