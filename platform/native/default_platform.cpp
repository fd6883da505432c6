#include "platform/native/native_platform.h"

namespace korvex {

Platform DefaultPlatform() { return native::NativePlatform(); }

}  // namespace korvex
