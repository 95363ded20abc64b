#include "files/CVTemporaryFile.h"
#include "kit/ScratchHome.h"
#include "storage/FaultyCalls.h"
#include "storage/ScratchFiles.h"
#include "versions/CVVersionFolder.h"

#include <QDirIterator>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <functional>
#include <ostream>
#include <set>

namespace {

using FaultyCalls::Repeat;

const QDateTime kTime(QDate(2026, 11, 22), QTime(14, 0));
constexpr qint64 kRoom = 1'000'000'000;
constexpr qsizetype kSize = 200'000;

/// Contents that differ and need several writes.
QByteArray content(const char* name) {
    return QByteArray(name) + '\n' + QByteArray(kSize, 'x');
}

/// A data file with three versions, another place, and what a save has left.
struct Surroundings {
    explicit Surroundings(const QString& folder) : root(folder) {}

    void prepare() const {
        writeFile(path, content("present"));
        writeFile(other, content("other present"));
        for (const auto& [name, days] : {std::pair("a", 3), {"b", 2}, {"c", 0}}) {
            writeFile(former, content(name));
            (void)versions.keep(former, CVVersionReason::Hourly, kTime.addDays(-days));
        }
        writeFile(former, content("former"));
        writeFile(CVVersionFolder(other).path() + "/" + QStringLiteral("Data 2026-11-22 140000 (hourly).corvella"),
                  content("other version"));
    }

    /// All that is there, by content; a file that is not whole counts as one of its own.
    [[nodiscard]] std::multiset<std::string> contents() const {
        std::multiset<std::string> contents;
        QDirIterator files(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QByteArray bytes = readFile(files.next());
            const bool isWhole = bytes.size() == bytes.indexOf('\n') + 1 + kSize;
            contents.insert(isWhole ? bytes.left(bytes.indexOf('\n')).toStdString()
                                    : "cut " + files.fileName().toStdString());
        }
        return contents;
    }
    [[nodiscard]] bool holdsCutVersion() const {
        for (const CVVersionFolder& folder : {versions, CVVersionFolder(other)}) {
            for (const CVVersion& version : folder.versions()) {
                const QByteArray bytes = readFile(version.path);
                if (bytes.size() != bytes.indexOf('\n') + 1 + kSize)
                    return true;
            }
        }
        return false;
    }

    QString root;
    QString path = root + QStringLiteral("/Home/Data.corvella");
    QString other = root + QStringLiteral("/Other/Data.corvella");
    QString former = CVTemporaryFile::nameBeside(path);
    CVVersionFolder versions{path};
};

struct OperationRow {
    const char* name;
    std::function<CVFileResult(const Surroundings&)> run;
    /// What must be there whatever happens, and how many files there are where all went well.
    std::set<std::string> kept;
    std::size_t files;
    std::vector<FaultyCalls::Unsupported> unsupported = {};
};

void PrintTo(const OperationRow& row, std::ostream* out) {
    *out << row.name;
}

class VersionFaults : public testing::TestWithParam<OperationRow> {
protected:
    static void expectNothingLost(const Surroundings& surroundings, const std::string& what) {
        const auto contents = surroundings.contents();
        for (const std::string& content : GetParam().kept)
            EXPECT_TRUE(contents.contains(content)) << content << " is lost: " << what;
        EXPECT_FALSE(surroundings.holdsCutVersion()) << what;
    }

    /// Runs the operation with a fault and returns the calls made.
    FaultyCalls::Record run(const std::vector<FaultyCalls::Fault>& faults, const std::string& what) {
        const ScratchHome home;
        const Surroundings surroundings(home.path());
        surroundings.prepare();
        FaultyCalls::arm(home.path(), faults, GetParam().unsupported);
        const CVFileResult result = GetParam().run(surroundings);
        auto record = FaultyCalls::disarm();
        ++mTried;
        expectNothingLost(surroundings, what);
        const auto contents = surroundings.contents();
        // A temporary file that cannot be removed stays until the next start, and a version that cannot be examined
        // stays.
        const bool mayLeaveMore = record.failed("unlink") || record.failed("readlink") || record.failed("statx");
        if (result.ok() && !mayLeaveMore) {
            EXPECT_EQ(contents.size(), GetParam().files) << "told as done: " << what;
        }
        return record;
    }

    int mTried = 0;
};

TEST_P(VersionFaults, loseNothingAndAreTold) {
    const auto calls = run({}, "without any fault").calls;
    for (std::size_t at = 0; at < calls.size(); ++at) {
        for (const auto& reasons : {FaultyCalls::whyWorkFails(), FaultyCalls::whyLooksFail()}) {
            if (!reasons.contains(calls[at].name))
                continue;
            for (const int error : reasons.at(calls[at].name)) {
                for (const Repeat repeat : {Repeat::Once, Repeat::SameForEver, Repeat::AllForEver})
                    run({{at, error, repeat}}, calls[at].name + " of " + calls[at].path + ", error " +
                                                   std::to_string(error) + ", call " + std::to_string(at));
            }
        }
    }
    std::printf("%s: %d fault points\n", GetParam().name, mTried);
    EXPECT_GT(mTried, 10);
}

TEST_P(VersionFaults, ofAKilledProgramLoseNothing) {
    std::size_t kills = 0;
    for (;; ++kills) {
        const QTemporaryDir folder;
        const pid_t child = ::fork();
        if (child == 0) {
            const Surroundings surroundings(folder.path());
            surroundings.prepare();
            FaultyCalls::arm(folder.path(), {{kills, FaultyCalls::kKilled}}, GetParam().unsupported);
            (void)GetParam().run(surroundings);
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        if (!WIFSIGNALED(status))
            break;
        expectNothingLost(Surroundings(folder.path()), "killed before call " + std::to_string(kills));
    }
    std::printf("%s: killed at %zu calls\n", GetParam().name, kills);
    EXPECT_GT(kills, 3U);
}

const std::set<std::string> kAll{"present", "other present", "a", "b", "c", "former", "other version"};
const std::vector<FaultyCalls::Unsupported> kSimpleDisk{{"renameat2", EINVAL}, {"link", EPERM}};

CVFileResult keepOne(const Surroundings& surroundings) {
    return {surroundings.versions.keep(surroundings.former, CVVersionReason::Removal, kTime).error};
}

CVFileResult moveAll(const Surroundings& surroundings) {
    return surroundings.versions.moveTo(CVVersionFolder(surroundings.other));
}

CVFileResult recoverOne(const Surroundings& surroundings) {
    return surroundings.versions.recover([](const QString&) { return CVVersionFolder::Leftover::Whole; }, kTime);
}

const OperationRow kOperations[]{
    {"keeping", keepOne, kAll, 7},
    {"keepingOnASimpleDisk", keepOne, kAll, 7, kSimpleDisk},
    {"keepingACopy",
     [](const Surroundings& surroundings) -> CVFileResult {
         return {surroundings.versions.keepCopy(surroundings.path, CVVersionReason::Move, kTime).error};
     },
     kAll, 8},
    {"keepingAText",
     [](const Surroundings& surroundings) -> CVFileResult {
         const auto write = [](QIODevice& device) { return device.write(content("text")) > 0; };
         return {surroundings.versions.keepContent(write, CVVersionReason::TakingOver, kTime).error};
     },
     kAll, 8},
    {"thinning",
     [](const Surroundings& surroundings) { return surroundings.versions.thin(kTime, 2 * kSize + kSize / 2); },
     {"present", "other present", "b", "c", "former", "other version"},
     6},
    {"moving", moveAll, kAll, 7},
    {"movingToASimpleDisk", moveAll, kAll, 7, kSimpleDisk},
    {"recovering", recoverOne, kAll, 7},
    {"removing",
     [](const Surroundings& surroundings) { return surroundings.versions.removeAll(); },
     {"present", "other present", "former", "other version"},
     4},
};

INSTANTIATE_TEST_SUITE_P(all, VersionFaults, testing::ValuesIn(kOperations),
                         [](const testing::TestParamInfo<OperationRow>& row) { return std::string(row.param.name); });

} // namespace
