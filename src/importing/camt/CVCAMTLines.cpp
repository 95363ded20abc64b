#include "importing/camt/CVCAMTLines.h"

#include "importing/statements/CVStatementAmount.h"
#include "importing/statements/CVStatementDay.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace {

struct CAMTLinesText {
    Q_DECLARE_TR_FUNCTIONS(CVCAMTLines)
};

/// A decimal number without groups and without a sign, which the mark beside it replaces. The decimal comma of some
/// banks is not in the standard, but leaves no doubt in front of one or two digits.
std::optional<qint64> sizeOf(const QString& text) {
    static const QRegularExpression form(QStringLiteral("^\\+?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+|[0-9]+(,)[0-9]{1,2})$"));
    const auto match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const auto amount = CVReadStatementAmount(text, match.capturedView(1).isEmpty() ? u'.' : u',');
    return amount ? std::optional(amount->hundredths) : std::nullopt;
}

/// 1 for money in, -1 for money out, 0 for any other mark.
int signOf(const QString& mark) {
    return mark == u"CRDT" ? 1 : mark == u"DBIT" ? -1 : 0;
}

/// The day as it is written: neither a time nor a zone behind it changes it.
std::optional<QBDate> dayOf(const QString& text) {
    constexpr qsizetype kDay = 10;
    static const QRegularExpression form(
        QStringLiteral("^[0-9]{4}-[0-9]{2}-[0-9]{2}(?:T[0-9:.]*)?(?:Z|[+-][0-9]{2}:?[0-9]{2})?$"));
    if (!form.match(text).hasMatch())
        return std::nullopt;
    const auto day = CVReadStatementDay(text.first(kDay));
    return day ? day->in(CVDayOrder::YearMonthDay) : std::nullopt;
}

/// Empty for the words with which banks say that there is none.
QString numberOf(const QString& text) {
    const bool isNone = text == u"NONREF" || text == u"NOTPROVIDED" || text == u"NONE";
    return isNone ? QString() : text;
}

QString joined(const QStringList& texts) {
    QString all;
    for (const QString& text : texts) {
        if (!all.contains(text))
            all += all.isEmpty() ? text : u' ' + text;
    }
    return all;
}

class CAMTEntryReader {
public:
    CAMTEntryReader(const CVCAMTEntry& entry, const CVCAMTAccount& account) : mEntry(entry), mAccount(account) {}

    std::vector<CVStatementLine> lines() const {
        CVStatementLine line{.number = mEntry.line};
        line.day = dayOf(dayText());
        const auto size = sizeOf(mEntry.amount.text);
        if (size && signOf(mEntry.mark) != 0)
            line.hundredths = signOf(mEntry.mark) * *size;
        line.unreadable = fault(line);
        std::vector<CVStatementLine> parts = line.unreadable.isEmpty() ? partsOf(line) : std::vector<CVStatementLine>();
        if (!parts.empty())
            return parts;
        giveTextsOfAll(line);
        return {line};
    }

private:
    /// Banks that book at once leave out the booking day.
    [[nodiscard]] const QString& dayText() const {
        return mEntry.bookingDay.isEmpty() ? mEntry.valueDay : mEntry.bookingDay;
    }

    [[nodiscard]] QString fault(const CVStatementLine& line) const {
        if (QString status = faultOfStatus(); !status.isEmpty())
            return status;
        if (!line.day)
            return dayText().isEmpty() ? CAMTLinesText::tr("there is no day")
                                       : CAMTLinesText::tr("“%1” is no day").arg(dayText());
        if (mEntry.amount.text.isEmpty())
            return CAMTLinesText::tr("there is no amount");
        if (!sizeOf(mEntry.amount.text))
            return CAMTLinesText::tr("“%1” is no amount").arg(mEntry.amount.text);
        if (!line.hundredths)
            return CAMTLinesText::tr("it is marked neither as money in nor as money out");
        if (!isCurrencyOfAccount(mEntry.amount))
            return CAMTLinesText::tr("its amount is in %1, the account in %2")
                .arg(mEntry.amount.currency, mAccount.currency);
        return {};
    }

    [[nodiscard]] QString faultOfStatus() const {
        const QString& status = mEntry.status;
        if (status.isEmpty() || status == u"BOOK")
            return {};
        if (status == u"PDNG" || status == u"FUTR")
            return CAMTLinesText::tr("not booked yet");
        return status == u"INFO" ? CAMTLinesText::tr("it is for information alone, not booked")
                                 : CAMTLinesText::tr("“%1” does not say whether it is booked").arg(status);
    }

    [[nodiscard]] bool isCurrencyOfAccount(const CVCAMTAmount& amount) const {
        return amount.currency.isEmpty() || mAccount.currency.isEmpty() || amount.currency == mAccount.currency;
    }

    /// Absent unless the part has an amount in the currency of its entry.
    [[nodiscard]] std::optional<qint64> hundredthsOf(const CVCAMTPart& part) const {
        const int sign = signOf(part.mark.isEmpty() ? mEntry.mark : part.mark);
        for (const CVCAMTAmount& amount : part.amounts) {
            if (!amount.text.isEmpty() && amount.currency == mEntry.amount.currency) {
                const auto size = sizeOf(amount.text);
                return size && sign != 0 ? std::optional(sign * *size) : std::nullopt;
            }
        }
        return std::nullopt;
    }

    /// None unless there are several that add up to the entry: else a part of what was paid would be lost, or counted
    /// twice.
    [[nodiscard]] std::vector<CVStatementLine> partsOf(const CVStatementLine& whole) const {
        std::vector<CVStatementLine> lines;
        // The sum of so many amounts of fifteen digits may be beyond any number.
        constexpr qint64 kMost = 1'000'000'000'000'000;
        qint64 sum = 0;
        for (const CVCAMTPart& part : mEntry.parts) {
            const auto hundredths = hundredthsOf(part);
            if (!hundredths || mEntry.parts.size() < 2 || std::abs(*hundredths) > kMost || std::abs(sum) > kMost)
                return {};
            sum += *hundredths;
            CVStatementLine line = whole;
            line.hundredths = hundredths;
            giveTexts(line, part);
            giveNumberOfPart(line, part, lines.size() + 1);
            lines.push_back(line);
        }
        return sum == whole.hundredths ? lines : std::vector<CVStatementLine>();
    }

    void giveTextsOfAll(CVStatementLine& line) const {
        if (mEntry.parts.empty()) {
            giveTexts(line, {});
        } else {
            giveTexts(line, mEntry.parts.front());
        }
        if (mEntry.parts.size() > 1) {
            const auto isOfSame = [&](const CVCAMTPart& part) { return payeeOf(part, isOut(line)) == line.payee; };
            if (!std::all_of(mEntry.parts.begin(), mEntry.parts.end(), isOfSame))
                line.payee.clear();
            giveTextsOfFirstParts(line);
        }
        line.bankID = numberOf(mEntry.bankReference);
        if (line.bankID.isEmpty())
            line.bankID = numberOf(mEntry.reference);
        if (line.bankID.isEmpty() && mEntry.parts.size() == 1)
            line.bankID = numberOfPart(mEntry.parts.front());
        giveCells(line);
    }

    /// What the bank says about all, else what the first parts say.
    void giveTextsOfFirstParts(CVStatementLine& line) const {
        constexpr std::size_t kFirstParts = 4;
        QStringList texts{mEntry.information};
        for (std::size_t at = 0; at < std::min(mEntry.parts.size(), kFirstParts); ++at)
            texts.append(purposeOf(mEntry.parts[at]));
        texts.removeAll(QString());
        line.purpose = joined(texts);
    }

    void giveTexts(CVStatementLine& line, const CVCAMTPart& part) const {
        line.payee = payeeOf(part, isOut(line));
        line.purpose = purposeOf(part);
        if (line.purpose.isEmpty())
            line.purpose = mEntry.information;
        giveCells(line);
    }

    [[nodiscard]] static bool isOut(const CVStatementLine& line) { return line.hundredths.value_or(0) < 0; }

    [[nodiscard]] static QString purposeOf(const CVCAMTPart& part) {
        const QString purpose = joined(part.texts + part.references);
        return purpose.isEmpty() ? part.information : purpose;
    }

    /// Of the two sides the one that is not the account's own. The creditor has got the money that went out; what is
    /// taken back names the two as the earlier booking did.
    [[nodiscard]] QString payeeOf(const CVCAMTPart& part, bool isOut) const {
        const bool isCreditor = isOut != mEntry.isReversal;
        const CVCAMTParty& first = isCreditor ? part.creditor : part.debtor;
        const CVCAMTParty& second = isCreditor ? part.debtor : part.creditor;
        QString name = isOwn(first) ? QString() : nameOf(first);
        if (name.isEmpty() && !isOwn(second))
            name = nameOf(second);
        return name.isEmpty() ? part.otherParty : name;
    }

    [[nodiscard]] static QString nameOf(const CVCAMTParty& party) {
        return party.name.isEmpty() ? party.ultimate : party.name;
    }

    [[nodiscard]] bool isOwn(const CVCAMTParty& party) const {
        if (!party.account.isEmpty() && !mAccount.id.isEmpty())
            return party.account == mAccount.id;
        return !party.name.isEmpty() && party.name.compare(mAccount.owner, Qt::CaseInsensitive) == 0;
    }

    [[nodiscard]] static QString numberOfPart(const CVCAMTPart& part) {
        const QString number = numberOf(part.bankReference);
        return number.isEmpty() ? numberOf(part.transactionID) : number;
    }

    /// Its own number, else that of the entry with its place: each part is found again by itself.
    void giveNumberOfPart(CVStatementLine& line, const CVCAMTPart& part, std::size_t place) const {
        const auto hasSame = [&](const CVCAMTPart& other) { return numberOfPart(other) == numberOfPart(part); };
        const QString own = numberOfPart(part);
        const QString ofEntry = numberOf(mEntry.bankReference.isEmpty() ? mEntry.reference : mEntry.bankReference);
        const bool isSingle =
            !own.isEmpty() && isFew() && std::count_if(mEntry.parts.begin(), mEntry.parts.end(), hasSame) == 1;
        if (isSingle)
            line.bankID = own;
        else if (!ofEntry.isEmpty() || !own.isEmpty())
            line.bankID = QStringLiteral("%1#%2").arg(ofEntry.isEmpty() ? own : ofEntry).arg(place);
    }

    /// Whether each part can be compared with all others.
    [[nodiscard]] bool isFew() const {
        constexpr std::size_t kFew = 2000;
        return mEntry.parts.size() <= kFew;
    }

    void giveCells(CVStatementLine& line) const {
        line.cells = {dayText(), mEntry.amount.text, mEntry.amount.currency, mEntry.mark, line.payee, line.purpose};
        line.cells.removeAll(QString());
    }

    const CVCAMTEntry& mEntry;
    const CVCAMTAccount& mAccount;
};

} // namespace

std::vector<CVStatementLine> CVLinesOfCAMTEntry(const CVCAMTEntry& entry, const CVCAMTAccount& account) {
    return CAMTEntryReader(entry, account).lines();
}
