#include "storage/SaveScenario.h"

#include "storage/CVDocumentXML.h"
#include "storage/SampleFile.h"
#include "storage/ScratchFiles.h"
#include "versions/CVVersionFolder.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr unsigned kModeOfOldFile = 0640;
const QString kInside = QStringLiteral("/inside");
const QRegularExpression kKeptName(QStringLiteral(" \\((unreadable|changed outside) "));

/// Larger than Qt's buffers, so that there are several writes and several reads.
QByteArray encryptedFile() {
    return "<EncryptedData><CipherValue>" + QByteArray(50'000, 'x') + "</CipherValue></EncryptedData>";
}

} // namespace

SaveScenario::SaveScenario(Before before)
    : mBefore(before)
    , mFolder(mHome.folders().applicationSupport + QStringLiteral("/Quenby Labs/Corvella"))
    , mPath(mFolder + QStringLiteral("/Corvella Data.corvella"))
    , mFile(mHome.folders(), mBudget.userDefaults()) {
    const QString place = mPath;
    if (mBefore == Before::Linked) {
        mFolder = mHome.path(QStringLiteral("Elsewhere"));
        mPath = mFolder + QStringLiteral("/Budget.corvella");
        writeFile(QFileInfo(place).path() + QStringLiteral("/other"), "");
        makeLink(mPath, place);
    }
    if (mBefore == Before::Good || mBefore == Before::Linked || mBefore == Before::Changed)
        mOld = sampleFile();
    if (mBefore == Before::Unreadable || mBefore == Before::Folder)
        mOld = encryptedFile();
    if (!mOld.isNull()) {
        const QString file = mBefore == Before::Folder ? mPath + kInside : mPath;
        writeFile(file, mOld);
        setMode(file, kModeOfOldFile);
    }
    mFile.initWithStandardUserFile(mBudget.document());
    if (mBefore == Before::Changed)
        changeOutside();
    mBudget.transaction({.payTo = QString(20'000, u'p'), .xfor = QString(20'000, u'f')});
}

/// Saves, so that the program knows what both have in common, and then writes another budget there.
void SaveScenario::changeOutside() {
    mBudget.document().workbookSave();
    mFile.saves().waitForFinished();
    mCommon = bytesOnDisk();
    mOld = QByteArray(mCommon).replace("Transaction", "Transaction ");
    QFile::remove(mPath);
    writeFile(mPath, mOld);
    setMode(mPath, kModeOfOldFile);
}

const FaultyCalls::Record& SaveScenario::save(std::vector<FaultyCalls::Fault> faults,
                                              std::vector<FaultyCalls::Unsupported> unsupported) {
    mNew = text();
    FaultyCalls::arm(mHome.path(), std::move(faults), std::move(unsupported));
    mBudget.document().workbookSave();
    mOutcome = mFile.saves().waitForFinished();
    mRecord = FaultyCalls::disarm();
    mHadVersionTrouble = mHadVersionTrouble || !mOutcome.versionTrouble.isEmpty();
    if (!mOutcome.keptCopy.isEmpty())
        mToldCopies.append(mOutcome.keptCopy);
    return mRecord;
}

QStringList SaveScenario::broken() const {
    QStringList faults{brokenFile(),        brokenWord(),      brokenKeeping(), brokenVersion(),
                       brokenCommonState(), brokenLeftovers(), brokenModes()};
    faults.removeAll(QString());
    return faults;
}

QStringList SaveScenario::brokenAfterNextSave() {
    mBudget.document().insertCategoryName(QStringLiteral("Next"));
    const FaultyCalls::Record before = mRecord;
    save();
    mRecord = before;
    QStringList faults{brokenKeeping(), brokenLeftovers()};
    if (!mOutcome.saved)
        faults.append(QStringLiteral("the next save failed"));
    if (bytesOnDisk() != mNew)
        faults.append(QStringLiteral("the next save did not write the newest text"));
    faults.removeAll(QString());
    return faults;
}

QByteArray SaveScenario::text() {
    return CVDocumentXMLRepresentation(mBudget.document()).joined();
}

QByteArray SaveScenario::bytesOnDisk() const {
    return readFile(mPath);
}

QString SaveScenario::brokenFile() const {
    const QByteArray bytes = bytesOnDisk();
    if (bytes == mNew && !bytes.isNull())
        return {};
    // A folder, or a file on a disk without hard links, is moved aside before the new file is written.
    const bool movedAside = bytes.isNull() && !mOutcome.keptCopy.isEmpty() && !mOutcome.saved;
    const bool old = mBefore == Before::Folder ? bytes.isNull() : bytes == mOld && bytes.isNull() == mOld.isNull();
    return old || movedAside ? QString() : QStringLiteral("the file is neither the old nor the new one");
}

QString SaveScenario::brokenWord() const {
    const bool isNew = bytesOnDisk() == mNew;
    if (mOutcome.saved && !isNew)
        return QStringLiteral("saved, it said, but the file is the old one");
    if (mOutcome.saved && failedToSyncTheNewFile())
        return QStringLiteral("saved, it said, but a sync failed");
    if (!mOutcome.saved && isNew && !failedAfterReplacing())
        return QStringLiteral("not saved, it said, but the file is the new one");
    if (!mOutcome.saved && !mOutcome.message.contains(mHome.folders().applicationSupport))
        return QStringLiteral("the message names no place");
    if (!mOutcome.path.isEmpty() && mOutcome.message.count(mOutcome.path) > 1)
        return QStringLiteral("the message names the file twice");
    if (!mOutcome.saved && mOutcome.message.contains(QLatin1String("Unknown error")))
        return QStringLiteral("the message tells no reason");
    return {};
}

/// Whether a call failed after the new file had replaced the old one: the new file is then in place, but may not
/// survive a power cut.
bool SaveScenario::failedAfterReplacing() const {
    const auto& calls = mRecord.calls;
    const auto replaced = std::find_if(calls.rbegin(), calls.rend(), [this](const FaultyCalls::Call& call) {
        return call.name.starts_with("rename") && !call.failed && call.path == mPath.toStdString();
    });
    return replaced != calls.rend() &&
           std::any_of(calls.rbegin(), replaced, [](const auto& call) { return call.failed; });
}

/// A kept copy that cannot be synced can be made in another way; a version that cannot is told by itself.
bool SaveScenario::failedToSyncTheNewFile() const {
    const auto& calls = mRecord.calls;
    const auto replaced = std::find_if(calls.begin(), calls.end(), [this](const FaultyCalls::Call& call) {
        return call.name.starts_with("rename") && !call.failed && call.path == mPath.toStdString();
    });
    const auto keeping = std::find_if(replaced, calls.end(), [](const FaultyCalls::Call& call) {
        return call.path.find("Earlier Versions") != std::string::npos ||
               (call.name == "open" && call.path.find(".saving-") != std::string::npos);
    });
    return std::any_of(calls.begin(), keeping, [](const FaultyCalls::Call& call) {
        return call.failed && call.name == "fsync" && !QString::fromStdString(call.path).contains(kKeptName);
    });
}

QString SaveScenario::brokenKeeping() const {
    if (mBefore != Before::Unreadable && mBefore != Before::Folder && mBefore != Before::Changed)
        return {};
    const QString inside = mBefore == Before::Folder ? kInside : QString();
    bool found = readFile(mPath + inside) == mOld;
    bool whole = true;
    for (const QString& name : namesIn(mFolder).filter(kKeptName)) {
        // A temporary file that could not be removed.
        if (name.startsWith(u'.'))
            continue;
        const bool same = readFile(mFolder + u'/' + name + inside) == mOld;
        found = found || same;
        whole = whole && same;
    }
    if (!found)
        return QStringLiteral("the bytes of the unreadable file are lost");
    if (!whole)
        return QStringLiteral("a kept copy is not whole");
    if (!mOutcome.keptCopy.isEmpty() && readFile(mOutcome.keptCopy + inside) != mOld)
        return QStringLiteral("there is no copy where it said");
    return {};
}

/// Once the new file is in place, the former one is a version; where something failed, it has another name, and the
/// user is told. What cannot be examined counts as another program's and is told as such.
QString SaveScenario::brokenVersion() const {
    if ((mBefore != Before::Good && mBefore != Before::Linked) || bytesOnDisk() == mOld)
        return {};
    bool isVersion = false;
    for (const CVVersion& version : CVVersionFolder(mPath).versions()) {
        const QByteArray bytes = readFile(version.path);
        isVersion = isVersion || bytes == mOld;
        if (bytes != mOld && bytes != mNew)
            return QStringLiteral("a version is not whole");
    }
    if (!isVersion && mOutcome.versionTrouble.isEmpty() && readFile(mOutcome.keptCopy) != mOld)
        return QStringLiteral("the former file is no version, and nothing was told");
    bool isThere = isVersion;
    for (const QString& name : namesIn(mFolder))
        isThere = isThere || readFile(mFolder + u'/' + name) == mOld;
    return isThere ? QString() : QStringLiteral("the former file is lost");
}

/// Once the new file is in place, what both budgets had in common is a version, or the user is told.
QString SaveScenario::brokenCommonState() const {
    if (mBefore != Before::Changed || bytesOnDisk() == mOld)
        return {};
    bool isVersion = false;
    for (const CVVersion& version : CVVersionFolder(mPath).versions())
        isVersion = isVersion || readFile(version.path) == mCommon;
    return isVersion || !mOutcome.versionTrouble.isEmpty()
               ? QString()
               : QStringLiteral("the common state is no version, and nothing was told");
}

QString SaveScenario::brokenLeftovers() const {
    // A temporary file that cannot be removed stays.
    if (mRecord.failed("unlink"))
        return {};
    for (const QString& name : namesIn(mFolder)) {
        const bool isKnown =
            mFolder + u'/' + name == mPath || name.contains(kKeptName) || name == QLatin1String("Earlier Versions");
        // A former file that could not become a version or get a name of its own stays until the next start.
        const bool isTold = mHadVersionTrouble || mToldCopies.contains(mFolder + u'/' + name);
        const bool isFormer = isTold && readFile(mFolder + u'/' + name) == mOld;
        if (!isKnown && !isFormer)
            return QStringLiteral("a temporary file was left behind");
    }
    return {};
}

/// Whether the unreadable file was moved aside: in that case no file was at its place when the new one was written.
bool SaveScenario::movedAside() const {
    const std::string place = mPath.toStdString();
    return std::any_of(mRecord.calls.begin(), mRecord.calls.end(), [&](const FaultyCalls::Call& call) {
        const bool moved = call.name.rfind("rename", 0) == 0 && call.from == place;
        return !call.failed && (moved || (call.name == "unlink" && call.path == place));
    });
}

QString SaveScenario::brokenModes() const {
    const bool isNewFile = mBefore == Before::Absent || mBefore == Before::Folder || movedAside();
    const unsigned mode = isNewFile ? 0600 : kModeOfOldFile;
    const unsigned widest = mBefore == Before::Unreadable ? kModeOfOldFile : mode;
    // On a disk without permission bits chmod fails even for the owner, and a new file cannot be made private.
    if (isNewFile && mRecord.failed("chmod"))
        return {};
    if ((mRecord.modesWhileWriting & ~widest) != 0)
        return QStringLiteral("written to a file with the mode %1").arg(mRecord.modesWhileWriting, 0, 8);
    const auto actual = static_cast<unsigned>(modeOf(mPath));
    const bool isStricterAndTold = (actual & ~mode) == 0 && !mOutcome.accessTrouble.isEmpty();
    if (bytesOnDisk() == mNew && actual != mode && !isStricterAndTold)
        return QStringLiteral("the new file has the mode %1").arg(actual, 0, 8);
    return {};
}
