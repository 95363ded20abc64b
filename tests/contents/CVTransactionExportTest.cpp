#include "contents/CVTransactionExport.h"

#include "kit/BudgetBuilder.h"
#include "kit/DefaultLocale.h"
#include "kit/ScratchHome.h"

#include <QFile>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <thread>

namespace {

QByteArray exported(const CVDocument& document) {
    return CVMakeExportText(document.transactions()).value();
}

TEST(CVTransactionExport, WritesALineForEachTransactionInTheirOrder) {
    BudgetBuilder budget;
    budget.category("Food", 1);
    budget
        .transaction({.date = day(2014, 3, 7), .amount = 12.5, .payTo = "Market", .category = "Food", .taxFlag = true})
        .transaction({.date = day(2014, 3, 6), .amount = -1234.5, .payTo = "Bäcker", .xfor = "Brot", .categoryID = 9});
    EXPECT_EQ(exported(budget.document()), "3/7/14\t$12.50\tX\tMarket\t\tFood\n"
                                           "3/6/14\t-$1,234.50\t\tBäcker\tBrot\t\n");
}

TEST(CVTransactionExport, WritesNothingForWhatIsMissingAndTextsAsTheyAre) {
    BudgetBuilder budget;
    budget.transaction({.amount = 1, .payTo = "a\tb", .xfor = "\"c\"", .userFlag = true});
    EXPECT_EQ(exported(budget.document()), "\t$1.00\t\ta\tb\t\"c\"\t\n");
}

TEST(CVTransactionExport, FollowsTheLocaleInForce) {
    const DefaultLocale locale{QLocale(QLocale::German)};
    BudgetBuilder budget;
    budget.transaction({.date = day(2014, 3, 7), .amount = 1234.5});
    const QByteArray text = exported(budget.document());
    EXPECT_TRUE(text.startsWith("07.03.14\t")) << text.constData();
    EXPECT_TRUE(text.contains("1.234,50")) << text.constData();
}

TEST(CVTransactionExport, CanBeGivenUpHalfway) {
    BudgetBuilder budget;
    for (int i = 0; i < 10'000; ++i)
        budget.transaction({.amount = 1});
    const CVTransactions& rows = budget.document().transactions();
    std::size_t reports = 0;
    EXPECT_FALSE(CVMakeExportText(rows, [&reports](std::size_t) { return ++reports < 2; }));
    EXPECT_EQ(reports, 2U);
    EXPECT_TRUE(CVMakeExportText(rows, [](std::size_t) { return true; }));
}

TEST(CVTransactionExport, WritesEachFormatAndGivesItUpHalfway) {
    BudgetBuilder budget;
    for (int i = 0; i < 5'000; ++i)
        budget.transaction({.date = day(2014, 3, 7), .amount = 12.5});
    const CVDocument& document = budget.document();
    const CVTransactions& rows = document.transactions();
    const auto never = [](std::size_t) { return false; };
    for (const auto& [format, begin] :
         {std::pair(CVExportFormat::List, "3/7/14\t$12.50\t"), std::pair(CVExportFormat::CSV, "Date,Amount,"),
          std::pair(CVExportFormat::JSON, R"([
{"date":"2014-03-07","amount":12.5,)")}) {
        EXPECT_TRUE(CVMakeExport(format, document, rows)->startsWith(begin));
        EXPECT_FALSE(CVMakeExport(format, document, rows, never));
    }
}

TEST(CVTransactionExport, ReplacesTheFileOrLeavesItAndSaysWhy) {
    const ScratchHome home;
    const QString path = home.path("out.txt");
    EXPECT_FALSE(CVWriteExport(path, "first\n"));
    EXPECT_FALSE(CVWriteExport(path, "second\n"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "second\n");
    const auto failure = CVWriteExport(home.path("missing/out.txt"), "text");
    ASSERT_TRUE(failure);
    EXPECT_FALSE(failure->isEmpty());
}

TEST(CVTransactionExport, WritesThroughAPipeInsteadOfReplacingIt) {
    const ScratchHome home;
    const QByteArray path = home.path("pipe").toLocal8Bit();
    ASSERT_EQ(::mkfifo(path.constData(), 0600), 0);
    QByteArray received;
    std::thread reader([&] {
        QFile pipe(QString::fromLocal8Bit(path));
        if (pipe.open(QIODevice::ReadOnly))
            received = pipe.readAll();
    });
    EXPECT_FALSE(CVWriteExport(QString::fromLocal8Bit(path), "line\n"));
    reader.join();
    EXPECT_EQ(received, "line\n");
    struct stat status {};
    ASSERT_EQ(::stat(path.constData(), &status), 0);
    EXPECT_TRUE(S_ISFIFO(status.st_mode));
    EXPECT_TRUE(CVWriteExport(home.path(), "a folder")) << "a folder is refused";
}

} // namespace
