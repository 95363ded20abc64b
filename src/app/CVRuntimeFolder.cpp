#include "app/CVRuntimeFolder.h"

#include <QFileInfo>

#include <unistd.h>

namespace {

constexpr const char* kRuntimeFolder = "XDG_RUNTIME_DIR";

/// One that others may enter stays in use, with the toolkit's complaint: the session's display may lie in it.
bool isOfThisUser(const QString& path) {
    const QFileInfo folder(path);
    return folder.isDir() && folder.ownerId() == ::geteuid();
}

} // namespace

CVRuntimeFolder::CVRuntimeFolder() {
    if (qEnvironmentVariableIsSet(kRuntimeFolder))
        mBefore = qgetenv(kRuntimeFolder);
    if (isOfThisUser(QFile::decodeName(mBefore.value_or(QByteArray()))))
        return;
    mOwn.emplace();
    if (mOwn->isValid())
        qputenv(kRuntimeFolder, QFile::encodeName(mOwn->path()));
}

CVRuntimeFolder::~CVRuntimeFolder() {
    if (mBefore)
        qputenv(kRuntimeFolder, *mBefore);
    else
        qunsetenv(kRuntimeFolder);
}
