#include "storage/CVRecoverInterruptedSaves.h"

#include "model/CVDetachedDocument.h"
#include "storage/CVDocumentParserDelegate.h"
#include "storage/CVDocumentXML.h"
#include "storage/CVExaminedSource.h"
#include "versions/CVVersionFolder.h"

#include <QDateTime>
#include <QFile>

#include <new>

namespace {

using Leftover = CVVersionFolder::Leftover;

/// Whether the bytes are the beginning of what this program writes. Another program may write the same beginning, but
/// then a cut file is no use either.
bool beginsAsWritten(QFile& file) {
    const QByteArray begin = CVBeginOfDocumentText();
    file.seek(0);
    const QByteArray present = file.read(begin.size());
    return file.error() == QFileDevice::NoError && begin.startsWith(present);
}

/// What was not read to its end for another reason than its content is not judged.
Leftover judge(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > CVExaminedSource::kLargestFile)
        return Leftover::Unknown;
    try {
        CVDetachedDocument detached;
        CVDocumentParserDelegate parser(&*detached);
        const bool isWhole = parser.prepareFromDevice(file) && !parser.isEncrypted() && parser.parseDocumentData() &&
                             parser.readWhole() && parser.foundRoot();
        if (isWhole)
            return Leftover::Whole;
        return !parser.wasBrokenOff() && beginsAsWritten(file) ? Leftover::Cut : Leftover::Unknown;
    } catch (const std::bad_alloc&) {
        return Leftover::Unknown;
    }
}

} // namespace

CVFileResult CVRecoverInterruptedSaves(const QString& dataFile) {
    return CVVersionFolder(dataFile).recover(judge, QDateTime::currentDateTime());
}
