#pragma once

/// Work that takes longer than this shows its progress. Shorter work shows none, because a panel that flashes up would
/// only disturb. In milliseconds.
inline constexpr int kCVProgressDelay = 500;
