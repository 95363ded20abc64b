#include "files/CVWriteOutputFile.h"
#include "kit/ScratchHome.h"
#include "storage/FaultyCalls.h"
#include "storage/ScratchFiles.h"

#include <QDir>
#include <QIODevice>

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>

namespace {

using FaultyCalls::Fault;
using FaultyCalls::Repeat;

/// One attempt to write an output with these faults.
class Attempt final {
public:
    Attempt(const QByteArray& old, std::vector<Fault> faults, std::vector<FaultyCalls::Unsupported> unsupported)
        : mOld(old) {
        QDir().mkpath(mFolder);
        if (!mOld.isNull())
            writeFile(mPath, mOld);
        FaultyCalls::arm(mHome.path(), std::move(faults), std::move(unsupported));
        mFailure = CVWriteOutputFile(mPath, [](QIODevice& output) {
            // Writes like the PDF writer: in many pieces, without looking at the results.
            for (int i = 0; i < kPieces; ++i)
                output.write(piece());
            return true;
        });
        mRecord = FaultyCalls::disarm();
    }

    [[nodiscard]] const std::vector<FaultyCalls::Call>& calls() const { return mRecord.calls; }
    [[nodiscard]] bool succeeded() const { return !mFailure; }
    /// Says what is broken; empty when nothing is.
    [[nodiscard]] QString broken() const {
        const QByteArray bytes = readFile(mPath);
        const bool isNew = bytes == piece().repeated(kPieces);
        if (!isNew && !(bytes == mOld && bytes.isNull() == mOld.isNull()))
            return QStringLiteral("the file is neither the old nor the new one");
        if (succeeded() && !isNew)
            return QStringLiteral("success, it said, but the file is the old one");
        if (succeeded() && mRecord.failed("fsync"))
            return QStringLiteral("success, it said, but a sync failed");
        if (mFailure && (mFailure->isEmpty() || mFailure->contains(QLatin1String("Unknown error"))))
            return QStringLiteral("the reason is \"%1\"").arg(*mFailure);
        // A temporary file that cannot be removed stays.
        const qsizetype files = bytes.isNull() ? 0 : 1;
        if (!mRecord.failed("unlink") && namesIn(mFolder).size() != files)
            return QStringLiteral("a temporary file was left behind");
        return {};
    }

private:
    static constexpr int kPieces = 5;
    /// Larger than the sink's buffer, so that there are several writes.
    static QByteArray piece() { return QByteArray(40'000, 'n'); }

    ScratchHome mHome;
    QString mFolder = mHome.path(QStringLiteral("A Folder"));
    QString mPath = mFolder + QStringLiteral("/out.txt");
    QByteArray mOld;
    std::optional<QString> mFailure;
    FaultyCalls::Record mRecord;
};

/// Lets each call fail in three ways: once, at every call of the same name, and with all calls that follow (as when the
/// program is killed there or the disk is lost).
void tryEveryFault(const QByteArray& old, const std::vector<FaultyCalls::Unsupported>& unsupported) {
    const Attempt whole(old, {}, unsupported);
    ASSERT_TRUE(whole.succeeded());
    ASSERT_EQ(whole.broken(), QString());
    const auto& calls = whole.calls();
    ASSERT_GE(std::count_if(calls.begin(), calls.end(), [](const auto& call) { return call.name == "write"; }), 3);
    FaultyCalls::Reasons reasons = FaultyCalls::whyWorkFails();
    reasons.insert(FaultyCalls::whyLooksFail().begin(), FaultyCalls::whyLooksFail().end());
    int refused = 0;
    for (std::size_t at = 0; at < calls.size(); ++at) {
        ASSERT_TRUE(reasons.contains(calls[at].name)) << calls[at].name;
        for (const int error : reasons.at(calls[at].name)) {
            for (const Repeat repeat : {Repeat::Once, Repeat::SameForEver, Repeat::AllForEver}) {
                const Attempt attempt(old, {{at, error, repeat}}, unsupported);
                EXPECT_EQ(attempt.broken(), QString()) << "call " << at << ", " << calls[at].name << ", error " << error
                                                       << ", repeat " << static_cast<int>(repeat);
                refused += attempt.succeeded() ? 0 : 1;
            }
        }
    }
    EXPECT_GT(refused, 20);
}

TEST(OutputFaults, LeaveAnOldFileWholeAndAreTold) {
    tryEveryFault("old", {});
}

TEST(OutputFaults, LeaveNoPartOfANewFileAndAreTold) {
    tryEveryFault({}, {});
}

TEST(OutputFaults, OnADiskThatKnowsNoNamelessFilesLoseNothing) {
    tryEveryFault("old", {{"tmpfile", EOPNOTSUPP}});
}

class OutputFileOfOthers : public testing::Test {
protected:
    /// Writes while `change` does what another program might do meanwhile.
    [[nodiscard]] std::optional<QString> writeDuring(const std::function<void()>& change) const {
        return CVWriteOutputFile(mPath, [&change](QIODevice& output) {
            output.write("half and ");
            change();
            output.write("half");
            return true;
        });
    }

    ScratchHome mHome;
    QString mFolder = mHome.path(QStringLiteral("A Folder"));
    QString mPath = mFolder + QStringLiteral("/out.txt");
};

TEST_F(OutputFileOfOthers, IsWholeWhoeverChangesOrRemovesTheOldOneMeanwhile) {
    writeFile(mPath, "old");
    EXPECT_EQ(writeDuring([this] { writeFile(mPath, "another program's, and longer"); }), std::nullopt);
    EXPECT_EQ(readFile(mPath), "half and half");
    EXPECT_EQ(writeDuring([this] { QFile::remove(mPath); }), std::nullopt);
    EXPECT_EQ(readFile(mPath), "half and half");
}

TEST_F(OutputFileOfOthers, IsToldToBeMissingWhereItsFolderGoesMeanwhile) {
    writeFile(mPath, "old");
    const auto failure = writeDuring([this] { QDir(mFolder).removeRecursively(); });
    ASSERT_TRUE(failure.has_value());
    EXPECT_EQ(*failure, qt_error_string(ENOENT));
}

} // namespace
