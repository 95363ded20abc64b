#pragma once

#include <QString>

class QWidget;

/// What the preferences ask of the program around them.
class CVPreferenceHost {
public:
    /// Looks for a newer version and tells the user in `asker`, the window from which the user asked; returns at once.
    virtual void checkForNewVersion(QWidget& asker) = 0;
    /// Blocks until nothing is being saved. Why the last save failed, in a sentence; empty when it did not.
    [[nodiscard]] virtual QString waitForSaves() = 0;
    /// Reads the file that the user defaults name into a new document and puts it in the place of the present one.
    virtual void reopenDocument() = 0;

protected:
    ~CVPreferenceHost() = default;
};
