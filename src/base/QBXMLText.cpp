#include "base/QBXMLText.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <string_view>

namespace {

struct Entity {
    char16_t character;
    std::string_view name;
};

/// The apostrophe is decoded but never encoded, because no text is written between apostrophes.
constexpr std::array<Entity, 5> kPredefined{
    {{u'&', "amp"}, {u'<', "lt"}, {u'>', "gt"}, {u'"', "quot"}, {u'\'', "apos"}}};
constexpr std::size_t kWritten = 4;

/// The length of the longest replacement, "&quot;"; a UTF-16 unit takes at most three bytes of UTF-8.
constexpr qsizetype kLongestReplacement = 6;

constexpr std::array<bool, 128> makePlainTable() {
    std::array<bool, 128> plain{};
    plain.fill(true);
    for (std::size_t i = 0; i < kWritten; ++i)
        plain[kPredefined[i].character] = false;
    return plain;
}

constexpr std::array<bool, 128> kPlainAscii = makePlainTable();

char* writeEntity(char* out, char16_t character) {
    for (std::size_t i = 0; i < kWritten; ++i) {
        if (kPredefined[i].character == character) {
            *out++ = '&';
            out = std::copy(kPredefined[i].name.begin(), kPredefined[i].name.end(), out);
            *out++ = ';';
            break;
        }
    }
    return out;
}

char* writeUtf8(char* out, char32_t c) {
    const auto put = [&out](char32_t byte) { *out++ = static_cast<char>(byte); };
    if (c < 0x800) {
        put(0xC0 | (c >> 6));
    } else {
        if (c < 0x10000) {
            put(0xE0 | (c >> 12));
        } else {
            put(0xF0 | (c >> 18));
            put(0x80 | ((c >> 12) & 0x3F));
        }
        put(0x80 | ((c >> 6) & 0x3F));
    }
    put(0x80 | (c & 0x3F));
    return out;
}

bool isStorable(char16_t unit) {
    return unit == u'\t' || unit == u'\n' || (unit >= 0x20 && unit < 0xFFFE && !QChar::isSurrogate(unit));
}

/// The character of a reference between "&" and ";" (both excluded), if it names one.
std::optional<char32_t> referencedCharacter(QStringView name) {
    for (const Entity& entity : kPredefined) {
        if (name == QLatin1StringView(entity.name.data(), static_cast<qsizetype>(entity.name.size())))
            return entity.character;
    }
    if (!name.startsWith(u'#'))
        return std::nullopt;
    name = name.sliced(1);
    const bool hexadecimal = name.startsWith(u'x');
    const QStringView digits = hexadecimal ? name.sliced(1) : name;
    bool valid = false;
    const uint code = digits.toUInt(&valid, hexadecimal ? 16 : 10);
    // QStringView::toUInt also accepts signs, blanks and prefixes.
    valid =
        valid && std::all_of(digits.begin(), digits.end(), [hexadecimal](QChar c) {
            const char latin = c.toLatin1();
            return hexadecimal ? std::isxdigit(static_cast<unsigned char>(latin)) != 0 : latin >= '0' && latin <= '9';
        });
    const bool storable = code > 0xFFFF ? code <= 0x10FFFF : isStorable(static_cast<char16_t>(code)) || code == u'\r';
    return valid && storable ? std::optional<char32_t>(code) : std::nullopt;
}

bool isLineBreak(QChar c) {
    return c == u'\n' || c == QChar(0x85) || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

} // namespace

qsizetype xml_encodedBound(QStringView text) {
    return text.size() * kLongestReplacement;
}

char* xml_writeEncodedForXML(char* out, QStringView text) {
    const char16_t* unit = text.utf16();
    const char16_t* const end = unit + text.size();
    while (unit != end) {
        const char16_t c = *unit++;
        if (c < 0x80) {
            if (kPlainAscii[c])
                *out++ = static_cast<char>(c);
            else
                out = writeEntity(out, c);
        } else if (!QChar::isSurrogate(c)) {
            out = writeUtf8(out, c);
        } else if (QChar::isHighSurrogate(c) && unit != end && QChar::isLowSurrogate(*unit)) {
            out = writeUtf8(out, QChar::surrogateToUcs4(c, *unit++));
        } else {
            out = writeUtf8(out, QChar::ReplacementCharacter);
        }
    }
    return out;
}

void xml_appendStringEncodedForXML(QByteArray& target, QStringView text) {
    const qsizetype before = target.size();
    target.resize(before + xml_encodedBound(text));
    const char* const end = xml_writeEncodedForXML(target.data() + before, text);
    target.resize(end - target.constData());
}

QString xml_decodedFromXML(const QString& text) {
    QString decoded;
    qsizetype at = 0;
    while (at < text.size()) {
        const qsizetype end = text.at(at) == u'&' ? text.indexOf(u';', at) : -1;
        const auto character =
            end < 0 ? std::nullopt : referencedCharacter(QStringView(text).sliced(at + 1, end - at - 1));
        if (character) {
            decoded += QChar::fromUcs4(*character);
            at = end + 1;
        } else {
            decoded += text.at(at++);
        }
    }
    return decoded;
}

QString xml_storableText(const QString& text) {
    // QString::utf16() would turn the caller's null text into an empty one.
    const QStringView units(text);
    if (std::all_of(units.begin(), units.end(), [](QChar unit) { return isStorable(unit.unicode()); }))
        return text;
    QString clean(QLatin1String(""));
    clean.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const bool lineFeedFollows = i + 1 < text.size() && text.at(i + 1) == u'\n';
        if (c == u'\r') {
            if (!lineFeedFollows)
                clean += u'\n';
        } else if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            clean += c;
            clean += text.at(++i);
        } else if (isStorable(c.unicode())) {
            clean += c;
        }
    }
    return clean;
}

QString xml_storableLine(const QString& text) {
    QString storable = xml_storableText(text);
    // begin() would turn a null text into an empty one.
    if (std::none_of(storable.cbegin(), storable.cend(), isLineBreak))
        return storable;
    QString line(QLatin1String(""));
    for (qsizetype start = 0; start < storable.size();) {
        const auto* const end = std::find_if(storable.cbegin() + start, storable.cend(), isLineBreak);
        const QString part = storable.sliced(start, end - storable.cbegin() - start).trimmed();
        if (!line.isEmpty() && !part.isEmpty())
            line += u' ';
        line += part;
        start = end - storable.cbegin() + 1;
    }
    return line;
}
