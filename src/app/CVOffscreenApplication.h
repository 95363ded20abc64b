#pragma once

#include <QTemporaryDir>

#include <memory>

class QGuiApplication;

/// The application object of a command that needs fonts but no display. While the toolkit starts it looks for a display
/// all the same, in a folder that it makes, with a complaint, where the system provides none: then it gets one of its
/// own, which goes with this object.
class CVOffscreenApplication final {
public:
    /// `argc` and `argv` are those of the program.
    CVOffscreenApplication(int& argc, char** argv);
    ~CVOffscreenApplication();
    CVOffscreenApplication(const CVOffscreenApplication&) = delete;
    CVOffscreenApplication& operator=(const CVOffscreenApplication&) = delete;

private:
    std::unique_ptr<QTemporaryDir> mRuntimeFolder;
    std::unique_ptr<QGuiApplication> mApplication;
};
