#include "platform/stack.h"

#include <windows.h>

namespace korvex::platform {

StackBounds ThreadStack() noexcept {
    // The reservation that holds this frame is the whole stack, of a thread or of a fibre. What is in use of
    // it is one region, from the guard page up to its top.
    MEMORY_BASIC_INFORMATION region = {};
    if (VirtualQuery(&region, &region, sizeof region) == 0) return {};
    return {reinterpret_cast<std::uintptr_t>(region.AllocationBase),
            reinterpret_cast<std::uintptr_t>(region.BaseAddress) + region.RegionSize};
}

}  // namespace korvex::platform
