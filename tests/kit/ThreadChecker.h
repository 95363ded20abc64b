#pragma once

/// Whether the tests are built with ThreadSanitizer. It keeps its own memory in a file, so that a program that it
/// checks does not live with a limit for the size of files.
#ifdef __SANITIZE_THREAD__
inline constexpr bool kThreadsAreChecked = true;
#else
inline constexpr bool kThreadsAreChecked = false;
#endif
