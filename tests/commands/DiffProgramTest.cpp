#include "ProgramFixture.h"

namespace {

QByteArray budget(const QByteArray& elements) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>)"
           "\n<CorvellaDocument>" +
           elements + "</CorvellaDocument>\n";
}

QByteArray transaction(const QByteArray& day, const QByteArray& amount, const QByteArray& payee) {
    return "<Transaction categoryID=\"2\" flag=\"0\" tax_flag=\"1\" transaction_set_id=\"1\"><Data date=\"" + day +
           "\" amount=\"" + amount + "\" /><PayToFrom>" + payee + "</PayToFrom><For>bread</For></Transaction>";
}

const QByteArray kSetElement = "<TransactionSet id=\"1\">Checking</TransactionSet>";
const QByteArray kFoodElement =
    "<Category id=\"2\">Food<ExpenseEstimates frequency=\"Monthly\" target=\"50.00\" /></Category>";
const QByteArray kMarketElement = transaction("2014/03/07", "12.50", "Market");
const QByteArray kBakerElement = transaction("2014/03/06", "3.00", "Baker");

class DiffProgram : public ProgramFixture {
protected:
    QString mBefore = write("before", budget(kSetElement + kMarketElement + kFoodElement));
};

TEST_F(DiffProgram, SaysNothingOfTheSameInAnotherOrder) {
    const QString before = write("first", budget(kSetElement + kMarketElement + kBakerElement + kFoodElement));
    const Result result =
        run({"diff", before, write("second", budget(kFoodElement + kBakerElement + kMarketElement + kSetElement))});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "");
}

TEST_F(DiffProgram, WritesALineForEachDifference) {
    const QString after = write(
        "after", budget("<TransactionSet id=\"1\">Giro</TransactionSet><TransactionSet id=\"5\">Cash</TransactionSet>" +
                        transaction("2014/03/07", "13.00", "Market") + kBakerElement +
                        "<Category id=\"2\">Food<ExpenseEstimates frequency=\"Weekly\" target=\"20.00\" />"
                        "</Category>"));
    const Result result = run({"diff", mBefore, after});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.output, "~\tset\tChecking => Giro\n"
                             "+\tset\tCash\n"
                             "~\tcategory\tFood\t50.00 Monthly => 20.00 Weekly\n"
                             "~\ttransaction\tChecking => Giro\t2014-03-07\t12.50 => 13.00\tMarket\tbread\tFood\tX\t\n"
                             "+\ttransaction\tGiro\t2014-03-06\t3.00\tBaker\tbread\tFood\tX\t\n");
    EXPECT_EQ(run({"diff", after, mBefore}).output.count("\n"), 5);
}

TEST_F(DiffProgram, ComparesWithTheOwnFileWhenOneIsNamed) {
    const Result missing = run({"diff", mBefore});
    EXPECT_EQ(missing.status, 2);
    EXPECT_TRUE(missing.errors.contains("there is no data file yet")) << missing.errors.toStdString();
}

TEST_F(DiffProgram, ReadsOneFileFromStandardInput) {
    const Result result = shell(QStringLiteral("\"$CORVELLA\" diff - \"%1\" < \"%1\"").arg(mBefore));
    EXPECT_EQ(result.status, 0) << result.errors.toStdString();
}

TEST_F(DiffProgram, NamesTheSetAndTheCategoryOfEachStateByItsOwnIDs) {
    const QString after = write("after", budget("<TransactionSet id=\"7\">Checking</TransactionSet>"
                                                "<Transaction categoryID=\"9\" flag=\"0\" tax_flag=\"1\" "
                                                "transaction_set_id=\"7\"><Data date=\"2014/03/08\" amount=\"1.00\" />"
                                                "<PayToFrom>Kiosk</PayToFrom><For>bread</For></Transaction>"
                                                "<Transaction categoryID=\"2\" flag=\"0\" tax_flag=\"1\" "
                                                "transaction_set_id=\"1\"><Data date=\"2014/03/09\" amount=\"1.00\" />"
                                                "<PayToFrom>Nowhere</PayToFrom><For>bread</For></Transaction>"
                                                "<Category id=\"9\">Food<ExpenseEstimates frequency=\"Monthly\" "
                                                "target=\"50.00\" /></Category>"));
    EXPECT_EQ(run({"diff", mBefore, after}).output,
              "+\ttransaction\t\t2014-03-09\t1.00\tNowhere\tbread\t\tX\t\n"
              "+\ttransaction\tChecking\t2014-03-08\t1.00\tKiosk\tbread\tFood\tX\t\n"
              "-\ttransaction\tChecking\t2014-03-07\t12.50\tMarket\tbread\tFood\tX\t\n");
}

TEST_F(DiffProgram, FindsAVersionByItsName) {
    const QString folder = "data/Quenby Labs/Corvella/";
    const QString name = "Corvella Data 2026-11-22 140207 (before removing).corvella";
    static_cast<void>(
        write(folder + "Corvella Data.corvella", budget(kSetElement + kMarketElement + kBakerElement + kFoodElement)));
    static_cast<void>(write(folder + "Earlier Versions/" + name, budget(kSetElement + kMarketElement + kFoodElement)));
    const Result result = run({"diff", name});
    EXPECT_EQ(result.output, "+\ttransaction\tChecking\t2014-03-06\t3.00\tBaker\tbread\tFood\tX\t\n")
        << result.errors.toStdString();
    EXPECT_EQ(run({"diff", mBefore, name}).status, 0);
    EXPECT_EQ(run({"diff", "./" + name}).status, 2) << "a path is a path";
    static_cast<void>(write(name, budget(kSetElement + kMarketElement + kBakerElement + kFoodElement)));
    EXPECT_EQ(run({"diff", name}).status, 0) << "a file in the current folder comes first";
}

TEST_F(DiffProgram, EndsWith2WhereItCannotCompare) {
    struct Row {
        QStringList arguments;
        QString error;
    };
    const Row rows[] = {
        {{}, "diff needs the earlier data file"},
        {{mBefore, mBefore, "third"}, "\"third\" is one too many"},
        {{"-", "-"}, "only one of the data files can be standard input"},
        {{mBefore, ""}, "the name of a data file is empty"},
        {{mBefore, "nowhere"}, "does not exist"},
        {{mBefore, write("page", "<?xml version=\"1.0\"?>\n<html><body>Nothing but a page</body></html>\n")},
         "could not be read: the file is XML but holds no Corvella budget"},
        {{mBefore, write("damaged", budget("<Transaction>"))}, "could not be read: the file is damaged"},
        {{"--data", mBefore}, "data"}};
    for (const Row& row : rows) {
        const Result result = run(QStringList{"diff"} + row.arguments);
        EXPECT_EQ(result.status, 2) << row.error.toStdString();
        EXPECT_EQ(result.output, "") << row.error.toStdString();
        EXPECT_TRUE(result.errors.contains(row.error)) << result.errors.toStdString();
        EXPECT_FALSE(result.errors.contains("note:")) << row.error.toStdString();
    }
}

} // namespace
