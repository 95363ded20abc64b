#include "reports/CVReportPainter.h"

#include "reports/CVSmallTaxMark.h"

#include <QPainter>

#include <algorithm>

namespace {

/// The space, in points, that stays free before the next column.
constexpr double kGap = 4;
constexpr double kPageTextGap = 7;
constexpr double kPageTextWidth = 130;
/// The smallest part of its width to which a figure is narrowed before it is cut.
constexpr double kNarrowest = 0.65;

/// In points from the left edge of the sheet, whatever its margin.
constexpr double kTaxMarkX = 220;
constexpr double kTaxMarkAboveLine = 2;
constexpr double kTaxMarkSide = 12;

constexpr double kPointsPerInch = 72;

std::array<QFontMetricsF, kReportFonts> metricsOf(const std::array<QFont, kReportFonts>& fonts, QPaintDevice* device) {
    return {QFontMetricsF(fonts[0], device), QFontMetricsF(fonts[1], device), QFontMetricsF(fonts[2], device)};
}

} // namespace

CVReportPainter::CVReportPainter(const CVReportView& view, QPainter& painter)
    : mView(view)
    , mPainter(painter)
    , mScale(painter.device()->logicalDpiX() / kPointsPerInch)
    , mFonts{CVFontOf(CVReportFont::Title), CVFontOf(CVReportFont::Header), CVFontOf(CVReportFont::Main)}
    , mMetrics(metricsOf(mFonts, painter.device())) {}

void CVReportPainter::paint(int number) {
    const CVReportPage page = mView.page(number);
    mTopOfPage = page.rect.y() + page.rect.height();
    mPainter.setPen(Qt::black);
    // Each text runs in the direction of its own first letters.
    mPainter.setLayoutDirection(Qt::LayoutDirectionAuto);
    mPainter.setFont(mFonts[static_cast<std::size_t>(mCurrentFont)]);
    paintTitle(page);
    paintHeader(page);
    for (std::size_t line = 0; line < page.lineCount; ++line)
        paintLine(page, line);
}

void CVReportPainter::paintTitle(const CVReportPage& page) {
    const QString pageText = CVReport::pageText(page.number);
    const bool isMeasured = mView.report().type() == CVReportType::Transactions;
    const double width =
        isMeasured ? metrics(CVReportFont::Title).horizontalAdvance(pageText) / mScale : kPageTextWidth;
    QRectF title = page.title;
    QRectF pageRect = title;
    pageRect.setLeft(title.right() - width);
    title.setRight(pageRect.left() - kPageTextGap);
    draw(mView.report().title(), title, {CVReportFont::Title});
    draw(pageText, pageRect, {CVReportFont::Title});
}

void CVReportPainter::paintHeader(const CVReportPage& page) {
    const auto columns = mView.report().columns();
    const QStringList& labels = mView.report().labels();
    for (std::size_t i = 0; i < columns.size(); ++i)
        draw(labels[static_cast<qsizetype>(i)], rectOfColumn(i, page.header, &CVPrintedColumn::header),
             {CVReportFont::Header, columns[i].header.alignment, CVPrintFit::Narrow});
}

void CVReportPainter::paintLine(const CVReportPage& page, std::size_t line) {
    const auto columns = mView.report().columns();
    const QRectF rect = page.rectOfLine(line);
    const CVReportLine content = mView.report().line(page.firstLine + line);
    for (std::size_t i = 0; i < static_cast<std::size_t>(content.texts.size()); ++i) {
        const bool isHeading = i == 0 && content.kind == CVReportLine::Kind::Total;
        draw(content.texts[static_cast<qsizetype>(i)], rectOfColumn(i, rect, &CVPrintedColumn::line),
             {isHeading ? CVReportFont::Header : CVReportFont::Main, columns[i].line.alignment, columns[i].fit});
    }
    if (content.isTaxed)
        CVDrawSmallTax(mPainter, toDevice({page.rect.left() + kTaxMarkX, rect.y() + kTaxMarkAboveLine, kTaxMarkSide,
                                           kTaxMarkSide}));
}

QRectF CVReportPainter::rectOfColumn(std::size_t column, const QRectF& line,
                                     CVPrintedColumn::Part CVPrintedColumn::*part) const {
    const auto columns = mView.report().columns();
    const double offset = columns[column].offset;
    double width = (columns[column].*part).width;
    if (width == CVPrintedColumn::kWholeLine)
        width = line.width() - offset;
    if (column + 1 < columns.size())
        width = std::min(width, columns[column + 1].offset - kGap - offset);
    return {line.left() + offset, line.y(), width, line.height()};
}

void CVReportPainter::draw(const QString& text, const QRectF& rect, const Style& style) {
    if (text.isEmpty())
        return;
    setFont(style.font);
    const QFontMetricsF& measure = metrics(style.font);
    const QRectF place = toDevice(rect);
    QString shown = text;
    double width = measure.horizontalAdvance(text);
    double squeeze = 1;
    if (width > place.width()) {
        if (style.fit == CVPrintFit::Narrow)
            squeeze = std::max(place.width() / width, kNarrowest);
        if (width * squeeze > place.width() * (1 + 1e-9)) {
            shown = measure.elidedText(text, Qt::ElideRight, place.width() / squeeze);
            width = measure.horizontalAdvance(shown);
        }
    }
    const double left = style.alignment == CVPrintAlignment::Left ? place.left() : place.right() - width * squeeze;
    const QPointF baseline(left, place.top() + measure.ascent());
    if (squeeze == 1) {
        mPainter.drawText(baseline, shown);
        return;
    }
    mPainter.save();
    mPainter.translate(baseline);
    mPainter.scale(squeeze, 1);
    mPainter.drawText(QPointF(), shown);
    mPainter.restore();
}

void CVReportPainter::setFont(CVReportFont font) {
    if (font == mCurrentFont)
        return;
    mCurrentFont = font;
    mPainter.setFont(mFonts[static_cast<std::size_t>(font)]);
}

const QFontMetricsF& CVReportPainter::metrics(CVReportFont font) const {
    return mMetrics[static_cast<std::size_t>(font)];
}

QRectF CVReportPainter::toDevice(const QRectF& rect) const {
    return {rect.left() * mScale, (mTopOfPage - (rect.y() + rect.height())) * mScale, rect.width() * mScale,
            rect.height() * mScale};
}
