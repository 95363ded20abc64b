#pragma once

#include <QLineEdit>
#include <QStyle>

/// The alignment in tables and fields: texts at the left, numbers at the right.
inline constexpr Qt::Alignment kCVTextAlignment = Qt::AlignLeft | Qt::AlignVCenter;
inline constexpr Qt::Alignment kCVNumberAlignment = Qt::AlignRight | Qt::AlignVCenter;

/// Aligns a number as a table does, by the direction of the layout. QLineEdit alone would go by the direction of the
/// text. The field calls this again whenever the direction changes.
inline void CVAlignNumber(QLineEdit& field) {
    field.setAlignment(QStyle::visualAlignment(field.layoutDirection(), kCVNumberAlignment));
}
