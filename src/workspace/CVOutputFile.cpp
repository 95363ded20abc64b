#include "workspace/CVOutputFile.h"

#include <QFileInfo>
#include <QSaveFile>

#include <unistd.h>

namespace {

std::optional<QString> writeThrough(const QString& path, const std::function<bool(QIODevice&)>& write) {
    QFile target(path);
    if (!target.open(QIODevice::WriteOnly | QIODevice::Unbuffered | QIODevice::ExistingOnly))
        return target.errorString();
    if (!write(target) || target.error() == QFileDevice::NoError)
        return std::nullopt;
    return target.errorString();
}

} // namespace

std::optional<QString> CVWriteOutputFile(const QString& path, const std::function<bool(QIODevice&)>& write) {
    if (const QFileInfo target(path); target.exists() && !target.isFile())
        return writeThrough(path, write);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    if (!write(file)) {
        file.cancelWriting();
        return std::nullopt;
    }
    // Flushed and synced here, because commit() may drop the errors of its own flush.
    const bool written = file.error() == QFileDevice::NoError && file.flush() && ::fsync(file.handle()) == 0;
    if (written && file.commit())
        return std::nullopt;
    return file.errorString();
}
