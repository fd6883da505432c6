#pragma once

#include <atomic>
#include <cstddef>
#include <string>
#include <thread>

namespace korvex::bench {

/// Stands between a client and a server on local sockets and counts how often the client has to wait for the
/// server: what the server says until the client speaks again is one reply. Serves one client after another.
class ReplyCounter {
  public:
    /// Listens at the path `listen`, which must not exist, and passes everything on to `server`.
    ReplyCounter(const std::string& listen, std::string server);
    ReplyCounter(const ReplyCounter&) = delete;
    ReplyCounter& operator=(const ReplyCounter&) = delete;
    ~ReplyCounter();

    /// Replies since the last call.
    std::size_t Take() noexcept { return m_replies.exchange(0); }

  private:
    void Serve();
    void Relay(int client);

    std::string m_server;
    int m_listener = -1;
    int m_stop[2] = {-1, -1};
    std::atomic<std::size_t> m_replies = 0;
    std::thread m_thread;
};

}  // namespace korvex::bench
