#include "importing/delimited/CVAskAboutStatement.h"

#include "importing/statements/CVAskAboutTexts.h"

#include <QCoreApplication>

namespace {

using About = CVStatementQuestion::About;

struct AskText {
    Q_DECLARE_TR_FUNCTIONS(CVAskAboutStatement)
};

/// The mapping with one column of that role, and no other column of it.
CVStatementMapping withColumn(CVStatementMapping mapping, int column, CVColumnRole role) {
    if (column < 0)
        return mapping;
    auto columns = mapping.columns.value_or(std::vector<CVColumnRole>());
    if (columns.size() <= static_cast<std::size_t>(column))
        columns.resize(static_cast<std::size_t>(column) + 1, CVColumnRole::Guessed);
    columns[static_cast<std::size_t>(column)] = role;
    mapping.columns = columns;
    return mapping;
}

CVStatementMapping withAmountColumns(const CVStatementMapping& known, const CVAmountRule& rule) {
    CVStatementMapping mapping = withColumn(known, rule.amount, CVColumnRole::Amount);
    mapping = withColumn(mapping, rule.moneyOut, CVColumnRole::MoneyOut);
    mapping = withColumn(mapping, rule.moneyIn, CVColumnRole::MoneyIn);
    mapping = withColumn(mapping, rule.fee, CVColumnRole::Fee);
    return withColumn(mapping, rule.marker, CVColumnRole::Marker);
}

/// "column 3", with its heading where it has one.
QString columnInWords(const CVStatementTable& table, int column) {
    const QString heading = table.headings.value(column).simplified();
    return heading.isEmpty() ? AskText::tr("column %1").arg(column + 1) : AskText::tr("“%1”").arg(heading);
}

QString optionOf(const char* name, int column) {
    return QStringLiteral("--%1 %2").arg(QLatin1String(name)).arg(column + 1);
}

CVStatementQuestion askForAmountColumn(const CVStatementTable& table, const CVSettledAmounts& amounts,
                                       const CVStatementMapping& known) {
    const CVStatementRow& row = table.rows[amounts.row];
    CVStatementQuestion question{About::AmountColumn, {}, {}};
    QStringList texts;
    for (const CVAmountRule& rule : amounts.rules) {
        const int column = rule.amount >= 0 ? rule.amount : rule.moneyOut;
        const QString option = rule.amount >= 0 ? optionOf("amount", rule.amount)
                                                : optionOf("out", rule.moneyOut) + u' ' + optionOf("in", rule.moneyIn);
        texts.append(AskText::tr("“%1” in %2").arg(CVStatementTable::cell(row, column), columnInWords(table, column)));
        question.answers.push_back({columnInWords(table, column), withAmountColumns(known, rule), option});
    }
    question.text = AskText::tr("Which is the amount in line %1: %2?").arg(row.line).arg(CVJoinedByOr(texts));
    return question;
}

CVStatementQuestion askForMoneyOut(const CVStatementTable& table, const CVSettledAmounts& amounts,
                                   const CVStatementMapping& known) {
    const CVStatementRow& row = table.rows[amounts.row];
    CVStatementQuestion question{About::MoneyOutColumn, {}, {}};
    QStringList texts;
    for (const CVAmountRule& rule : amounts.rules) {
        texts.append(columnInWords(table, rule.moneyOut));
        question.answers.push_back({AskText::tr("Money out in %1").arg(columnInWords(table, rule.moneyOut)),
                                    withAmountColumns(known, rule),
                                    optionOf("out", rule.moneyOut) + u' ' + optionOf("in", rule.moneyIn)});
    }
    question.text = AskText::tr("Which column holds money out: %1? The first amount is in line %2.")
                        .arg(CVJoinedByOr(texts))
                        .arg(row.line);
    return question;
}

CVStatementQuestion askForFee(const CVStatementTable& table, const CVSettledAmounts& amounts,
                              const CVStatementMapping& known) {
    const CVStatementRow& row = table.rows[amounts.row];
    const int fee = amounts.rules.front().fee;
    const CVAmountRule& plain = amounts.rules.back();
    CVStatementQuestion question{About::FeeColumn, {}, {}};
    question.text = AskText::tr("Is “%1” in line %2 taken on top of the amount “%3”, or is it a part of it?")
                        .arg(CVStatementTable::cell(row, fee))
                        .arg(row.line)
                        .arg(CVStatementTable::cell(row, plain.amount));
    question.answers.push_back(
        {AskText::tr("On top of it"), withColumn(known, fee, CVColumnRole::Fee), optionOf("fee", fee)});
    question.answers.push_back(
        {AskText::tr("A part of it"), withColumn(known, fee, CVColumnRole::Ignored), optionOf("ignore", fee)});
    return question;
}

CVStatementQuestion askForMarker(const CVStatementTable& table, const CVSettledAmounts& amounts,
                                 const CVStatementMapping& known) {
    const CVStatementRow& row = table.rows[amounts.row];
    const int marker = amounts.rules.front().marker;
    const QString text = CVStatementTable::cell(row, marker);
    const QString amount = CVStatementTable::cell(row, amounts.rules.front().amount);
    CVStatementQuestion question{About::Sign, {}, {}};
    question.text =
        AskText::tr("Which tells money out from money in, as in line %1: the word “%2” or the sign of “%3”?")
            .arg(row.line)
            .arg(text, amount);
    question.answers.push_back(
        {AskText::tr("“%1”").arg(text), withColumn(known, marker, CVColumnRole::Marker), optionOf("marker", marker)});
    question.answers.push_back(
        {AskText::tr("The sign"), withColumn(known, marker, CVColumnRole::Ignored), optionOf("ignore", marker)});
    return question;
}

CVStatementQuestion askForSign(const CVStatementTable& table, const CVSettledAmounts& amounts,
                               const CVStatementMapping& known) {
    if (amounts.rules.front().marker != amounts.rules.back().marker)
        return askForMarker(table, amounts, known);
    const CVStatementRow& row = table.rows[amounts.row];
    CVStatementQuestion question{About::Sign, {}, {}};
    question.text = AskText::tr("Is “%1” in line %2 money out or money in?")
                        .arg(CVStatementTable::cell(row, amounts.rules.front().amount))
                        .arg(row.line);
    for (const CVAmountRule& rule : amounts.rules) {
        CVStatementMapping with = known;
        with.positiveIsOut = rule.positiveIsOut;
        const bool isOut = CVAmountOfRow(row, rule).hundredths.value_or(0) < 0;
        question.answers.push_back(
            {isOut ? AskText::tr("Money out") : AskText::tr("Money in"), with,
             rule.positiveIsOut ? QStringLiteral("--sign inverted") : QStringLiteral("--sign normal")});
    }
    return question;
}

} // namespace

CVStatementQuestion CVAskForDayColumn(const CVStatementTable& table, const CVSettledDayColumn& days,
                                      const CVStatementMapping& known) {
    const CVStatementRow& row = table.rows[days.row];
    CVStatementQuestion question{About::DayColumn, {}, {}};
    QStringList texts;
    for (const int column : days.columns) {
        texts.append(AskText::tr("“%1” in %2").arg(CVStatementTable::cell(row, column), columnInWords(table, column)));
        question.answers.push_back(
            {columnInWords(table, column), withColumn(known, column, CVColumnRole::Day), optionOf("date", column)});
    }
    question.text = AskText::tr("On which day was line %1 booked: %2?").arg(row.line).arg(CVJoinedByOr(texts));
    return question;
}

CVStatementQuestion CVAskForYear(const CVStatementTable& table, const QString& day, const CVStatementMapping& known) {
    constexpr int kYears = 3;
    CVStatementQuestion question{About::Year, {}, {}};
    const int line = table.likely.empty() ? 1 : table.rows[table.likely.front()].line;
    question.text = AskText::tr("In which year is “%1” in line %2?").arg(day).arg(line);
    const int now = static_cast<int>(QBDate::date().yearOfCommonEra());
    for (int year = now; year > now - kYears; --year) {
        CVStatementMapping with = known;
        with.year = year;
        question.answers.push_back({QString::number(year), with, QStringLiteral("--year %1").arg(year)});
    }
    return question;
}

CVStatementQuestion CVAskForOtherYear(const CVStatementTable& table, const CVSettledYears& years,
                                      const CVStatementMapping& known) {
    CVStatementQuestion question{About::Year, {}, {}};
    QStringList texts;
    for (const int year : {years.otherYear, years.sameYear}) {
        CVStatementMapping with = known;
        with.year = years.sameYear;
        with.otherYear = year;
        texts.append(QString::number(year));
        question.answers.push_back(
            {texts.constLast(), with, QStringLiteral("--year %1-%2").arg(years.sameYear).arg(year)});
    }
    question.text = AskText::tr("In which year is “%1” in line %2: %3?")
                        .arg(years.text, QString::number(table.rows[years.row].line), CVJoinedByOr(texts));
    return question;
}

CVStatementQuestion CVAskForAmounts(const CVStatementTable& table, const CVSettledAmounts& amounts,
                                    const CVStatementMapping& known) {
    switch (amounts.about) {
    case About::AmountColumn:
        return askForAmountColumn(table, amounts, known);
    case About::MoneyOutColumn:
        return askForMoneyOut(table, amounts, known);
    case About::FeeColumn:
        return askForFee(table, amounts, known);
    default:
        return askForSign(table, amounts, known);
    }
}
