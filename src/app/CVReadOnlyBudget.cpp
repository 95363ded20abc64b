#include "app/CVReadOnlyBudget.h"

#include "app/CVErrorLine.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSettings>
#include <QTextStream>

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("CVReadOnlyBudget", text);
}

bool fail(QTextStream& errors, const QString& message) {
    CVWriteErrorLine(errors, message);
    return false;
}

} // namespace

CVReadOnlyBudget::CVReadOnlyBudget()
    : mUserDefaults(QBUserDefaults::standardStore(), QBUserDefaults::Changes::Forgotten)
    , mFolders(CVStandardFolders::ofUser())
    , mDocument(mNotificationCenter, mUserDefaults) {}

bool CVReadOnlyBudget::read(const std::optional<QString>& dataFile, QTextStream& errors) {
    // One clear line is promised; the parser's own remarks would stand beside it.
    QLoggingCategory::setFilterRules(QStringLiteral("corvella.storage=false"));
    const auto path = dataFile ? dataFile : CVStandardDataFileURL(CVLookForExisting::Yes, mFolders, mUserDefaults);
    if (!path)
        return fail(errors, tr("there is no data file yet; name one with --data FILE"));
    const QString shown = QDir::toNativeSeparators(*path);
    if (!QFileInfo::exists(*path))
        return fail(errors, tr("\"%1\" does not exist").arg(shown));
    if (!QFileInfo(*path).isFile())
        return fail(errors, tr("\"%1\" is not a file").arg(shown));

    CVDocumentFile file(mFolders, mUserDefaults);
    const CVLoadReport report = file.readFromURL(mDocument, *path);
    if (report.outcome == CVLoadReport::Outcome::Unreadable)
        return fail(errors, tr("\"%1\" could not be read: %2").arg(shown, report.reason));
    if (!report.reason.isEmpty())
        CVWriteErrorLine(errors, tr("note: %1").arg(report.reason));
    mDocument.sortTransactionsByDate();
    mDocument.updateDates();
    return true;
}
