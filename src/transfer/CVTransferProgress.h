#pragma once

#include <cstddef>
#include <functional>

/// Called from time to time with the number of transactions that are done; false ends the writing.
using CVTransferProgress = std::function<bool(std::size_t done)>;

/// The number of transactions between two calls.
inline constexpr std::size_t kCVBetweenTransferReports = 4096;
