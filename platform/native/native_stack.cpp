#include "platform/stack.h"

#include <pthread.h>

namespace korvex::platform {

namespace {

StackBounds AskForThreadStack() noexcept {
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) return {};
    void* low = nullptr;
    std::size_t size = 0;
    const bool isKnown = pthread_attr_getstack(&attributes, &low, &size) == 0;
    pthread_attr_destroy(&attributes);
    if (!isKnown) return {};
    const auto bottom = reinterpret_cast<std::uintptr_t>(low);
    return {bottom, bottom + size};
}

}  // namespace

StackBounds ThreadStack() noexcept {
    // For a main thread the system reads its own tables: that is asked once.
    thread_local const StackBounds bounds = AskForThreadStack();
    return bounds;
}

}  // namespace korvex::platform
