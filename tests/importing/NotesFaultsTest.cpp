#include "importing/CVNotesFile.h"
#include "importing/CVNotesJSON.h"
#include "kit/ScratchHome.h"
#include "storage/FaultyCalls.h"
#include "storage/ScratchFiles.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using FaultyCalls::Fault;
using FaultyCalls::Repeat;

const QDateTime kNowOfFaults(QDate(2026, 3, 14), QTime(15, 9, 26));

CVImportNotes notesOf(const QString& payee) {
    return CVImportNotes({.leftOut = {payee}});
}

/// One attempt to write notes, or to move them, with a fault.
class NotesAttempt final {
public:
    enum class Deed { Write, WriteOverDamage, Move };

    NotesAttempt(Deed deed, std::vector<Fault> faults)
        : mDeed(deed)
        , mOld(deed == Deed::WriteOverDamage ? QByteArray("damaged") : CVJSONOfNotes(notesOf("old"))) {
        writeFile(mDataFile, "data");
        writeFile(mOtherFile, "data");
        writeFile(mPath, mOld);
        const CVNotesFile file(mDataFile);
        const CVNotesFile other(mOtherFile);
        FaultyCalls::arm(mHome.path(), std::move(faults));
        mResult = deed == Deed::Move ? file.moveTo(other, kNowOfFaults)
                                     : CVFileResult{file.write(notesOf("new"), kNowOfFaults).error};
        mRecord = FaultyCalls::disarm();
    }

    [[nodiscard]] std::size_t countOfCalls() const { return mRecord.calls.size(); }
    [[nodiscard]] const std::string& nameOfCall(std::size_t at) const { return mRecord.calls.at(at).name; }
    [[nodiscard]] bool succeeded() const { return mResult.ok(); }

    /// Says what is broken; empty when nothing is.
    [[nodiscard]] QString broken() const {
        if (readFile(mDataFile) != "data" || readFile(mOtherFile) != "data")
            return "the budget was touched";
        if (!succeeded() && mResult.error.contains("Unknown error"))
            return "the reason is " + mResult.error;
        return mDeed == Deed::Move ? brokenByMoving() : brokenByWriting();
    }

private:
    [[nodiscard]] QString brokenByMoving() const {
        const bool isMoved = readFile(mOtherFile + ".import") == mOld;
        if (!isMoved && readFile(mPath) != mOld)
            return "the notes are at neither place";
        return succeeded() && !isMoved ? "success, it said, but they are not there" : QString();
    }

    [[nodiscard]] QString brokenByWriting() const {
        const QByteArray bytes = readFile(mPath);
        const bool isNew = bytes == CVJSONOfNotes(notesOf("new"));
        const QStringList names = namesIn(mHome.path("A Folder")).filter("(unreadable ");
        const bool isKept = names.size() == 1 && readFile(mHome.path("A Folder/") + names.front()) == mOld;
        // What could not be read for a moment is kept too.
        if (!isKept && bytes != mOld && (mDeed == Deed::WriteOverDamage || !isNew))
            return "what stood there is lost";
        return succeeded() && !isNew ? "success, it said, but they are not the new ones" : QString();
    }

    Deed mDeed;
    QByteArray mOld;
    ScratchHome mHome;
    QString mDataFile = mHome.path("A Folder/data.corvella");
    QString mOtherFile = mHome.path("Other Folder/data.corvella");
    QString mPath = mDataFile + ".import";
    CVFileResult mResult;
    FaultyCalls::Record mRecord;
};

/// Lets each call fail once, at every call of the same name, and with all calls that follow.
void tryEveryFaultOfNotes(NotesAttempt::Deed deed) {
    const NotesAttempt whole(deed, {});
    ASSERT_TRUE(whole.succeeded());
    ASSERT_EQ(whole.broken().toStdString(), "");
    FaultyCalls::Reasons reasons = FaultyCalls::whyWorkFails();
    reasons.insert(FaultyCalls::whyLooksFail().begin(), FaultyCalls::whyLooksFail().end());
    int refused = 0;
    for (std::size_t at = 0; at < whole.countOfCalls(); ++at) {
        ASSERT_TRUE(reasons.contains(whole.nameOfCall(at))) << whole.nameOfCall(at);
        for (const int error : reasons.at(whole.nameOfCall(at))) {
            for (const Repeat repeat : {Repeat::Once, Repeat::SameForEver, Repeat::AllForEver}) {
                const NotesAttempt attempt(deed, {{at, error, repeat}});
                EXPECT_EQ(attempt.broken().toStdString(), "")
                    << "call " << at << ", " << whole.nameOfCall(at) << ", error " << error << ", repeat "
                    << static_cast<int>(repeat);
                refused += attempt.succeeded() ? 0 : 1;
            }
        }
    }
    EXPECT_GT(refused, 20);
}

TEST(NotesFaults, LeaveTheOldNotesWhole) {
    tryEveryFaultOfNotes(NotesAttempt::Deed::Write);
}

TEST(NotesFaults, LoseNothingThatWasDamaged) {
    tryEveryFaultOfNotes(NotesAttempt::Deed::WriteOverDamage);
}

TEST(NotesFaults, LeaveTheNotesAtOnePlaceAtLeastWhenTheyMove) {
    tryEveryFaultOfNotes(NotesAttempt::Deed::Move);
}

} // namespace
