#include "QIFFixtures.h"
#include "kit/DefaultLocale.h"
#include "kit/FixedToday.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using QIFAbout = CVStatementQuestion::About;

TEST(CVQIFLines, ReadsDaysAsManyProgramsWriteThem) {
    const std::vector<QIFRow> days{{"1/22'05", "2005/01/22"},
                                   {"1/22' 5", "2005/01/22"},
                                   {"1/22'2020", "2020/01/22"},
                                   {"6/ 1/94", ""},
                                   {"22/ 1/94", "1994/01/22"},
                                   {"22.01.2024", "2024/01/22"},
                                   {"2024-01-22", "2024/01/22"},
                                   {"01/22/24", "2024/01/22"},
                                   {"22.1.24", "2024/01/22"},
                                   {"20240122", "2024/01/22"},
                                   {"22 January 2024", "2024/01/22"},
                                   {"01-22-2024", "2024/01/22"},
                                   {"1/ 2/94", ""}};
    for (const auto& [text, day] : days) {
        const QByteArray bytes = QByteArray("!Type:Bank\nD") + text + "\nT-12.50\nPShop\n^\n";
        const CVStatement statement = CVReadStatement(bytes);
        if (*day == '\0') {
            EXPECT_EQ(subjectsOf(statement), std::vector{QIFAbout::DayOrder}) << text;
            continue;
        }
        EXPECT_EQ(qifLinesOf(statement), QStringLiteral("%1|-1250|Shop|||").arg(QLatin1String(day))) << text;
        EXPECT_EQ(subjectsOf(statement), std::vector<QIFAbout>()) << text;
    }
}

TEST(CVQIFLines, ReadsAmountsWithGroupsAndEitherMark) {
    expectQIFRows({
        {"!Type:Bank\nD2024-03-13\nT-1,234.56\n^\n", "2024/03/13|-123456||||"},
        {"!Type:Bank\nD2024-03-13\nT-1.234,56\n^\n", "2024/03/13|-123456||||"},
        {"!Type:Bank\nD2024-03-13\nT1,000\n^\nD2024-03-13\nT2.50\n^\n", "2024/03/13|100000||||\n2024/03/13|250||||"},
        {"!Type:Bank\nD2024-03-13\nU-12.50\n^\n", "2024/03/13|-1250||||"},
        {"!Type:Bank\nD2024-03-13\nU-12.50\nT-12.50\n^\n", "2024/03/13|-1250||||"},
        {"!Type:Bank\nD2024-03-13\nT12.50-\n^\n", "2024/03/13|-1250||||"},
        {"!Type:Bank\nD2024-03-13\nT(12.50)\n^\n", "2024/03/13|-1250||||"},
        {"!Type:Bank\nD2024-03-13\nT12.50 DR\n^\n", "2024/03/13|-1250||||"},
        {"!Type:Bank\nD2024-03-13\nT12.5051\n^\n", "2024/03/13|1251||||"},
    });
    const QByteArray open = "!Type:Bank\nD2024-03-13\nT-1,000\n^\n";
    const CVStatement statement = CVReadStatement(open);
    ASSERT_EQ(subjectsOf(statement), std::vector{QIFAbout::DecimalMark});
    const CVStatement answered = CVReadStatement(open, statement.questions.front().answers.front().with);
    EXPECT_EQ(qifLinesOf(answered), QStringLiteral("2024/03/13|-100000||||"));
}

TEST(CVQIFLines, KeepsPayeeMemoCategoryAndNumber) {
    expectQIFRows({
        {"!Type:Bank\nD2024-03-13\nT-1.00\nPShop\nMTwo lamps\nLHome:Light\nN1005\nCX\nAStreet 1\n^\n",
         "2024/03/13|-100|Shop|Two lamps|Home:Light|1005"},
        {"!Type:Bank\nD2024-03-13\nT-1.00\nPShop\nLHome:Light/Summer\nNATM\n^\n", "2024/03/13|-100|Shop||Home:Light|"},
        {"!Type:Bank\nD2024-03-13\nT-1.00\nPShop\nL[Savings]\n^\n", "2024/03/13|-100|Shop|Savings||"},
        {"!Type:Bank\nD2024-03-13\nT-1.00\nPShop\nMFor later\nL[Savings]/Me\n^\n", "2024/03/13|-100|Shop|For later||"},
        {"!Type:Bank\nD2024-03-13\nT-1.00\nLHome\n^\n", "2024/03/13|-100||Home|Home|"},
        {"!Type:Bank\nD2024-03-13\nT-1.00\nN17\n^\n", "2024/03/13|-100||17||17"},
        {"!Type:Bank\nD2024-03-13\nT-1.00\nMTwo\nlamps\nMand more\n^\n", "2024/03/13|-100||Two lamps and more||"},
    });
}

TEST(CVQIFLines, MakesALineOfEachPartWhereThePartsAreTheWhole) {
    expectQIFRows({
        {"!Type:Bank\nD2024-03-13\nT-10.00\nPShop\nMWeek\nN7\nLFood\nSFood\nEBread\n$-4.00\nSHome/"
         "Me\n$-7.00\nS[Wallet]\n$1.00\n^\n",
         "2024/03/13|-400|Shop|Week Bread|Food|7#1\n2024/03/13|-700|Shop|Week|Home|7#2\n"
         "2024/03/13|100|Shop|Week||7#3"},
        {"!Type:Bank\nD2024-03-13\nT-10.00\nPShop\nL--Split--\nS[Wallet]\n$-9.00\nSFees\n%10%\n$-1.00\n^\n",
         "2024/03/13|-900|Shop|Wallet||\n2024/03/13|-100|Shop||Fees|"},
        {"!Type:Bank\nD2024-03-13\nT45.00\nPShop\nSFood\n$45.00\n^\n", "2024/03/13|4500|Shop||Food|"},
    });
}

TEST(CVQIFLines, KeepsTheWholeWhereThePartsAreNot) {
    expectQIFRows({
        {"!Type:Bank\nD2024-03-13\nT-10.00\nPShop\nLFood\nSFood\n$-4.00\nSHome\n$-7.00\n^\n",
         "2024/03/13|-1000|Shop||Food|"},
        {"!Type:Bank\nD2024-03-13\nT-10.00\nPShop\nL--Split--\nSFood\n$4.00\nSHome\n$6.00\n^\n",
         "2024/03/13|-1000|Shop|||"},
        {"!Type:Bank\nD2024-03-13\nT-10.00\nPShop\nSFood\n$-4.00\nSHome\n%60\n^\n", "2024/03/13|-1000|Shop|||"},
        {"!Type:Bank\nD2024-03-13\nT-10.00\nPShop\nSFood\n^\n", "2024/03/13|-1000|Shop||Food|"},
        {"!Type:Bank\nD2024-03-13\nT-10.00\nPShop\nSFood\nD2024-01-01\n$-10.00\n^\n", "2024/03/13|-1000|Shop||Food|"},
    });
}

TEST(CVQIFLines, KeepsEntriesThatItCannotReadWithTheReason) {
    expectQIFRows({
        {"!Type:Bank\nT-10.00\nPShop\n^\nD2024-03-13\nPShop\n^\n", "2! there is no day\n5! there is no amount"},
        {"!Type:Bank\nD\nT-10.00\n^\nD2024-03-13\nT\n^\n", "2! there is no day\n5! there is no amount"},
        {"!Type:Bank\nD2024-02-31\nT-10.00\n^\nD2024-03-13\nTten\n^\n",
         "2! “2024-02-31” is no day\n5! “ten” is no amount"},
        {"!Type:Bank\nD2024-03-13\nT-10.00\nU-11.00\n^\n", "2! it has two amounts"},
        {"!Type:Bank\nD2024-03-13\nD2024-03-14\nT-10.00\n^\n", "2! it has two days"},
        {"!Type:Bank\nD2024-03-13\nT-10.00 CR\n^\n", "2! “-10.00 CR” is no amount"},
        {"!Type:Bank\nD13/3\nT-10.00\n^\n", "2! “13/3” is no day"},
        {"!Type:Bank\nD13/4/2024\nT1.00\n^\nD4/13/2024\nT1.00\n^\nD14/4/2024\nT1.00\n^\n",
         "2024/04/13|100||||\n5! “4/13/2024” is no day\n2024/04/14|100||||"},
    });
    const CVStatement statement = CVReadStatement("!Type:Bank\nD2024-03-13\nTten\nPShop\n^\n");
    ASSERT_EQ(statement.lines.size(), 1U);
    EXPECT_EQ(statement.lines.front().cells, (QStringList{"D2024-03-13", "Tten", "PShop"}));
}

TEST(CVQIFLines, LeavesOutTheBalanceWithWhichAnAccountBegins) {
    const DefaultLocale locale(QLocale(QStringLiteral("en_GB")));
    const FixedToday today(QBDate::dateWithYear(2026, 6, 1));
    const CVStatement statement = CVReadStatement(
        "!Type:Bank\nD2024-03-13\nT100.00\nPOpening Balance\nL[Checking]\n^\nD2024-03-13\nT1.00\nPA\n^\n");
    EXPECT_EQ(qifLinesOf(statement), QStringLiteral("2024/03/13|100|A|||"));
    EXPECT_EQ(statement.summary, QStringLiteral("QIF, UTF-8, account Checking, 1 line, 13 March 2024"));
}

} // namespace
