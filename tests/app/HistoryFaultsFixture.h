#pragma once

#include "ShellFixture.h"
#include "app/CVHistoryOperations.h"
#include "differences/CVBudgetDifferences.h"
#include "files/CVTemporaryFile.h"
#include "model/CVDetachedDocument.h"
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
#include <cstring>
#include <functional>
#include <memory>
#include <set>

/// A budget with an earlier version, and what the user does with both.
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

inline std::string describe(const FaultyCalls::Call& call, int error, std::size_t at) {
    const std::string reason = error == FaultyCalls::kShort ? "short" : strerrorname_np(error);
    return "call " + std::to_string(at) + ", " + call.name + " of " + call.path + ", " + reason;
}

/// Calls `attempt` for each call: with one of its errors once, and with all later calls failing too. The calls take
/// turns with their errors, because all of them take a minute; with CORVELLA_ALL_FAULTS set each call has all its
/// errors.
inline void forEachFault(const std::vector<FaultyCalls::Call>& calls,
                         const std::function<void(const FaultyCalls::Fault& fault, const std::string& what)>& attempt) {
    const bool all = qEnvironmentVariableIsSet("CORVELLA_ALL_FAULTS");
    for (std::size_t at = 0; at < calls.size(); ++at) {
        for (const auto& reasons : {FaultyCalls::whyWorkFails(), FaultyCalls::whyLooksFail()}) {
            if (!reasons.contains(calls[at].name))
                continue;
            const std::vector<int>& errors = reasons.at(calls[at].name);
            for (std::size_t which = 0; which < errors.size(); ++which) {
                if (all || which == at % errors.size())
                    attempt({at, errors[which], FaultyCalls::Repeat::Once}, describe(calls[at], errors[which], at));
            }
            attempt({at, errors.front(), FaultyCalls::Repeat::AllForEver},
                    describe(calls[at], errors.front(), at) + ", with all after it");
        }
    }
}

/// The numbers of the calls before which the disk differs from what it was at the one before, and one after the last.
inline std::vector<std::size_t> callsToKillAt(const std::vector<FaultyCalls::Call>& calls) {
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
inline bool isKilled(const std::function<void()>& act) {
    const pid_t child = ::fork();
    if (child == 0) {
        act();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}
