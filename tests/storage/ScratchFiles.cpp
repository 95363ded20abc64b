#include "storage/ScratchFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QIODevice::WriteOnly) ||
        file.write(bytes) != bytes.size() || !file.flush())
        qFatal("cannot write %s", qPrintable(path));
}

QByteArray readFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    return bytes.isNull() ? QByteArray("") : bytes;
}

QStringList namesIn(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

int modeOf(const QString& path) {
    struct stat status {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? static_cast<int>(status.st_mode & 07777) : -1;
}

void setMode(const QString& path, unsigned mode) {
    if (::chmod(QFile::encodeName(path).constData(), mode) != 0)
        qFatal("cannot change the mode of %s", qPrintable(path));
}

void makeLink(const QString& target, const QString& path) {
    if (::symlink(QFile::encodeName(target).constData(), QFile::encodeName(path).constData()) != 0)
        qFatal("cannot link %s", qPrintable(path));
}

CVDocumentText textOf(const QByteArray& bytes) {
    CVTextArena arena;
    CVDocumentText text;
    text.append(arena.add(bytes.size(), [&](char* out) { return std::copy(bytes.begin(), bytes.end(), out); }));
    return text;
}
