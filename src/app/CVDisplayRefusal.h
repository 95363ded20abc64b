#pragma once

#include <QString>

#include <functional>

/// While it exists, a toolkit that cannot connect to a display ends the program with a sentence and an exit status,
/// where it would abort. What the toolkit remarks meanwhile goes to standard error once there is a display. One at a
/// time.
class CVDisplayRefusal final {
public:
    /// `sentence` becomes one line on standard error; where it is empty, what is wrong was said already. Then
    /// `cleanUp` runs: no other object is taken down.
    CVDisplayRefusal(const QString& sentence, int status, std::function<void()> cleanUp);
    ~CVDisplayRefusal();
    CVDisplayRefusal(const CVDisplayRefusal&) = delete;
    CVDisplayRefusal& operator=(const CVDisplayRefusal&) = delete;
};
