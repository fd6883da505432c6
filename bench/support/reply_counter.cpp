#include "support/reply_counter.h"

#include <array>
#include <cstring>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace korvex::bench {
namespace {

sockaddr_un AddressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) throw std::runtime_error("too long for a socket: " + path);
    std::memcpy(address.sun_path, path.c_str(), path.size());
    return address;
}

int NewSocket(const std::string& path, int (*use)(int, const sockaddr*, socklen_t)) {
    const sockaddr_un address = AddressOf(path);
    const int handle = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (handle >= 0 && use(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
        return handle;
    close(handle);
    throw std::runtime_error("no socket at " + path + ": " + std::strerror(errno));
}

/// Passes on what has come; false at the end.
bool Pass(int from, int to) {
    std::array<char, 65536> buffer{};
    const ssize_t count = read(from, buffer.data(), buffer.size());
    for (ssize_t sent = 0; sent < count;) {
        const ssize_t more =
            send(to, buffer.data() + sent, static_cast<std::size_t>(count - sent), MSG_NOSIGNAL);
        if (more <= 0) return false;
        sent += more;
    }
    return count > 0;
}

}  // namespace

ReplyCounter::ReplyCounter(const std::string& listen, std::string server) : m_server(std::move(server)) {
    m_listener = NewSocket(listen, bind);
    if (::listen(m_listener, 8) != 0 || pipe(m_stop) != 0) throw std::runtime_error("no socket at " + listen);
    m_thread = std::thread([this] { Serve(); });
}

ReplyCounter::~ReplyCounter() {
    close(m_stop[1]);
    m_thread.join();
    close(m_stop[0]);
    close(m_listener);
}

void ReplyCounter::Serve() {
    for (;;) {
        std::array<pollfd, 2> waits = {pollfd{m_listener, POLLIN, 0}, pollfd{m_stop[0], POLLIN, 0}};
        if (poll(waits.data(), waits.size(), -1) < 0 || waits[1].revents != 0) return;
        const int client = accept(m_listener, nullptr, nullptr);
        if (client < 0) return;
        Relay(client);
        close(client);
    }
}

void ReplyCounter::Relay(int client) {
    int server = -1;
    try {
        server = NewSocket(m_server, connect);
    } catch (const std::runtime_error&) {
        return;  // the client sees its connection close
    }
    bool asked = true;  // a server may speak first
    for (bool open = true; open;) {
        std::array<pollfd, 3> waits = {pollfd{client, POLLIN, 0}, pollfd{server, POLLIN, 0},
                                       pollfd{m_stop[0], POLLIN, 0}};
        if (poll(waits.data(), waits.size(), -1) < 0 || waits[2].revents != 0) break;
        if (waits[1].revents != 0) {
            open = Pass(server, client);
            if (open && std::exchange(asked, false)) ++m_replies;
        } else if (waits[0].revents != 0) {
            open = Pass(client, server);
            asked = true;
        }
    }
    close(server);
}

}  // namespace korvex::bench
