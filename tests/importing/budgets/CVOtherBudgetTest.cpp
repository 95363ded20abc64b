#include "importing/budgets/CVOtherBudget.h"

#include "importing/budgets/CVReadBudgetFileKind.h"
#include "kit/BudgetBuilder.h"
#include "kit/FixedToday.h"
#include "kit/ScratchHome.h"
#include "storage/CVDocumentReader.h"
#include "storage/CVDocumentXML.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

class CVOtherBudgetTest : public testing::Test {
protected:
    [[nodiscard]] QString write(const QByteArray& bytes, const QString& name = "other.xyz") const {
        QFile file(mHome.path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    [[nodiscard]] QByteArray bytes() { return CVDocumentXMLRepresentation(mTheirs.document()).joined(); }
    [[nodiscard]] static CVOtherBudget read(const QString& path) {
        CVDocumentReader reader;
        return CVOtherBudget::read(reader, path);
    }
    void purchase(const std::optional<QBDate>& date) {
        mTheirs.transaction({.date = date, .amount = 1, .category = "Food"});
    }

    FixedToday mToday{day(2026, 5, 1)};
    ScratchHome mHome;
    BudgetBuilder mTheirs;
};

TEST_F(CVOtherBudgetTest, SaysInOneLineWhatItIs) {
    EXPECT_EQ(read(write(bytes())).summary, "A Corvella budget, 0 transactions");
    mTheirs.category("Food", 1).set("Checking", 2);
    purchase(std::nullopt);
    EXPECT_EQ(read(write(bytes())).summary, "A Corvella budget, 1 set, 1 transaction");
    purchase(day(2026, 4, 9));
    EXPECT_EQ(read(write(bytes())).summary, "A Corvella budget, 1 set, 2 transactions, 9 April");
    mTheirs.set("Card", 3);
    for (int i = 0; i < 1202; ++i)
        purchase(day(2026, 3, 12));
    EXPECT_EQ(read(write(bytes())).summary, "A Corvella budget, 2 sets, 1,204 transactions, 12 March to 9 April");
    purchase(day(2025, 12, 31));
    EXPECT_EQ(read(write(bytes())).summary,
              "A Corvella budget, 2 sets, 1,205 transactions, 31 December 2025 to 9 April 2026");
    purchase(day(0, 1, 1));
    EXPECT_EQ(read(write(bytes())).summary,
              "A Corvella budget, 2 sets, 1,206 transactions, 0000/01/01 to 9 April 2026");
}

TEST_F(CVOtherBudgetTest, SaysWhyADamagedOneCannotBeRead) {
    mTheirs.category("Food", 1);
    purchase(day(2026, 4, 9));
    const CVOtherBudget other = read(write(bytes().chopped(30)));
    EXPECT_EQ(other.budget, nullptr);
    EXPECT_FALSE(other.problem.isEmpty());
    EXPECT_EQ(other.summary, "");
    EXPECT_FALSE(read(mHome.path("gone")).problem.isEmpty());
}

TEST_F(CVOtherBudgetTest, SaysWhatWasReadOnlyInPart) {
    mTheirs.category("Food", 1);
    purchase(day(2026, 4, 9));
    EXPECT_EQ(read(write(bytes())).partlyText(), "");
    const QString one = read(write(bytes().replace("1.00", "1,50"))).partlyText();
    EXPECT_TRUE(one.startsWith("1 place of that file was not understood, or only in part: ")) << one.toStdString();
    purchase(day(2026, 4, 9));
    const QString two = read(write(bytes().replace("1.00", "1,50"))).partlyText();
    EXPECT_TRUE(two.startsWith("2 places of that file were not understood, or only in part; the first: "))
        << two.toStdString();
}

TEST_F(CVOtherBudgetTest, TheKindOfWhatIsNoFileIsNotAskedOfIt) {
    EXPECT_EQ(CVReadBudgetFileKind(write(bytes())), CVBudgetFileKind::DataFile);
    EXPECT_EQ(CVReadBudgetFileKind(mHome.path("gone")), CVBudgetFileKind::None);
    EXPECT_EQ(CVReadBudgetFileKind(mHome.path()), CVBudgetFileKind::None);
    const QString pipe = mHome.path("pipe");
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe), 0600), 0);
    EXPECT_EQ(CVReadBudgetFileKind(pipe), CVBudgetFileKind::None);
}

} // namespace
