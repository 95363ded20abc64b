#include "HistoryFaultsFixture.h"
#include "kit/ThreadChecker.h"
#include "storage/CVRecoverInterruptedSaves.h"

#include <cstdio>
#include <ostream>

namespace {

using FaultyCalls::Fault;

/// Lets every call fail of what changes the budget, and kills the program at every call that changes the disk.
struct HistoryFaultRow {
    const char* name;
    bool (HistoryFaultsFixture::*act)();
    int megabytesOfVersions = kCVUsualVersionMegabytes;
};

void PrintTo(const HistoryFaultRow& row, std::ostream* out) {
    *out << row.name;
}

std::string nameOfHistoryRow(const testing::TestParamInfo<HistoryFaultRow>& row) {
    return row.param.name;
}

class HistoryFaults : public HistoryFaultsFixture, public testing::WithParamInterface<HistoryFaultRow> {
protected:
    struct Attempt {
        bool isDone = false;
        CVSaveOutcome outcome;
        FaultyCalls::Record record;
    };

    Attempt attempt(const std::vector<Fault>& faults) {
        prepare();
        startAnew(GetParam().megabytesOfVersions);
        mAlerts = {};
        FaultyCalls::arm(folder(), faults);
        Attempt attempt;
        attempt.isDone = (this->*GetParam().act)();
        attempt.outcome = mDelegate->saves().waitForFinished();
        attempt.record = FaultyCalls::disarm();
        return attempt;
    }
    void end() { mDelegate.reset(); }
};

TEST_P(HistoryFaults, LoseNothingAndAreTold) {
    const Attempt whole = attempt({});
    ASSERT_TRUE(whole.isDone && whole.outcome.saved);
    const QByteArray wanted = readFile(mDataFile);
    ASSERT_NE(wanted, mPresentBytes);
    ASSERT_TRUE(isVersion(mPresentBytes));
    end();
    int tried = 0;
    int done = 0;
    forEachFault(whole.record.calls, [&](const Fault& fault, const std::string& what) {
        const Attempt attempt = this->attempt({fault});
        ++tried;
        expectNothingLost(wanted, what);
        const bool isSaved = attempt.isDone && attempt.outcome.saved;
        done += isSaved ? 1 : 0;
        if (isSaved) {
            EXPECT_EQ(readFile(mDataFile), wanted) << "told as done: " << what;
            // What cannot be examined counts as another program's.
            const bool isKept = isVersion(mPresentBytes) || readFile(attempt.outcome.keptCopy) == mPresentBytes;
            EXPECT_TRUE(isKept || !attempt.outcome.versionTrouble.isEmpty()) << "no version and not told: " << what;
        } else {
            EXPECT_TRUE(!mAlerts.shown().isEmpty() || !attempt.outcome.message.isEmpty()) << "not told: " << what;
        }
        end();
    });
    std::printf("%s: %d fault points, %d done all the same\n", GetParam().name, tried, done);
    EXPECT_GT(tried, 30);
}

TEST_P(HistoryFaults, OfAKilledProgramLoseNothing) {
    if (kThreadsAreChecked)
        GTEST_SKIP() << "the thread checker starts no thread in a program that was forked";
    const Attempt whole = attempt({});
    const QByteArray wanted = readFile(mDataFile);
    end();
    int kills = 0;
    for (const std::size_t at : callsToKillAt(whole.record.calls)) {
        kills += isKilled([this, at] { (void)attempt({{at, FaultyCalls::kKilled}}); }) ? 1 : 0;
        const std::string what = "killed before call " + std::to_string(at);
        expectNothingLost(wanted, what);
        EXPECT_TRUE(CVRecoverInterruptedSaves(mDataFile).ok());
        expectNothingLost(wanted, "the next start, " + what);
    }
    std::printf("%s: killed %d times\n", GetParam().name, kills);
    EXPECT_GT(kills, 10);
}

const HistoryFaultRow kHistoryRows[]{
    {"returning", &HistoryFaultsFixture::returnToVersion},
    {"returningWhereNoVersionsAreWanted", &HistoryFaultsFixture::returnToVersion, 0},
    {"bringingBack", &HistoryFaultsFixture::bringBack},
};

INSTANTIATE_TEST_SUITE_P(all, HistoryFaults, testing::ValuesIn(kHistoryRows), nameOfHistoryRow);

} // namespace
