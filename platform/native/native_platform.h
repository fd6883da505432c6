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

/// Where there is no desktop: messages and the paths of files to look at go to standard error.
std::shared_ptr<platform::Desktop> NativeDesktop();
/// Text files in UTF-8.
std::shared_ptr<platform::Files> NativeFiles();

}  // namespace korvex::native
