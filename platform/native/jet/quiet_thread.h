#pragma once

#include <functional>

namespace korvex::native::jet {

/// Runs `work` to its end on a thread whose standard error leads nowhere; what it throws reaches the caller.
///
/// libmdb tells its errors on standard error and nowhere else. Turning that away for the process would take
/// the lines of a host's other threads along, so this thread has a table of file descriptors of its own: 2 is
/// another file there, and all other threads keep theirs. Where the system has no such tables (it is none of
/// Linux, or forbids it), the lines are printed.
void RunQuietly(const std::function<void()>& work);

}  // namespace korvex::native::jet
