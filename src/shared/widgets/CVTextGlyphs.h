#pragma once

#include <QFont>
#include <QGlyphRun>
#include <QHash>
#include <QString>

#include <optional>
#include <unordered_map>

class QPainter;

/// Lines of text as glyphs, to be painted again and again: a text is laid out once, and a figure never, as it is put
/// together from the glyphs of its digits and marks. For one font and one direction of writing.
class CVTextGlyphs final {
public:
    CVTextGlyphs(const QFont& font, Qt::LayoutDirection direction);

    [[nodiscard]] bool isFor(const QFont& font, Qt::LayoutDirection direction) const {
        return mDirection == direction && mFont == font;
    }

    /// Of the whole text, in pixels.
    [[nodiscard]] double width(QStringView text);
    /// In one line in the middle of `place`, in the painter's pen; what is too wide is cut and ends in an ellipsis.
    /// White space counts as one blank. A text or figure that was painted before is painted without allocating.
    void paint(QPainter& painter, const QRect& place, Qt::Alignment alignment, QStringView text);

private:
    struct Line {
        QList<QGlyphRun> runs;
        double width = 0;
        double ascent = 0;
    };
    struct Text {
        Line whole;
        /// As it was last cut, for a place so wide.
        Line cut;
        int cutWidth = -1;
    };
    struct Character {
        quint32 glyph = 0;
        double advance = 0;
    };
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(QStringView text) const { return qHash(text); }
    };
    struct Equal {
        using is_transparent = void;
        bool operator()(QStringView a, QStringView b) const { return a == b; }
    };

    [[nodiscard]] int baseline(const QRect& place) const;
    [[nodiscard]] Line layOut(const QString& text) const;
    [[nodiscard]] Text& known(QStringView text);
    [[nodiscard]] const Line& lineFor(QStringView text, int width);
    /// Absent for what is no figure.
    [[nodiscard]] std::optional<double> figureWidth(QStringView text);
    [[nodiscard]] const std::optional<Character>& figureCharacter(QChar character);
    [[nodiscard]] std::optional<Character> makeFigureCharacter(QChar character) const;
    bool paintFigure(QPainter& painter, const QRect& place, Qt::Alignment alignment, QStringView text);

    QFont mFont;
    Qt::LayoutDirection mDirection;
    int mHeight;
    int mAscent;
    /// The characters of which figures are made, in one font; those of other texts are absent.
    std::unordered_map<char16_t, std::optional<Character>> mFigureCharacters;
    QGlyphRun mFigure;
    std::unordered_map<QString, Text, Hash, Equal> mTexts;
};
