#include "RandomStatement.h"

#include <QStringEncoder>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>

namespace {

/// A number from 0 up to `count`, without `count`.
int below(std::mt19937& chance, int count) {
    return std::uniform_int_distribution<int>(0, count - 1)(chance);
}

bool oneIn(std::mt19937& chance, int count) {
    return below(chance, count) == 0;
}

template <typename List>
const auto& anyOf(std::mt19937& chance, const List& list) {
    return list[static_cast<std::size_t>(below(chance, static_cast<int>(std::size(list))))];
}

enum class SignStyle {
    MinusBefore,
    MinusBehind,
    Brackets,
    LongMinus,
    PlusAndMinus,
    TwoColumns,
    Marker,
    Suffix,
    CardCompany
};

/// The words of a header.
struct Header {
    const char16_t* day;
    const char16_t* otherDay;
    const char16_t* payee;
    const char16_t* purpose;
    const char16_t* amount;
    const char16_t* out;
    const char16_t* in;
    const char16_t* marker;
    const char16_t* balance;
    const char16_t* outMarker;
    const char16_t* inMarker;
};

constexpr std::array<Header, 6> kHeaders{
    {{u"Date", u"Value Date", u"Payee", u"Description", u"Amount", u"Debit", u"Credit", u"D/C", u"Balance", u"D", u"C"},
     {u"Buchungstag", u"Valuta", u"Empfänger", u"Verwendungszweck", u"Betrag", u"Soll", u"Haben", u"S/H", u"Saldo",
      u"S", u"H"},
     {u"Date opération", u"Date de valeur", u"Bénéficiaire", u"Libellé", u"Montant", u"Débit", u"Crédit", u"Sens",
      u"Solde", u"D", u"C"},
     {u"Fecha", u"Fecha valor", u"Beneficiario", u"Concepto", u"Importe", u"Cargo", u"Abono", u"Tipo", u"Saldo",
      u"Debe", u"Haber"},
     {u"Boekdatum", u"Rentedatum", u"Naam", u"Omschrijving", u"Bedrag", u"Af", u"Bij", u"Af Bij", u"Saldo", u"Af",
      u"Bij"},
     {u"Posting Date", u"Effective Date", u"Merchant", u"Memo", u"Transaction Amount", u"Withdrawals", u"Deposits",
      u"Type", u"Running Balance", u"DEBIT", u"CREDIT"}}};

struct Dialect {
    char separator;
    char16_t decimalMark;
    QString group;
    SignStyle signs;
    int dayForm;
    const Header* header;
    bool hasHeader;
    bool hasBalance;
    /// The balance before each line in place of the one after it.
    bool isBalanceBefore;
    bool hasOtherDay;
    bool hasPreamble;
    bool hasTrailer;
    bool isDescending;
    bool quotesAll;
    bool writesCurrency;
    QString lineEnd;
};

Dialect makeDialect(std::mt19937& chance) {
    Dialect dialect{};
    dialect.separator = anyOf(chance, std::array{',', ';', '\t', '|'});
    dialect.decimalMark = oneIn(chance, 2) ? u'.' : u',';
    const QString others = dialect.decimalMark == u'.' ? QStringLiteral(",") : QStringLiteral(".");
    dialect.group =
        anyOf(chance, std::array{QString(), QString(), QString(others), QStringLiteral("\u00a0"), QStringLiteral("'")});
    dialect.signs = static_cast<SignStyle>(below(chance, 9));
    dialect.dayForm = below(chance, 9);
    dialect.header = &anyOf(chance, kHeaders);
    dialect.hasHeader = !oneIn(chance, 5);
    dialect.hasBalance = oneIn(chance, 2);
    dialect.isBalanceBefore = oneIn(chance, 5);
    dialect.hasOtherDay = oneIn(chance, 4);
    dialect.hasPreamble = dialect.hasHeader && oneIn(chance, 3);
    dialect.hasTrailer = oneIn(chance, 5);
    dialect.isDescending = oneIn(chance, 2);
    dialect.quotesAll = oneIn(chance, 3);
    dialect.writesCurrency = oneIn(chance, 5);
    dialect.lineEnd = anyOf(
        chance, std::array{QStringLiteral("\n"), QStringLiteral("\r\n"), QStringLiteral("\r\n"), QStringLiteral("\r")});
    return dialect;
}

QString grouped(qint64 whole, const QString& group) {
    QString text = QString::number(whole);
    for (qsizetype at = text.size() - 3; at > 0; at -= 3)
        text.insert(at, group);
    return text;
}

QString plainAmount(qint64 hundredths, const Dialect& dialect) {
    constexpr int kDecimalBase = 10;
    const qint64 size = std::abs(hundredths);
    return grouped(size / 100, dialect.group) + QChar(dialect.decimalMark) +
           QStringLiteral("%1").arg(size % 100, 2, kDecimalBase, QLatin1Char('0'));
}

/// An amount with its sign in the style of the dialect.
QString signedAmount(qint64 hundredths, const Dialect& dialect) {
    QString plain = plainAmount(hundredths, dialect);
    const bool isOut = hundredths < 0;
    switch (dialect.signs) {
    case SignStyle::MinusBehind:
        return isOut ? plain + u'-' : plain;
    case SignStyle::Brackets:
        return isOut ? u'(' + plain + u')' : plain;
    case SignStyle::PlusAndMinus:
        return (isOut ? u'-' : u'+') + plain;
    case SignStyle::Suffix:
        return plain + (isOut ? QStringLiteral(" DR") : QStringLiteral(" CR"));
    case SignStyle::CardCompany:
        return isOut ? plain : u'-' + plain;
    case SignStyle::Marker:
        return plain;
    default:
        return isOut ? u'-' + plain : plain;
    }
}

QString dayText(const QBDate& day, int form) {
    constexpr int kDecimalBase = 10;
    const auto two = [](qint64 number) { return QStringLiteral("%1").arg(number, 2, kDecimalBase, QLatin1Char('0')); };
    const QString year = QString::number(day.yearOfCommonEra());
    const QString month = two(day.monthOfYear());
    const QString date = two(day.dayOfMonth());
    constexpr std::array kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    switch (form) {
    case 0:
        return year + u'-' + month + u'-' + date;
    case 1:
        return date + u'.' + month + u'.' + year;
    case 2:
        return date + u'/' + month + u'/' + year;
    case 3:
        return month + u'/' + date + u'/' + year;
    case 4:
        return date + u'.' + month + u'.' + year.right(2);
    case 5:
        return date + u'/' + month + u'/' + year.right(2);
    case 6:
        return year + month + date;
    case 7:
        return date + u' ' + QLatin1String(kMonths.at(static_cast<std::size_t>(day.monthOfYear()) - 1)) + u' ' + year;
    default:
        return year + u'-' + month + u'-' + date + QStringLiteral(" 10:15:30");
    }
}

std::vector<RandomStatement::Line> makeLines(std::mt19937& chance) {
    const std::array payees{QStringLiteral("Supermarket"),  QStringLiteral("Bakery, Main Street"),
                            QStringLiteral("Café \"Sol\""), QStringLiteral("Landlord; Ltd"),
                            QStringLiteral("Power 24/7"),   QStringLiteral("O'Neill & Sons"),
                            QStringLiteral("Müller 12.50")};
    std::vector<RandomStatement::Line> lines;
    QBDate day = QBDate::dateWithYear(2010 + below(chance, 15), 1 + below(chance, 12), 1 + below(chance, 28));
    const int count = 1 + below(chance, 14);
    const int shareOfIncome = below(chance, 6);
    const int largest = anyOf(chance, std::array{3000, 200'000, 5'000'000});
    for (int line = 0; line < count; ++line) {
        day = day.dateByAddingYears(0, 0, below(chance, 5));
        const qint64 amount = 1 + below(chance, largest);
        lines.push_back({day, below(chance, 10) < shareOfIncome ? amount : -amount, anyOf(chance, payees)});
    }
    return lines;
}

QString joinedRow(const QStringList& cells, const Dialect& dialect) {
    QStringList written;
    for (QString cell : cells) {
        const bool needsQuotes =
            dialect.quotesAll || cell.contains(QLatin1Char(dialect.separator)) || cell.contains(u'"');
        if (needsQuotes)
            cell = u'"' + cell.replace(u'"', QStringLiteral("\"\"")) + u'"';
        written.append(cell);
    }
    return written.join(QLatin1Char(dialect.separator)) + dialect.lineEnd;
}

QStringList headerCells(const Dialect& dialect) {
    const Header& header = *dialect.header;
    QStringList cells{QString::fromUtf16(header.day)};
    if (dialect.hasOtherDay)
        cells.append(QString::fromUtf16(header.otherDay));
    cells << QString::fromUtf16(header.payee) << QString::fromUtf16(header.purpose);
    if (dialect.signs == SignStyle::TwoColumns)
        cells << QString::fromUtf16(header.out) << QString::fromUtf16(header.in);
    else
        cells.append(QString::fromUtf16(header.amount));
    if (dialect.signs == SignStyle::Marker)
        cells.append(QString::fromUtf16(header.marker));
    if (dialect.hasBalance)
        cells.append(QString::fromUtf16(header.balance));
    return cells;
}

QStringList lineCells(std::mt19937& chance, const RandomStatement::Line& line, qint64 balance, const Dialect& dialect) {
    const bool isOut = line.hundredths < 0;
    const QString currency = dialect.writesCurrency ? QStringLiteral(" EUR") : QString();
    QStringList cells{dayText(line.day, dialect.dayForm)};
    if (dialect.hasOtherDay)
        cells.append(dayText(line.day.dateByAddingYears(0, 0, below(chance, 3)), dialect.dayForm));
    cells << line.payee << QStringLiteral("Ref %1 of the month").arg(below(chance, 9000));
    if (dialect.signs == SignStyle::TwoColumns)
        cells << (isOut ? plainAmount(line.hundredths, dialect) + currency : QString())
              << (isOut ? QString() : plainAmount(line.hundredths, dialect) + currency);
    else if (dialect.signs == SignStyle::LongMinus && isOut)
        cells.append(u'\u2212' + plainAmount(line.hundredths, dialect) + currency);
    else
        cells.append(signedAmount(line.hundredths, dialect));
    if (dialect.signs == SignStyle::Marker)
        cells.append(QString::fromUtf16(isOut ? dialect.header->outMarker : dialect.header->inMarker));
    if (dialect.hasBalance)
        cells.append((balance < 0 ? QStringLiteral("-") : QString()) + plainAmount(balance, dialect));
    return cells;
}

QByteArray encoded(std::mt19937& chance, const QString& text) {
    switch (below(chance, 4)) {
    case 0:
        return "\xEF\xBB\xBF" + text.toUtf8();
    case 1: {
        QStringEncoder encoder(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom);
        return encoder.encode(text);
    }
    case 2:
        if (!text.contains(u'\u2212'))
            return text.toLatin1();
        [[fallthrough]];
    default:
        return text.toUtf8();
    }
}

/// A card company turns the signs around. Its statements say so by their headings, and money seldom comes in.
void useCardCompany(Dialect& dialect, const std::vector<RandomStatement::Line>& lines) {
    if (dialect.signs != SignStyle::CardCompany)
        return;
    const auto income = std::count_if(lines.begin(), lines.end(), [](const auto& line) { return line.hundredths > 0; });
    if (3 * income >= static_cast<std::ptrdiff_t>(lines.size()))
        dialect.signs = SignStyle::MinusBefore;
    else
        dialect.header = &kHeaders.back();
    dialect.hasHeader = true;
}

} // namespace

RandomStatement makeRandomStatement(std::mt19937& chance) {
    Dialect dialect = makeDialect(chance);
    RandomStatement statement{makeLines(chance), {}};
    useCardCompany(dialect, statement.lines);
    std::vector<qint64> balances;
    qint64 balance = below(chance, 1'000'000);
    for (const auto& line : statement.lines) {
        balances.push_back(dialect.isBalanceBefore ? balance : balance + line.hundredths);
        balance += line.hundredths;
    }
    if (dialect.isDescending) {
        std::reverse(statement.lines.begin(), statement.lines.end());
        std::reverse(balances.begin(), balances.end());
    }
    QString text;
    if (dialect.hasPreamble)
        text +=
            joinedRow({"Account", "12345678"}, dialect) + joinedRow({"Holder", "A. Person"}, dialect) + dialect.lineEnd;
    if (dialect.hasHeader)
        text += joinedRow(headerCells(dialect), dialect);
    for (std::size_t at = 0; at < statement.lines.size(); ++at)
        text += joinedRow(lineCells(chance, statement.lines[at], balances[at], dialect), dialect);
    if (dialect.hasTrailer)
        text += dialect.lineEnd + joinedRow({"This list is no bill."}, dialect);
    statement.bytes = encoded(chance, text);
    return statement;
}
