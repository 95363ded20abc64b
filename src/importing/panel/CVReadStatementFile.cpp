#include "importing/panel/CVReadStatementFile.h"

#include "format/QBLocale.h"
#include "importing/CVReadStatement.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

namespace {

struct StatementFile {
    Q_DECLARE_TR_FUNCTIONS(CVReadStatementFile)
};

constexpr qint64 kMegabyte = qint64(1) << 20;

QString whyNotOpened(const QString& reason) {
    return StatementFile::tr("This file cannot be opened: %1.").arg(reason);
}

QString tooLarge() {
    return StatementFile::tr("This file is larger than %1 megabytes, so it is no statement. Choose the file that your "
                             "bank has given you, or a shorter period there.")
        .arg(QBLocaleInForce().toString(kCVLargestStatement / kMegabyte));
}

} // namespace

std::pair<QByteArray, QString> CVReadStatementFile(const QString& path, const CVLatestWork::IsWanted& isWanted) {
    const QFileInfo info(path);
    // Opening a pipe would wait for its other end.
    if (info.exists() && !info.isFile())
        return {{}, whyNotOpened(StatementFile::tr("it is no file"))};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return {{}, whyNotOpened(file.errorString())};
    QByteArray bytes;
    while (isWanted()) {
        const QByteArray piece = file.read(kMegabyte);
        if (piece.isEmpty())
            break;
        bytes += piece;
        if (bytes.size() > kCVLargestStatement)
            return {{}, tooLarge()};
    }
    if (file.error() != QFileDevice::NoError)
        return {{}, StatementFile::tr("This file cannot be read to its end: %1.").arg(file.errorString())};
    return {bytes, {}};
}
