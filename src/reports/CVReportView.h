#pragma once

#include "reports/CVPrintInfo.h"
#include "reports/CVReport.h"

#include <QRectF>

/// A page of a report: its number, from 1 on, and the rectangles of its parts. Lines follow one another without gaps.
struct CVReportPage {
    int number = 0;
    QRectF rect;
    QRectF title;
    QRectF header;
    /// The index of the page's first line among the report's lines, from 0 on.
    std::size_t firstLine = 0;
    std::size_t lineCount = 0;
    QRectF firstLineRect;

    /// `line` counts the lines of the page from 0 on.
    [[nodiscard]] QRectF rectOfLine(std::size_t line) const {
        return firstLineRect.translated(0, -static_cast<double>(line) * firstLineRect.height());
    }
};

/// The pages of a report as one tall strip of sheets, the first on top, in points, with the origin at the bottom left
/// and y upwards. A page is computed when it is asked for. While the view exists, the print settings given to it have
/// the orientation that the report needs; afterwards they have their own again.
class CVReportView final {
public:
    /// `printInfo` outlives the view.
    CVReportView(std::unique_ptr<const CVReport> report, CVPrintInfo& printInfo);
    ~CVReportView();
    CVReportView(const CVReportView&) = delete;
    CVReportView& operator=(const CVReportView&) = delete;

    [[nodiscard]] const CVReport& report() const { return *mReport; }
    /// The settings that the pages were computed from.
    [[nodiscard]] const CVPrintInfo& printInfo() const { return mPrintInfo; }

    /// Computes the pages anew and returns the frame of the strip.
    QRectF setupReportPagesWithPrintInfo(const CVPrintInfo& printInfo);
    /// Computes the pages anew for another paper, and another orientation unless the report is forced to landscape,
    /// with the same margins. Changes this view only, not the given print settings.
    void usePaperOf(const QPageLayout& layout);

    [[nodiscard]] const QRectF& frame() const { return mFrame; }
    /// The number of pages; the first page has the number 1.
    [[nodiscard]] int knowsPageRange() const { return static_cast<int>(mNumberOfPages); }
    [[nodiscard]] std::size_t numberOfMainLinesPerPage() const { return mNumberOfMainLinesPerPage; }

    [[nodiscard]] QRectF rectForPage(int page) const;
    [[nodiscard]] QRectF rectForTitleLine(int page) const;
    [[nodiscard]] QRectF rectForHeaderLine(int page) const;
    /// `line` counts the lines of the page from 0 on.
    [[nodiscard]] QRectF rectForTransactionLineInPage(std::size_t line, int page) const;
    [[nodiscard]] CVReportPage page(int number) const;

private:
    /// A rectangle between the margins whose lower edge is at y.
    [[nodiscard]] QRectF rectAcross(double y, double height) const;

    std::unique_ptr<const CVReport> mReport;
    CVPrintInfo& mSharedPrintInfo;
    QPageLayout::Orientation mOrientation;
    CVPrintInfo mPrintInfo;
    QSizeF mPaperSize;
    double mTitleLineHeight;
    double mHeaderLineHeight;
    double mMainLineHeight;
    std::size_t mNumberOfMainLinesPerPage = 0;
    std::size_t mNumberOfPages = 0;
    QRectF mFrame;
};
