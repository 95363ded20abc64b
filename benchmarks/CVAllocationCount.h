#pragma once

#include <cstddef>

/// How often the calling thread has asked for memory so far, the toolkit's requests included.
[[nodiscard]] std::size_t CVAllocationCount();
