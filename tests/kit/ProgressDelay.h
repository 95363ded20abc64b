#pragma once

#include "widgets/CVProgressDelay.h"
#include "widgets/CVProgressPanel.h"

#include <limits>

/// Makes progress panels appear at the first step, or never, as long as this object lives, so that a test does not
/// depend on the clock.
class ProgressDelay final {
public:
    static ProgressDelay none() { return ProgressDelay(0); }
    static ProgressDelay forEver() { return ProgressDelay(std::numeric_limits<int>::max()); }
    ~ProgressDelay() { CVProgressPanel::setDelay(kCVProgressDelay); }
    ProgressDelay(const ProgressDelay&) = delete;
    ProgressDelay& operator=(const ProgressDelay&) = delete;

private:
    explicit ProgressDelay(int milliseconds) { CVProgressPanel::setDelay(milliseconds); }
};
