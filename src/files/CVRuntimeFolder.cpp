#include "files/CVRuntimeFolder.h"

#include <QFileInfo>

#include <unistd.h>

namespace {

constexpr const char* kRuntimeFolder = "XDG_RUNTIME_DIR";

} // namespace

QString CVRuntimeFolder::ofUser() {
    const QString path = qEnvironmentVariable(kRuntimeFolder);
    const QFileInfo folder(path);
    return folder.isAbsolute() && folder.isDir() && folder.ownerId() == ::geteuid() ? path : QString();
}

CVRuntimeFolder::CVRuntimeFolder() {
    if (qEnvironmentVariableIsSet(kRuntimeFolder))
        mBefore = qgetenv(kRuntimeFolder);
    if (!ofUser().isEmpty())
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
