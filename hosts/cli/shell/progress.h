#pragma once

#include "hosts/cli/console.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace korvex::cli {

/// "1200 of 5000 objects, 400/s, 10 s left"; without a total, or beyond it, "1200 objects, 400/s".
std::string ProgressText(std::string_view what, std::size_t done, std::size_t total,
                         std::chrono::duration<double> elapsed);

/// A piece of work whose progress stands on the console, if that is a terminal: from its second second on,
/// again and again, also while one step takes its time; nothing more once the object is gone. Console::Step()
/// counts. Work within work is shown in place of the outer one, which goes on counting behind it.
class Progress {
  public:
    /// `what` is done, in the plural; 0 for a total that is not known.
    Progress(Console& console, std::string what, std::size_t total = 0);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

  private:
    friend class Console;

    void Step() noexcept { ++m_done; }
    void Run();

    Console& m_console;
    std::string m_what;
    std::size_t m_total;
    std::chrono::steady_clock::time_point m_began = std::chrono::steady_clock::now();
    std::atomic<std::size_t> m_done = 0;
    Progress* m_outer;
    std::mutex m_mutex;
    std::condition_variable m_end;
    bool m_isOver = false;
    std::thread m_thread;  ///< none where nobody would see the line
};

}  // namespace korvex::cli
