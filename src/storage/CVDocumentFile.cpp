#include "storage/CVDocumentFile.h"

#include "model/CVDocument.h"
#include "storage/CVDocumentParserDelegate.h"
#include "storage/CVDocumentXML.h"

#include <QFile>

#include <limits>
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
    if (document.uniqueID() == 0) {
        document.setCurrentTransactionSet(0);
        document.addDefaults();
    }
    document.sortTransactionsByDate();
    document.updateDates();
    return report;
}

CVLoadReport CVDocumentFile::readFromURL(CVDocument& document, const QString& path) {
    CVLoadReport report{CVLoadReport::Outcome::Unreadable, path, {}};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        report.reason = file.errorString();
        return report;
    }
    // Not even read: the parser would refuse it.
    if (file.size() > std::numeric_limits<int>::max()) {
        report.reason = tr("the file is larger than 2 GiB");
        return report;
    }
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        report.reason = file.errorString();
        return report;
    }
    file.close();
    const bool read = readFromData(document, std::move(bytes), QLatin1String(kDocumentType));
    report.reason = mReason;
    if (read)
        report.outcome = mReason.isEmpty() ? CVLoadReport::Outcome::Loaded : CVLoadReport::Outcome::NoBudget;
    if (report.outcome == CVLoadReport::Outcome::Loaded)
        mSaves.markAsRead(path);
    return report;
}

bool CVDocumentFile::readFromData(CVDocument& document, QByteArray bytes, const QString& type) {
    mReason.clear();
    if (!isAccepted(type))
        return false;
    CVDocumentParserDelegate parser(&document);
    const bool read = parser.prepareFromData(std::move(bytes)) && !parser.isEncrypted() && parser.parseDocumentData();
    mReason = parser.errorMessage();
    if (read && !parser.foundRoot())
        mReason = tr("the file is XML but holds no Corvella budget");
    return read;
}

std::optional<CVDocumentText> CVDocumentFile::dataOfType(const CVDocument& document, const QString& type) {
    return isAccepted(type) ? std::optional(CVDocumentXMLRepresentation(document)) : std::nullopt;
}

bool CVDocumentFile::workbookSave(CVDocument& document) {
    const auto path = CVStandardDataFileURL(CVLookForExisting::No, mFolders, mDefaults);
    if (path)
        mSaves.save(*path, CVDocumentXMLRepresentation(document));
    else
        mSaves.fail(tr("The budget could not be saved: the folder for it could not be made in \"%1\".")
                        .arg(mFolders.applicationSupport));
    return true;
}
