#pragma once

#include "platform/desktop.h"

#include <memory>

namespace korvex::windows {

/// Message boxes and notepad.exe.
std::shared_ptr<platform::Desktop> WindowsDesktop();

}  // namespace korvex::windows
