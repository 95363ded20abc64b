#pragma once

#include "reports/CVReportFont.h"
#include "reports/CVReportView.h"

#include <QFontMetricsF>

#include <array>

class QPainter;

/// Paints pages of a report with a painter on paper, in a preview or on a picture. Converts the coordinates of the
/// pages, in which y points upwards, to those of the painter, whose origin is the top left corner of the sheet.
/// References view and painter, which outlive it.
class CVReportPainter final {
public:
    CVReportPainter(const CVReportView& view, QPainter& painter);

    /// Paints the page of that number, from 1 on, and computes no other page.
    void paint(int number);

private:
    struct Style {
        CVReportFont font = CVReportFont::Main;
        CVPrintAlignment alignment = CVPrintAlignment::Left;
        CVPrintFit fit = CVPrintFit::Cut;
    };

    void paintTitle(const CVReportPage& page);
    void paintHeader(const CVReportPage& page);
    /// `line` counts the lines of the page from 0.
    void paintLine(const CVReportPage& page, std::size_t line);
    /// The rectangle of a column in a line, which ends before the next column at the latest.
    [[nodiscard]] QRectF rectOfColumn(std::size_t column, const QRectF& line,
                                      CVPrintedColumn::Part CVPrintedColumn::*part) const;
    /// Draws one line of text at the top of a rectangle of the page, never wider than the rectangle.
    void draw(const QString& text, const QRectF& rect, const Style& style);
    void setFont(CVReportFont font);
    [[nodiscard]] const QFontMetricsF& metrics(CVReportFont font) const;
    /// Converts a rectangle from points with y upwards to the device's units with y downwards.
    [[nodiscard]] QRectF toDevice(const QRectF& rect) const;

    const CVReportView& mView;
    QPainter& mPainter;
    /// The device's units for one point.
    double mScale;
    double mTopOfPage = 0;
    std::array<QFont, kReportFonts> mFonts;
    std::array<QFontMetricsF, kReportFonts> mMetrics;
    CVReportFont mCurrentFont = CVReportFont::Main;
};
