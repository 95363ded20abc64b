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
        EXPECT_EQ(kept.copyReason, CVKeptReason::Unreadable);
    }
    EXPECT_EQ((QStringList{listed[1].path, listed[2].path}), (QStringList{copy, secondCopy}));
    EXPECT_EQ(listed[3], (CVListedVersion{old, at(5, 9), CVVersionReason::FirstOfDay}));
}

TEST_F(CVListedVersionTest, AKeptCopySaysWhyItWasKept) {
    struct Row {
        const char* name;
        std::optional<CVKeptReason> reason;
    };
    for (const auto& [name, reason] :
         {Row{"Corvella Data (changed outside 2014-03-06 101500).corvella", CVKeptReason::ChangedOutside},
          Row{"Corvella Data (as it was read 2014-03-06 101500 12).corvella", CVKeptReason::AsItWasRead},
          Row{"Corvella Data (replaced when moved 2014-03-06 101500).corvella", CVKeptReason::ReplacedWhenMoved},
          Row{"Corvella Data (changed outside by me).corvella", std::nullopt},
          Row{"Corvella Data (as it was 2014-03-06 101500).corvella", std::nullopt},
          Row{"Corvella Data (as it was read 2014-03-06 101500).txt", std::nullopt}}) {
        write(mHome.path(name), "x");
        const auto listed = CVListedVersion::of(mDataFile);
        ASSERT_EQ(listed.size(), reason ? 1 : 0) << name;
        if (reason) {
            EXPECT_EQ(listed[0], (CVListedVersion{mHome.path(name), at(6, 10, 15), std::nullopt, reason})) << name;
        }
        ASSERT_TRUE(QFile::remove(mHome.path(name)));
    }
}

TEST_F(CVListedVersionTest, ThoseOfALinkedDataFileLieBesideTheFileItself) {
    const QString link = mHome.path("link");
    ASSERT_TRUE(QFile::link(mDataFile, link));
    write(mHome.path("Corvella Data (changed outside 2014-03-06 101500).corvella"), "x");
    ASSERT_EQ(CVListedVersion::of(link).size(), 1);
    EXPECT_EQ(CVListedVersion::of(link)[0].copyReason, CVKeptReason::ChangedOutside);
}

TEST_F(CVListedVersionTest, WithoutADataFileThereAreNone) {
    EXPECT_TRUE(CVListedVersion::of({}).isEmpty());
    EXPECT_TRUE(CVListedVersion::of(mDataFile).isEmpty());
}

} // namespace
