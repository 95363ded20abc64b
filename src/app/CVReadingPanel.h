#pragma once

#include <QCoreApplication>

#include <memory>

class CVProgressPanel;

/// Shows how far the reading of the data file has come, once that takes half a second.
class CVReadingPanel final {
    Q_DECLARE_TR_FUNCTIONS(CVReadingPanel)

public:
    CVReadingPanel();

    /// Which part has been read, from 0 to 1; false once the user has cancelled.
    [[nodiscard]] bool operator()(double part) const;

private:
    std::shared_ptr<CVProgressPanel> mPanel;
};
