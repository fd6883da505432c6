#include "platform/stack.h"

#include <algorithm>

namespace korvex::platform {

namespace {

/// What the deepest level leaves to those that it calls; less on stacks that are hardly larger.
constexpr std::uintptr_t Reserve = std::uintptr_t{256} * 1024;
/// What may be used of a stack whose bounds are not known.
constexpr std::uintptr_t Assumed = std::uintptr_t{512} * 1024;

std::uintptr_t Here() noexcept { return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)); }

}  // namespace

StackGuard::StackGuard() noexcept : m_floor(Here() - Assumed) {
    const StackBounds stack = ThreadStack();
    if (stack.low <= Here() && Here() < stack.high)
        m_floor = stack.low + std::min(Reserve, (stack.high - stack.low) / 4);
}

bool StackGuard::HasRoom() const noexcept { return Here() >= m_floor; }

}  // namespace korvex::platform
