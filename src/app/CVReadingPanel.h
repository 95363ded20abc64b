#pragma once

#include <QCoreApplication>

#include <memory>

class CVProgressPanel;

/// Shows how far the reading of the data file has come, once that takes half a second.
class CVReadingPanel final {
    Q_DECLARE_TR_FUNCTIONS(CVReadingPanel)

public:
    /// Which part has been read, from 0, when the reading begins, to 1; false once the user has cancelled.
    [[nodiscard]] bool operator()(double part);

private:
    /// Null before the reading begins.
    std::shared_ptr<CVProgressPanel> mPanel;
};
