#include "importing/statements/CVStatementDay.h"

#include "importing/statements/CVStatementWords.h"

#include <QHash>
#include <QLocale>
#include <QRegularExpression>
#include <QSet>
#include <QString>

#include <algorithm>

namespace {

constexpr qsizetype kLongestDayText = 48;
constexpr int kFirstYear = 1900;
constexpr int kLastYear = 2199;

/// Short forms that are usual beside those of the toolkit.
struct MonthWord {
    const char* word;
    int month;
};
constexpr std::array<MonthWord, 10> kFurtherMonthWords{{{"sept", 9},
                                                        {"mrz", 3},
                                                        {"maerz", 3},
                                                        {"maer", 3},
                                                        {"jaen", 1},
                                                        {"janner", 1},
                                                        {"jaenner", 1},
                                                        {"feber", 2},
                                                        {"fev", 2},
                                                        {"dez", 12}}};

constexpr std::array<QLocale::Language, 27> kMonthLanguages{
    QLocale::English,    QLocale::German,    QLocale::French,    QLocale::Spanish,    QLocale::Italian,
    QLocale::Portuguese, QLocale::Dutch,     QLocale::Danish,    QLocale::Swedish,    QLocale::NorwegianBokmal,
    QLocale::Finnish,    QLocale::Polish,    QLocale::Czech,     QLocale::Slovak,     QLocale::Slovenian,
    QLocale::Croatian,   QLocale::Hungarian, QLocale::Romanian,  QLocale::Bulgarian,  QLocale::Greek,
    QLocale::Turkish,    QLocale::Russian,   QLocale::Ukrainian, QLocale::Lithuanian, QLocale::Latvian,
    QLocale::Estonian,   QLocale::Catalan};

using MonthWords = QHash<QString, int>;

/// Whether a word is a day of the week in one of the languages.
bool isWeekday(QStringView word) {
    static const QSet<QString> names = [] {
        QSet<QString> all;
        for (const auto language : kMonthLanguages) {
            for (int day = 1; day <= 7; ++day) {
                all.insert(CVPlainWords(QLocale(language).dayName(day, QLocale::LongFormat)));
                all.insert(CVPlainWords(QLocale(language).dayName(day, QLocale::ShortFormat)));
            }
        }
        return all;
    }();
    return names.contains(CVPlainWords(word.toString()));
}

void addMonthWord(MonthWords& words, const QString& word, int month) {
    const QString plain = CVPlainWords(word);
    if (plain.isEmpty() || plain.at(0).isDigit())
        return;
    const auto known = words.constFind(plain);
    words.insert(plain, known == words.cend() || *known == month ? month : 0);
}

MonthWords makeMonthWords() {
    MonthWords words;
    for (const auto language : kMonthLanguages) {
        const QLocale locale(language);
        for (int month = 1; month <= 12; ++month) {
            for (const auto format : {QLocale::LongFormat, QLocale::ShortFormat}) {
                addMonthWord(words, locale.monthName(month, format), month);
                addMonthWord(words, locale.standaloneMonthName(month, format), month);
            }
        }
    }
    for (const auto& [word, month] : kFurtherMonthWords)
        addMonthWord(words, QString::fromLatin1(word), month);
    return words;
}

/// Whether `text` is a time, or what stands behind one; empty too.
bool isTimeOrNothing(QStringView text) {
    static const QRegularExpression form(
        QStringLiteral(
            "^\\.?(?:(?:[T,\\s-]\\s*|\\s+um\\s+|\\s+at\\s+)\\d{1,2}[:.h]\\d{2}(?:[:.]\\d{2}(?:[.,:]\\d{1,9})?)?"
            "\\s*(?:[ap]\\.?m\\.?|uhr)?\\s*(?:Z|[+-]\\d{2}:?\\d{2}|[A-Z]{2,4})?)?$"),
        QRegularExpression::CaseInsensitiveOption);
    return form.match(text).hasMatch();
}

bool isYear(const CVStatementDay::Field& field) {
    return field.digits == 4 ? field.value >= kFirstYear && field.value <= kLastYear : field.digits == 2;
}

int fullYear(const CVStatementDay::Field& field) {
    constexpr int kFirstOfLastCentury = 70;
    if (field.digits == 4)
        return field.value;
    return field.value + (field.value < kFirstOfLastCentury ? 2000 : 1900);
}

std::optional<QBDate> existingDay(int year, int month, int day) {
    if (year < kFirstYear || year > kLastYear || month < 1 || month > 12 || day < 1 || day > 31)
        return std::nullopt;
    const QBDate date = QBDate::dateWithYear(year, month, day);
    return date.dayOfMonth() == day ? std::optional(date) : std::nullopt;
}

CVStatementDay::Field fieldOf(QStringView digits) {
    CVStatementDay::Field field;
    for (const QChar digit : digits)
        field.value = field.value * 10 + digit.digitValue();
    field.digits = static_cast<int>(digits.size());
    return field;
}

/// "2024年3月12日" with plain separators; the digits are those of ASCII.
QString withPlainSeparators(QStringView text) {
    QString plain;
    for (const QChar character : text.trimmed()) {
        if (character.digitValue() >= 0)
            plain += QChar(u'0' + character.digitValue());
        else if (character == u'年' || character == u'月' || character == u'년' || character == u'월')
            plain += u'-';
        else if (character == u'日' || character == u'일')
            plain += u' ';
        else
            plain += character.isSpace() ? QChar(u' ') : character;
    }
    return plain.trimmed();
}

std::optional<CVStatementDay> dayOfNumbers(const QString& text, bool inColumn) {
    static const QRegularExpression form(QStringLiteral(
        "^(\\d{1,4})\\s?([-/.:'’ ])\\s?(\\d{1,2})(?:\\s?([-/.:'’ ])\\s?(\\d{4}|\\d{1,2})(?!\\d)|\\.?(?=$))(.*)$"));
    const auto match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    CVStatementDay day;
    day.fields = {fieldOf(match.capturedView(1)), fieldOf(match.capturedView(3)), fieldOf(match.capturedView(5))};
    day.count = match.capturedView(5).isEmpty() ? 2 : 3;
    day.separator = match.capturedView(2).front();
    // "3/7'24" has two separators; "18:10:05" is a time.
    const bool isSound = day.separator != u':' || day.fields[0].digits == 4;
    if (!isSound || day.fields[0].digits == 3 || !isTimeOrNothing(match.capturedView(6)))
        return std::nullopt;
    // "12.50" is an amount elsewhere, and "12 5" is nothing.
    if (day.count == 2 && day.separator != u'/' && !text.endsWith(u'.') && !(inColumn && day.separator == u'.'))
        return std::nullopt;
    return day;
}

std::optional<CVStatementDay> dayOfDigits(const QString& text, bool inColumn) {
    static const QRegularExpression form(QStringLiteral("^(\\d{4})(\\d{2})(\\d{2})(|[ T].*|\\d{6}(?:\\.\\d+)?)$"));
    const auto match = form.match(text);
    const bool isFollowedByTime = match.capturedView(4).size() >= 6 && match.capturedView(4).front().isDigit();
    if (match.hasMatch() && (isFollowedByTime || isTimeOrNothing(match.capturedView(4)))) {
        const CVStatementDay day{
            {fieldOf(match.capturedView(1)), fieldOf(match.capturedView(2)), fieldOf(match.capturedView(3))}, 3, {}};
        if (day.in(CVDayOrder::YearMonthDay))
            return day;
    }
    static const QRegularExpression columnForm(QStringLiteral("^(\\d{2})(\\d{2})(\\d{4}|\\d{2})$"));
    const auto other = columnForm.match(text);
    if (!inColumn || !other.hasMatch())
        return std::nullopt;
    return CVStatementDay{
        {fieldOf(other.capturedView(1)), fieldOf(other.capturedView(2)), fieldOf(other.capturedView(3))}, 3, {}};
}

std::optional<CVStatementDay> dayOfWords(const QString& text) {
    // "12 de marzo de 2024", "12. März 2024", "March 12th, 2024", "2024-Mar-12", "12MAR2024"
    static const QRegularExpression dayFirst(
        QStringLiteral("^(\\d{1,2}|\\d{4})(?:st|nd|rd|th|er|\\.|º|ª)?[ ./-]*(?:de |d')?[ "
                       "]*(\\p{L}[\\p{L}\\p{M}]*)\\.?[ ./',-]*(?:de |del )?(\\d{4}|\\d{2})?(?!\\d)(.*)$"));
    static const QRegularExpression monthFirst(QStringLiteral(
        "^(\\p{L}[\\p{L}\\p{M}]*)\\.?[ ./-]*(\\d{1,2})(?:st|nd|rd|th)?(?:[ ./',-]+(\\d{4}|\\d{2}))?(?!\\d)(.*)$"));
    if (const auto match = dayFirst.match(text); match.hasMatch() && CVMonthOfWord(match.capturedView(2)) > 0) {
        const CVStatementDay day{
            {fieldOf(match.capturedView(1)), {CVMonthOfWord(match.capturedView(2)), 0}, fieldOf(match.capturedView(3))},
            match.capturedView(3).isEmpty() ? 2 : 3,
            u' '};
        return isTimeOrNothing(match.capturedView(4)) ? std::optional(day) : std::nullopt;
    }
    if (const auto match = monthFirst.match(text); match.hasMatch() && CVMonthOfWord(match.capturedView(1)) > 0) {
        const CVStatementDay day{
            {fieldOf(match.capturedView(2)), {CVMonthOfWord(match.capturedView(1)), 0}, fieldOf(match.capturedView(3))},
            match.capturedView(3).isEmpty() ? 2 : 3,
            u' '};
        return isTimeOrNothing(match.capturedView(4)) ? std::optional(day) : std::nullopt;
    }
    return std::nullopt;
}

/// What a text is made of: enough to tell most texts that are no day at a glance.
struct Makeup {
    bool hasLetters = false;
    bool hasDigits = false;
    bool hasComma = false;
    bool hasColon = false;
    bool hasSlash = false;
    int separators = 0;
};

Makeup makeupOf(QStringView text) {
    Makeup makeup;
    for (const QChar character : text) {
        makeup.hasLetters = makeup.hasLetters || character.isLetter();
        makeup.hasDigits = makeup.hasDigits || character.isDigit();
        makeup.hasComma = makeup.hasComma || character == u',';
        makeup.hasColon = makeup.hasColon || character == u':';
        makeup.hasSlash = makeup.hasSlash || character == u'/';
        makeup.separators += QStringView(u"-/.:'\u2019 ").contains(character) ? 1 : 0;
    }
    return makeup;
}

/// "Fr. 12.03.2024" without its weekday; empty where another word than a weekday or a month comes first.
QString withoutWeekday(const QString& text) {
    qsizetype end = 0;
    while (end < text.size() && (text.at(end).isLetter() || text.at(end).isMark()))
        ++end;
    const QStringView word = QStringView(text).first(end);
    if (end == 0 || CVMonthOfWord(word) > 0)
        return text;
    if (!isWeekday(word))
        return {};
    while (end < text.size() && (text.at(end) == u'.' || text.at(end) == u',' || text.at(end) == u' '))
        ++end;
    return text.sliced(end);
}

std::optional<CVStatementDay> dayOfNumbersOrDigits(const QString& text, const Makeup& makeup, bool inColumn) {
    const bool isOfTwo = makeup.hasSlash || text.endsWith(u'.') || inColumn;
    const bool mayBeNumbers = makeup.separators > 1 || (makeup.separators == 1 && isOfTwo);
    if (!text.at(0).isDigit() || (makeup.hasComma && !makeup.hasColon && !makeup.hasLetters))
        return std::nullopt;
    auto day = mayBeNumbers ? dayOfNumbers(text, inColumn) : std::nullopt;
    return day || text.size() < 6 ? day : dayOfDigits(text, inColumn);
}

std::optional<CVStatementDay> readDay(QStringView text, bool inColumn) {
    text = text.trimmed();
    const bool mayBeDay =
        !text.isEmpty() && text.size() <= kLongestDayText && (text.front().isLetterOrNumber() || text.front().isMark());
    const Makeup before = mayBeDay ? makeupOf(text) : Makeup();
    if (!before.hasDigits)
        return std::nullopt;
    const QString plain = before.hasLetters ? withoutWeekday(withPlainSeparators(text)) : withPlainSeparators(text);
    if (plain.isEmpty())
        return std::nullopt;
    const Makeup makeup = makeupOf(plain);
    auto day = dayOfNumbersOrDigits(plain, makeup, inColumn);
    if (!day && makeup.hasLetters)
        day = dayOfWords(plain);
    return day && !day->orders().empty() ? day : std::nullopt;
}

} // namespace

std::optional<QBDate> CVStatementDay::in(CVDayOrder order, std::optional<int> year) const {
    const auto& [first, second, third] = fields;
    const bool hasWord = second.digits == 0;
    if (count == 2) {
        const bool isMonthFirst = order != CVDayOrder::DayMonthYear && !hasWord;
        if (isMonthFirst && separator == u'.')
            return std::nullopt;
        constexpr int kLeapYear = 2024;
        return existingDay(year.value_or(kLeapYear), isMonthFirst ? first.value : second.value,
                           isMonthFirst ? second.value : first.value);
    }
    // A year of four digits or a month's name leaves no choice.
    if (first.digits == 4)
        return isYear(first) && third.digits <= 2 ? existingDay(first.value, second.value, third.value) : std::nullopt;
    if (hasWord)
        return isYear(third) ? existingDay(fullYear(third), second.value, first.value) : std::nullopt;
    switch (order) {
    case CVDayOrder::DayMonthYear:
        return isYear(third) ? existingDay(fullYear(third), second.value, first.value) : std::nullopt;
    case CVDayOrder::MonthDayYear:
        // No country writes the month first with full stops.
        return isYear(third) && separator != u'.' ? existingDay(fullYear(third), first.value, second.value)
                                                  : std::nullopt;
    case CVDayOrder::YearMonthDay:
        return isYear(first) && third.digits <= 2 ? existingDay(fullYear(first), second.value, third.value)
                                                  : std::nullopt;
    }
    return std::nullopt;
}

std::vector<CVDayOrder> CVStatementDay::orders() const {
    std::vector<CVDayOrder> possible;
    for (const auto order : {CVDayOrder::DayMonthYear, CVDayOrder::MonthDayYear, CVDayOrder::YearMonthDay}) {
        if (in(order) && (count == 3 || order != CVDayOrder::YearMonthDay))
            possible.push_back(order);
    }
    return possible;
}

std::optional<CVStatementDay> CVReadStatementDay(QStringView text) {
    return readDay(text, false);
}

std::optional<CVStatementDay> CVReadDayOfColumn(QStringView text) {
    return readDay(text, true);
}

int CVMonthOfWord(QStringView word) {
    static const MonthWords words = makeMonthWords();
    return words.value(CVPlainWords(word.toString()), 0);
}
