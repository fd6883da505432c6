#include "platform/stack.h"

#include <windows.h>

namespace korvex::platform {

StackBounds ThreadStack() noexcept {
    // The reservation that holds this frame is the whole stack, of a thread or of a fibre.
    MEMORY_BASIC_INFORMATION region = {};
    if (VirtualQuery(&region, &region, sizeof region) == 0) return {};
    const auto* const block = reinterpret_cast<const NT_TIB*>(NtCurrentTeb());
    return {reinterpret_cast<std::uintptr_t>(region.AllocationBase),
            reinterpret_cast<std::uintptr_t>(block->StackBase)};
}

}  // namespace korvex::platform
