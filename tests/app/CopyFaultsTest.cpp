#include "HistoryFaultsFixture.h"

#include <cstdio>
#include <ostream>

namespace {

using FaultyCalls::Fault;

/// Lets every call fail of saving a copy, which changes nothing else, and kills the program likewise.
struct CopyFaultRow {
    const char* name;
    bool (HistoryFaultsFixture::*act)();
    /// What stands at the target before; null for nothing.
    QByteArray former = {};
};

void PrintTo(const CopyFaultRow& row, std::ostream* out) {
    *out << row.name;
}

class CopyFaults : public HistoryFaultsFixture, public testing::WithParamInterface<CopyFaultRow> {
protected:
    void prepareTarget() {
        ASSERT_TRUE(QDir(QFileInfo(mTarget).path()).removeRecursively());
        QDir().mkpath(QFileInfo(mTarget).path());
        if (!GetParam().former.isNull())
            writeFile(mTarget, GetParam().former);
    }
    bool attempt(const std::vector<Fault>& faults, FaultyCalls::Record* record = nullptr) {
        prepareTarget();
        mAlerts = {};
        FaultyCalls::arm(folder(), faults);
        const bool isDone = (this->*GetParam().act)();
        FaultyCalls::Record calls = FaultyCalls::disarm();
        if (record)
            *record = std::move(calls);
        return isDone;
    }
    [[nodiscard]] QByteArray source() const {
        return GetParam().act == &HistoryFaultsFixture::copyVersion ? mVersionBytes : mPresentBytes;
    }
    void expectWholeCopy(const std::string& what) const {
        const QByteArray copy = readFile(mTarget);
        EXPECT_TRUE(copy == GetParam().former || copy == source()) << "neither the old nor the new one: " << what;
        EXPECT_EQ(readFile(mDataFile), mPresentBytes) << what;
        EXPECT_EQ(readFile(mVersion), mVersionBytes) << what;
    }
};

TEST_P(CopyFaults, LeaveTheOldOrTheNewOneAndAreTold) {
    prepare();
    startAnew();
    FaultyCalls::Record whole;
    ASSERT_TRUE(attempt({}, &whole));
    ASSERT_EQ(readFile(mTarget), source());
    int tried = 0;
    int done = 0;
    forEachFault(whole.calls, [&](const Fault& fault, const std::string& what) {
        FaultyCalls::Record record;
        const bool isDone = attempt({fault}, &record);
        ++tried;
        done += isDone ? 1 : 0;
        expectWholeCopy(what);
        if (isDone) {
            EXPECT_EQ(readFile(mTarget), source()) << "told as done: " << what;
        } else {
            EXPECT_EQ(titles(), QStringList{"The copy was not saved"}) << what;
        }
        if (!record.failed("unlink")) {
            EXPECT_LE(namesIn(QFileInfo(mTarget).path()).size(), 1) << "something is left: " << what;
        }
    });
    std::printf("%s: %d fault points, %d done all the same\n", GetParam().name, tried, done);
    EXPECT_GT(tried, 30);
    quit();
}

TEST_P(CopyFaults, OfAKilledProgramLeaveTheOldOrTheNewOne) {
    prepare();
    startAnew();
    FaultyCalls::Record whole;
    ASSERT_TRUE(attempt({}, &whole));
    int kills = 0;
    for (const std::size_t at : callsToKillAt(whole.calls)) {
        kills += isKilled([this, at] { (void)attempt({{at, FaultyCalls::kKilled}}); }) ? 1 : 0;
        expectWholeCopy("killed before call " + std::to_string(at));
    }
    std::printf("%s: killed %d times\n", GetParam().name, kills);
    EXPECT_GT(kills, 5);
    quit();
}

const CopyFaultRow kCopyRows[]{
    {"ofAVersion", &HistoryFaultsFixture::copyVersion},
    {"ofAVersionOverAFile", &HistoryFaultsFixture::copyVersion, "an older copy"},
    {"ofTheBudget", &HistoryFaultsFixture::copyBudget},
    {"ofTheBudgetOverAFile", &HistoryFaultsFixture::copyBudget, "an older copy"},
};

INSTANTIATE_TEST_SUITE_P(all, CopyFaults, testing::ValuesIn(kCopyRows),
                         [](const testing::TestParamInfo<CopyFaultRow>& row) { return std::string(row.param.name); });

} // namespace
