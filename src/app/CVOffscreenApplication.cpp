#include "app/CVOffscreenApplication.h"

#include <QGuiApplication>

namespace {

constexpr const char* kPlatform = "QT_QPA_PLATFORM";
constexpr const char* kRuntimeFolder = "XDG_RUNTIME_DIR";

} // namespace

CVOffscreenApplication::CVOffscreenApplication(int& argc, char** argv) {
    qputenv(kPlatform, "offscreen");
    if (!qEnvironmentVariableIsSet(kRuntimeFolder)) {
        mRuntimeFolder = std::make_unique<QTemporaryDir>();
        qputenv(kRuntimeFolder, mRuntimeFolder->path().toLocal8Bit());
    }
    mApplication = std::make_unique<QGuiApplication>(argc, argv);
}

CVOffscreenApplication::~CVOffscreenApplication() = default;
