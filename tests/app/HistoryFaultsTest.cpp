#include "ShellFixture.h"
#include "app/CVHistoryOperations.h"
#include "differences/CVBudgetDifferences.h"
#include "files/CVTemporaryFile.h"
#include "model/CVDetachedDocument.h"
#include "storage/CVRecoverInterruptedSaves.h"
#include "storage/FaultyCalls.h"
#include "storage/ScratchFiles.h"
#include "versions/CVVersionFolder.h"
#include "versions/CVVersionLimit.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <ostream>
#include <set>

namespace {

using FaultyCalls::Fault;
using FaultyCalls::Repeat;

/// Lets every call of what the user does with an earlier version fail, and kills the program at every call.
class HistoryFaultsFixture : public ShellFixture {
public:
    /// What the user does; whether the program says that it is done.
    [[nodiscard]] bool returnToVersion() { return operations().returnTo(mVersion, window()); }
    [[nodiscard]] bool bringBack() {
        CVDocument& version = **mVersionBudget;
        return operations().bringBack(version, CVBudgetDifferences::since(version, document())) > 0;
    }
    [[nodiscard]] bool copyVersion() { return saveCopyOf(mVersion); }
    [[nodiscard]] bool copyBudget() { return saveCopyOf({}); }

protected:
    /// A budget with a purchase at the baker's, and a version with one at the market instead.
    void SetUp() override {
        ShellFixture::start();
        record(12, "Market", "Food");
        ASSERT_TRUE(mDelegate->saves().waitForFinished().saved);
        mDataFile = *defaults().stringForKey(CVDefaultsKeys::kDataFileLocation);
        mVersionBytes = readFile(mDataFile);
        document().removeTransaction(std::shared_ptr(document().transactions()[0]));
        record(13, "Baker", "Food");
        ASSERT_TRUE(mDelegate->saves().waitForFinished().saved);
        mPresentBytes = readFile(mDataFile);
        quit();
        mTarget = folder() + "/Copies/copy.corvella";
    }

    void prepare() {
        ASSERT_TRUE(QDir(folder()).removeRecursively());
        writeFile(mDataFile, mPresentBytes);
        QDir().mkpath(QFileInfo(mTarget).path());
        const QString former = CVTemporaryFile::nameBeside(mDataFile);
        writeFile(former, mVersionBytes);
        const auto kept =
            CVVersionFolder(mDataFile).keep(former, CVVersionReason::Hourly, QDateTime::currentDateTime().addDays(-2));
        ASSERT_TRUE(kept.ok());
        mVersion = kept.path;
        mVersionBudget = std::make_unique<CVDetachedDocument>();
        (void)CVDocumentReader().readFromURL(**mVersionBudget, mVersion);
    }
    /// Starts the program without what it asks and tells.
    void startAnew(int megabytesOfVersions = kCVUsualVersionMegabytes) {
        start();
        CVSetVersionLimit(defaults(), megabytesOfVersions);
        ASSERT_TRUE(mDelegate->saves().waitUntilIdle(std::chrono::seconds(10)));
    }

    [[nodiscard]] CVHistoryOperations& operations() const { return mDelegate->historyOperations(); }
    [[nodiscard]] QString folder() const { return QFileInfo(mDataFile).path(); }
    [[nodiscard]] bool saveCopyOf(const QString& path) {
        mPanels.answer(mTarget);
        return operations().saveCopy(path, window());
    }

    /// Whether some file beside the data file, whatever its name, holds these bytes.
    [[nodiscard]] bool isSomewhere(const QByteArray& bytes) const {
        QDirIterator files(folder(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString file = files.next();
            if (file != mTarget && readFile(file) == bytes)
                return true;
        }
        return false;
    }
    [[nodiscard]] bool isVersion(const QByteArray& bytes) const {
        for (const CVVersion& version : CVVersionFolder(mDataFile).versions()) {
            if (readFile(version.path) == bytes)
                return true;
        }
        return false;
    }
    void expectNothingLost(const QByteArray& wanted, const std::string& what) const {
        const QByteArray present = readFile(mDataFile);
        EXPECT_TRUE(present == mPresentBytes || present == wanted) << "the data file is not whole: " << what;
        EXPECT_TRUE(isSomewhere(mPresentBytes)) << "the present budget is lost: " << what;
        EXPECT_TRUE(isSomewhere(mVersionBytes)) << "the version is lost: " << what;
        for (const CVVersion& version : CVVersionFolder(mDataFile).versions()) {
            const QByteArray bytes = readFile(version.path);
            EXPECT_TRUE(bytes == mPresentBytes || bytes == mVersionBytes || bytes == wanted)
                << "a version is not whole: " << what;
        }
    }

    QString mDataFile;
    QString mVersion;
    QString mTarget;
    QByteArray mPresentBytes;
    QByteArray mVersionBytes;
    /// Read before anything fails, as the window does it.
    std::unique_ptr<CVDetachedDocument> mVersionBudget;
};

std::string describe(const FaultyCalls::Call& call, int error, std::size_t at) {
    const std::string reason = error == FaultyCalls::kShort ? "short" : strerrorname_np(error);
    return "call " + std::to_string(at) + ", " + call.name + " of " + call.path + ", " + reason;
}

/// Calls `attempt` for each call: with each of its errors once, and with all later calls failing too.
void forEachFault(const std::vector<FaultyCalls::Call>& calls,
                  const std::function<void(const Fault& fault, const std::string& what)>& attempt) {
    for (std::size_t at = 0; at < calls.size(); ++at) {
        for (const auto& reasons : {FaultyCalls::whyWorkFails(), FaultyCalls::whyLooksFail()}) {
            if (!reasons.contains(calls[at].name))
                continue;
            const std::vector<int>& errors = reasons.at(calls[at].name);
            for (const int error : errors)
                attempt({at, error, Repeat::Once}, describe(calls[at], error, at));
            attempt({at, errors.front(), Repeat::AllForEver},
                    describe(calls[at], errors.front(), at) + ", with all after it");
        }
    }
}

/// The numbers of the calls before which the disk differs from what it was at the one before, and one after the last.
std::vector<std::size_t> callsToKillAt(const std::vector<FaultyCalls::Call>& calls) {
    const std::set<std::string> changing{"open",   "write", "fsync", "rename", "renameat2", "link",
                                         "unlink", "mkdir", "rmdir", "chmod",  "futimens",  "ftruncate"};
    std::vector<std::size_t> numbers;
    for (std::size_t at = 0; at < calls.size(); ++at) {
        if (changing.contains(calls[at].name))
            numbers.push_back(at);
    }
    if (!numbers.empty())
        numbers.push_back(numbers.back() + 1);
    return numbers;
}

/// Whether `act`, in a process of its own, was killed.
bool isKilled(const std::function<void()>& act) {
    const pid_t child = ::fork();
    if (child == 0) {
        act();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

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

/// What changes the budget.
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

struct CopyFaultRow {
    const char* name;
    bool (HistoryFaultsFixture::*act)();
    /// What stands at the target before; null for nothing.
    QByteArray former = {};
};

void PrintTo(const CopyFaultRow& row, std::ostream* out) {
    *out << row.name;
}

/// What changes nothing but the copy.
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
