#include "CVCountAllocations.h"

#include <cstdlib>

namespace {

thread_local std::size_t allocations = 0;

} // namespace

// The C library's own functions, which the three replacements below call; its free() frees their memory.
extern "C" {
// NOLINTBEGIN(bugprone-reserved-identifier, cert-dcl37-c, cert-dcl51-cpp)
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
// NOLINTEND(bugprone-reserved-identifier, cert-dcl37-c, cert-dcl51-cpp)

void* malloc(std::size_t size) noexcept {
    ++allocations;
    return __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) noexcept {
    ++allocations;
    return __libc_calloc(count, size);
}

void* realloc(void* memory, std::size_t size) noexcept {
    ++allocations;
    return __libc_realloc(memory, size);
}
}

std::size_t CVCountAllocations() {
    return allocations;
}
