#include "kit/BudgetBuilder.h"
#include "kit/ScratchHome.h"
#include "storage/CVDocumentFile.h"
#include "storage/CVDocumentXML.h"
#include "storage/CVExaminedSource.h"
#include "storage/ScratchFiles.h"

#include <QFileInfo>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

class ReadingProgress : public testing::Test {
protected:
    /// Writes a data file with that many transactions.
    void writeBudget(int transactions) {
        BudgetBuilder budget;
        budget.category("Food", 1).lastID(1);
        for (int i = 0; i < transactions; ++i)
            budget.transaction({.date = day(2014, 3, 7), .amount = 1.0 + i, .payTo = "Market", .category = "Food"});
        mBytes = CVDocumentXMLRepresentation(budget.document()).joined();
        writeFile(mPath, mBytes);
    }

    CVLoadReport read() { return mFile.initWithStandardUserFile(mRead.document()); }

    ScratchHome mHome;
    QString mPath = mHome.folders().applicationSupport + "/Quenby Labs/Corvella/Corvella Data.corvella";
    CVDocumentFile mFile{mHome.folders(), mHome.userDefaults()};
    BudgetBuilder mRead;
    QByteArray mBytes;
};

TEST_F(ReadingProgress, RisesFromZeroToOne) {
    writeBudget(20'500);
    std::vector<double> parts;
    mFile.setReadingProgress([&parts](double part) {
        parts.push_back(part);
        return true;
    });
    EXPECT_EQ(read().outcome, CVLoadReport::Outcome::Loaded);
    EXPECT_EQ(mRead.document().transactions().size(), 20'500U);
    EXPECT_TRUE(std::is_sorted(parts.begin(), parts.end()));
    ASSERT_EQ(static_cast<qsizetype>(parts.size()),
              1 + (mBytes.size() + CVExaminedSource::kPieceSize - 1) / CVExaminedSource::kPieceSize);
    EXPECT_EQ(parts.front(), 0);
    EXPECT_EQ(parts[1], static_cast<double>(CVExaminedSource::kPieceSize) / static_cast<double>(mBytes.size()));
    EXPECT_EQ(parts.back(), 1);
}

TEST_F(ReadingProgress, CanCancelBeforeAnythingIsRead) {
    writeBudget(100);
    mFile.setReadingProgress([](double /*part*/) { return false; });
    EXPECT_EQ(read().outcome, CVLoadReport::Outcome::Cancelled);
    EXPECT_TRUE(mRead.document().transactions().empty());
}

TEST_F(ReadingProgress, CancelledReadingChangesNothing) {
    writeBudget(20'500);
    int reports = 0;
    mFile.setReadingProgress([&reports](double /*part*/) { return ++reports < 3; });
    const CVLoadReport report = read();
    EXPECT_EQ(report.outcome, CVLoadReport::Outcome::Cancelled);
    EXPECT_EQ(report.reason, "the reading was cancelled");
    EXPECT_EQ(reports, 3) << "nobody is asked again";
    EXPECT_FALSE(mFile.saves().isSaving());
    EXPECT_TRUE(mFile.saves().waitForFinished().saved);
    EXPECT_EQ(readFile(mPath), mBytes);
    EXPECT_EQ(namesIn(QFileInfo(mPath).path()), QStringList{"Corvella Data.corvella"});
}

} // namespace
