#pragma once

#include <QCoreApplication>

#include <memory>

class CVProgressPanel;

/// Shows the progress of reading the data file, once that takes half a second.
class CVReadingPanel final {
    Q_DECLARE_TR_FUNCTIONS(CVReadingPanel)

public:
    /// Takes the part that has been read, from 0 to 1; false once the user has cancelled.
    [[nodiscard]] bool operator()(double part);

private:
    /// Null before the reading begins.
    std::shared_ptr<CVProgressPanel> mPanel;
};
