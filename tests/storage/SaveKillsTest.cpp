#include "storage/CVRecoverInterruptedSaves.h"
#include "storage/SaveScenario.h"
#include "storage/ScratchFiles.h"
#include "versions/CVVersionFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <ostream>

namespace {

/// Kills a program at every call of a save, starts the next one, and looks for the budget, its former state and
/// leftovers.
struct KillRow {
    const char* name;
    SaveScenario::Before before;
    std::vector<FaultyCalls::Unsupported> unsupported = {};
};

void PrintTo(const KillRow& row, std::ostream* out) {
    *out << row.name;
}

class SaveKills : public testing::TestWithParam<KillRow> {
protected:
    /// Whether a program that saves in that folder was killed before its call of that number; false when it made fewer
    /// calls.
    [[nodiscard]] static bool runAndKill(const QString& folder, std::size_t at) {
        const pid_t child = ::fork();
        if (child == 0) {
            qputenv("TMPDIR", folder.toUtf8());
            SaveScenario scenario(GetParam().before);
            writeFile(folder + "/path", scenario.path().toUtf8());
            writeFile(folder + "/old", scenario.oldBytes());
            writeFile(folder + "/new", scenario.text());
            writeFile(folder + "/common", scenario.commonBytes());
            scenario.save({{at, FaultyCalls::kKilled}}, GetParam().unsupported);
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    }

    /// What is broken in the folder before and after the next start; empty when nothing is.
    [[nodiscard]] static QString broken(const QString& folder) {
        const QString path = QString::fromUtf8(readFile(folder + "/path"));
        const QByteArray former = readFile(folder + "/old");
        const QByteArray fresh = readFile(folder + "/new");
        const QByteArray common = readFile(folder + "/common");
        const bool isFolder = QFileInfo(path).isDir();
        const QByteArray present = readFile(path);
        const bool isUnreadable =
            GetParam().before == SaveScenario::Before::Unreadable || GetParam().before == SaveScenario::Before::Folder;
        if (present.isNull() ? !(isFolder || former.isEmpty() || isUnreadable) : present != former && present != fresh)
            return QStringLiteral("the file is neither the old nor the new one");
        if (const CVFileResult result = CVRecoverInterruptedSaves(path); !result.ok())
            return QStringLiteral("the next start cannot clean up: ") + result.error;
        if (readFile(path) != present)
            return QStringLiteral("the next start has changed the file");
        bool isThere = former.isEmpty() || present == former;
        for (const CVVersion& version : CVVersionFolder(path).versions()) {
            const QByteArray bytes = readFile(version.path);
            isThere = isThere || bytes == former;
            if (bytes != former && bytes != fresh && bytes != common)
                return QStringLiteral("a version is not whole");
        }
        const QString inside =
            GetParam().before == SaveScenario::Before::Folder ? QStringLiteral("/inside") : QString();
        for (const QString& name : namesIn(QFileInfo(path).path())) {
            isThere = isThere || readFile(QFileInfo(path).path() + u'/' + name + inside) == former;
            if (name.contains(QLatin1String(".saving-")))
                return QStringLiteral("the next start leaves ") + name;
        }
        return isThere ? QString() : QStringLiteral("the former file is lost");
    }
};

TEST_P(SaveKills, loseNothingAndLeaveNothingToTheNextStart) {
    std::size_t kills = 0;
    for (;; ++kills) {
        const QTemporaryDir folder;
        if (!runAndKill(folder.path(), kills))
            break;
        EXPECT_EQ(broken(folder.path()), QString()) << "killed before call " << kills;
    }
    std::printf("%s: killed at %zu calls\n", GetParam().name, kills);
    EXPECT_GT(kills, 10U);
}

const std::vector<FaultyCalls::Unsupported> kShare{{"renameat2", EINVAL}};
const std::vector<FaultyCalls::Unsupported> kStick{{"renameat2", EINVAL}, {"link", EPERM}};

const KillRow kKills[]{
    {"overAGoodFile", SaveScenario::Before::Good},
    {"overAGoodFileOnAShare", SaveScenario::Before::Good, kShare},
    {"overAGoodFileOnAStick", SaveScenario::Before::Good, kStick},
    {"overALinkedFile", SaveScenario::Before::Linked},
    {"overAnUnreadableFile", SaveScenario::Before::Unreadable},
    {"overAnUnreadableFileOnAStick", SaveScenario::Before::Unreadable, kStick},
    {"overAnothersChange", SaveScenario::Before::Changed},
    {"overAnothersChangeOnAStick", SaveScenario::Before::Changed, kStick},
    {"overAFolder", SaveScenario::Before::Folder},
    {"withoutAFile", SaveScenario::Before::Absent},
};

INSTANTIATE_TEST_SUITE_P(all, SaveKills, testing::ValuesIn(kKills),
                         [](const testing::TestParamInfo<KillRow>& row) { return std::string(row.param.name); });

} // namespace
