#include "storage/CVSavedFile.h"

#include "files/CVReplaceFile.h"
#include "model/CVDetachedDocument.h"
#include "storage/CVDocumentReader.h"
#include "storage/CVWriteDocumentText.h"
#include "versions/CVKeptCopy.h"

#include <QDir>
#include <QFileInfo>

namespace {

/// After a reading, the user looks at the budget first; then the bytes are read again.
constexpr std::chrono::seconds kIdle(1);
/// The time after which a file that did not change and could not be read is read again.
constexpr std::chrono::seconds kBetweenReadings(30);

QString folderOf(const QString& path) {
    return QFileInfo(CVFollowLinks(path)).absolutePath();
}

bool isSame(const CVPathStatus& a, const CVPathStatus& b) {
    return a.signature == b.signature && a.changed == b.changed;
}

} // namespace

void CVSavedFile::markAsRead(const CVFileSignature& signature, CVReadAs readAs) {
    mCommon.reset();
    know(signature, readAs);
}

void CVSavedFile::know(const CVFileSignature& signature, CVReadAs readAs) {
    mKnown = signature;
    mKnownAs = readAs;
    const CVPathStatus present = CVPathStatus::of(mPath);
    mKnownChange = present.signature == signature ? present.changed : 0;
    mKnownSince = Clock::now();
    noteDisk();
    mJudgedAt.reset();
    mUntold.reset();
    mTold.reset();
}

void CVSavedFile::noteDisk() {
    if (const auto folder = CVFileSignature::of(folderOf(mPath)))
        mFolderDevice = folder->device;
}

/// Whether the file holds what this program last read or wrote, or whether there is none as expected. The bytes decide
/// where the file was touched, or was changed with its size and its times restored.
bool CVSavedFile::isAsKnown(const CVPathStatus& present) {
    if (!mKnown || !present.signature)
        return !mKnown && !present.signature;
    if (present.signature == mKnown && (present.changed == mKnownChange || !mCommon))
        return true;
    if (!mCommon || present.signature->size != mKnown->size || !mCommon->isIn(mPath))
        return false;
    mKnown = present.signature;
    mKnownChange = present.changed;
    noteDisk();
    return true;
}

/// Whether the folder is on another disk than before and has no such file: the mount point of the former disk.
bool CVSavedFile::diskIsAway(const CVPathStatus& present) const {
    const auto folder = CVFileSignature::of(folderOf(mPath));
    return mKnown && !present.signature && folder && folder->device != mFolderDevice;
}

CVOutsideChange CVSavedFile::read(const QString& path) {
    const auto budget = std::make_shared<CVDetachedDocument>();
    const CVLoadReport report = CVDocumentReader().readFromURL(**budget, path);
    if (report.signature) {
        (*budget)->sortTransactionsByDate();
        (*budget)->updateDates();
        return {.kind = CVOutsideChange::Kind::Changed,
                .path = path,
                .budget = budget,
                .signature = *report.signature,
                .partly = report.partly};
    }
    const QString reason =
        report.reason.isEmpty() ? tr("it holds something that Corvella does not understand") : report.reason;
    return {.kind = CVOutsideChange::Kind::Unreadable, .path = path, .reason = reason};
}

bool CVSavedFile::holdsBudget(const QString& path) const {
    const auto signature = CVFileSignature::of(path);
    return (signature && signature == mReadable) || read(path).kind == CVOutsideChange::Kind::Changed;
}

/// Empty when the budget can be written now.
QString CVSavedFile::whyNotNow(const CVPathStatus& present, CVUnreadableFile unreadable) {
    if (diskIsAway(present))
        return tr("the disk on which it was is not there");
    if (!mIsWatched || !mKnown || !present.signature || mStillAsked == CVVersionReason::Move)
        return {};
    const CVOutsideChange change = read(mPath);
    if (change.kind != CVOutsideChange::Kind::Unreadable) {
        mReadable = change.signature;
        return {};
    }
    mUnreadable = present.signature;
    if (unreadable == CVUnreadableFile::Replaced)
        return {};
    return tr("it cannot be read, perhaps because another program is still writing it: %1").arg(change.reason);
}

CVSaveOutcome CVSavedFile::save(const CVDocumentText& text, const CVVersionKeeping& keeping,
                                CVUnreadableFile unreadable) {
    CVSaveOutcome outcome{.path = mPath};
    if (keeping.asked)
        mStillAsked = keeping.asked;
    const CVPathStatus present = CVPathStatus::of(mPath);
    // What stands at a place to which the user moves the data file is not this budget, even if it once was.
    const bool isKnown = keeping.asked != CVVersionReason::Move && isAsKnown(present);
    QString problem = isKnown ? QString() : whyNotNow(present, unreadable);
    outcome.awaitsReadable = !problem.isEmpty() && present.signature;
    // The next look then tells that the file can be read again.
    if (outcome.awaitsReadable)
        mTold = CVOutsideChange::Kind::Unreadable;
    if (problem.isEmpty())
        problem = write(text, keeping, present, isKnown, outcome);
    if (!problem.isEmpty())
        outcome.message =
            tr("The budget could not be saved to “%1”: %2.").arg(QDir::toNativeSeparators(mPath), problem);
    return outcome;
}

/// Answers why the budget was not saved; empty when it was.
QString CVSavedFile::write(const CVDocumentText& text, const CVVersionKeeping& keeping, const CVPathStatus& present,
                           bool isKnown, CVSaveOutcome& outcome) {
    const bool isUnderstood = isKnown && mKnownAs == CVReadAs::Whole;
    CVKeptCopy kept{{}, {present.error}, false};
    std::optional<CVVersionReason> due;
    if (present.signature && isUnderstood) {
        due = mVersions.due(mStillAsked, *present.signature, keeping.limit);
    } else if (present.signature) {
        // A file that is kept as another program's is no version of this program's.
        outcome.keptReason = reasonToKeep(*present.signature, isKnown);
        kept = keepUnreadFile(*present.signature, outcome.keptReason);
    }
    const auto former = mCommon;
    const auto asked = mStillAsked;
    const CVReplaceResult replacing =
        replace(text, kept, present.signature, due ? CVFormerFile::Kept : CVFormerFile::Dropped);
    outcome.keptCopy = kept.path;
    noteResult(replacing, outcome);
    keepFormer(replacing, due, keeping.limit, outcome);
    if (!outcome.keptCopy.isEmpty())
        keepCommonState(former, asked.value_or(CVVersionReason::TakingOver), keeping.limit, outcome);
    return replacing.error;
}

/// Writes the file after what stood there was kept, and puts back what was moved away for it when that fails.
CVReplaceResult CVSavedFile::replace(const CVDocumentText& text, CVKeptCopy& kept,
                                     const std::optional<CVFileSignature>& present, CVFormerFile former) {
    CVReplaceResult replacing{kept.result};
    if (kept.result.ok())
        replacing = CVWriteDocumentText(mPath, text, kept.moved ? std::nullopt : present, former);
    if (replacing.written) {
        mCommon.emplace(text);
        know(*replacing.written);
        mStillAsked.reset();
    } else if (kept.moved && kept.putBack(mPath)) {
        kept = {};
    }
    return replacing;
}

void CVSavedFile::noteResult(const CVReplaceResult& replacing, CVSaveOutcome& outcome) const {
    outcome.diskIsFull = replacing.diskIsFull();
    outcome.isOpenToOthers = replacing.isOpenToOthers;
    if (replacing.written && !replacing.lostAccess.isEmpty()) {
        outcome.accessTrouble =
            tr("“%1” was saved, but %2.").arg(QFileInfo(mPath).fileName(), replacing.lostAccess.join(tr(" and ")));
    }
}

/// Gives what stood there a name of its own. Until then it bears that of a temporary file, which the next start
/// recognises.
void CVSavedFile::keepFormer(const CVReplaceResult& replacing, std::optional<CVVersionReason> due, qint64 limit,
                             CVSaveOutcome& outcome) {
    if (replacing.former.isEmpty())
        return;
    if (!replacing.isExpected) {
        outcome.keptReason = CVKeptReason::ChangedOutside;
        outcome.keptCopy =
            CVKeptCopy::keepFormer(replacing.former, mPath, outcome.keptReason, QDateTime::currentDateTime()).path;
    } else if (due) {
        outcome.versionTrouble = mVersions.keepFile(replacing.former, *due, limit);
    }
}

/// Hands on what another program's file, which was kept, and the budget last had in common: it is in no file by now.
void CVSavedFile::keepCommonState(const std::optional<CVCommonState>& common, CVVersionReason reason, qint64 limit,
                                  CVSaveOutcome& outcome) {
    const bool isChanged = outcome.keptReason == CVKeptReason::ChangedOutside;
    if (isChanged)
        outcome.keptIsBudget = holdsBudget(outcome.keptCopy);
    if (!common || !(isChanged || outcome.keptReason == CVKeptReason::Unreadable))
        return;
    outcome.common = common->text();
    if (limit > 0)
        outcome.versionTrouble = mVersions.keepText(*outcome.common, reason, limit);
}

CVKeptReason CVSavedFile::reasonToKeep(const CVFileSignature& present, bool isKnown) const {
    if (isKnown)
        return CVKeptReason::AsItWasRead;
    // Whoever moves the data file to a place has agreed that what stands there is replaced.
    if (mStillAsked == CVVersionReason::Move)
        return CVKeptReason::ReplacedWhenMoved;
    return mUnreadable == present ? CVKeptReason::Unreadable : CVKeptReason::ChangedOutside;
}

CVKeptCopy CVSavedFile::keepUnreadFile(const CVFileSignature& signature, CVKeptReason reason) {
    CVKeptCopy kept = CVKeptCopy::keep(mPath, reason, QDateTime::currentDateTime());
    if (kept.path.isEmpty() && kept.result.ok())
        kept.result.error = tr("what stands there could not be kept beside it");
    // The bytes have a second name now, so another attempt need not keep them again.
    if (!kept.path.isEmpty() && !kept.moved)
        know(signature);
    return kept;
}

std::optional<CVOutsideChange> CVSavedFile::look() {
    mIsWatched = true;
    if (!mKnown)
        return std::nullopt;
    if (!mCommon && Clock::now() - mKnownSince >= kIdle)
        mCommon = CVCommonState::ofFile(mPath, *mKnown);
    const CVPathStatus present = CVPathStatus::of(mPath);
    const bool isJudged = mJudgedAt && isSame(present, mJudged);
    if (isJudged && mUntold)
        return tell(*std::exchange(mUntold, std::nullopt));
    const bool isDueAgain =
        mJudgedAt && mTold == CVOutsideChange::Kind::Unreadable && Clock::now() - *mJudgedAt >= kBetweenReadings;
    if (isJudged && !isDueAgain)
        return std::nullopt;
    mJudgedAt.reset();
    mUntold.reset();
    if (isAsKnown(present))
        return tell({.kind = CVOutsideChange::Kind::AsKnown, .path = mPath});
    if (!present.signature) {
        return tell({.kind = CVOutsideChange::Kind::Gone,
                     .path = mPath,
                     .reason = present.error,
                     .diskIsAway = diskIsAway(present)});
    }
    mJudged = present;
    mJudgedAt = Clock::now();
    CVOutsideChange change = read(mPath);
    if (change.kind == CVOutsideChange::Kind::Changed)
        return tell(std::move(change));
    // A file that is written in place cannot be read for a moment, which concerns nobody.
    mUntold = std::move(change);
    return std::nullopt;
}

/// Absent for what was told before.
std::optional<CVOutsideChange> CVSavedFile::tell(CVOutsideChange change) {
    using Kind = CVOutsideChange::Kind;
    const std::optional<Kind> told = change.kind == Kind::AsKnown ? std::nullopt : std::optional(change.kind);
    const bool isNew = change.kind == Kind::Changed || told != mTold;
    mTold = told;
    return isNew ? std::optional(std::move(change)) : std::nullopt;
}

CVSaveOutcome CVSavedFile::keepState(const CVDocumentText& text, qint64 versionLimit) {
    return {.path = mPath, .versionTrouble = mVersions.keepText(text, CVVersionReason::TakingOver, versionLimit)};
}

void CVSavedFile::accept(const CVFileSignature& signature, CVReadAs readAs) {
    mCommon = CVCommonState::ofFile(mPath, signature);
    know(signature, readAs);
}
