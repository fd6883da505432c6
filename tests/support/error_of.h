#pragma once

#include "automation/error.h"

#include <cstdint>
#include <ostream>
#include <string>

namespace korvex::tests {

/// What an operation raised. It equals the error's number, which is 0 when there was none.
struct Raised {
    std::int32_t number = 0;
    std::string description;

    bool operator==(std::int32_t other) const { return number == other; }
    /// "13: Type mismatch", or "none".
    std::string Text() const { return number == 0 ? "none" : std::to_string(number) + ": " + description; }
};
inline void PrintTo(const Raised& raised, std::ostream* out) { *out << "error " << raised.Text(); }

template <class Work>
Raised ErrorOf(Work&& work) {
    try {
        work();
        return {};
    } catch (const automation::Error& error) {
        return {error.Number(), error.Description()};
    }
}

}  // namespace korvex::tests
