// Whether the build has a sanitizer. Tests that only call a program may be compiled without; they say
// TESSARA_SANITIZED.
#pragma once

namespace tessara::testing {

#if defined(TESSARA_SANITIZED) || defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool IS_SANITIZED = true;
#elif defined(__has_feature)
inline constexpr bool IS_SANITIZED = __has_feature(address_sanitizer) || __has_feature(thread_sanitizer);
#else
inline constexpr bool IS_SANITIZED = false;
#endif

// How many random samples a test draws that compares numbers: fewer with a sanitizer, which is slow and looks
// for something else.
constexpr int Samples(int count) {
    return IS_SANITIZED ? count / 10 : count;
}

}  // namespace tessara::testing
