#pragma once

#include "files/CVRuntimeFolder.h"

#include <memory>

class QGuiApplication;

/// The application object for a command that needs fonts but no display.
class CVOffscreenApplication final {
public:
    /// `argc` and `argv` are those of the program.
    CVOffscreenApplication(int& argc, char** argv);
    ~CVOffscreenApplication();
    CVOffscreenApplication(const CVOffscreenApplication&) = delete;
    CVOffscreenApplication& operator=(const CVOffscreenApplication&) = delete;

private:
    CVRuntimeFolder mRuntimeFolder;
    std::unique_ptr<QGuiApplication> mApplication;
};
