#include "storage/CVRecoverInterruptedSaves.h"

#include "base/QBNotificationCenter.h"
#include "base/QBUserDefaults.h"
#include "model/CVDocument.h"
#include "storage/CVDocumentParserDelegate.h"
#include "storage/CVDocumentXML.h"
#include "versions/CVVersionFolder.h"

#include <QDateTime>
#include <QFile>
#include <QSettings>

namespace {

bool isWholeBudget(QFile& file) {
    QBNotificationCenter notificationCenter;
    QBUserDefaults defaults(QBUserDefaults::standardStore(), QBUserDefaults::Changes::Forgotten);
    CVDocument document(notificationCenter, defaults);
    CVDocumentParserDelegate parser(&document);
    return parser.prepareFromDevice(file) && !parser.isEncrypted() && parser.parseDocumentData() &&
           parser.readWhole() && parser.foundRoot() && parser.errorMessage().isEmpty();
}

/// Whether the bytes are the beginning of what this program writes. Another program may write the same beginning, but
/// then a cut file is no use either.
bool beginsAsWritten(QFile& file) {
    const QByteArray begin = CVBeginOfDocumentText();
    return file.seek(0) && begin.startsWith(file.read(begin.size()));
}

CVVersionFolder::Leftover judge(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return CVVersionFolder::Leftover::Unknown;
    if (isWholeBudget(file))
        return CVVersionFolder::Leftover::Whole;
    return beginsAsWritten(file) ? CVVersionFolder::Leftover::Cut : CVVersionFolder::Leftover::Unknown;
}

} // namespace

CVFileResult CVRecoverInterruptedSaves(const QString& dataFile) {
    return CVVersionFolder(dataFile).recover(judge, QDateTime::currentDateTime());
}
