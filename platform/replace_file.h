#pragma once

#include "automation/error.h"

#include <algorithm>
#include <cstdint>
#include <span>

namespace korvex::platform {

/// What a code of the system's says of a file.
struct FileFailure {
    std::int64_t code;
    std::int32_t number;  ///< the automation runtime's
};

/// The runtime's number for a code; PathFileAccessError for one that is not among the known ones.
inline std::int32_t NumberOf(std::int64_t code, std::span<const FileFailure> known) noexcept {
    const auto found = std::ranges::find(known, code, &FileFailure::code);
    return found == known.end() ? automation::PathFileAccessError : found->number;
}

/// How a file gets a new text on every platform. `replace` writes the text beside the file and renames it.
/// Where rights forbid that (PermissionDenied), `overwrite` writes into the file itself; it answers false
/// when there is none that may be written, and the refusal stands.
template <class Replace, class Overwrite>
void ReplaceOrOverwrite(Replace replace, Overwrite overwrite) {
    try {
        replace();
    } catch (const automation::Error& refusal) {
        if (refusal.Number() != automation::PermissionDenied || !overwrite()) throw;
    }
}

}  // namespace korvex::platform
