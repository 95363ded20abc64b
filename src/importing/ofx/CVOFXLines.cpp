#include "importing/ofx/CVOFXLines.h"

#include "importing/ofx/CVOFXSigns.h"
#include "importing/ofx/CVOFXTexts.h"
#include "importing/statements/CVStatementAmount.h"
#include "importing/statements/CVStatementDay.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

struct OFXLinesText {
    Q_DECLARE_TR_FUNCTIONS(CVOFXLines)
};

/// Of the first eight digits; what follows, a time and its zone, does not change the day that the bank wrote.
std::optional<QBDate> dayOf(const QString& text) {
    static const QRegularExpression form(
        QStringLiteral("^(\\d{4})(\\d{2})(\\d{2})|^(\\d{4})-(\\d{2})-(\\d{2})(?!\\d)"));
    const auto match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const QString digits = match.captured(0).remove(u'-');
    const auto day = CVReadDayOfColumn(digits);
    return day ? day->in(CVDayOrder::YearMonthDay) : std::nullopt;
}

/// With the sign that the text has; absent where a marker contradicts it.
std::optional<qint64> amountWithMark(const QString& text, QChar mark) {
    const auto amount = CVReadStatementAmount(text, mark);
    if (!amount || amount->marker == 0)
        return amount ? std::optional(amount->hundredths) : std::nullopt;
    const qint64 marked = amount->marker * std::abs(amount->hundredths);
    return amount->isSigned && marked != amount->hundredths ? std::nullopt : std::optional(marked);
}

std::optional<qint64> amountOf(const QString& text, const CVOFXMarks& marks) {
    const auto amount = amountWithMark(text, marks.mark);
    return amount || !marks.areBoth ? amount : amountWithMark(text, marks.mark == u',' ? u'.' : u',');
}

/// Whether an amount in a currency of its own is one in that of the account.
bool isConverted(const CVOFXEntry& entry, const CVOFXAccount& account) {
    static const QRegularExpression one(QStringLiteral("^0*1([.,]0*)?$"));
    return entry.currency.isEmpty() || account.currency.isEmpty() || entry.currency == account.currency ||
           one.match(entry.rate).hasMatch();
}

QString faultOf(const CVOFXEntry& entry) {
    switch (entry.fault) {
    case CVOFXEntry::Fault::CutOff:
        return OFXLinesText::tr("the file ends within it");
    case CVOFXEntry::Fault::Twofold:
        return OFXLinesText::tr("it has two days or two amounts");
    case CVOFXEntry::Fault::TooLong:
        return OFXLinesText::tr("one of its texts is too long");
    case CVOFXEntry::Fault::None:
        break;
    }
    return {};
}

/// Why the entry cannot be read; empty where it can.
QString whyUnreadable(const CVOFXEntry& entry, const CVOFXAccount& account, const CVStatementLine& line) {
    if (entry.fault != CVOFXEntry::Fault::None)
        return faultOf(entry);
    if (entry.day.isEmpty())
        return OFXLinesText::tr("there is no day");
    if (!line.day)
        return OFXLinesText::tr("“%1” is no day").arg(entry.day);
    if (entry.amount.isEmpty())
        return OFXLinesText::tr("there is no amount");
    if (!line.hundredths)
        return OFXLinesText::tr("“%1” is no amount").arg(entry.amount);
    if (entry.correction == u"DELETE")
        return OFXLinesText::tr("the bank takes an entry of an earlier file back with it");
    if (!isConverted(entry, account))
        return OFXLinesText::tr("its amount is in %1, and the account is in %2").arg(entry.currency, account.currency);
    return {};
}

CVStatementLine lineOf(const CVOFXEntry& entry, const CVOFXAccount& account, const CVOFXMarks& marks) {
    auto [payee, purpose] = CVTextsOfOFXEntry(entry);
    CVStatementLine line{.number = entry.line};
    line.day = dayOf(entry.day);
    line.hundredths = amountOf(entry.amount, marks);
    line.payee = std::move(payee);
    line.purpose = std::move(purpose);
    line.category = entry.category;
    line.bankID = entry.id;
    line.unreadable = whyUnreadable(entry, account, line);
    line.cells = QStringList{entry.type, entry.day, entry.amount, entry.id, entry.name, entry.memo};
    line.cells.removeAll(QString());
    return line;
}

CVStatementQuestion askForSign(const CVOFXEntry& entry, const CVStatementMapping& known) {
    CVStatementQuestion question{CVStatementQuestion::About::Sign, {}, {}};
    question.text =
        OFXLinesText::tr("Which tells money out from money in, as in line %1: the word “%2” or the sign of “%3”?")
            .arg(QString::number(entry.line), entry.type, entry.amount);
    CVStatementMapping byType = known;
    byType.outMarker = entry.type == u"CREDIT" ? QStringLiteral("DEBIT") : entry.type;
    CVStatementMapping bySign = known;
    bySign.positiveIsOut = false;
    question.answers = {{OFXLinesText::tr("“%1”").arg(entry.type), byType, QStringLiteral("--out-marker DEBIT")},
                        {OFXLinesText::tr("The sign"), bySign, QStringLiteral("--sign normal")}};
    return question;
}

} // namespace

CVDecimalMarks CVDecimalMarksOfOFX(const CVOFXContents& contents) {
    CVDecimalMarks marks;
    for (const CVOFXAccount& account : contents.accounts) {
        for (const CVOFXEntry& entry : account.entries)
            marks.count(entry.amount, static_cast<std::size_t>(entry.line));
    }
    if (!marks.sayNothing())
        return marks;
    CVDecimalMarks ofBalances;
    for (const auto& [text, line] : contents.balances)
        ofBalances.count(text, static_cast<std::size_t>(line));
    marks.point = ofBalances.point;
    marks.comma = ofBalances.comma;
    return marks;
}

CVOFXLines CVLinesOfOFX(const CVOFXAccount& account, const CVOFXMarks& marks, const CVStatementMapping& known) {
    CVOFXLines read;
    std::vector<CVOFXSignedEntry> readable;
    read.lines.reserve(account.entries.size());
    for (const CVOFXEntry& entry : account.entries) {
        read.lines.push_back(lineOf(entry, account, marks));
        if (read.lines.back().unreadable.isEmpty())
            readable.push_back({&entry, *read.lines.back().hundredths});
    }
    const CVOFXSigns signs(readable, account.isCard, known);
    if (const CVOFXEntry* const open = signs.openEntry())
        read.question = askForSign(*open, known);
    for (std::size_t at = 0; at < read.lines.size(); ++at) {
        CVStatementLine& line = read.lines[at];
        if (!line.unreadable.isEmpty())
            continue;
        line.hundredths = signs.signedAmount({&account.entries[at], *line.hundredths});
        if (!line.hundredths)
            line.unreadable =
                OFXLinesText::tr("“%1” does not tell money out from money in").arg(account.entries[at].type);
    }
    return read;
}
