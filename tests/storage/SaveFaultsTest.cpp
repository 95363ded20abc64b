#include "storage/LogCapture.h"
#include "storage/SaveScenario.h"
#include "versions/CVVersionFolder.h"

#include <QFileInfo>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <map>
#include <ostream>
#include <set>

namespace {

using Before = SaveScenario::Before;
using FaultyCalls::Fault;
using FaultyCalls::Repeat;

/// Lets every call of a save fail once, at every repetition, and together with all later calls, for each possible
/// error; then every pair of writing calls. No data may be lost, no file may be incomplete, and no message may be
/// untrue.
struct FaultRow {
    const char* name;
    Before before;
    std::vector<FaultyCalls::Unsupported> unsupported = {};
};

void PrintTo(const FaultRow& row, std::ostream* out) {
    *out << row.name;
}

std::string nameOf(const testing::TestParamInfo<FaultRow>& row) {
    return row.param.name;
}

const char* wordFor(Repeat repeat) {
    switch (repeat) {
    case Repeat::Once:
        return "once";
    case Repeat::SameForEver:
        return "for ever";
    case Repeat::AllForEver:
        return "with everything after it";
    }
    return "";
}

class SaveFaults : public testing::TestWithParam<FaultRow> {
protected:
    SaveFaults() {
        // The thousands of saves go to memory where possible, to save time.
        if (QFileInfo(QStringLiteral("/dev/shm")).isWritable())
            qputenv("TMPDIR", "/dev/shm");
    }
    ~SaveFaults() override {
        mTemporary.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", mTemporary);
        ::umask(mUmask);
    }

    /// Runs one save with these faults, records what is broken afterwards, and returns the calls made.
    std::vector<FaultyCalls::Call> tryFaults(const std::vector<Fault>& faults) {
        SaveScenario scenario(GetParam().before);
        auto calls = scenario.save(faults, GetParam().unsupported).calls;
        ++mTried;
        scenario.wasSaved() ? ++mSaved : ++mRefused;
        QStringList faultsFound = scenario.broken();
        faultsFound += scenario.brokenAfterNextSave();
        for (const QString& broken : faultsFound)
            mFindings[broken.toStdString()].push_back(describe(faults, calls));
        return calls;
    }

    /// Lets each call of the table fail with each of its errors, for each duration.
    void tryEachCall(const FaultyCalls::Reasons& reasons) {
        const auto calls = tryFaults({});
        ASSERT_EQ(mSaved, 1) << "without any fault";
        for (std::size_t at = 0; at < calls.size(); ++at) {
            if (!reasons.contains(calls[at].name))
                continue;
            for (const int error : reasons.at(calls[at].name)) {
                for (const Repeat repeat : {Repeat::Once, Repeat::SameForEver, Repeat::AllForEver})
                    tryFaults({{at, error, repeat}});
            }
        }
    }

    [[nodiscard]] std::string describe(const std::vector<Fault>& faults,
                                       const std::vector<FaultyCalls::Call>& calls) const {
        std::string text;
        for (const Fault& fault : faults) {
            if (fault.at >= calls.size())
                continue;
            const std::string error = fault.error == FaultyCalls::kShort ? "short" : strerrorname_np(fault.error);
            text += (text.empty() ? "" : " and ") + std::string("call ") + std::to_string(fault.at) + ", " +
                    calls[fault.at].name + " of " + calls[fault.at].path.substr(calls[fault.at].path.rfind('/') + 1) +
                    ", " + error + ' ' + wordFor(fault.repeat);
        }
        return text;
    }

    void report(const char* what) {
        std::printf("%s, %s: %d fault points tried, %d saved all the same, %d refused\n", GetParam().name, what, mTried,
                    mSaved, mRefused);
        constexpr std::size_t kShown = 5;
        for (const auto& [broken, places] : mFindings) {
            std::string shown;
            for (std::size_t i = 0; i < std::min(places.size(), kShown); ++i)
                shown += "\n  " + places[i];
            ADD_FAILURE() << broken << " (" << places.size() << " times):" << shown;
        }
    }

    LogCapture mLog;
    QByteArray mTemporary = qgetenv("TMPDIR");
    /// The umask allows everything, so that only the program itself keeps new files private.
    mode_t mUmask = ::umask(0);
    int mTried = 0;
    int mSaved = 0;
    int mRefused = 0;
    std::map<std::string, std::vector<std::string>> mFindings;
};

TEST_P(SaveFaults, areMetAtEveryCallThatMatters) {
    SaveScenario scenario(GetParam().before);
    std::set<std::string> names;
    for (const auto& call : scenario.save({}, GetParam().unsupported).calls) {
        names.insert(call.name);
        EXPECT_TRUE(FaultyCalls::whyWorkFails().contains(call.name) || FaultyCalls::whyLooksFail().contains(call.name))
            << call.name;
    }
    for (const char* name : {"open", "write", "fsync", "close"})
        EXPECT_TRUE(names.contains(name)) << name;
    EXPECT_TRUE(names.contains("rename") || names.contains("renameat2"));
}

TEST_P(SaveFaults, ofOneCallThatWritesLoseNothingAndAreTold) {
    tryEachCall(FaultyCalls::whyWorkFails());
    report("one that writes");
}

TEST_P(SaveFaults, ofOneCallThatLooksLoseNothingAndAreTold) {
    tryEachCall(FaultyCalls::whyLooksFail());
    report("one that looks");
}

TEST_P(SaveFaults, ofTwoCallsThatWriteLoseNothingAndAreTold) {
    const auto calls = tryFaults({});
    for (std::size_t first = 0; first < calls.size(); ++first) {
        if (!FaultyCalls::whyWorkFails().contains(calls[first].name))
            continue;
        const Fault fault{first, FaultyCalls::whyWorkFails().at(calls[first].name).front(), Repeat::Once};
        const auto later = tryFaults({fault});
        for (std::size_t second = first + 1; second < later.size(); ++second) {
            if (!FaultyCalls::whyWorkFails().contains(later[second].name))
                continue;
            for (const int error : FaultyCalls::whyWorkFails().at(later[second].name))
                tryFaults({fault, {second, error, Repeat::Once}});
        }
    }
    report("two that write");
}

TEST(SaveFaultsOfAFullDisk, AreToldAsSuchAndOthersWithTheirReason) {
    const auto calls = SaveScenario(Before::Good).save().calls;
    int tried = 0;
    for (std::size_t at = 0; at < calls.size(); ++at) {
        // What follows concerns the version, no longer the budget.
        if (calls[at].path.ends_with("Earlier Versions"))
            break;
        if (calls[at].name != "write" && calls[at].name != "fsync")
            continue;
        for (const int error : {ENOSPC, EIO, EDQUOT}) {
            SaveScenario scenario(Before::Good);
            scenario.save({{at, error, Repeat::SameForEver}});
            ASSERT_FALSE(scenario.wasSaved());
            EXPECT_EQ(scenario.outcome().diskIsFull, error == ENOSPC);
            EXPECT_TRUE(scenario.outcome().isThere);
            EXPECT_FALSE(scenario.outcome().canMakeRoom) << "there is nothing to delete";
            EXPECT_TRUE(scenario.outcome().message.contains(qt_error_string(error)))
                << scenario.outcome().message.toStdString();
            ++tried;
        }
    }
    EXPECT_GE(tried, 6);
}

TEST(SaveFaultsOfAFullDisk, SayWhetherDeletingVersionsMakesRoom) {
    const auto keepVersion = [](const SaveScenario& scenario) {
        EXPECT_TRUE(CVVersionFolder(scenario.path())
                        .keepCopy(scenario.path(), CVVersionReason::Removal, QDateTime::currentDateTime())
                        .ok());
    };
    SaveScenario complete(Before::Good);
    keepVersion(complete);
    const auto calls = complete.save().calls;
    const auto writing =
        std::find_if(calls.begin(), calls.end(), [](const auto& call) { return call.name == "write"; });
    ASSERT_NE(writing, calls.end());
    const auto at = static_cast<std::size_t>(writing - calls.begin());
    for (const int error : {ENOSPC, EIO}) {
        SaveScenario scenario(Before::Good);
        keepVersion(scenario);
        scenario.save({{at, error, Repeat::SameForEver}});
        ASSERT_FALSE(scenario.wasSaved());
        EXPECT_EQ(scenario.outcome().canMakeRoom, error == ENOSPC);
    }
}

/// Simpler file systems: shares that cannot exchange names, and sticks without hard links either.
const std::vector<FaultyCalls::Unsupported> kNoExchange{{"renameat2", EINVAL}};
const std::vector<FaultyCalls::Unsupported> kForbiddenExchange{{"renameat2", EPERM}};
const std::vector<FaultyCalls::Unsupported> kNoLinks{{"renameat2", EINVAL}, {"link", EPERM}};

const FaultRow kFaults[]{
    {"overAGoodFile", Before::Good},
    {"overAGoodFileOnAShare", Before::Good, kNoExchange},
    {"overAGoodFileOnAStick", Before::Good, kNoLinks},
    {"overALinkedFile", Before::Linked},
    {"overALinkedFileInASandbox", Before::Linked, kForbiddenExchange},
    {"overAnUnreadableFile", Before::Unreadable},
    {"overAnUnreadableFileOnAStick", Before::Unreadable, kNoLinks},
    {"overAnothersChange", Before::Changed},
    {"overAnothersChangeOnAStick", Before::Changed, kNoLinks},
    {"overAFolder", Before::Folder},
    {"overAFolderOnAShare", Before::Folder, kNoExchange},
    {"withoutAFile", Before::Absent},
    {"withoutAFileOnAStick", Before::Absent, kNoLinks},
};

INSTANTIATE_TEST_SUITE_P(all, SaveFaults, testing::ValuesIn(kFaults), nameOf);

} // namespace
