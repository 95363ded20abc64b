#pragma once

#include <QCoreApplication>

#include <memory>

class CVProgressPanel;
class QWidget;

/// Shows the progress of one reading of a data file, once that takes half a second.
class CVReadingPanel final {
    Q_DECLARE_TR_FUNCTIONS(CVReadingPanel)

public:
    /// What is read decides what Cancel means.
    enum class Reading { AtStart, OtherFile, EarlierVersion };

    /// The panel appears in front of `window`, which may be null.
    CVReadingPanel(Reading reading, QWidget* window) : mReading(reading), mWindow(window) {}

    /// Takes the part that has been read, from 0 to 1; false once the user has cancelled.
    [[nodiscard]] bool operator()(double part);

private:
    [[nodiscard]] QString whatCancelDoes() const;

    Reading mReading;
    QWidget* mWindow;
    /// Null before the reading begins.
    std::shared_ptr<CVProgressPanel> mPanel;
};
