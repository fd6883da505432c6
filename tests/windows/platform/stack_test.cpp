#include "platform/stack.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <cstdint>

namespace korvex::tests {
namespace {

/// Goes down as long as there is room; the answer is where the last level stood.
std::uintptr_t Deepest(const platform::StackGuard& guard) {
    volatile char frame[1024];
    frame[0] = 0;
    const auto here = reinterpret_cast<std::uintptr_t>(&frame);
    const std::uintptr_t deepest = guard.HasRoom() ? Deepest(guard) : here;
    return frame[0] == 0 ? deepest : here;
}

DWORD WINAPI UseStack(void* used) {
    const platform::StackGuard guard;
    *static_cast<std::uintptr_t*>(used) = reinterpret_cast<std::uintptr_t>(&guard) - Deepest(guard);
    return 0;
}

TEST(WindowsStackTest, AllButAReserveOfAThreadsStackIsUsed) {
    for (const std::uintptr_t kilobytes : {1024, 8192}) {
        const std::uintptr_t size = kilobytes * 1024;
        std::uintptr_t used = 0;
        const HANDLE thread =
            CreateThread(nullptr, size, UseStack, &used, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
        ASSERT_NE(thread, nullptr);
        WaitForSingleObject(thread, INFINITE);
        CloseHandle(thread);
        EXPECT_GT(used, size / 2) << kilobytes;
        EXPECT_LT(used, size - size / 64) << kilobytes;
    }
}

}  // namespace
}  // namespace korvex::tests
