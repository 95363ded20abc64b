#include "commands/CVOffscreenApplication.h"

#include <QGuiApplication>

namespace {

constexpr const char* kPlatform = "QT_QPA_PLATFORM";

} // namespace

CVOffscreenApplication::CVOffscreenApplication(int& argc, char** argv) {
    qputenv(kPlatform, "offscreen");
    mApplication = std::make_unique<QGuiApplication>(argc, argv);
}

CVOffscreenApplication::~CVOffscreenApplication() = default;
