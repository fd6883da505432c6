#pragma once

#include "platform/platform.h"

namespace korvex::python {

/// The parts of this build. The repository engine opens all that the command takes for a repository; the
/// desktop tells the logger "korvex": message boxes as errors and warnings, files to look at as information.
Platform HostPlatform();

}  // namespace korvex::python
