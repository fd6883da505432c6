#pragma once

namespace korvex::tests {

/// Whether sanitizers watch this build: it takes many times as long then, and as much stack.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool IsInstrumented = true;
#elif defined(__has_feature)
inline constexpr bool IsInstrumented = __has_feature(address_sanitizer);
#else
inline constexpr bool IsInstrumented = false;
#endif

}  // namespace korvex::tests
