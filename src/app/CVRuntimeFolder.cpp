#include "app/CVRuntimeFolder.h"

#include <QFileInfo>

#include <unistd.h>

namespace {

constexpr const char* kRuntimeFolder = "XDG_RUNTIME_DIR";

/// As the toolkit wants it: a folder of this user's that nobody else may enter.
bool isOfThisUser(const QString& path) {
    constexpr auto kOthers = QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ExeGroup |
                             QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther;
    const QFileInfo folder(path);
    return folder.isDir() && folder.ownerId() == ::geteuid() && !(folder.permissions() & kOthers);
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
