#include "storage/CVDocumentFile.h"

#include "model/CVDocument.h"
#include "storage/CVDocumentParserDelegate.h"
#include "storage/CVDocumentXML.h"
#include "storage/CVExaminedSource.h"
#include "storage/CVRecoverInterruptedSaves.h"
#include "versions/CVVersionLimit.h"

#include <QFile>
#include <QFileInfo>

#include <new>
#include <utility>

namespace {

bool isAccepted(const QString& type) {
    return type == QLatin1String(CVDocumentFile::kDocumentType) ||
           type == QLatin1String(CVDocumentFile::kXMLDocumentType);
}

} // namespace

CVDocumentFile::CVDocumentFile(CVStandardFolders folders, QBUserDefaults& defaults)
    : mFolders(std::move(folders))
    , mDefaults(defaults) {}

CVLoadReport CVDocumentFile::initWithStandardUserFile(CVDocument& document) {
    document.setSaver(this);
    CVLoadReport report;
    if (const auto path = CVStandardDataFileURL(CVLookForExisting::Yes, mFolders, mDefaults))
        report = readFromURL(document, *path);
    else
        report = reportObstacle();
    if (report.outcome == CVLoadReport::Outcome::Cancelled)
        return report;
    if (document.uniqueID() == 0) {
        document.setCurrentTransactionSet(0);
        // A file that was not read gives no reason to write a setting of the user's.
        if (report.outcome == CVLoadReport::Outcome::NotRead)
            document.setInitialCategories();
        else
            document.addDefaults();
    }
    document.sortTransactionsByDate();
    document.updateDates();
    return report;
}

/// Reports whatever is at the file's place when no file was found, such as a folder, so that it is not ignored
/// silently.
CVLoadReport CVDocumentFile::reportObstacle() const {
    const auto path = CVPathForSaving(mFolders, mDefaults);
    if (!path || !QFileInfo::exists(*path))
        return {};
    return {CVLoadReport::Outcome::Unreadable, *path, tr("what stands there is not a file")};
}

CVLoadReport CVDocumentFile::readFromURL(CVDocument& document, const QString& path) {
    // The signature is taken before reading, so that a file that changes meanwhile does not count as read.
    const auto signature = CVFileSignature::of(path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {CVLoadReport::Outcome::NotRead, path, file.errorString()};
    CVLoadReport report = readFromOpenFile(document, file);
    report.path = path;
    if (report.outcome == CVLoadReport::Outcome::Loaded && mReadWhole)
        mSaves.markAsRead(path, signature);
    return report;
}

CVLoadReport CVDocumentFile::readFromOpenFile(CVDocument& document, QIODevice& file) {
    // A file that is too large is not read at all.
    if (file.size() > CVExaminedSource::kLargestFile)
        return {CVLoadReport::Outcome::NotRead, {}, tr("the file is larger than 2 GiB")};
    CVLoadReport report{CVLoadReport::Outcome::Unreadable, {}, {}};
    if (mReadingProgress && !mReadingProgress(0)) {
        report.outcome = CVLoadReport::Outcome::Cancelled;
        return report;
    }
    bool read = false;
    mWasCancelled = false;
    mWasBrokenOff = true;
    try {
        CVDocumentParserDelegate parser(&document);
        parser.setProgress(mReadingProgress);
        read = parse(parser, parser.prepareFromDevice(file));
        report.reason = mReason;
    } catch (const std::bad_alloc&) {
        report.reason = tr("there is not enough memory to read the file");
        document.abandonParsingData();
    }
    if (mWasCancelled)
        report.outcome = CVLoadReport::Outcome::Cancelled;
    else if (mWasBrokenOff)
        report.outcome = CVLoadReport::Outcome::NotRead;
    else if (read)
        report.outcome = mReason.isEmpty() ? CVLoadReport::Outcome::Loaded : CVLoadReport::Outcome::NoBudget;
    return report;
}

bool CVDocumentFile::readFromData(CVDocument& document, QByteArray bytes, const QString& type) {
    mReason.clear();
    if (!isAccepted(type))
        return false;
    CVDocumentParserDelegate parser(&document);
    parser.setProgress(mReadingProgress);
    return parse(parser, parser.prepareFromData(std::move(bytes)));
}

bool CVDocumentFile::parse(CVDocumentParserDelegate& parser, bool isPrepared) {
    const bool read = isPrepared && !parser.isEncrypted() && parser.parseDocumentData();
    mReason = parser.errorMessage();
    mReadWhole = parser.readWhole();
    mWasCancelled = parser.wasCancelled();
    mWasBrokenOff = parser.wasBrokenOff();
    if (read && !parser.foundRoot())
        mReason = tr("the file is XML but holds no Corvella budget");
    return read;
}

std::optional<CVDocumentText> CVDocumentFile::dataOfType(const CVDocument& document, const QString& type) {
    return isAccepted(type) ? std::optional(CVDocumentXMLRepresentation(document)) : std::nullopt;
}

CVFileResult CVDocumentFile::recoverInterruptedSaves() const {
    CVFileResult result;
    for (const QString& file : dataFiles()) {
        const CVFileResult recovered = CVRecoverInterruptedSaves(file);
        if (result.ok())
            result = recovered;
    }
    return result;
}

bool CVDocumentFile::workbookSave(CVDocument& document) {
    const auto path = CVStandardDataFileURL(CVLookForExisting::No, mFolders, mDefaults);
    if (!path) {
        mSaves.fail(tr("The budget could not be saved: the folder for it could not be made in “%1”.")
                        .arg(mFolders.applicationSupport));
        return true;
    }
    const CVVersionKeeping keeping{document.takeAskedVersion(), CVVersionLimit(mDefaults)};
    try {
        mSaves.save(*path, CVDocumentXMLRepresentation(document), keeping);
    } catch (const std::bad_alloc&) {
        if (keeping.asked)
            document.askForVersion(*keeping.asked);
        mSaves.fail(tr("The budget could not be saved: there is not enough memory."));
    }
    return true;
}
