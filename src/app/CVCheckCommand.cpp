#include "app/CVCheckCommand.h"

#include "model/CVDocument.h"
#include "shared/base/QBNotificationCenter.h"
#include "shared/base/QBUserDefaults.h"
#include "storage/CVDocumentFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSettings>
#include <QTextStream>

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("CVCheckCommand", text);
}

int fail(QTextStream& errors, const QString& message) {
    errors << "corvella: " << message << Qt::endl;
    return 1;
}

} // namespace

int CVRunCheck(const std::optional<QString>& dataFile, QTextStream& output, QTextStream& errors) {
    // One clear line is promised; the parser's own remarks would stand beside it.
    QLoggingCategory::setFilterRules(QStringLiteral("corvella.storage=false"));
    QBUserDefaults defaults(QBUserDefaults::standardStore(), QBUserDefaults::Changes::Forgotten);
    const CVStandardFolders folders = CVStandardFolders::ofUser();
    const auto path = dataFile ? dataFile : CVStandardDataFileURL(CVLookForExisting::Yes, folders, defaults);
    if (!path)
        return fail(errors, tr("there is no data file yet; name one with --data FILE"));
    const QString shown = QDir::toNativeSeparators(*path);
    if (!QFileInfo::exists(*path))
        return fail(errors, tr("\"%1\" does not exist").arg(shown));
    if (!QFileInfo(*path).isFile())
        return fail(errors, tr("\"%1\" is not a file").arg(shown));

    QBNotificationCenter notifications;
    CVDocument document(notifications, defaults);
    CVDocumentFile file(folders, defaults);
    const CVLoadReport report = file.readFromURL(document, *path);
    if (report.outcome == CVLoadReport::Outcome::Unreadable)
        return fail(errors, tr("\"%1\" could not be read: %2").arg(shown, report.reason));
    if (!report.reason.isEmpty())
        errors << "corvella: " << tr("note: %1").arg(report.reason) << Qt::endl;
    output << "transactions: " << document.transactions().size() << '\n'
           << "categories: " << document.countOfCategories() << '\n'
           << "transaction sets: " << document.countOfTransactionSets() << '\n'
           << "current set: " << document.currentTransactionSet() << Qt::endl;
    return 0;
}
