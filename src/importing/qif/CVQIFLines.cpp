#include "importing/qif/CVQIFLines.h"

#include "importing/statements/CVStatementAmount.h"
#include "importing/statements/CVStatementDay.h"
#include "importing/statements/CVStatementWords.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdlib>

namespace {

struct QIFLinesText {
    Q_DECLARE_TR_FUNCTIONS(CVQIFLines)
};

/// A part of an entry that is divided among categories.
struct Part {
    QString category;
    QString memo;
    QString amount;
};

/// The texts of an entry.
struct Texts {
    QStringList days;
    QStringList amounts;
    QString payee;
    QString memo;
    QString category;
    QString number;
    std::vector<Part> parts;
};

void addText(QString& text, QStringView more) {
    if (!more.isEmpty())
        text += text.isEmpty() ? more.toString() : u' ' + more.toString();
}

/// Sorts the lines of an entry by what they hold.
class TextSorter {
public:
    explicit TextSorter(const CVQIFEntry& entry) {
        for (const auto& [code, text] : entry.fields)
            sort(code, text);
    }

    Texts texts;

private:
    void sort(QChar code, QStringView text) {
        if (code.isNull()) {
            // A line break within a payee or a memo.
            if (mOpen)
                addText(*mOpen, text);
            return;
        }
        mOpen = nullptr;
        switch (code.unicode()) {
        case u'D':
            // The parts of some programs have days of their own, which are no bookings.
            if (!text.isEmpty() && (texts.parts.empty() || texts.days.isEmpty()))
                texts.days.append(text.toString());
            break;
        case u'T':
        case u'U':
            if (!text.isEmpty())
                texts.amounts.append(text.toString());
            break;
        case u'P':
            take(texts.payee, text);
            break;
        case u'M':
            take(texts.memo, text);
            break;
        case u'L':
            take(texts.category, text);
            break;
        case u'N':
            addText(texts.number, text);
            break;
        default:
            sortPart(code, text);
        }
    }

    void sortPart(QChar code, QStringView text) {
        if (code == u'S')
            texts.parts.push_back({text.toString(), {}, {}});
        else if (code == u'E' && !texts.parts.empty())
            take(texts.parts.back().memo, text);
        else if (code == u'$' && !texts.parts.empty())
            addText(texts.parts.back().amount, text);
    }

    void take(QString& place, QStringView text) {
        addText(place, text);
        mOpen = &place;
    }

    QString* mOpen = nullptr;
};

/// "[Savings]" is no category but the account on the other side; empty for a category.
QString accountIn(const QString& category) {
    if (!category.startsWith(u'['))
        return {};
    const auto end = category.lastIndexOf(u']');
    return end > 1 ? category.sliced(1, end - 1).trimmed() : QString();
}

/// Without the class behind the slash; empty for another account and for the word that stands for the parts.
QString categoryIn(const QString& category) {
    if (category.startsWith(u'[') || category.startsWith(u"--"))
        return {};
    const auto slash = category.indexOf(u'/');
    return (slash < 0 ? category : category.first(slash)).trimmed();
}

/// Words such as "ATM" or "Print" are no numbers.
bool isNumber(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
}

std::optional<qint64> signedHundredths(const QString& text, const CVQIFRule& rule) {
    const auto amount = CVReadStatementAmount(text, rule.mark);
    if (!amount || (amount->marker != 0 && amount->isSigned && (amount->hundredths < 0) != (amount->marker < 0)))
        return std::nullopt;
    if (amount->marker != 0)
        return amount->marker * std::abs(amount->hundredths);
    return rule.positiveIsOut ? -amount->hundredths : amount->hundredths;
}

class EntryReader {
public:
    EntryReader(const CVQIFEntry& entry, const CVQIFRule& rule)
        : mEntry(entry)
        , mRule(rule)
        , mTexts(TextSorter(entry).texts) {}

    std::vector<CVStatementLine> lines() {
        if (CVNamesBalanceRow(mTexts.payee) || (mTexts.payee.isEmpty() && CVNamesBalanceRow(mTexts.memo)))
            return {};
        CVStatementLine line{.number = mEntry.line, .payee = mTexts.payee.simplified(), .cells = mEntry.cells()};
        readDay(line);
        readAmount(line);
        line.bankID = isNumber(mTexts.number) ? mTexts.number : QString();
        std::vector<CVStatementLine> parts = line.unreadable.isEmpty() ? partsOf(line) : std::vector<CVStatementLine>();
        if (!parts.empty())
            return parts;
        const bool isOnePart = mTexts.parts.size() == 1 && mTexts.category.isEmpty();
        giveTexts(line, isOnePart ? mTexts.parts.front().category : mTexts.category, {});
        return {line};
    }

private:
    void readDay(CVStatementLine& line) const {
        for (const QString& text : mTexts.days) {
            const auto fields = CVReadDayOfColumn(CVQIFDayText(text));
            const auto day =
                fields && (fields->hasYear() || mRule.year) ? fields->in(mRule.order, mRule.year) : std::nullopt;
            if (day && line.day && *day != *line.day)
                line.unreadable = QIFLinesText::tr("it has two days");
            line.day = line.day ? line.day : day;
        }
        if (line.day)
            return;
        line.unreadable = mTexts.days.isEmpty() ? QIFLinesText::tr("there is no day")
                                                : QIFLinesText::tr("“%1” is no day").arg(mTexts.days.constFirst());
    }

    void readAmount(CVStatementLine& line) const {
        for (const QString& text : mTexts.amounts) {
            const auto hundredths = signedHundredths(text, mRule);
            if (hundredths && line.hundredths && *hundredths != *line.hundredths)
                line.unreadable = QIFLinesText::tr("it has two amounts");
            line.hundredths = line.hundredths ? line.hundredths : hundredths;
        }
        if (line.hundredths || !line.unreadable.isEmpty())
            return;
        line.unreadable = mTexts.amounts.isEmpty()
                              ? QIFLinesText::tr("there is no amount")
                              : QIFLinesText::tr("“%1” is no amount").arg(mTexts.amounts.constFirst());
    }

    /// None unless the parts add up to the amount: a part that is missing, or has another sign, would change what was
    /// paid.
    [[nodiscard]] std::vector<CVStatementLine> partsOf(const CVStatementLine& whole) const {
        std::vector<CVStatementLine> lines;
        qint64 sum = 0;
        for (const Part& part : mTexts.parts) {
            const auto hundredths = signedHundredths(part.amount, mRule);
            // A sum of so many amounts of fifteen digits may be beyond any number.
            constexpr qint64 kMost = 1'000'000'000'000'000;
            if (!hundredths || std::abs(*hundredths) > kMost || std::abs(sum) > kMost)
                return {};
            sum += *hundredths;
            CVStatementLine line = whole;
            line.hundredths = hundredths;
            giveTexts(line, part.category, part.memo);
            // The parts are booked under one number; each of them is found again by itself.
            if (!line.bankID.isEmpty() && mTexts.parts.size() > 1)
                line.bankID += QStringLiteral("#%1").arg(lines.size() + 1);
            lines.push_back(line);
        }
        return sum == whole.hundredths ? lines : std::vector<CVStatementLine>();
    }

    void giveTexts(CVStatementLine& line, const QString& category, const QString& memo) const {
        line.category = categoryIn(category);
        QString purpose = mTexts.memo;
        if (memo != purpose)
            addText(purpose, memo);
        if (purpose.isEmpty())
            purpose = accountIn(category);
        if (purpose.isEmpty() && line.payee.isEmpty())
            purpose = category.startsWith(u"--") || category.isEmpty() ? mTexts.number : category;
        line.purpose = purpose.simplified();
    }

    const CVQIFEntry& mEntry;
    const CVQIFRule& mRule;
    Texts mTexts;
};

} // namespace

std::vector<CVStatementLine> CVLinesOfQIFEntry(const CVQIFEntry& entry, const CVQIFRule& rule) {
    return EntryReader(entry, rule).lines();
}

void CVQIFNotation::count(const CVQIFEntry& entry) {
    const auto line = static_cast<std::size_t>(entry.line);
    const Texts texts = TextSorter(entry).texts;
    for (const QString& text : texts.days) {
        if (const auto day = CVReadDayOfColumn(CVQIFDayText(text))) {
            days.emplace_back(line, *day);
            dayTexts.append(text);
        }
    }
    for (const QString& text : texts.amounts)
        marks.count(text, line);
    for (const Part& part : texts.parts)
        marks.count(part.amount, line);
}
