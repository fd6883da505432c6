#pragma once

#include "automation/error.h"

namespace korvex::platform {

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
