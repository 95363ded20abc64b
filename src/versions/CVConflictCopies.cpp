#include "versions/CVConflictCopies.h"

#include "files/CVFileSignature.h"
#include "files/CVReplaceFile.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

bool CVConflictCopies::isNameOfOne(const QString& fileName, const QString& dataFile) {
    const QFileInfo file(dataFile);
    const QString begin = file.completeBaseName();
    const QString end = file.suffix().isEmpty() ? QString() : u'.' + file.suffix();
    if (fileName.size() <= begin.size() + end.size() || !fileName.startsWith(begin, Qt::CaseInsensitive) ||
        !fileName.endsWith(end, Qt::CaseInsensitive))
        return false;
    // Whose copy it is and of which day stands in the language of the other computer, in parentheses, perhaps with a
    // number behind them.
    static const QRegularExpression mark(
        QStringLiteral(
            R"(\A(?: ?\([^/]*\bconflicted copy\b[^/]*\)(?: ?\(\d+\)| \d+)?|[. ~_-]+sync-conflict\b[^/]*)\z)"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    const QString middle = fileName.chopped(end.size()).sliced(begin.size());
    return mark.match(middle).hasMatch();
}

QStringList CVConflictCopies::beside(const QString& dataFile) {
    if (dataFile.isEmpty())
        return {};
    const QString real = CVFollowLinks(dataFile);
    QStringList copies;
    for (const QFileInfo& entry : QFileInfo(real).absoluteDir().entryInfoList(QDir::Files, QDir::Name)) {
        if (isNameOfOne(entry.fileName(), real) && !CVIsSameFile(entry.filePath(), real))
            copies.append(entry.absoluteFilePath());
    }
    return copies;
}
