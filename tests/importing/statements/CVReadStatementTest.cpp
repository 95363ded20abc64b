#include "importing/CVReadStatement.h"

#include "kit/DefaultLocale.h"
#include "kit/FixedToday.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

using About = CVStatementQuestion::About;

/// The lines in one text: "2024-03-12 -12.50 Shop", or the reason of a line that cannot be read.
QString linesText(const CVStatement& statement) {
    QStringList lines;
    for (const auto& line : statement.lines) {
        if (!line.unreadable.isEmpty()) {
            lines.append(QStringLiteral("%1! %2").arg(line.number).arg(line.unreadable));
            continue;
        }
        const QString day = QString::fromLatin1(line.day->corvellaXMLRepresentation());
        lines.append(QStringLiteral("%1 %2 %3").arg(day).arg(*line.hundredths).arg(line.payee + line.purpose));
    }
    return lines.join(u'\n');
}

std::vector<About> subjectsOf(const CVStatement& statement) {
    std::vector<About> subjects;
    for (const auto& question : statement.questions)
        subjects.push_back(question.about);
    return subjects;
}

/// Reads the statement without help and expects these lines.
void expectLines(const char* bytes, const char* lines) {
    const CVStatement statement = CVReadStatement(bytes);
    EXPECT_EQ(statement.problem, QString()) << bytes;
    for (const auto& question : statement.questions)
        ADD_FAILURE() << question.text.toStdString() << '\n' << bytes;
    EXPECT_EQ(linesText(statement), QString::fromUtf8(lines)) << bytes;
}

/// Expects one question about `about`, and these lines after its answer.
void expectAsked(const char* bytes, About about, std::size_t answer, const char* lines) {
    const CVStatement statement = CVReadStatement(bytes);
    ASSERT_EQ(subjectsOf(statement), std::vector<About>{about}) << bytes << linesText(statement).toStdString();
    ASSERT_LT(answer, statement.questions.front().answers.size());
    const CVStatement answered = CVReadStatement(bytes, statement.questions.front().answers.at(answer).with);
    EXPECT_TRUE(answered.questions.empty()) << bytes;
    EXPECT_EQ(linesText(answered), QString::fromUtf8(lines)) << bytes;
}

TEST(CVReadStatement, FindsHeaderDaysAndAmounts) {
    expectLines("Account;123\n\nDate;Payee;Amount\n13/03/2024;Shop;-12,50\n14/03/2024;Pay;1.000,00\n",
                "2024/03/13 -1250 Shop\n2024/03/14 100000 Pay");
    expectLines("2024-03-13,Shop,-12.50\n", "2024/03/13 -1250 Shop");
    expectLines("Date\tPayee\tAmount\n13.3.24\tShop\t-12,50\n", "2024/03/13 -1250 Shop");
    // The header stands again above each month, and sums below.
    expectLines(
        "Date;Payee;Amount\n13.03.2024;Shop;-12,50\nTotal;;-12,50\n\nDate;Payee;Amount\n13.04.2024;Shop;-1,00\n",
        "2024/03/13 -1250 Shop\n2024/04/13 -100 Shop");
    // Opening and closing balances are no lines.
    expectLines("Date;Payee;Amount\n01.03.2024;Opening balance;100,00\n13.03.2024;Shop;-12,50\n31.03.2024;Closing "
                "balance;87,50\n",
                "2024/03/13 -1250 Shop");
    // A header of two rows.
    expectLines("Account;Movement;Movement\nDate;Debit;Credit\n2024-03-13;12.50;\n2024-03-14;;3.00\n",
                "2024/03/13 -1250 \n2024/03/14 300 ");
    expectLines("Data;;Importo;;Causale\ncontabile;valuta;Dare;Avere;\n13.03.2024;14.03.2024;12,50;;A\n"
                "14.03.2024;14.03.2024;;3,00;B\n",
                "2024/03/13 -1250 A\n2024/03/14 300 B");
}

TEST(CVReadStatement, TellsMoneyOutFromMoneyIn) {
    expectLines("Date,Payee,Debit,Credit\n2024-03-13,Shop,12.50,\n2024-03-14,Pay,,3.00\n",
                "2024/03/13 -1250 Shop\n2024/03/14 300 Pay");
    expectLines("Date,Payee,Debit,Credit\n2024-03-13,Shop,-12.50,0.00\n2024-03-14,Pay,0.00,3.00\n",
                "2024/03/13 -1250 Shop\n2024/03/14 300 Pay");
    expectLines("Date,Payee,Amount,D/C\n2024-03-13,Shop,12.50,D\n2024-03-14,Pay,3.00,C\n",
                "2024/03/13 -1250 Shop\n2024/03/14 300 Pay");
    expectLines("Date,Payee,Amount\n2024-03-13,Shop,12.50 DR\n2024-03-14,Pay,3.00 CR\n",
                "2024/03/13 -1250 Shop\n2024/03/14 300 Pay");
    expectLines("Date,Payee,Debit/Credit\n2024-03-13,Shop,-12.50\n2024-03-14,Pay,3.00\n",
                "2024/03/13 -1250 Shop\n2024/03/14 300 Pay");
    expectLines("2024-03-13;Shop;12,50;S\n2024-03-14;Shop;3,00;S\n", "2024/03/13 -1250 Shop\n2024/03/14 -300 Shop");
    // A letter that is the same in all lines is no marker.
    expectAsked("Date,Payee,Amount,Cleared,Box\n2024-03-13,Shop,12.50,C,C\n", About::Sign, 0, "2024/03/13 -1250 Shop");
    // Only what is paid back is marked.
    expectLines("Date,Payee,Amount\n2024-03-13,Shop,12.50\n2024-03-14,Shop,3.00 CR\n",
                "2024/03/13 -1250 Shop\n2024/03/14 300 Shop");
    expectLines("2024-03-13;Shop;12,50-\n2024-03-14;Pay;3,00\n", "2024/03/13 -1250 Shop\n2024/03/14 300 Pay");
    expectAsked("Date,Payee,Amount\n2024-03-13,Shop,12.50\n2024-03-14,Shop,3.00\n", About::Sign, 0,
                "2024/03/13 -1250 Shop\n2024/03/14 -300 Shop");
    expectAsked("Date,Merchant,Amount\n2024-03-13,Shop,12.50\n2024-03-14,Shop,3.00\n2024-03-14,Payment,-3.00\n",
                About::Sign, 0, "2024/03/13 -1250 Shop\n2024/03/14 -300 Shop\n2024/03/14 300 Payment");
}

TEST(CVReadStatement, DoubtsASignThatTheWordsContradict) {
    expectAsked("Date,Text,Amount\n2024-03-13,Shop,12.50\n2024-03-14,Payment - Thank You,-100.00\n", About::Sign, 0,
                "2024/03/13 -1250 Shop\n2024/03/14 10000 Payment - Thank You");
    expectLines("Date,Text,Amount\n2024-03-13,Salary,12.50\n2024-03-14,Salary,100.00\n2024-03-14,Salary,100.00\n"
                "2024-03-15,Purchase,-1.00\n",
                "2024/03/13 1250 Salary\n2024/03/14 10000 Salary\n2024/03/14 10000 Salary\n2024/03/15 -100 Purchase");
}

TEST(CVReadStatement, ProvesByTheBalanceWhatIsOpen) {
    // The sign, the fee, and which of the columns without a header is what.
    expectLines("Date,Payee,Amount,Balance\n2024-03-13,Shop,12.50,87.50\n2024-03-14,Shop,3.00,84.50\n",
                "2024/03/13 -1250 Shop\n2024/03/14 -300 Shop");
    expectLines("Date,Payee,Amount,Fee,Balance\n2024-03-13,Shop,-12.50,1.00,86.50\n2024-03-14,Shop,-3.00,0.50,83.00\n",
                "2024/03/13 -1350 Shop\n2024/03/14 -350 Shop");
    expectLines("Date,Payee,Amount,Fee,Balance\n2024-03-13,Shop,-12.50,1.00,87.50\n2024-03-14,Shop,-3.00,0.50,84.50\n",
                "2024/03/13 -1250 Shop\n2024/03/14 -300 Shop");
    expectLines("2024-03-13,Shop,12.50,,87.50\n2024-03-14,Pay,,3.00,90.50\n",
                "2024/03/13 -1250 Shop\n2024/03/14 300 Pay");
    expectLines("2024-03-14,Pay,,3.00,90.50\n2024-03-13,Shop,12.50,,87.50\n",
                "2024/03/14 300 Pay\n2024/03/13 -1250 Shop");
    expectAsked("Date,Payee,Amount,Fee\n2024-03-13,Shop,-12.50,1.00\n", About::FeeColumn, 1, "2024/03/13 -1250 Shop");
    expectAsked("2024-03-13,Shop,-12.50,87.50\n", About::AmountColumn, 0, "2024/03/13 -1250 Shop");
}

TEST(CVReadStatement, LetsANewYearBeginOnlyWhereTheDaysOrThePeriodSaySo) {
    const DefaultLocale locale(QLocale("en_US"));
    const CVStatementMapping in2026{.year = 2026};
    const auto lines = [&](const char* bytes, const CVStatementMapping& known) {
        const CVStatement statement = CVReadStatement(bytes, known);
        return statement.questions.empty() ? linesText(statement) : statement.questions.front().text;
    };
    // A statement may have months without a line.
    EXPECT_EQ(lines("Date,Payee,Amount\n13/01,A,-3.00\n15/08,B,-4.00\n02/11,C,-5.00\n", in2026),
              "2026/01/13 -300 A\n2026/08/15 -400 B\n2026/11/02 -500 C");
    EXPECT_EQ(lines("Date,Payee,Amount\n02/11,A,-3.00\n15/08,B,-4.00\n13/01,C,-5.00\n", in2026),
              "2026/11/02 -300 A\n2026/08/15 -400 B\n2026/01/13 -500 C");
    EXPECT_EQ(lines("Date,Payee,Amount\n13/01,A,-3.00\n02/01,B,-4.00\n30/12,C,-5.00\n", in2026),
              "2026/01/13 -300 A\n2026/01/02 -400 B\n2025/12/30 -500 C");
    EXPECT_EQ(lines("Date,Payee,Amount\n13/12,A,-3.00\n30/12,B,-4.00\n02/01,C,-5.00\n", in2026),
              "2026/12/13 -300 A\n2026/12/30 -400 B\n2027/01/02 -500 C");
    expectLines("Account 12,,\nPeriod,01/01/2026,31/12/2026\nDate,Payee,Amount\n13/01,A,-3.00\n15/08,B,-4.00\n"
                "14/08,C,-5.00\n",
                "2026/01/13 -300 A\n2026/08/15 -400 B\n2026/08/14 -500 C");
    EXPECT_EQ(lines("Period,15/12/2025,14/01/2026\nDate,Payee,Amount\n30/12,A,-3.00\n02/01,B,-4.00\n", {.year = 2025}),
              "2025/12/30 -300 A\n2026/01/02 -400 B");
    // Both are possible, or none.
    const char* const open = "Date,Payee,Amount\n30/12,A,-3.00\n02/01,B,-4.00\n";
    EXPECT_EQ(lines(open, in2026), "In which year is “02/01” in line 3: 2027 or 2026?");
    EXPECT_EQ(lines("Date,Payee,Amount\n13/01,A,-3.00\n15/08,B,-4.00\n01/01,C,-5.00\n", in2026),
              "In which year is “15/08” in line 3: 2025 or 2026?");
    const auto answers = CVReadStatement(open, in2026).questions.front().answers;
    ASSERT_EQ(answers.size(), 2);
    EXPECT_EQ(answers[0].option, "--year 2026-2027");
    EXPECT_EQ(lines(open, answers[0].with), "2026/12/30 -300 A\n2027/01/02 -400 B");
    EXPECT_EQ(answers[1].option, "--year 2026-2026");
    EXPECT_EQ(lines(open, answers[1].with), "2026/12/30 -300 A\n2026/01/02 -400 B");
}

TEST(CVReadStatement, ProvesASignOnlyByLinesOfDifferentDays) {
    // The balance before each line, newest line first: with the signs turned round it is the one after each line.
    expectLines(
        "Date,Text,Balance,Amount\n2024-03-15,A,85.00,-5.00\n2024-03-14,B,75.00,10.00\n2024-03-13,C,95.00,-20.00\n"
        "2024-03-12,D,98.00,-3.00\n",
        "2024/03/15 -500 A\n2024/03/14 1000 B\n2024/03/13 -2000 C\n2024/03/12 -300 D");
    expectLines("Date,Text,Balance,Amount\n2024-03-15,A,85.00,5.00\n2024-03-14,B,95.00,10.00\n",
                "2024/03/15 -500 A\n2024/03/14 -1000 B");
    expectLines("Year;01.01.2024\nDate;Text;Balance;Amount\n04.01.;A;80.00;5.00\n02.01.;A;85.00;5.00\n"
                "31.12.;B;95.00;10.00\n",
                "2024/01/04 -500 A\n2024/01/02 -500 A\n2023/12/31 -1000 B");
    // On one day both are possible.
    expectAsked("Date,Text,Balance,Amount\n2024-03-14,A,85.00,5.00\n2024-03-14,B,95.00,10.00\n", About::Sign, 0,
                "2024/03/14 -500 A\n2024/03/14 -1000 B");
    expectAsked("2024-03-14,A,12.50,,87.50\n2024-03-14,B,,3.00,90.50\n", About::MoneyOutColumn, 0,
                "2024/03/14 -1250 A\n2024/03/14 300 B");
    // Newest day first, but the lines of a day in the order of the day.
    expectAsked("Date,Text,Amount,Balance\n2024-03-14,A,5.00,85.00\n2024-03-14,B,10.00,75.00\n2024-03-13,C,5.00,95.00\n"
                "2024-03-13,D,5.00,90.00\n",
                About::Sign, 0, "2024/03/14 -500 A\n2024/03/14 -1000 B\n2024/03/13 -500 C\n2024/03/13 -500 D");
}

TEST(CVReadStatement, ReadsTheBalancesOnBothSidesOfALineInTheOrderOfTheDays) {
    expectLines(
        "Date,Text,Balance 1,Amount,Balance 2\n2024-03-13,A,100.00,12.50,87.50\n2024-03-14,B,87.50,3.00,84.50\n",
        "2024/03/13 -1250 A\n2024/03/14 -300 B");
    expectLines(
        "Date,Text,Balance 1,Amount,Balance 2\n2024-03-14,A,100.00,12.50,87.50\n2024-03-13,B,87.50,3.00,84.50\n",
        "2024/03/14 1250 A\n2024/03/13 300 B");
    expectAsked(
        "Date,Text,Balance 1,Amount,Balance 2\n2024-03-14,A,100.00,12.50,87.50\n2024-03-14,B,87.50,3.00,84.50\n",
        About::Sign, 0, "2024/03/14 -1250 A\n2024/03/14 -300 B");
}

TEST(CVReadStatement, AsksWhereTheBalanceMayBeWhatIsOwed) {
    expectAsked("Date,Merchant,Amount,Balance\n2024-03-13,Shop,12.50,112.50\n2024-03-14,Inn,3.00,115.50\n"
                "2024-03-15,Bank,-100.00,15.50\n",
                About::Sign, 0, "2024/03/13 -1250 Shop\n2024/03/14 -300 Inn\n2024/03/15 10000 Bank");
    expectAsked("Date,Text,Amount,Balance\n2024-03-13,Shop,12.50,112.50\n2024-03-14,Purchase,3.00,115.50\n",
                About::Sign, 0, "2024/03/13 -1250 Shop\n2024/03/14 -300 Purchase");
    expectAsked("2024-03-13,Purchase,,12.50,112.50\n2024-03-14,Thank you,100.00,,12.50\n", About::MoneyOutColumn, 1,
                "2024/03/13 -1250 Purchase\n2024/03/14 10000 Thank you");
}

TEST(CVReadStatement, DoubtsASignThatAsManyLinesHaveAsNot) {
    expectAsked("Date,Text,Amount\n2024-03-13,A,12.50\n2024-03-14,B,-3.00\n2024-03-15,A,4.00\n2024-03-16,D,-1.00\n",
                About::Sign, 1, "2024/03/13 1250 A\n2024/03/14 -300 B\n2024/03/15 400 A\n2024/03/16 -100 D");
    expectLines("Date,Text,Amount\n2024-03-13,A,+12.50\n2024-03-14,B,-3.00\n2024-03-15,A,+4.00\n2024-03-16,D,-1.00\n",
                "2024/03/13 1250 A\n2024/03/14 -300 B\n2024/03/15 400 A\n2024/03/16 -100 D");
}

TEST(CVReadStatement, SettlesDayAndMonthByAllDaysTogether) {
    expectLines("Date,Payee,Amount\n01/02/2024,A,-1.00\n13/02/2024,B,-1.00\n", "2024/02/01 -100 A\n2024/02/13 -100 B");
    expectLines("Date,Payee,Amount\n01/02/2024,A,-1.00\n02/13/2024,B,-1.00\n", "2024/01/02 -100 A\n2024/02/13 -100 B");
    expectLines("Date,Payee,Amount\n05/05/2024,A,-1.00\n", "2024/05/05 -100 A");
    // By another column of days, and by the period above.
    expectLines("Date,Value Date,Payee,Amount\n01/02/2024,31/01/2024,A,-1.00\n", "2024/02/01 -100 A");
    expectLines("Date,Value Date,Payee,Amount\n01/02/2024,2024-02-03,A,-1.00\n", "2024/02/01 -100 A");
    expectLines("Period,01/02/2024 - 29/02/2024\nDate,Payee,Amount\n01/02/2024,A,-1.00\n", "2024/02/01 -100 A");
    // Only in one order they rise.
    expectLines("Date,Payee,Amount\n09/01/2024,A,-1.00\n10/01/2024,B,-1.00\n01/02/2024,C,-1.00\n02/02/2024,D,-1.00\n"
                "03/02/2024,E,-1.00\n",
                "2024/01/09 -100 A\n2024/01/10 -100 B\n2024/02/01 -100 C\n2024/02/02 -100 D\n2024/02/03 -100 E");
    expectAsked("Date,Payee,Amount\n03/04/2024,A,-1.00\n", About::DayOrder, 1, "2024/03/04 -100 A");
    expectAsked("Date,Payee,Amount\n03/04/05,A,-1.00\n", About::DayOrder, 2, "2003/04/05 -100 A");
}

TEST(CVReadStatement, SettlesTheDecimalMarkByAllAmountsTogether) {
    expectLines("Date;Payee;Amount\n13.03.2024;A;-1.000\n14.03.2024;B;-12,50\n",
                "2024/03/13 -100000 A\n2024/03/14 -1250 B");
    expectLines("Balance;3.600,00\nDate;Payee;Amount\n13.03.2024;A;-1.000\n", "2024/03/13 -100000 A");
    expectAsked("Date;Payee;Amount\n13.03.2024;A;-1.000\n", About::DecimalMark, 1, "2024/03/13 -100000 A");
    expectLines("Date;Payee;Amount\n13.03.2024;A;-1000\n", "2024/03/13 -100000 A");
}

TEST(CVReadStatement, AsksForTheYearOfDaysWithoutOne) {
    const FixedToday today(QBDate::dateWithYear(2024, 6, 1));
    expectAsked("Date;Payee;Amount\n27.12.;A;-1,00\n28.12.;A;-1,00\n02.01.;B;-1,00\n", About::Year, 1,
                "2023/12/27 -100 A\n2023/12/28 -100 A\n2024/01/02 -100 B");
    expectLines("Year;01.01.2022\nDate;Payee;Amount\n28.03.;A;-1,00\n", "2022/03/28 -100 A");
}

TEST(CVReadStatement, GivesTheReasonOfALineThatCannotBeReadAndStopsNoOther) {
    expectLines("Date;Payee;Amount\n13.03.2024;A;n/a\nx;B;-1,00\n14.03.2024;C;-1,00\n31.02.2024;D;-1,00\n",
                "2! “n/a” is no amount\n3! “x” is no day\n2024/03/14 -100 C\n5! “31.02.2024” is no day");
    expectLines("Date;Payee;Amount;Currency\n13.03.2024;A;-1,00;EUR\n14.03.2024;B;-2,00;3,00;EUR\n",
                "2024/03/13 -100 A\n3! it has 5 columns in place of 4");
    expectLines("Date;Payee;Amount;Status\n13.03.2024;A;-1,00;Completed\n14.03.2024;B;-2,00;DECLINED\n",
                "2024/03/13 -100 A\n3! the bank did not carry it out (“DECLINED”)");
}

TEST(CVReadStatement, TellsTheLinesThatAreInAnotherCurrencyThanMost) {
    const auto currencies = [](const char* bytes) {
        QStringList others;
        for (const auto& line : CVReadStatement(bytes).lines)
            others.append(line.otherCurrency);
        return others.join(u'|');
    };
    EXPECT_EQ(currencies("Date,Payee,Amount,Currency\n2026-03-01,A,-3.00,EUR\n2026-03-02,B,-4.00,USD\n"
                         "2026-03-03,C,-5000.00,JPY\n2026-03-03,D,7000.00,EUR\n"),
              "|USD|JPY|");
    // What was paid abroad is beside what was taken from the account.
    EXPECT_EQ(currencies("Date,Payee,Amount,Currency,Original Amount,Original Currency\n"
                         "2026-03-01,A,-3.00,EUR,-3.00,EUR\n2026-03-02,B,-4.00,EUR,-4.50,USD\n"
                         "2026-03-03,C,7.00,EUR,7.00,EUR\n"),
              "||");
    // The balances show that all amounts are in one currency.
    EXPECT_EQ(currencies("Date,Payee,Amount,Currency,Balance\n2026-03-01,A,-3.00,EUR,97.00\n"
                         "2026-03-02,B,-4.00,USD,93.00\n2026-03-03,C,7.00,EUR,100.00\n"),
              "||");
}

TEST(CVReadStatement, TakesNoOtherDayForThatOfTheBooking) {
    expectLines("Transaction date,Posted,Payee,Amount\n2024-03-12,2024-03-14,A,-1.00\n2024-03-13,,B,-2.00\n",
                "2024/03/14 -100 A\n3! there is no day");
    expectLines("Started,Completed,Text,Amount\n2024-03-12 10:00:00,2024-03-14 11:00:00,A,-1.00\n",
                "2024/03/14 -100 A");
}

TEST(CVReadStatement, AsksWhichDayIsThatOfTheBookingWhereNothingSaysIt) {
    expectAsked("2024-03-12,2024-03-14,A,-1.00\n2024-03-13,2024-03-14,B,-2.00\n", About::DayColumn, 1,
                "2024/03/14 -100 A\n2024/03/14 -200 B");
    // The days of one column alone run one way.
    expectLines("2024-03-12,2024-03-14,A,-1.00\n2024-03-11,2024-03-15,B,-2.00\n2024-03-13,2024-03-15,C,-3.00\n",
                "2024/03/14 -100 A\n2024/03/15 -200 B\n2024/03/15 -300 C");
    // The same days, written otherwise.
    expectLines("2024-03-12,12.03.2024 10:00,A,-1.00\n", "2024/03/12 -100 A");
}

TEST(CVReadStatement, GoesOnWithAPurposeInTheRowsBelow) {
    expectLines("Date,Description,Amount\n2024-03-13,Card,-12.50\n,Shop in Town,\n2024-03-14,Pay,3.00\n",
                "2024/03/13 -1250 Card Shop in Town\n2024/03/14 300 Pay");
}

TEST(CVReadStatement, LeavesOutTheUndatedPartsOfALine) {
    expectLines(
        "Date,Payee,Category,Amount\n2024-03-13,A,--,-12.50\n,,Food,-10.00\n,,Pets,-2.50\n2024-03-14,B,,-1.00\n",
        "2024/03/13 -1250 A\n2024/03/14 -100 B");
    // Only parts that make the whole are known to be parts.
    expectLines(
        "Date,Payee,Category,Amount\n2024-03-13,A,--,-12.50\n,,Food,-10.00\n,,Pets,-2.00\n2024-03-14,B,,-1.00\n",
        "2024/03/13 -1250 A\n3! there is no day\n4! there is no day\n2024/03/14 -100 B");
    expectLines("Date,Payee,Category,Amount\n2024-03-13,A,--,-12.50\n,A,Food,-12.50\n2024-03-14,B,,-1.00\n",
                "2024/03/13 -1250 A\n3! there is no day\n2024/03/14 -100 B");
}

TEST(CVReadStatement, LeavesOutSumsThatStandBesideTheLines) {
    expectLines("Card,Date,Payee,Amount\nDue so far,,,640.00 DR\n1234,2024-03-13,A,12.50 DR\n1234,,B,1.00 DR\n"
                "Least to be paid,,,35.00\n",
                "2024/03/13 -1250 A\n4! there is no day");
}

TEST(CVReadStatement, TakesTheOtherColumnForMoneyInWhereTheOneForMoneyOutIsGiven) {
    CVStatementMapping known;
    known.columns = std::vector<CVColumnRole>(4, CVColumnRole::Guessed);
    known.columns->back() = CVColumnRole::MoneyOut;
    EXPECT_EQ(linesText(CVReadStatement("2024-03-13,A,12.50,\n2024-03-14,B,,3.00\n", known)),
              "2024/03/13 1250 A\n2024/03/14 -300 B");
    // A column that is filled as well is none.
    EXPECT_EQ(linesText(CVReadStatement("2024-03-13,A,87.50,12.50\n2024-03-14,B,84.50,3.00\n", known)),
              "2024/03/13 -1250 A\n2024/03/14 -300 B");
}

TEST(CVReadStatement, RefusesWhatIsNoStatementWithOneSentence) {
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("\n\n"), QByteArray("Dear Sir,\nthank you.\n"), QByteArray(1'000'000, 'x'),
          QByteArray("a\0b\0\0", 5), QByteArray(kCVLargestStatement + 1, ' '),
          QByteArray("Date,Payee,Amount\n2024-03-13,A,-12,50\n"), QByteArray("\"").repeated(100'000),
          QByteArray("x,y\n").repeated(250'000)}) {
        const CVStatement statement = CVReadStatement(bytes);
        EXPECT_FALSE(statement.problem.isEmpty()) << bytes.left(40).toStdString();
        EXPECT_TRUE(statement.problem.endsWith(u'.'));
        EXPECT_TRUE(statement.lines.empty());
    }
}

TEST(CVReadStatement, IsStoppedWhenAsked) {
    const QByteArray bytes = "Date,Payee,Amount\n" + QByteArray("2024-03-13,A,-12.50\n").repeated(5'000);
    int asked = 0;
    const auto stop = [&asked](int permille) {
        EXPECT_GE(permille, 0);
        EXPECT_LE(permille, 1000);
        return ++asked == 3;
    };
    EXPECT_FALSE(CVReadStatement(bytes, {}, stop).problem.isEmpty());
    EXPECT_EQ(asked, 3);
}

TEST(CVReadStatement, SaysWhatWasRecognised) {
    const DefaultLocale locale(QLocale("en_US"));
    const FixedToday today(QBDate::dateWithYear(2024, 6, 1));
    const CVStatement statement = CVReadStatement("Datum;Empf\xe4nger;Betrag;Saldo\n13.03.2024;A;-1,00;99,00\n14.03."
                                                  "2024;B;-1,00;98,00\n14.04.2024;C;-1,00;96,00\n");
    EXPECT_EQ(statement.summary, "Semicolons, Windows-1252, 3 lines, 13 March to 14 April");
    EXPECT_EQ(statement.headings, (QStringList{"Datum", "Empfänger", "Betrag", "Saldo"}));
    EXPECT_EQ(statement.balanceRemark, "1 of 2 balances differ from the sums of the lines; the first is in line 4.");
    EXPECT_FALSE(statement.headerDigest.isEmpty());
    EXPECT_FALSE(statement.isDigestCommon);
    const CVStatement unheaded = CVReadStatement("13.03.2024;A;-1,00\n");
    EXPECT_TRUE(unheaded.isDigestCommon);
    EXPECT_EQ(unheaded.headerDigest, CVReadStatement("14.04.2024;B;-2,00\n").headerDigest);
    EXPECT_NE(unheaded.headerDigest, CVReadStatement("14.04.2024;B;C;-2,00\n").headerDigest);
}

TEST(CVReadStatement, ReadsTheSameWithTheMappingThatItFound) {
    for (const char* const bytes :
         {"Date,Payee,Debit,Credit,Balance\n2024-03-13,Shop,12.50,,87.50\n2024-03-14,Pay,,3.00,90.50\n",
          "Date,Payee,Amount,D/C\n13/03/2024,Shop,12.50,D\n14/03/2024,Pay,3.00,C\n",
          "Date,Payee,Amount,Fee,Balance\n2024-03-13,Shop,-12.50,1.00,86.50\n2024-03-14,Shop,-3.00,0.50,83.00\n"}) {
        const CVStatement first = CVReadStatement(bytes);
        const CVStatement again = CVReadStatement(bytes, first.mapping);
        EXPECT_EQ(linesText(again), linesText(first));
        EXPECT_TRUE(again.questions.empty());
        EXPECT_EQ(again.mapping, first.mapping);
    }
}

} // namespace
