#include "versions/CVConflictCopies.h"

#include "kit/ScratchHome.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <ostream>

namespace {

struct ConflictNameRow {
    const char* name;
    bool isOne;
    const char* dataFile = "/home/anna/Corvella Data.corvella";
};

void PrintTo(const ConflictNameRow& row, std::ostream* out) {
    *out << row.name;
}

class ConflictNames : public testing::TestWithParam<ConflictNameRow> {};

TEST_P(ConflictNames, AreKnown) {
    EXPECT_EQ(CVConflictCopies::isNameOfOne(GetParam().name, GetParam().dataFile), GetParam().isOne);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ConflictNames,
    testing::Values(ConflictNameRow{"Corvella Data (Anna's conflicted copy 2026-11-22).corvella", true},
                    ConflictNameRow{"Corvella Data (Anna’s conflicted copy 22.11.2026).corvella", true},
                    ConflictNameRow{"Corvella Data (Zoë's Conflicted Copy 22. November 2026).corvella", true},
                    ConflictNameRow{"Corvella Data (conflicted copy 2026-11-22 101530).corvella", true},
                    ConflictNameRow{"Corvella Data (conflicted copy 2026-11-22 101530 2).corvella", true},
                    ConflictNameRow{"Corvella Data (Anna's conflicted copy 2026-11-22) (1).corvella", true},
                    ConflictNameRow{"Corvella Data (Anna's conflicted copy (2) 2026-11-22).CORVELLA", true},
                    ConflictNameRow{"Corvella Data.sync-conflict-20261122-101530-ABCDEFG.corvella", true},
                    ConflictNameRow{"corvella data.Sync-Conflict-20261122-101530.corvella", true},
                    ConflictNameRow{"budget.sync-conflict-20261122-101530-ABCDEFG", true, "/stick/budget"},
                    ConflictNameRow{"Corvella Data.corvella", false},
                    ConflictNameRow{"Corvella Data (unreadable 2026-11-22 101530).corvella", false},
                    ConflictNameRow{"Corvella Data (changed outside 2026-11-22 101530).corvella", false},
                    ConflictNameRow{
                        "Corvella Data (unreadable 2026-11-22 101530).sync-conflict-20261122-101530-A.corvella", false},
                    ConflictNameRow{".Corvella Data.corvella.saving-host-77-abcdef", false},
                    ConflictNameRow{"Corvella Data 2 (Anna's conflicted copy 2026-11-22).corvella", false},
                    ConflictNameRow{"Other (Anna's conflicted copy 2026-11-22).corvella", false},
                    ConflictNameRow{"Corvella Data (Anna's conflicted copy 2026-11-22).txt", false},
                    ConflictNameRow{"Corvella Data (without conflict).corvella", false},
                    ConflictNameRow{"Corvella Datasync-conflict.corvella", false}));

TEST(CVConflictCopiesTest, AreListedByNameBesideTheFileThatALinkLeadsTo) {
    const ScratchHome home;
    ASSERT_TRUE(QDir(home.path()).mkdir("share"));
    const auto make = [&home](const QString& name) {
        QFile file(home.path("share/" + name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    };
    make("Data.corvella");
    make("Data.sync-conflict-20261122-101530-ABCDEFG.corvella");
    make("Data (conflicted copy 2026-11-22 101530).corvella");
    make("Data (unreadable 2026-11-22 101530).corvella");
    ASSERT_TRUE(QDir(home.path("share")).mkdir("Data (conflicted copy 2026-11-22).corvella"));
    ASSERT_TRUE(QFile::link(home.path("share/Data.corvella"), home.path("Link.corvella")));
    EXPECT_EQ(CVConflictCopies::beside(home.path("Link.corvella")),
              (QStringList{home.path("share/Data (conflicted copy 2026-11-22 101530).corvella"),
                           home.path("share/Data.sync-conflict-20261122-101530-ABCDEFG.corvella")}));
    EXPECT_TRUE(CVConflictCopies::beside({}).isEmpty());
    EXPECT_TRUE(CVConflictCopies::beside(home.path("nowhere/Data.corvella")).isEmpty());
}

} // namespace
