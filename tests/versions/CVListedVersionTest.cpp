#include "versions/CVListedVersion.h"

#include "history/HistoryFixture.h"

namespace {

class CVListedVersionTest : public HistoryFixture {};

TEST_F(CVListedVersionTest, VersionsAndKeptCopiesAreListedTogetherNewestFirst) {
    const QString old = keepWith(1, CVVersionReason::FirstOfDay, at(5, 9));
    const QString copy = mHome.path("Corvella Data (unreadable 2014-03-06 101500).corvella");
    write(copy, "x");
    const QString secondCopy = mHome.path("Corvella Data (unreadable 2014-03-06 101500 2).corvella");
    write(secondCopy, "x");
    const QString recent = keepWith(2, CVVersionReason::Removal, at(7, 14, 2));
    write(mHome.path("Other (unreadable 2014-03-06 101500).corvella"), "x");
    const auto listed = CVListedVersion::of(mDataFile);
    ASSERT_EQ(listed.size(), 4);
    EXPECT_EQ(listed[0], (CVListedVersion{recent, at(7, 14, 2), CVVersionReason::Removal}));
    for (const auto& kept : {listed[1], listed[2]}) {
        EXPECT_EQ(kept.kept, at(6, 10, 15)) << kept.path.toStdString();
        EXPECT_EQ(kept.reason, std::nullopt);
    }
    EXPECT_EQ((QStringList{listed[1].path, listed[2].path}), (QStringList{copy, secondCopy}));
    EXPECT_EQ(listed[3], (CVListedVersion{old, at(5, 9), CVVersionReason::FirstOfDay}));
}

TEST_F(CVListedVersionTest, WithoutADataFileThereAreNone) {
    EXPECT_TRUE(CVListedVersion::of({}).isEmpty());
    EXPECT_TRUE(CVListedVersion::of(mDataFile).isEmpty());
}

} // namespace
