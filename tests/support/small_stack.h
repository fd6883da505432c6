#pragma once

#include <cstddef>
#include <pthread.h>
#include <stdexcept>

namespace korvex::tests {

/// Runs `work` on threads with stacks of four, two and one megabyte.
template <class Work>
void RunOnSmallStacks(Work work) {
    const auto run = [](void* argument) -> void* {
        (*static_cast<Work*>(argument))();
        return nullptr;
    };
    for (const unsigned megabytes : {4U, 2U, 1U}) {
        pthread_attr_t attributes;
        pthread_attr_init(&attributes);
        pthread_attr_setstacksize(&attributes, megabytes << 20);
        pthread_t thread{};
        const int failure = pthread_create(&thread, &attributes, run, &work);
        pthread_attr_destroy(&attributes);
        if (failure != 0) throw std::runtime_error("no thread");
        pthread_join(thread, nullptr);
    }
}

}  // namespace korvex::tests
