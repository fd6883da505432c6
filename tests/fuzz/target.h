#pragma once

#include "automation/error.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

/// What every fuzz target shares. A target may refuse its input with an automation error and with nothing
/// else; whatever else ends it (a crash, another exception, a broken promise) is a finding.
namespace korvex::fuzz {

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// Says whether `work` went through.
template <class Work>
bool Accepts(Work&& work) {
    try {
        work();
        return true;
    } catch (const automation::Error&) {
        return false;
    }
}

/// Ends the program, with the input as the finding, unless the promise is kept.
inline void Expect(bool isKept, const char* promise) {
    if (isKept) return;
    std::fprintf(stderr, "broken: %s\n", promise);
    std::abort();
}

}  // namespace korvex::fuzz
