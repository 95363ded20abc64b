#include "shared/widgets/CVTextGlyphs.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>
#include <QVarLengthArray>

namespace {

/// More different texts than that are hardly on a screen; then all are forgotten.
constexpr std::size_t kMostTexts = 4096;
/// No figure is longer.
constexpr int kLongestFigure = 48;

bool belongsToFigures(QChar character) {
    switch (character.category()) {
    case QChar::Number_DecimalDigit:
    case QChar::Punctuation_Dash:
    case QChar::Punctuation_Other:
    case QChar::Symbol_Currency:
    case QChar::Symbol_Math:
    case QChar::Separator_Space:
        return character.direction() != QChar::DirR && character.direction() != QChar::DirAL;
    default:
        return false;
    }
}

/// Where something of that width begins. Whole pixels keep the glyphs sharp.
int leftEdge(const QRect& place, Qt::Alignment alignment, double width) {
    const int pixels = qCeil(width);
    if (alignment.testFlag(Qt::AlignRight))
        return place.right() + 1 - pixels;
    if (alignment.testFlag(Qt::AlignHCenter))
        return place.left() + (place.width() - pixels) / 2;
    return place.left();
}

} // namespace

CVTextGlyphs::CVTextGlyphs(const QFont& font, Qt::LayoutDirection direction)
    : mFont(font)
    , mDirection(direction)
    , mHeight(QFontMetrics(font).height())
    , mAscent(QFontMetrics(font).ascent()) {
    const Line digit = layOut(QStringLiteral("0"));
    // From the right, signs may change sides: then figures are texts like others.
    if (digit.runs.size() == 1 && direction == Qt::LeftToRight)
        mFigure.setRawFont(digit.runs.first().rawFont());
}

double CVTextGlyphs::width(QStringView text) {
    const auto figure = figureWidth(text);
    return figure ? *figure : known(text).whole.width;
}

std::optional<double> CVTextGlyphs::figureWidth(QStringView text) {
    if (text.size() > kLongestFigure || text.startsWith(u' ') || text.endsWith(u' ') || text.contains(u"  "))
        return std::nullopt;
    double width = 0;
    for (const QChar character : text) {
        const auto& found = figureCharacter(character);
        if (!found)
            return std::nullopt;
        width += found->advance;
    }
    return width;
}

void CVTextGlyphs::paint(QPainter& painter, const QRect& place, Qt::Alignment alignment, QStringView text) {
    const Qt::Alignment visual = QStyle::visualAlignment(mDirection, alignment);
    if (text.isEmpty() || paintFigure(painter, place, visual, text))
        return;
    const Line& line = lineFor(text, place.width());
    // All lines of a font stand on one baseline, also those that take glyphs from other fonts.
    const double top = baseline(place) - line.ascent;
    for (const QGlyphRun& run : line.runs)
        painter.drawGlyphRun(QPointF(leftEdge(place, visual, line.width), top), run);
}

int CVTextGlyphs::baseline(const QRect& place) const {
    return place.top() + (place.height() - mHeight) / 2 + mAscent;
}

CVTextGlyphs::Line CVTextGlyphs::layOut(const QString& text) const {
    QTextLayout layout(text, mFont);
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setTextDirection(mDirection);
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return line.isValid() ? Line{layout.glyphRuns(), line.naturalTextWidth(), line.ascent()} : Line();
}

CVTextGlyphs::Text& CVTextGlyphs::known(QStringView text) {
    if (const auto found = mTexts.find(text); found != mTexts.end())
        return found->second;
    if (mTexts.size() >= kMostTexts)
        mTexts.clear();
    const QString key = text.toString();
    return mTexts.emplace(key, Text{layOut(key.simplified()), {}, -1}).first->second;
}

const CVTextGlyphs::Line& CVTextGlyphs::lineFor(QStringView text, int width) {
    Text& found = known(text);
    if (found.whole.width <= width)
        return found.whole;
    if (found.cutWidth != width) {
        found.cut = layOut(QFontMetricsF(mFont).elidedText(text.toString().simplified(), Qt::ElideRight, width));
        found.cutWidth = width;
    }
    return found.cut;
}

const std::optional<CVTextGlyphs::Character>& CVTextGlyphs::figureCharacter(QChar character) {
    const auto found = mFigureCharacters.find(character.unicode());
    return found != mFigureCharacters.end()
               ? found->second
               : mFigureCharacters.emplace(character.unicode(), makeFigureCharacter(character)).first->second;
}

std::optional<CVTextGlyphs::Character> CVTextGlyphs::makeFigureCharacter(QChar character) const {
    if (!belongsToFigures(character))
        return std::nullopt;
    const Line line = layOut(QString(character));
    if (line.runs.size() != 1 || line.runs.first().rawFont() != mFigure.rawFont() ||
        line.runs.first().glyphIndexes().size() != 1)
        return std::nullopt;
    // The width of the line would count what leans out of it.
    return Character{line.runs.first().glyphIndexes().first(), QFontMetricsF(mFont).horizontalAdvance(character)};
}

/// False, with nothing painted, for what is no figure or does not fit.
bool CVTextGlyphs::paintFigure(QPainter& painter, const QRect& place, Qt::Alignment alignment, QStringView text) {
    const auto width = figureWidth(text);
    if (!width || *width > place.width())
        return false;
    QVarLengthArray<quint32, kLongestFigure> glyphs;
    QVarLengthArray<QPointF, kLongestFigure> positions;
    double x = 0;
    for (const QChar character : text) {
        const Character& figure = figureCharacter(character).value();
        glyphs.append(figure.glyph);
        positions.append(QPointF(x, 0));
        x += figure.advance;
    }
    mFigure.setRawData(glyphs.constData(), positions.constData(), static_cast<int>(glyphs.size()));
    painter.drawGlyphRun(QPointF(leftEdge(place, alignment, *width), baseline(place)), mFigure);
    mFigure.setRawData(nullptr, nullptr, 0);
    return true;
}
