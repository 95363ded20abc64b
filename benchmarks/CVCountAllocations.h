#pragma once

#include <cstddef>

/// The number of allocations of the calling thread so far, those of the toolkit included.
[[nodiscard]] std::size_t CVCountAllocations();
