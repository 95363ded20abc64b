#pragma once

#include "reports/CVReportView.h"

#include <QFont>
#include <QPointF>
#include <QString>

#include <vector>

/// A painted text: its left end and its baseline in points from the top left corner of the sheet, and its painted
/// width.
struct PaintedText {
    QString text;
    QPointF baseline;
    double width;
    QFont font;

    [[nodiscard]] double right() const { return baseline.x() + width; }
};

/// Everything that a page paints.
struct PaintedPage {
    std::vector<PaintedText> texts;
    /// The areas of lines, underlines and shapes, from the top left corner of the sheet.
    std::vector<QRectF> shapes;

    /// The first text that begins with `beginning`; stops the test program when there is none.
    [[nodiscard]] const PaintedText& starting(const QString& beginning) const;
};

[[nodiscard]] PaintedPage paintedPage(const CVReportView& view, int page);
