#include "storage/CVDocumentFile.h"

#include "model/CVDetachedDocument.h"
#include "model/CVDocument.h"
#include "storage/CVDocumentXML.h"
#include "storage/CVRecoverInterruptedSaves.h"
#include "versions/CVVersionLimit.h"

#include <QFileInfo>

#include <new>
#include <utility>

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
    report.isReadOnly = mIsReadOnly;
    if (report.outcome != CVLoadReport::Outcome::Cancelled)
        prepare(document, report.outcome);
    return report;
}

void CVDocumentFile::prepare(CVDocument& document, CVLoadReport::Outcome outcome) {
    if (document.uniqueID() == 0) {
        document.setCurrentTransactionSet(0);
        // A file that was not read gives no reason to write a setting of the user's.
        if (outcome == CVLoadReport::Outcome::NotRead)
            document.setInitialCategories();
        else
            document.addDefaults();
    }
    document.sortTransactionsByDate();
    document.updateDates();
}

void CVDocumentFile::initAsNew(CVDocument& document) {
    document.setSaver(this);
    prepare(document, CVLoadReport::Outcome::NoFile);
}

CVLoadReport CVDocumentFile::initWithChosenFile(CVDocument& document, const QString& path) {
    // Reading announces categories and, where it fails, sets defaults, neither of which concerns the present budget.
    CVDetachedDocument read;
    CVLoadReport report = readFromURL(*read, path);
    report.isReadOnly = mIsReadOnly;
    if (!report.isBudget())
        return report;
    document.setSaver(this);
    document.takeRecords(*read);
    prepare(document, report.outcome);
    return report;
}

/// Reports whatever is at the file's place when no file was found, such as a folder, so that it is not ignored
/// silently.
CVLoadReport CVDocumentFile::reportObstacle() {
    const auto path = CVPathForSaving(mFolders, mDefaults);
    if (!path || !QFileInfo::exists(*path))
        return {};
    mSaves.markAsUnreadable(*path, CVFileSignature::of(*path));
    return {CVLoadReport::Outcome::Unreadable, *path, tr("what stands there is not a file")};
}

CVLoadReport CVDocumentFile::readFromURL(CVDocument& document, const QString& path) {
    // Marked before the reading, because a damaged file is saved over while it is read. For a file that is known by
    // then the mark means nothing.
    mSaves.markAsUnreadable(path, CVFileSignature::of(path));
    CVLoadReport report = mReader.readFromURL(document, path);
    mSaves.markAsRead(path, report.signature, report.partly.readAs());
    return report;
}

CVLoadReport CVDocumentFile::readFromOpenFile(CVDocument& document, QIODevice& file) {
    return mReader.readFromOpenFile(document, file);
}

bool CVDocumentFile::readFromData(CVDocument& document, QByteArray bytes, const QString& type) {
    return mReader.readFromData(document, std::move(bytes), type);
}

std::optional<CVDocumentText> CVDocumentFile::dataOfType(const CVDocument& document, const QString& type) {
    return CVDocumentReader::isAccepted(type) ? std::optional(CVDocumentXMLRepresentation(document)) : std::nullopt;
}

CVFileResult CVDocumentFile::recoverInterruptedSaves() const {
    CVFileResult result;
    // They may be another program's that saves just now.
    if (mIsReadOnly)
        return result;
    for (const QString& file : dataFiles()) {
        const CVFileResult recovered = CVRecoverInterruptedSaves(file);
        if (result.ok())
            result = recovered;
    }
    return result;
}

bool CVDocumentFile::workbookSave(CVDocument& document) {
    if (mIsReadOnly)
        return true;
    const auto path = CVStandardDataFileURL(CVLookForExisting::No, mFolders, mDefaults);
    if (!path) {
        mSaves.fail(tr("The budget could not be saved: the folder for it could not be made in “%1”.")
                        .arg(mFolders.applicationSupport));
        return true;
    }
    const CVVersionKeeping keeping{document.takeAskedVersion(), CVVersionLimit(mDefaults)};
    try {
        mSaves.save(*path, CVDocumentXMLRepresentation(document), keeping, mUnreadableFiles);
    } catch (const std::bad_alloc&) {
        if (keeping.asked)
            document.askForVersion(*keeping.asked);
        mSaves.fail(tr("The budget could not be saved: there is not enough memory."));
    }
    return true;
}
