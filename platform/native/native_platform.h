#pragma once

#include "platform/native/sql/seam.h"
#include "platform/platform.h"

#include <memory>

namespace korvex::native {

struct NativeOptions {
    /// Sees every engine call of both engines; null for none.
    std::shared_ptr<sql::Seam> seam;
};

/// The native parts: embedded SQLite and ODBC under both engines, reports on standard error in place of a
/// desktop.
Platform NativePlatform(const NativeOptions& options = {});

}  // namespace korvex::native
