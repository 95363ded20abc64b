#pragma once

#include <QApplication>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QWidget>

/// The style in which a cell is painted.
[[nodiscard]] inline const QStyle& CVStyleOfCell(const QStyleOptionViewItem& option) {
    return option.widget ? *option.widget->style() : *QApplication::style();
}
