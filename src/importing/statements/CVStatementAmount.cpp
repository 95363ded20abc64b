#include "importing/statements/CVStatementAmount.h"

#include "importing/statements/CVStatementWords.h"

#include <QString>

#include <algorithm>
#include <array>

namespace {

constexpr qsizetype kLongestAmountText = 40;
constexpr int kLargestWholeDigits = 15;

/// Abbreviations of currencies that are neither three capitals nor a symbol.
constexpr std::array<QStringView, 27> kCurrencyAbbreviations{u"kr",
                                                             u"kr.",
                                                             u"z\u0142",
                                                             u"k\u010d",
                                                             u"ft",
                                                             u"rs",
                                                             u"rs.",
                                                             u"lei",
                                                             u"din",
                                                             u"din.",
                                                             u"lt",
                                                             u"ls",
                                                             u"sfr",
                                                             u"sfr.",
                                                             u"fr",
                                                             u"fr.",
                                                             u"km",
                                                             u"kn",
                                                             u"tl",
                                                             u"rm",
                                                             u"rp",
                                                             u"rp.",
                                                             u"r",
                                                             u"\u0440.",
                                                             u"\u0440\u0443\u0431.",
                                                             u"\u043b\u0432.",
                                                             u"\u0433\u0440\u043d"};

bool isMinus(QChar character) {
    return character == u'-' || character == u'\u2212' || character == u'\u2013' || character == u'\u2014' ||
           character == u'\u2010' || character == u'\u2011' || character == u'\uFE63' || character == u'\uFF0D';
}

/// Whether the character shows nothing: a blank of any width or a mark of the direction of writing.
bool isInvisible(QChar character) {
    return character.isSpace() || character == u'\u200e' || character == u'\u200f' || character == u'\u202a' ||
           character == u'\u202b' || character == u'\u202c' || character == u'\u061c' || character == u'\ufeff';
}

QStringView withoutOuterBlanks(QStringView text) {
    while (!text.isEmpty() && isInvisible(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isInvisible(text.back()))
        text.chop(1);
    return text;
}

/// Whether `text` is a word of a script in which currencies are written out, such as Arabic or Chinese.
bool isForeignWord(QStringView text) {
    constexpr qsizetype kLongest = 8;
    const bool hasLetter = std::any_of(text.begin(), text.end(), [](QChar character) { return character.isLetter(); });
    return hasLetter && text.size() <= kLongest && std::all_of(text.begin(), text.end(), [](QChar character) {
               return character.script() > QChar::Script_Cyrillic || character == u'.' || isInvisible(character);
           });
}

/// The parts of an amount's text.
struct AmountParts {
    QStringView number;
    int minuses = 0;
    int pluses = 0;
    int marker = 0;
};

/// Reads what stands before or behind the number; false when it is neither a sign nor a currency nor a marker.
bool readAround(QStringView around, AmountParts& parts) {
    QString word;
    for (const QChar character : around) {
        if (isMinus(character))
            ++parts.minuses;
        else if (character == u'+')
            ++parts.pluses;
        else
            word += character;
    }
    const QStringView rest = withoutOuterBlanks(word);
    if (rest.isEmpty() || CVIsCurrencyName(rest))
        return true;
    // "100.00 USD CR"
    const auto blank = rest.lastIndexOf(u' ');
    const QStringView last = rest.sliced(blank + 1);
    constexpr std::array<QStringView, 9> kMarkers{u"CR", u"DR", u"CR.", u"DR.", u"S", u"H", u"D", u"C", u"K"};
    const bool isMarker = std::any_of(kMarkers.begin(), kMarkers.end(), [last](QStringView marker) {
        return last.compare(marker, Qt::CaseInsensitive) == 0;
    });
    if (!isMarker || parts.marker != 0)
        return false;
    parts.marker = CVMarkerOf(last);
    return blank < 0 || CVIsCurrencyName(withoutOuterBlanks(rest.first(blank)));
}

bool isDigit(QChar character) {
    return character.digitValue() >= 0;
}

/// Takes the text apart; absent when it is no amount.
std::optional<AmountParts> partsOf(QStringView text) {
    text = withoutOuterBlanks(text);
    if (text.isEmpty() || text.size() > kLongestAmountText)
        return std::nullopt;
    AmountParts parts;
    if (text.front() == u'(' && text.back() == u')') {
        text = withoutOuterBlanks(text.sliced(1).chopped(1));
        ++parts.minuses;
    }
    const auto* const first = std::find_if(text.begin(), text.end(), isDigit);
    if (first == text.end())
        return std::nullopt;
    auto begin = first - text.begin();
    // ",50" begins with its mark.
    if (begin > 0 && (text[begin - 1] == u'.' || text[begin - 1] == u',') && (begin < 2 || !text[begin - 2].isLetter()))
        --begin;
    auto end = text.size();
    while (!isDigit(text[end - 1]))
        --end;
    QStringView behind = text.sliced(end);
    if (!behind.isEmpty() && (behind.front() == u',' || behind.front() == u'.')) {
        behind = behind.sliced(1);
        // "12,-" has no decimals; its dash is no sign.
        while (!behind.isEmpty() && isMinus(behind.front()))
            behind = behind.sliced(1);
    }
    parts.number = text.sliced(begin, end - begin);
    if (!readAround(text.first(begin), parts) || !readAround(behind, parts) || parts.minuses + parts.pluses > 1)
        return std::nullopt;
    return parts;
}

bool isGroupMark(QChar character) {
    return isInvisible(character) || character == u'\'' || character == u'\u2019' || character == u'\u00b4' ||
           character == u'.' || character == u',';
}

/// The digits before the decimals: groups of three, or of two where the last is of three as in India; absent when the
/// groups stand in wrong places.
std::optional<QString> wholeDigits(QStringView text, QChar mark) {
    QString digits;
    QChar group;
    std::vector<qsizetype> sizes{0};
    for (const QChar character : text) {
        if (isDigit(character)) {
            digits += QChar(u'0' + character.digitValue());
            ++sizes.back();
        } else if (character == mark || !isGroupMark(character) || (!group.isNull() && character != group)) {
            return std::nullopt;
        } else {
            group = character;
            sizes.push_back(0);
        }
    }
    if (sizes.size() == 1)
        return digits;
    const bool isIndian = std::all_of(sizes.begin() + 1, sizes.end() - 1, [](qsizetype size) { return size == 2; });
    const bool isWestern = std::all_of(sizes.begin() + 1, sizes.end() - 1, [](qsizetype size) { return size == 3; });
    const bool isFirstSound = sizes.front() >= 1 && sizes.front() <= 3 && digits.front() != u'0';
    if (sizes.back() != 3 || !isFirstSound || !(isWestern || (isIndian && sizes.front() <= 2)))
        return std::nullopt;
    return digits;
}

/// The number in hundredths; absent when it is none.
std::optional<qint64> hundredthsOf(QStringView number, QChar mark) {
    const auto at = number.lastIndexOf(mark);
    const auto whole = wholeDigits(at < 0 ? number : number.first(at), mark);
    const QStringView decimals = at < 0 ? QStringView() : number.sliced(at + 1);
    if (!whole || whole->size() > kLargestWholeDigits || (whole->isEmpty() && decimals.isEmpty()) ||
        !std::all_of(decimals.begin(), decimals.end(), isDigit))
        return std::nullopt;
    qint64 value = 0;
    for (const QChar digit : *whole)
        value = value * 10 + digit.digitValue();
    for (qsizetype place = 0; place < 2; ++place)
        value = value * 10 + (place < decimals.size() ? decimals[place].digitValue() : 0);
    return value + (decimals.size() > 2 && decimals[2].digitValue() >= 5 ? 1 : 0);
}

/// The text with Latin marks in place of the Arabic and the wide ones.
QString withLatinMarks(QStringView text) {
    QString latin = text.toString();
    latin.replace(u'\u066b', u',').replace(u'\u066c', u'.').replace(u'\uff0e', u'.').replace(u'\uff0c', u',');
    return latin;
}

} // namespace

std::optional<CVStatementAmount> CVReadStatementAmount(QStringView text, QChar mark) {
    if (text.size() > kLongestAmountText || std::none_of(text.begin(), text.end(), isDigit))
        return std::nullopt;
    const bool isForeign = std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() >= u'\u066b'; });
    const QString latin = isForeign ? withLatinMarks(text) : QString();
    const auto parts = partsOf(isForeign ? QStringView(latin) : text);
    const auto hundredths = parts ? hundredthsOf(parts->number, mark) : std::nullopt;
    if (!hundredths)
        return std::nullopt;
    return CVStatementAmount{parts->minuses > 0 ? -*hundredths : *hundredths, parts->minuses + parts->pluses > 0,
                             parts->marker};
}

CVMarkEvidence CVMarkEvidenceOf(QStringView text) {
    const auto point = CVReadStatementAmount(text, u'.');
    const auto comma = CVReadStatementAmount(text, u',');
    return {point.has_value(), comma.has_value(), point && comma && *point != *comma};
}

bool CVIsCurrencyName(QStringView text) {
    constexpr qsizetype kLongestSymbol = 4;
    if (text.isEmpty())
        return false;
    const auto isCapital = [](QChar character) { return character >= u'A' && character <= u'Z'; };
    if (text.size() == 3 && std::all_of(text.begin(), text.end(), isCapital))
        return true;
    const auto isSymbol = [](QChar character) { return character.category() == QChar::Symbol_Currency; };
    const auto isPartOfSymbol = [&](QChar character) { return isSymbol(character) || isCapital(character); };
    if (text.size() <= kLongestSymbol && std::any_of(text.begin(), text.end(), isSymbol) &&
        std::all_of(text.begin(), text.end(), isPartOfSymbol))
        return true;
    return isForeignWord(text) ||
           std::any_of(kCurrencyAbbreviations.begin(), kCurrencyAbbreviations.end(),
                       [text](QStringView name) { return text.compare(name, Qt::CaseInsensitive) == 0; });
}
