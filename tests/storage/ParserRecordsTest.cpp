#include "base/CVNotifications.h"
#include "storage/ParsedBudget.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

/// The content of the root element, and the resulting records.
struct RecordRow {
    const char* behaviour;
    QByteArray elements;
    QStringList records;
};

void PrintTo(const RecordRow& row, std::ostream* out) {
    *out << row.behaviour;
}

class ParserRecords : public testing::TestWithParam<RecordRow> {};

TEST_P(ParserRecords, areReadFromTheirElements) {
    ParsedBudget budget(inRoot(GetParam().elements));
    EXPECT_TRUE(budget.read()) << budget.message().toStdString();
    EXPECT_EQ(budget.records(), GetParam().records);
    EXPECT_EQ(budget.log(), QStringList());
    EXPECT_EQ(budget.saves().count(), 0);
}

QByteArray transaction(const QByteArray& attributes) {
    return "<Transaction " + attributes + "/>";
}

QByteArray data(const QByteArray& attributes) {
    return "<Transaction><Data " + attributes + " /></Transaction>";
}

QByteArray estimates(const QByteArray& attributes) {
    return "<Category id=\"1\">a<ExpenseEstimates " + attributes + " /></Category>";
}

const std::vector<RecordRow> kTransactions{
    {"an empty Transaction has no date, amount 0 and null texts", "<Transaction/>", {"T"}},
    {"all attributes",
     transaction(R"(categoryID="12" flag="1" tax_flag="1" transaction_set_id="27")"),
     {"T category=12 set=27 flag=1 tax=1"}},
    {"the largest IDs",
     transaction(R"(categoryID="4294967295" transaction_set_id="4294967295")"),
     {"T category=4294967295 set=4294967295"}},
    {"an ID is read as far as it is a number", transaction(R"(categoryID=" 12abc")"), {"T category=12"}},
    {"an ID that is no number is 0", transaction(R"(categoryID="x12" transaction_set_id="")"), {"T"}},
    {"a flag is set when its value begins with 1", transaction(R"(flag="1x" tax_flag="10")"), {"T flag=1 tax=1"}},
    {"true, blanks and other digits are no set flag", transaction(R"(flag="true" tax_flag=" 1")"), {"T"}},
    {"an empty flag is not set", transaction(R"(flag="" tax_flag="2")"), {"T"}},
    {"attributes are known by their exact names",
     transaction(R"(Flag="1" flags="1" fla="1" categoryid="3" transaction_set_id2="4" xflag="1")"),
     {"T"}},
    {"date and amount", data(R"(date="2014/03/07" amount="45.10")"), {"T date=2014/03/07 amount=45.100000000000001"}},
    {"a year below 1000 and one above 9999",
     data(R"(date="0812/05/05")") + data(R"(date="12014/12/31")"),
     {"T date=0812/05/05", "T date=12014/12/31"}},
    {"a day of no calendar is no date", data(R"(date="2014/02/29")"), {"T"}},
    {"a text of another form is no date", data(R"(date="7.3.2014")"), {"T"}},
    {"a null date is no date", data("date=\"(null)\""), {"T"}},
    {"a later Data replaces what an earlier one gave",
     R"(<Transaction><Data date="2014/03/07" amount="1" /><Data date="2014/03/08" /></Transaction>)",
     {"T date=2014/03/08 amount=1"}},
    {"a later unreadable date takes the earlier one away",
     R"(<Transaction><Data date="2014/03/07" /><Data date="soon" /></Transaction>)",
     {"T"}},
    {"unknown attributes of Data are ignored", data(R"(Date="2014/03/07" amounts="1" x="2")"), {"T"}},
    {"a negative amount", data(R"(amount="-3.50")"), {"T amount=-3.5"}},
    {"an amount is read as far as it is a number", data(R"(amount=" 12,50")"), {"T amount=12"}},
    {"an amount with an exponent", data(R"(amount="1.5e3")"), {"T amount=1500"}},
    {"an amount without a digit before the point", data(R"(amount=".5")"), {"T amount=0.5"}},
    {"nan is no amount", data(R"(amount="nan")"), {"T"}},
    {"inf is no amount", data(R"(amount="inf")"), {"T"}},
    {"a word is no amount", data(R"(amount="ten")"), {"T"}},
    {"hexadecimal digits are no amount", data(R"(amount="0x10")"), {"T"}},
    {"texts in their elements",
     "<Transaction><PayToFrom>Lee</PayToFrom><For>Checkup</For></Transaction>",
     {"T payTo='Lee' for='Checkup'"}},
    {"texts in the other order",
     "<Transaction><For>Checkup</For><PayToFrom>Lee</PayToFrom></Transaction>",
     {"T payTo='Lee' for='Checkup'"}},
    {"an empty text element gives an empty text", "<Transaction><PayToFrom></PayToFrom></Transaction>", {"T payTo=''"}},
    {"of two texts the later counts",
     "<Transaction><For>a</For><For>b</For><PayToFrom>c</PayToFrom><PayToFrom/></Transaction>",
     {"T payTo='' for='b'"}},
    {"text outside the text elements is no part of a text",
     "<Transaction>a<PayToFrom>b</PayToFrom>c<For>d</For>e</Transaction>",
     {"T payTo='b' for='d'"}},
    {"the order of the file is kept",
     data(R"(date="2001/01/01")") + data(R"(date="2003/01/01")") + data(R"(date="2002/01/01")"),
     {"T date=2001/01/01", "T date=2003/01/01", "T date=2002/01/01"}},
};

const std::vector<RecordRow> kCategories{
    {"an empty Category has an empty name", "<Category/>", {"C name=''"}},
    {"all that is stored of a category",
     R"(<Category id="12">Medical<ExpenseEstimates frequency="Monthly" target="50.00" /></Category>)",
     {"C id=12 name='Medical' frequency=3 target=50"}},
    {"a category without estimates is weekly", R"(<Category id="12">Medical</Category>)", {"C id=12 name='Medical'"}},
    {"text after the estimates is no part of the name",
     R"(<Category id="1">a<ExpenseEstimates frequency="Annually" />b</Category>)",
     {"C id=1 name='a' frequency=7"}},
    {"Weekly", estimates(R"(frequency="Weekly")"), {"C id=1 name='a'"}},
    {"Bi-Weekly", estimates(R"(frequency="Bi-Weekly")"), {"C id=1 name='a' frequency=1"}},
    {"Semi-Monthly", estimates(R"(frequency="Semi-Monthly")"), {"C id=1 name='a' frequency=2"}},
    {"Bi-Monthly", estimates(R"(frequency="Bi-Monthly")"), {"C id=1 name='a' frequency=4"}},
    {"Quarterly", estimates(R"(frequency="Quarterly")"), {"C id=1 name='a' frequency=5"}},
    {"Semi-Annually", estimates(R"(frequency="Semi-Annually")"), {"C id=1 name='a' frequency=6"}},
    {"Annually", estimates(R"(frequency="Annually")"), {"C id=1 name='a' frequency=7"}},
    {"a null frequency is unknown", estimates("frequency=\"(null)\""), {"C id=1 name='a' frequency=-1"}},
    {"frequencies are known by their exact names",
     estimates(R"(frequency="monthly")"),
     {"C id=1 name='a' frequency=-1"}},
    {"an empty frequency is unknown", estimates(R"(frequency="")"), {"C id=1 name='a' frequency=-1"}},
    {"an attribute that merely begins with freq is the frequency",
     estimates(R"(freqABC="Monthly")"),
     {"C id=1 name='a' frequency=3"}},
    {"the four letters alone are the frequency", estimates(R"(freq="Monthly")"), {"C id=1 name='a' frequency=3"}},
    {"three letters are not", estimates(R"(fre="Monthly" Frequency="Monthly")"), {"C id=1 name='a'"}},
    {"of two frequencies the later counts",
     estimates(R"(frequency="Monthly" frequent="Annually")"),
     {"C id=1 name='a' frequency=7"}},
    {"a target is read as far as it is a number",
     estimates(R"(target="-1.25 each")"),
     {"C id=1 name='a' target=-1.25"}},
    {"the target is known by its exact name", estimates(R"(targets="1" targe="2")"), {"C id=1 name='a'"}},
    {"the order of the file is kept",
     "<Category id=\"2\">b</Category><Category id=\"1\">a</Category>",
     {"C id=2 name='b'", "C id=1 name='a'"}},
};

const std::vector<RecordRow> kSetsAndCounters{
    {"a set", R"(<TransactionSet id="27">Checking</TransactionSet>)", {"S id=27 name='Checking'"}},
    {"an empty set has an empty name", "<TransactionSet/>", {"S name=''"}},
    {"unknown attributes of a set are ignored", R"(<TransactionSet ID="1" idx="2" name="n"/>)", {"S name=''"}},
    {"the counters", R"(<MiscInfo id="40" current_transaction_set_id="27" />)", {"M id=40 set=27"}},
    {"without MiscInfo the counters are 0", R"(<TransactionSet id="3">a</TransactionSet>)", {"S id=3 name='a'"}},
    {"a counter is read as far as it is a number",
     R"(<MiscInfo id="40th" current_transaction_set_id="none" />)",
     {"M id=40"}},
    {"other attributes of MiscInfo are ignored",
     R"(<MiscInfo ID="1" current_transaction_set="2" id="3" />)",
     {"M id=3"}},
    {"a later MiscInfo replaces what it names",
     R"(<MiscInfo id="40" current_transaction_set_id="27" /><MiscInfo id="41" />)",
     {"M id=41 set=27"}},
    {"MiscInfo may stand behind the records", R"(<Transaction/><MiscInfo id="4" />)", {"M id=4", "T"}},
    {"of sets with one ID the first stays",
     R"(<TransactionSet id="1">a</TransactionSet><TransactionSet id="2">b</TransactionSet><TransactionSet id="1">c</TransactionSet>)",
     {"S id=1 name='a'", "S id=2 name='b'"}},
    {"of categories with one ID the first stays",
     R"(<Category id="1">a</Category><Category id="1">b</Category><Category id="0">c</Category><Category>d</Category>)",
     {"C id=1 name='a'", "C name='c'"}},
    {"a set and a category may share an ID",
     R"(<Category id="1">a</Category><TransactionSet id="1">b</TransactionSet>)",
     {"S id=1 name='b'", "C id=1 name='a'"}},
    {"equal transactions all stay", "<Transaction/><Transaction/>", {"T", "T"}},
};

INSTANTIATE_TEST_SUITE_P(transactions, ParserRecords, testing::ValuesIn(kTransactions));
INSTANTIATE_TEST_SUITE_P(categories, ParserRecords, testing::ValuesIn(kCategories));
INSTANTIATE_TEST_SUITE_P(setsAndCounters, ParserRecords, testing::ValuesIn(kSetsAndCounters));

TEST(ParserRecord, knowsItsDocument) {
    ParsedBudget budget(inRoot("<Transaction/><Category/><TransactionSet/>"));
    ASSERT_EQ(budget.records().size(), 3);
    EXPECT_EQ(budget.document().transactions().front()->document(), &budget.document());
    EXPECT_EQ(budget.document().categories().front()->document(), &budget.document());
    EXPECT_EQ(budget.document().transactionSets().front()->document(), &budget.document());
}

TEST(ParserRecord, isAnnouncedWhenItIsACategory) {
    const ParsedBudget budget(
        inRoot("<Transaction/><TransactionSet/><Category id=\"1\">a</Category><Category id=\"2\"/>"));
    EXPECT_EQ(budget.notifications().count(CVNotifications::kCategoryAddedRemoved), 2);
    EXPECT_EQ(budget.notifications().total(), 2);
}

} // namespace
