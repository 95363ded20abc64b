#include "app/CVHistoryOperations.h"

#include "app/CVAppDelegate.h"
#include "app/CVReadingPanel.h"
#include "differences/CVBringBack.h"
#include "files/CVFileSignature.h"
#include "files/CVMoveFile.h"
#include "files/CVWriteOutputFile.h"
#include "importing/CVNotesFile.h"
#include "model/CVDetachedDocument.h"
#include "model/CVDocument.h"
#include "storage/CVDocumentReader.h"
#include "storage/CVDocumentXML.h"
#include "storage/CVWriteDocumentText.h"
#include "versions/CVListedVersion.h"
#include "versions/CVVersionFolder.h"
#include "versions/CVVersionLimit.h"
#include "widgets/CVAlerts.h"
#include "widgets/CVFilePanels.h"
#include "widgets/CVLeadToWaitingWindow.h"
#include "widgets/tables/CVCommitOpenEditor.h"
#include "workspace/CVMainWindowController.h"
#include "workspace/controls/CVSaveStatus.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMainWindow>

namespace {

/// Copies a file through the safe writer. Absent on success.
std::optional<QString> copyFile(const QString& path, const QString& target, const QStringList& spared) {
    QFile source(path);
    if (!source.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return source.errorString();
    CVFileResult copying;
    const auto write = [&source, &copying](QIODevice& output) {
        copying = CVCopyBytes(source.handle(), output);
        return copying.ok();
    };
    const auto failure = CVWriteOutputFile(target, write, spared, CVNewFile::Private);
    return copying.ok() ? failure : copying.error;
}

/// Whether the path names a version or a kept copy of one of the data files.
bool isVersion(const QString& path, const QStringList& dataFiles) {
    for (const QString& dataFile : dataFiles) {
        for (const CVListedVersion& version : CVListedVersion::of(dataFile)) {
            if (CVIsSameFile(path, version.path))
                return true;
        }
    }
    return false;
}

} // namespace

int CVHistoryOperations::bringBack(const CVDocument& version, const CVBudgetDifferences& lines) {
    CVCommitOpenEditor(mApp.mainWindow()->window()->focusWidget());
    const int count = CVBringBack(mApp.document(), version, lines);
    if (count > 0)
        mApp.mainWindow()->getStarted();
    return count;
}

bool CVHistoryOperations::returnTo(const QString& path, QWidget& asker) {
    if (CVLeadToWaitingWindow())
        return false;
    if (const QString unsaved = mApp.waitForSaves(); !unsaved.isEmpty()) {
        mAlerts.run(&asker, {tr("Your last changes are not saved"),
                             unsaved + u' ' + tr("They would be lost, so Corvella does not return to the version yet."),
                             tr("OK")});
        return false;
    }
    auto document = read(path, asker);
    if (!document || !keepPresentState(asker))
        return false;
    document->askForVersion(CVVersionReason::Return);
    document->setSaver(&mFile);
    mApp.document().setSaver(nullptr);
    const bool showsAllSets = mApp.mainWindow()->showsAllSets();
    mApp.replaceDocument(std::move(document));
    if (showsAllSets)
        mApp.mainWindow()->showAllSets();
    mApp.document().workbookSave();
    return true;
}

/// Null when the version was not read, which the user knows.
std::unique_ptr<CVDocument> CVHistoryOperations::read(const QString& path, QWidget& asker) {
    // Reading announces categories and, where it fails, sets defaults, neither of which concerns the present budget.
    CVDetachedDocument version;
    CVDocumentReader reader;
    reader.setProgress(CVReadingPanel(CVReadingPanel::Reading::EarlierVersion, &asker));
    const CVLoadReport report = reader.readFromURL(*version, path);
    if (report.outcome == CVLoadReport::Outcome::Loaded) {
        const CVDocument& present = mApp.document();
        auto document = std::make_unique<CVDocument>(present.notificationCenter(), present.userDefaults());
        document->takeRecords(*version);
        document->sortTransactionsByDate();
        document->updateDates();
        return document;
    }
    if (report.outcome != CVLoadReport::Outcome::Cancelled)
        mAlerts.run(&asker, {tr("The earlier version could not be read"),
                             tr("“%1” could not be read: %2.\n\nCorvella keeps your budget as it is.")
                                 .arg(QDir::toNativeSeparators(path), report.reason),
                             tr("OK")});
    return nullptr;
}

bool CVHistoryOperations::keepPresentState(QWidget& asker) {
    const QString dataFile = mFile.placeForSaving();
    // A file that cannot be examined may be there.
    const CVPathStatus present = CVPathStatus::of(dataFile);
    const bool isNothingThere = !present.signature && present.error.isEmpty();
    if (CVVersionLimit(mApp.document().userDefaults()) > 0 || isNothingThere)
        return true;
    const auto keeping =
        CVVersionFolder(dataFile).keepCopy(dataFile, CVVersionReason::Return, QDateTime::currentDateTime());
    if (!keeping.ok())
        mAlerts.run(&asker, {tr("Your present budget could not be kept"),
                             tr("It could not be kept as an earlier version: %1. Corvella keeps your budget as it is.")
                                 .arg(keeping.error),
                             tr("OK")});
    return keeping.ok();
}

bool CVHistoryOperations::saveCopy(const QString& path, QWidget& asker) {
    const auto location = mPanels.chooseSaveLocation(
        asker,
        {tr("Save a Copy"), tr("Save"), proposedName(path), {{tr("Corvella data"), QStringLiteral("corvella")}}});
    if (!location)
        return false;
    const QString& target = location->path;
    if (const auto failure = writeCopy(path, target)) {
        mAlerts.run(&asker, {tr("The copy was not saved"),
                             tr("The file “%1” could not be written: %2. Your budget is not affected; choose another "
                                "place and save the copy again.")
                                 .arg(QDir::toNativeSeparators(target), *failure),
                             tr("OK")});
        return false;
    }
    mApp.mainWindow()->saveStatus().remark(tr("A copy was saved as “%1”.").arg(QFileInfo(target).fileName()));
    return true;
}

QString CVHistoryOperations::proposedName(const QString& path) const {
    if (!path.isEmpty())
        return QFileInfo(path).completeBaseName();
    return tr("%1 Copy").arg(QFileInfo(mFile.placeForSaving()).completeBaseName());
}

std::optional<QString> CVHistoryOperations::writeCopy(const QString& path, const QString& target) {
    const QStringList dataFiles = mFile.dataFiles();
    if (isVersion(target, dataFiles))
        return tr("it is an earlier version of your budget");
    if (!path.isEmpty())
        return copyFile(path, target, dataFiles);
    CVCommitOpenEditor(mApp.mainWindow()->window()->focusWidget());
    const CVDocumentText text = CVDocumentXMLRepresentation(mApp.document());
    return CVWriteOutputFile(target, CVContentOfDocumentText(text), dataFiles, CVNewFile::Private);
}

QString CVHistoryOperations::moveVersions(const QString& from, const QString& to) {
    mFile.saves().waitForFinished();
    const CVVersionFolder target(to);
    CVFileResult result;
    if (QFileInfo(from).isFile() && CVVersionLimit(mApp.document().userDefaults()) > 0)
        result.error = target.keepCopy(from, CVVersionReason::Move, QDateTime::currentDateTime()).error;
    if (result.ok())
        result = CVVersionFolder(from).moveTo(target);
    QStringList failures;
    if (!result.ok())
        failures.append(tr("The earlier versions could not be moved to “%1”: %2.")
                            .arg(QDir::toNativeSeparators(target.path()), result.error));
    // They belong to the budget, wherever its versions are.
    const CVNotesFile notes(to);
    if (const CVFileResult moving = CVNotesFile(from).moveTo(notes, QDateTime::currentDateTime()); !moving.ok())
        failures.append(tr("What was learnt from imported statements could not be moved to “%1”: %2.")
                            .arg(QDir::toNativeSeparators(notes.path()), moving.error));
    return failures.join(u' ');
}
