#include "history/CVVersionTableModel.h"

#include "kit/Day.h"
#include "kit/DefaultLocale.h"
#include "kit/FixedToday.h"

#include <QAbstractItemModelTester>

#include <gtest/gtest.h>

namespace {

using VersionColumn = CVVersionTableModel::Column;

class CVVersionTableModelTest : public testing::Test {
protected:
    [[nodiscard]] QString cell(int row, int column, int role = Qt::DisplayRole) const {
        return mModel.data(mModel.index(row, column), role).toString();
    }

    static CVListedVersion version(const QString& path, std::optional<CVVersionReason> reason) {
        return {path, QDateTime(QDate(2014, 3, 7), QTime(14, 2)), reason};
    }

    FixedToday mToday{day(2014, 3, 7)};
    CVVersionTableModel mModel;
    QAbstractItemModelTester mTester{&mModel, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(CVVersionTableModelTest, ThePresentBudgetStandsFirst) {
    mModel.setVersions({version("a", CVVersionReason::Removal)}, 1204);
    EXPECT_EQ(mModel.rowCount(), 2);
    EXPECT_EQ(cell(0, VersionColumn::When), "now");
    EXPECT_EQ(cell(0, VersionColumn::Transactions), "1,204");
    EXPECT_EQ(cell(0, VersionColumn::Differences), "");
    EXPECT_EQ(mModel.versionAt(0), nullptr);
    EXPECT_EQ(cell(1, VersionColumn::When), "today 2:02 PM");
    EXPECT_EQ(cell(1, VersionColumn::Kept), "before removing");
    EXPECT_EQ(cell(1, VersionColumn::Transactions), "") << "not known yet";
    EXPECT_EQ(cell(1, VersionColumn::Differences), "…");
}

TEST_F(CVVersionTableModelTest, SaysWhatDiffersInSignsAndInWords) {
    mModel.setVersions({version("a", CVVersionReason::Removal)}, 10);
    struct Row {
        std::array<std::size_t, kCVVersionSigns> counts;
        const char* signs;
        const char* words;
    };
    for (const Row& row : {Row{{0, 0, 0}, "not at all", "not at all"}, Row{{20, 0, 0}, "−20", "20 removed since then"},
                           Row{{20, 3, 1}, "+3 −20 ~1", "3 added, 20 removed, 1 changed since then"},
                           Row{{1204, 0, 2}, "−1,204 ~2", "1,204 removed, 2 changed since then"}}) {
        mModel.setFindings({.path = "a", .transactions = 9, .counts = row.counts});
        EXPECT_EQ(cell(1, VersionColumn::Differences), row.signs);
        EXPECT_EQ(cell(1, VersionColumn::Differences, Qt::AccessibleTextRole), row.words);
        EXPECT_EQ(cell(1, VersionColumn::Differences, Qt::ToolTipRole), row.words);
        EXPECT_EQ(cell(1, VersionColumn::Transactions), "9");
    }
}

TEST_F(CVVersionTableModelTest, AKeptCopySaysWhyItWasKept) {
    struct Row {
        CVKeptReason reason;
        const char* text;
    };
    for (const auto& [reason, text] : {Row{CVKeptReason::Unreadable, "could not be read"},
                                       Row{CVKeptReason::ChangedOutside, "changed outside Corvella"},
                                       Row{CVKeptReason::AsItWasRead, "as it was read"},
                                       Row{CVKeptReason::ReplacedWhenMoved, "replaced when the data file moved"}}) {
        CVListedVersion copy = version("copy", std::nullopt);
        copy.copyReason = reason;
        mModel.setVersions({copy}, 10);
        EXPECT_EQ(cell(1, VersionColumn::Kept), text);
    }
    mModel.setFindings({.path = "copy", .problem = "there is not enough memory"});
    EXPECT_EQ(cell(1, VersionColumn::Differences), "cannot be read: there is not enough memory");
    EXPECT_EQ(cell(1, VersionColumn::Transactions), "");
}

TEST_F(CVVersionTableModelTest, WhatIsKnownStaysWhenAnotherVersionIsKept) {
    mModel.setVersions({version("a", CVVersionReason::Removal)}, 10);
    mModel.setFindings({.path = "a", .transactions = 9});
    mModel.setFindings({.path = "gone", .transactions = 7});
    mModel.setVersions({version("b", CVVersionReason::Hourly), version("a", CVVersionReason::Removal)}, 11);
    EXPECT_EQ(cell(1, VersionColumn::Transactions), "");
    EXPECT_EQ(cell(2, VersionColumn::Transactions), "9");
    EXPECT_EQ(mModel.rowOf("a"), 2);
    EXPECT_EQ(mModel.rowOf("gone"), 0);
    mModel.setVersions({}, 11);
    EXPECT_EQ(mModel.rowCount(), 1);
}

} // namespace
