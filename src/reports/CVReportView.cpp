#include "reports/CVReportView.h"

#include "reports/CVReportFont.h"

#include <algorithm>
#include <utility>

CVReportView::CVReportView(std::unique_ptr<const CVReport> report, CVPrintInfo& printInfo)
    : mReport(std::move(report))
    , mSharedPrintInfo(printInfo)
    , mOrientation(printInfo.orientation)
    , mTitleLineHeight(CVLineHeightOf(CVReportFont::Title))
    , mHeaderLineHeight(CVLineHeightOf(CVReportFont::Header))
    , mMainLineHeight(CVLineHeightOf(CVReportFont::Main)) {
    if (CVIsForcedToLandscape(mReport->type()))
        mSharedPrintInfo.orientation = QPageLayout::Landscape;
    setupReportPagesWithPrintInfo(mSharedPrintInfo);
}

CVReportView::~CVReportView() {
    mSharedPrintInfo.orientation = mOrientation;
}

QRectF CVReportView::setupReportPagesWithPrintInfo(const CVPrintInfo& printInfo) {
    mPrintInfo = printInfo;
    mPaperSize = printInfo.paperSize();
    const double room = mPaperSize.height() - printInfo.margins.top() - printInfo.margins.bottom() - mHeaderLineHeight -
                        2 * mTitleLineHeight;
    // A page has at least one line, even when the margins leave no room for it.
    mNumberOfMainLinesPerPage = static_cast<std::size_t>(std::max(1.0, room / mMainLineHeight));
    // Only the categories decide whether there is a partly filled last page, not the lines that a summary adds at its
    // end; that is deliberate.
    mNumberOfPages = mReport->lineCount() / mNumberOfMainLinesPerPage;
    if (mReport->arrayCount() % mNumberOfMainLinesPerPage != 0)
        ++mNumberOfPages;
    mFrame = {0, 0, mPaperSize.width(), static_cast<double>(mNumberOfPages) * mPaperSize.height()};
    return mFrame;
}

void CVReportView::usePaperOf(const QPageLayout& layout) {
    CVPrintInfo printInfo = mPrintInfo;
    printInfo.paper = layout.pageSize();
    if (!CVIsForcedToLandscape(mReport->type()))
        printInfo.orientation = layout.orientation();
    setupReportPagesWithPrintInfo(printInfo);
}

QRectF CVReportView::rectForPage(int page) const {
    return {mFrame.left(), mFrame.y() + mFrame.height() - page * mPaperSize.height(), mFrame.width(),
            mPaperSize.height()};
}

QRectF CVReportView::rectForTitleLine(int page) const {
    const double topOfPage = mFrame.y() + mFrame.height() - (page - 1) * mPaperSize.height();
    return rectAcross(topOfPage - mPrintInfo.margins.top(), mTitleLineHeight);
}

QRectF CVReportView::rectForHeaderLine(int page) const {
    return rectAcross(rectForTitleLine(page).y() - 2 * mTitleLineHeight, mHeaderLineHeight);
}

QRectF CVReportView::rectForTransactionLineInPage(std::size_t line, int page) const {
    return this->page(page).rectOfLine(line);
}

CVReportPage CVReportView::page(int number) const {
    const std::size_t firstLine = static_cast<std::size_t>(number - 1) * mNumberOfMainLinesPerPage;
    const QRectF header = rectForHeaderLine(number);
    return {.number = number,
            .rect = rectForPage(number),
            .title = rectForTitleLine(number),
            .header = header,
            .firstLine = firstLine,
            .lineCount = std::min(mNumberOfMainLinesPerPage, mReport->lineCount() - firstLine),
            .firstLineRect = rectAcross(header.y() - mMainLineHeight, mMainLineHeight)};
}

QRectF CVReportView::rectAcross(double y, double height) const {
    const QMarginsF& margins = mPrintInfo.margins;
    return {mFrame.left() + margins.left(), y, mFrame.width() - margins.left() - margins.right(), height};
}
