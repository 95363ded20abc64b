#include "importing/statements/CVAskAboutTexts.h"

#include "format/QBLocale.h"
#include "importing/statements/CVStatementAmount.h"

#include <QCoreApplication>
#include <QDate>

#include <algorithm>
#include <cstdlib>

namespace {

using About = CVStatementQuestion::About;

struct AskAboutTextsText {
    Q_DECLARE_TR_FUNCTIONS(CVAskAboutTexts)
};

QString dayInWords(const QBDate& day) {
    const QDate date(static_cast<int>(day.yearOfCommonEra()), day.monthOfYear(), day.dayOfMonth());
    return QBDateLocaleInForce().toString(date, QStringLiteral("d MMMM yyyy"));
}

QString amountInWords(qint64 hundredths) {
    constexpr int kDecimalBase = 10;
    const qint64 size = std::abs(hundredths);
    return QStringLiteral("%1.%2").arg(size / 100).arg(size % 100, 2, kDecimalBase, QLatin1Char('0'));
}

QString nameOfOrder(CVDayOrder order) {
    switch (order) {
    case CVDayOrder::DayMonthYear:
        return QStringLiteral("dmy");
    case CVDayOrder::MonthDayYear:
        return QStringLiteral("mdy");
    case CVDayOrder::YearMonthDay:
        return QStringLiteral("ymd");
    }
    return {};
}

/// As the command line takes it: in straight quotes, with a backslash before what ends them.
QString quotedForCommandLine(QString name) {
    name.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
    return u'"' + name + u'"';
}

} // namespace

CVStatementQuestion CVAskForDayOrder(const CVOpenText& day, const CVDayOrders& orders,
                                     const CVStatementMapping& known) {
    CVStatementQuestion question{About::DayOrder, {}, {}};
    const auto fields = CVReadDayOfColumn(day.text);
    QStringList texts;
    for (const CVDayOrder order : orders) {
        const auto date = fields ? fields->in(order) : std::nullopt;
        if (!date)
            continue;
        CVStatementMapping with = known;
        with.dayOrder = order;
        texts.append(dayInWords(*date));
        question.answers.push_back(
            {texts.constLast(), with, QStringLiteral("--date-order %1").arg(nameOfOrder(order))});
    }
    question.text =
        AskAboutTextsText::tr("In line %1, is “%2” %3?").arg(QString::number(day.line), day.text, CVJoinedByOr(texts));
    return question;
}

CVStatementQuestion CVAskForDecimalMark(const CVOpenText& amount, QChar likelier, const CVStatementMapping& known) {
    CVStatementQuestion question{About::DecimalMark, {}, {}};
    QStringList texts;
    const QList<QChar> marks = likelier == u',' ? QList<QChar>{u',', u'.'} : QList<QChar>{u'.', u','};
    for (const QChar candidate : marks) {
        const auto read = CVReadStatementAmount(amount.text, candidate);
        CVStatementMapping with = known;
        with.decimalMark = candidate;
        texts.append(read ? amountInWords(read->hundredths) : AskAboutTextsText::tr("no amount"));
        question.answers.push_back(
            {texts.constLast(), with,
             candidate == u',' ? QStringLiteral("--decimal comma") : QStringLiteral("--decimal point")});
    }
    question.text = AskAboutTextsText::tr("In line %1, is “%2” %3?")
                        .arg(QString::number(amount.line), amount.text, CVJoinedByOr(texts));
    return question;
}

CVStatementQuestion CVAskForAccount(const std::vector<CVAccountOfFile>& accounts, const CVStatementMapping& known) {
    CVStatementQuestion question{About::Account, {}, {}};
    question.text = AskAboutTextsText::tr("This file holds %1 accounts. Which one is to be imported?")
                        .arg(static_cast<int>(accounts.size()));
    for (const auto& [name, lines] : accounts) {
        CVStatementMapping with = known;
        with.account = name;
        question.answers.push_back({lines == 1
                                        ? AskAboutTextsText::tr("%1, 1 line").arg(name)
                                        : AskAboutTextsText::tr("%1, %2 lines").arg(name, QString::number(lines)),
                                    with, QStringLiteral("--account ") + quotedForCommandLine(name)});
    }
    return question;
}

QStringList CVNamesOfAccounts(const std::vector<CVAccountOfFile>& accounts) {
    QStringList names;
    for (const CVAccountOfFile& account : accounts)
        names.append(account.name);
    return names;
}

QString CVMissingAccount(const std::vector<CVAccountOfFile>& accounts, const QString& name) {
    constexpr std::size_t kMostNamed = 20;
    QStringList names;
    for (std::size_t at = 0; at < std::min(accounts.size(), kMostNamed); ++at)
        names.append(AskAboutTextsText::tr("“%1”").arg(accounts[at].name));
    if (accounts.size() == 1)
        return AskAboutTextsText::tr("This file does not hold the account “%1”, but %2.").arg(name, names.constFirst());
    return AskAboutTextsText::tr("This file does not hold the account “%1”, but these: %2.")
        .arg(name, names.join(QStringLiteral(", ")));
}

QString CVJoinedByOr(const QStringList& texts) {
    if (texts.size() < 2)
        return texts.join(QString());
    return AskAboutTextsText::tr("%1 or %2")
        .arg(texts.sliced(0, texts.size() - 1).join(QStringLiteral(", ")), texts.constLast());
}
