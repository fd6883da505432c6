#pragma once

#include "platform/files.h"

#include <memory>

namespace korvex::windows {

/// Text files in the ANSI code page of the system.
std::shared_ptr<platform::Files> WindowsFiles();

}  // namespace korvex::windows
