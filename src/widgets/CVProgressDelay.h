#pragma once

/// Work that takes longer than this shows its progress; a panel that flashes up would only disturb. In milliseconds.
inline constexpr int kCVProgressDelay = 500;
