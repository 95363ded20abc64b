#include "importing/ofx/CVReadOFXMarkup.h"

#include "importing/ofx/CVOFXBuilder.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <optional>

namespace {

constexpr qsizetype kLongestTag = 1000;
constexpr qsizetype kLongestEntity = 10;
constexpr int kAllDone = 1000;

struct ReadOFXMarkupText {
    Q_DECLARE_TR_FUNCTIONS(CVReadOFXMarkup)
};

struct Entity {
    QStringView name;
    char16_t character = 0;
};
constexpr std::array<Entity, 6> kEntities{
    {{u"amp", u'&'}, {u"lt", u'<'}, {u"gt", u'>'}, {u"nbsp", u' '}, {u"quot", u'"'}, {u"apos", u'\''}}};

/// What stands between an ampersand and a semicolon; null where it is no character that a text has.
QString characterOf(QStringView name) {
    const auto* const found =
        std::find_if(kEntities.begin(), kEntities.end(), [name](const Entity& each) { return each.name == name; });
    if (found != kEntities.end())
        return QChar(found->character);
    if (!name.startsWith(u'#'))
        return {};
    const bool isHex = name.startsWith(u"#x", Qt::CaseInsensitive);
    bool isNumber = false;
    const char32_t code = isHex ? name.sliced(2).toUInt(&isNumber, 16) : name.sliced(1).toUInt(&isNumber, 10);
    const bool isText = isNumber && code >= U' ' && code <= QChar::LastValidCodePoint && !QChar::isSurrogate(code);
    return isText ? QString::fromUcs4(&code, 1) : QString();
}

QString withoutEntities(QStringView text) {
    // No text of use is as long.
    constexpr qsizetype kLongest = 100'000;
    if (text.size() > kLongest)
        return text.toString();
    QString plain;
    qsizetype done = 0;
    for (auto at = text.indexOf(u'&'); at >= 0; at = text.indexOf(u'&', at + 1)) {
        const auto end = text.sliced(at, std::min(kLongestEntity, text.size() - at)).indexOf(u';');
        const QString character = end > 1 ? characterOf(text.sliced(at + 1, end - 1)) : QString();
        if (character.isNull())
            continue;
        plain += text.sliced(done, at - done);
        plain += character;
        done = at + end + 1;
        at = done - 1;
    }
    plain += text.sliced(done);
    return plain;
}

bool isOfName(QChar character) {
    return (character.unicode() < 0x80 && character.isLetterOrNumber()) || character == u'.' || character == u'_' ||
           character == u'-' || character == u':';
}

struct Markup {
    enum class Kind { Begin, End, Empty, Ignored, Verbatim };
    Kind kind = Kind::Ignored;
    /// In capitals, or the text of a marked section.
    QString name = {};
    /// Behind it.
    qsizetype end = 0;
};

class MarkupReader {
public:
    MarkupReader(QStringView text, const CVStopRequested& stop) : mText(text), mStop(stop) {}

    CVOFXContents read() {
        constexpr int kTagsPerLook = 1000;
        QString value;
        qsizetype done = 0;
        int tags = 0;
        for (auto at = mText.indexOf(u'<'); at >= 0 && !mBuilder.isFull(); at = mText.indexOf(u'<', at)) {
            if (++tags % kTagsPerLook == 0 && isStopped(at))
                break;
            const auto markup = markupAt(at);
            if (!markup) {
                ++at;
                continue;
            }
            value += withoutEntities(mText.sliced(done, at - done));
            countLines(at);
            take(*markup, value);
            at = done = markup->end;
        }
        countLines(mText.size());
        return mBuilder.finish(mLine);
    }

private:
    bool isStopped(qsizetype at) { return mStop && mStop(static_cast<int>(at * kAllDone / mText.size())); }

    void countLines(qsizetype until) {
        for (; mCounted < until; ++mCounted) {
            const QChar character = mText[mCounted];
            const bool isReturnAlone =
                character == u'\r' && (mCounted + 1 == mText.size() || mText[mCounted + 1] != u'\n');
            mLine += character == u'\n' || isReturnAlone ? 1 : 0;
        }
    }

    void take(const Markup& markup, QString& value) {
        if (markup.kind == Markup::Kind::Verbatim) {
            value += markup.name;
            return;
        }
        if (markup.kind == Markup::Kind::Ignored)
            return;
        mBuilder.take(value, mLine);
        value.clear();
        const CVOFXTag tag = CVOFXTagOf(markup.name);
        if (markup.kind != Markup::Kind::End)
            mBuilder.begin(tag, mLine);
        if (markup.kind != Markup::Kind::Begin)
            mBuilder.end(tag);
    }

    /// What begins with the less-than sign there; absent where the sign is text.
    std::optional<Markup> markupAt(qsizetype at) {
        const QStringView rest = mText.sliced(at);
        if (rest.startsWith(u"<!--"))
            return commentAt(at, rest);
        if (rest.startsWith(u"<![CDATA[")) {
            constexpr qsizetype kBegin = 9;
            const auto end = rest.indexOf(u"]]>", kBegin);
            const auto last = end < 0 ? rest.size() : end;
            return Markup{Markup::Kind::Verbatim, rest.sliced(kBegin, last - kBegin).toString(),
                          end < 0 ? mText.size() : at + end + 3};
        }
        if (rest.startsWith(u"<!ENTITY"))
            mBuilder.refuse(
                ReadOFXMarkupText::tr("This is no statement that a bank hands out: the file defines abbreviations."));
        if (rest.startsWith(u"<!") || rest.startsWith(u"<?"))
            return until(at, closeBehind(at) - at, 1);
        return tagAt(at, rest);
    }

    /// A comment without an end is text, and so is each one behind it.
    std::optional<Markup> commentAt(qsizetype at, QStringView rest) {
        const auto end = mHasCommentEnds ? rest.indexOf(u"-->", 4) : -1;
        mHasCommentEnds = end >= 0;
        return until(at, end, 3);
    }

    static std::optional<Markup> until(qsizetype at, qsizetype length, qsizetype more) {
        if (length < 0)
            return std::nullopt;
        return Markup{Markup::Kind::Ignored, {}, at + length + more};
    }

    /// The first greater-than sign there or behind it, within the length of a tag; -1 where there is none. The text is
    /// searched from its beginning to its end once.
    qsizetype closeBehind(qsizetype at) {
        if (mClose >= 0 && mClose < at)
            mClose = mText.indexOf(u'>', at);
        return mClose < 0 || mClose - at > kLongestTag ? -1 : mClose;
    }

    std::optional<Markup> tagAt(qsizetype at, QStringView rest) {
        const bool isEnd = rest.startsWith(u"</");
        const qsizetype first = isEnd ? 2 : 1;
        qsizetype last = first;
        while (last < rest.size() && last < kLongestTag && isOfName(rest[last]))
            ++last;
        const auto close = last > first && rest[first].isLetter() ? closeBehind(at + last) : -1;
        if (close < 0)
            return std::nullopt;
        const QStringView behind = mText.sliced(at + last, close - at - last).trimmed();
        const bool hasAttributes = behind.contains(u'=') && !behind.contains(u'<');
        if (!behind.isEmpty() && behind != u"/" && !hasAttributes)
            return std::nullopt;
        QStringView name = rest.sliced(first, last - first);
        name = name.sliced(name.lastIndexOf(u':') + 1);
        if (!isNameInPlace(name, at))
            return std::nullopt;
        using enum Markup::Kind;
        const auto kind = isEnd ? End : behind.endsWith(u'/') ? Empty : Begin;
        return Markup{kind, name.toString().toUpper(), close + 1};
    }

    /// Whether the file writes names so. Where it writes them in capitals, "<b>" within a line is text.
    bool isNameInPlace(QStringView name, qsizetype at) {
        const bool isUpper =
            std::none_of(name.begin(), name.end(), [](QChar character) { return character.isLower(); });
        if (!mHasNames) {
            mHasNames = true;
            mAreUpper = isUpper;
        }
        if (isUpper || !mAreUpper)
            return true;
        while (at > 0 && (mText[at - 1] == u' ' || mText[at - 1] == u'\t'))
            --at;
        return at == 0 || mText[at - 1] == u'>' || mText[at - 1] == u'\n' || mText[at - 1] == u'\r';
    }

    QStringView mText;
    const CVStopRequested& mStop;
    CVOFXBuilder mBuilder;
    qsizetype mCounted = 0;
    /// The greater-than sign that was found last; -1 behind the last one.
    qsizetype mClose = 0;
    int mLine = 1;
    bool mHasCommentEnds = true;
    bool mHasNames = false;
    bool mAreUpper = false;
};

} // namespace

CVOFXContents CVReadOFXMarkup(const QString& text, const CVStopRequested& stop) {
    return MarkupReader(text, stop).read();
}
