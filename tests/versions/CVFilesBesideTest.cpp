#include "versions/CVFilesBeside.h"

#include "history/HistoryFixture.h"

namespace {

class CVFilesBesideTest : public HistoryFixture {
protected:
    [[nodiscard]] CVFilesBeside now() const { return CVFilesBeside::of(mDataFile); }
};

TEST_F(CVFilesBesideTest, AreThoseThatConcernTheDataFileAndNoOthers) {
    EXPECT_EQ(now(), (CVFilesBeside{.dataFile = mDataFile}));
    const QString copy = mHome.path("Corvella Data (conflicted copy 2014-03-06).corvella");
    const QString outside = mHome.path("Corvella Data (changed outside 2014-03-06 101500).corvella");
    write(copy, "x");
    write(outside, "x");
    write(mHome.path("Corvella Data (unreadable 2014-03-06 101500).corvella"), "x");
    write(mHome.path("Other (conflicted copy 2014-03-06).corvella"), "x");
    ASSERT_EQ(now().conflictCopies.size(), 1);
    EXPECT_EQ(now().conflictCopies[0].path, copy);
    EXPECT_EQ(now().changedOutside, QStringList(outside));
    EXPECT_TRUE(now().hasEarlier);
    EXPECT_EQ(now(), now());
}

TEST_F(CVFilesBesideTest, AreOthersWhenACopyIsWrittenAnew) {
    const QString copy = mHome.path("Corvella Data (conflicted copy 2014-03-06).corvella");
    write(copy, "x");
    const CVFilesBeside before = now();
    write(copy, "longer");
    EXPECT_NE(now(), before);
}

TEST_F(CVFilesBesideTest, CountVersionsAsEarlierOnes) {
    EXPECT_FALSE(now().hasEarlier);
    keepWith(1, CVVersionReason::Removal, at(7, 14, 2));
    EXPECT_TRUE(now().hasEarlier);
}

} // namespace
