#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "kit/BudgetBuilder.h"
#include "kit/ScratchHome.h"
#include "storage/CVCommonState.h"
#include "storage/CVDocumentFile.h"
#include "storage/CVDocumentXML.h"
#include "storage/CVRecoverInterruptedSaves.h"
#include "storage/CVSavedFile.h"
#include "storage/FaultyCalls.h"
#include "storage/LogCapture.h"
#include "storage/SampleFile.h"
#include "storage/ScratchFiles.h"
#include "versions/CVVersionFolder.h"

#include <QFile>
#include <QSysInfo>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <functional>
#include <memory>
#include <thread>

namespace {

using FaultyCalls::Repeat;

/// What is read while the disk fails, or while another program writes.
class ReadFaults : public testing::Test {
protected:
    ReadFaults() { writeFile(mPath, mBytes); }
    ~ReadFaults() override { FaultyCalls::disarm(); }

    /// Changes the file when `act` is about to read it for the first time, on a thread of its own.
    void changeDuring(const std::function<void()>& act, const std::function<void()>& change) const {
        FaultyCalls::arm(mHome.path(), {});
        auto gate = std::make_unique<FaultyCalls::Gate>("read");
        std::thread thread(act);
        FaultyCalls::Gate::waitForArrival();
        change();
        gate.reset();
        thread.join();
        FaultyCalls::disarm();
    }
    void append(const QByteArray& bytes) const {
        QFile file(mPath);
        ASSERT_TRUE(file.open(QIODevice::Append) && file.write(bytes) == bytes.size());
    }
    /// A file of a save that was killed.
    [[nodiscard]] QString leftover(const QString& dataFile, const QByteArray& bytes) const {
        const pid_t ended = ::fork();
        if (ended == 0)
            ::_exit(0);
        ::waitpid(ended, nullptr, 0);
        const QFileInfo file(dataFile);
        QString path = QStringLiteral("%1/.%2.saving-%3-%4-abcdef")
                           .arg(file.absolutePath(), file.fileName(), QSysInfo::machineHostName())
                           .arg(ended);
        writeFile(path, bytes);
        return path;
    }

    ScratchHome mHome;
    QString mPath = mHome.path(QStringLiteral("Data.corvella"));
    QByteArray mBytes = sampleFile();
    LogCapture mLog;
};

TEST_F(ReadFaults, LeaveNoCommonState) {
    const CVFileSignature signature = *CVFileSignature::of(mPath);
    FaultyCalls::arm(mHome.path(), {});
    ASSERT_TRUE(CVCommonState::ofFile(mPath, signature));
    const auto calls = FaultyCalls::disarm().calls;
    int absent = 0;
    for (std::size_t at = 0; at < calls.size(); ++at) {
        if (calls[at].name != "open" && calls[at].name != "read" && calls[at].name != "fstat")
            continue;
        FaultyCalls::arm(mHome.path(), {{at, EIO, Repeat::Once}});
        const auto state = CVCommonState::ofFile(mPath, signature);
        FaultyCalls::disarm();
        // A failure behind the last byte is none.
        EXPECT_TRUE(!state || state->text().joined() == mBytes) << calls[at].name;
        absent += state ? 0 : 1;
    }
    EXPECT_GE(absent, 3) << "opening, reading and looking at it";
}

TEST_F(ReadFaults, OfAFileThatGrowsMeanwhileLeaveNoCommonState) {
    const CVFileSignature signature = *CVFileSignature::of(mPath);
    std::optional<CVCommonState> state;
    changeDuring([&] { state = CVCommonState::ofFile(mPath, signature); }, [this] { append("more"); });
    EXPECT_FALSE(state);
}

TEST_F(ReadFaults, OfAFileThatIsChangedMeanwhileLeaveNoCommonState) {
    const CVFileSignature signature = *CVFileSignature::of(mPath);
    std::optional<CVCommonState> state;
    changeDuring([&] { state = CVCommonState::ofFile(mPath, signature); },
                 [this] {
                     QFile file(mPath);
                     ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.write("!") == 1);
                 });
    EXPECT_FALSE(state);
}

TEST_F(ReadFaults, OfAFileThatGrowsWhileItIsComparedSayThatItIsAnother) {
    const CVCommonState state(textOf(mBytes));
    ASSERT_TRUE(state.isIn(mPath));
    bool isIn = true;
    changeDuring([&] { isIn = state.isIn(mPath); }, [this] { append("more"); });
    EXPECT_FALSE(isIn);
}

TEST_F(ReadFaults, OfALookAtAChangedFileTellIt) {
    CVSavedFile file(mPath);
    file.markAsRead(*CVFileSignature::of(mPath));
    EXPECT_FALSE(file.look());
    writeFile(mPath, sampleFile().replace("Market", "Bakery"));
    FaultyCalls::arm(mHome.path(), {});
    ASSERT_EQ(file.look()->kind, CVOutsideChange::Kind::Changed);
    const auto calls = FaultyCalls::disarm().calls;
    int tried = 0;
    for (std::size_t at = 0; at < calls.size(); ++at) {
        if (!FaultyCalls::whyLooksFail().contains(calls[at].name) && calls[at].name != "read" &&
            calls[at].name != "open")
            continue;
        writeFile(mPath, sampleFile());
        CVSavedFile watched(mPath);
        watched.markAsRead(*CVFileSignature::of(mPath));
        EXPECT_FALSE(watched.look());
        writeFile(mPath, sampleFile().replace("Market", "Bakery"));
        FaultyCalls::arm(mHome.path(), {{at, EIO, Repeat::Once}});
        auto change = watched.look();
        FaultyCalls::disarm();
        if (change && change->kind != CVOutsideChange::Kind::Changed) {
            EXPECT_FALSE(change->reason.isEmpty()) << calls[at].name;
        }
        // What failed once is found at a later look, or told.
        if (!change)
            change = watched.look();
        ASSERT_TRUE(change) << calls[at].name << ' ' << at;
        EXPECT_TRUE(change->kind == CVOutsideChange::Kind::Changed || !change->reason.isEmpty()) << calls[at].name;
        ++tried;
    }
    EXPECT_GT(tried, 5);
}

TEST_F(ReadFaults, OfALeftoverRemoveNothingOfAnybodyElses) {
    const QByteArray others = "<html>" + QByteArray(64, ' ') + "</html>";
    const QString path = leftover(mPath, others);
    FaultyCalls::arm(mHome.path(), {});
    EXPECT_TRUE(CVRecoverInterruptedSaves(mPath).ok());
    const auto calls = FaultyCalls::disarm().calls;
    int tried = 0;
    for (std::size_t at = 0; at < calls.size(); ++at) {
        for (const Repeat repeat : {Repeat::Once, Repeat::SameForEver, Repeat::AllForEver}) {
            FaultyCalls::arm(mHome.path(), {{at, EIO, repeat}});
            (void)CVRecoverInterruptedSaves(mPath);
            FaultyCalls::disarm();
            ASSERT_EQ(readFile(path), others) << calls[at].name << ' ' << at;
            ++tried;
        }
    }
    EXPECT_GT(tried, 10);
}

TEST_F(ReadFaults, OfAWholeLeftoverLoseNothing) {
    (void)leftover(mPath, mBytes);
    FaultyCalls::arm(mHome.path(), {});
    EXPECT_TRUE(CVRecoverInterruptedSaves(mPath).ok());
    const auto calls = FaultyCalls::disarm().calls;
    for (std::size_t at = 0; at < calls.size(); ++at) {
        ScratchHome home;
        const QString dataFile = home.path(QStringLiteral("Data.corvella"));
        writeFile(dataFile, "another state");
        const QString path = leftover(dataFile, mBytes);
        FaultyCalls::arm(home.path(), {{at, EIO, Repeat::Once}});
        (void)CVRecoverInterruptedSaves(dataFile);
        FaultyCalls::disarm();
        const QList<CVVersion> versions = CVVersionFolder(dataFile).versions();
        const bool isVersion = !versions.isEmpty() && readFile(versions[0].path) == mBytes;
        EXPECT_TRUE(isVersion || readFile(path) == mBytes) << calls[at].name << ' ' << at;
    }
}

TEST_F(ReadFaults, OfCleaningUpAreToldAlsoWhereTheNextFileWorks) {
    // The stored location, whose file is away, and the one that is found instead.
    const QString stored = mHome.path(QStringLiteral("Stick/Mine.corvella"));
    const QString found = mHome.folders().documents + "/Quenby Labs/Corvella/Corvella Data.corvella";
    writeFile(found, mBytes);
    mHome.userDefaults().setString(CVDefaultsKeys::kDataFileLocation, stored);
    const QString first = leftover(stored, "<?xml");
    const QString second = leftover(found, "<?xml");
    const CVDocumentFile file(mHome.folders(), mHome.userDefaults());
    ASSERT_EQ(file.dataFiles(), (QStringList{stored, found}));
    FaultyCalls::arm(mHome.path(QStringLiteral("Stick")), {}, {{"unlink", EROFS}});
    EXPECT_EQ(file.recoverInterruptedSaves().error, qt_error_string(EROFS));
    FaultyCalls::disarm();
    EXPECT_TRUE(QFile::exists(first));
    EXPECT_FALSE(QFile::exists(second));
}

} // namespace
