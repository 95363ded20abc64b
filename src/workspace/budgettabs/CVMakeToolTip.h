#pragma once

#include <QString>

#include <span>

/// One line of a tooltip: a label and its value.
struct CVToolTipLine {
    QString label;
    QString value;
};

/// The rich text of a tooltip: a title, a line with the subject below it, then the lines in two columns. The arguments
/// are plain text.
[[nodiscard]] QString CVMakeToolTip(const QString& title, const QString& about, std::span<const CVToolTipLine> lines);
