#pragma once

#include <cstdint>

namespace korvex::platform {

/// Addresses of a stack, which grows from `high` down to `low`.
struct StackBounds {
    std::uintptr_t low = 0;
    std::uintptr_t high = 0;
};

/// The whole stack of the calling thread, as the system has reserved it; empty when the system does not tell.
/// Code on a stack of its own making (a coroutine) may stand outside of it. One per platform.
StackBounds ThreadStack() noexcept;

/// Made where something recursive begins, and asked at each of its levels, on the same thread.
class StackGuard {
  public:
    StackGuard() noexcept;

    /// Whether there is stack left for one more level and all that it calls: engines, drivers, a host's
    /// objects.
    bool HasRoom() const noexcept;

  private:
    std::uintptr_t m_floor;  ///< no level may stand below it
};

}  // namespace korvex::platform
