#pragma once

#include <QString>

#include <span>

/// One line of a tooltip: what a figure is, and the figure.
struct CVToolTipFigure {
    QString label;
    QString value;
};

/// Rich text: a title, what it is about below it, and figures one below the other. Texts are shown as they are.
[[nodiscard]] QString CVFiguresToolTip(const QString& title, const QString& about,
                                       std::span<const CVToolTipFigure> figures);
