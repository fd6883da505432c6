#pragma once

#include "automation/error.h"
#include "automation/variant.h"
#include "support/print_variant.h"

#include <string>
#include <type_traits>

namespace korvex::automation {

/// What an operation came to: its value described, or "error 13".
template <class Operation>
std::string OutcomeOf(Operation operation) {
    try {
        if constexpr (std::is_void_v<decltype(operation())>) {
            operation();
            return "done";
        } else {
            return Describe(Variant(operation()));
        }
    } catch (const Error& error) {
        return "error " + std::to_string(error.Number());
    }
}

}  // namespace korvex::automation
