#pragma once

#include "reports/CVReportFont.h"
#include "reports/CVReportView.h"

#include <QFontMetricsF>

#include <array>

class QPainter;

/// Paints pages of a report on whatever a painter paints on: paper, a preview, a picture. The one place in which the
/// pages' coordinates are turned over. References view and painter, which outlive it; the painter's origin is the top
/// left corner of the sheet.
class CVReportPainter final {
public:
    CVReportPainter(const CVReportView& view, QPainter& painter);

    /// The page of that number, from 1 on. Works for this page only.
    void paint(int number);

private:
    struct Style {
        CVReportFont font = CVReportFont::Main;
        CVPrintAlignment alignment = CVPrintAlignment::Left;
        CVPrintFit fit = CVPrintFit::Cut;
    };

    void paintTitle(const CVReportPage& page);
    void paintHeader(const CVReportPage& page);
    /// A line of the page, from 0 on.
    void paintLine(const CVReportPage& page, std::size_t line);
    /// Where a column's text of a line goes; it ends where the next column begins, if not before.
    [[nodiscard]] QRectF rectOfColumn(std::size_t column, const QRectF& line,
                                      CVPrintedColumn::Part CVPrintedColumn::*part) const;
    /// A text of one line at the top of a rectangle of the page, never wider than that.
    void draw(const QString& text, const QRectF& rect, const Style& style);
    void setFont(CVReportFont font);
    [[nodiscard]] const QFontMetricsF& metrics(CVReportFont font) const;
    /// From points upwards to the device's units downwards.
    [[nodiscard]] QRectF turnedOver(const QRectF& rect) const;

    const CVReportView& mView;
    QPainter& mPainter;
    /// Of the device, for one point.
    double mScale;
    double mTopOfPage = 0;
    std::array<QFont, kReportFonts> mFonts;
    std::array<QFontMetricsF, kReportFonts> mMetrics;
    CVReportFont mCurrentFont = CVReportFont::Main;
};
