#pragma once

#include <QString>

#include <functional>

/// While this object exists, the program ends with a sentence and an exit status when the toolkit cannot connect to a
/// display; without it the toolkit would abort. The toolkit's other messages are held back and go to standard error
/// once there is a display. Only one object may exist at a time.
class CVDisplayRefusal final {
public:
    /// `sentence` becomes one line on standard error; empty when the reason has been told already. `cleanUp` runs
    /// before the program ends, because no destructor does.
    CVDisplayRefusal(const QString& sentence, int status, std::function<void()> cleanUp);
    ~CVDisplayRefusal();
    CVDisplayRefusal(const CVDisplayRefusal&) = delete;
    CVDisplayRefusal& operator=(const CVDisplayRefusal&) = delete;
};
