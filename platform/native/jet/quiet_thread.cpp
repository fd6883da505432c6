#include "platform/native/jet/quiet_thread.h"

#include <csignal>
#include <fcntl.h>
#include <future>
#include <unistd.h>
#ifdef __linux__
#include <climits>
#include <sched.h>
#endif

namespace korvex::native::jet {

namespace {

/// Gives the calling thread its own copy of the process's table of file descriptors.
bool HasOwnDescriptors() noexcept {
#ifdef __linux__
    // Containers often forbid the first. The second closes a descriptor that nobody has.
    return ::unshare(CLONE_FILES) == 0 || ::close_range(UINT_MAX, UINT_MAX, CLOSE_RANGE_UNSHARE) == 0;
#else
    return false;
#endif
}

void BeQuiet() noexcept {
    // A host's signal handler would find the wrong descriptors here.
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, nullptr);
    if (!HasOwnDescriptors()) return;
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere >= 0) ::dup2(nowhere, STDERR_FILENO);
}

}  // namespace

void RunQuietly(const std::function<void()>& work) {
    std::async(std::launch::async, [&work] {
        BeQuiet();
        work();
    }).get();
}

}  // namespace korvex::native::jet
