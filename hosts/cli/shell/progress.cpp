#include "hosts/cli/shell/progress.h"

#include <cmath>
#include <utility>

namespace korvex::cli {

namespace {

using Seconds = std::chrono::duration<double>;

std::string RestText(double seconds) {
    const auto whole = static_cast<long long>(std::ceil(seconds));
    if (whole < 120) return std::to_string(whole) + " s left";
    return std::to_string((whole + 59) / 60) + " min left";
}

std::string RateText(double rate) {
    // Of what takes its time each, a minute tells more than a second.
    return rate < 1 ? std::to_string(std::llround(rate * 60)) + "/min"
                    : std::to_string(std::llround(rate)) + "/s";
}

}  // namespace

std::string ProgressText(std::string_view what, std::size_t done, std::size_t total, Seconds elapsed) {
    const bool isKnown = done <= total && total > 0;
    std::string text = std::to_string(done);
    if (isKnown) text += " of " + std::to_string(total);
    text += " " + std::string(what);
    if (done == 0 || elapsed.count() <= 0) return text;
    const double rate = static_cast<double>(done) / elapsed.count();
    text += ", " + RateText(rate);
    if (isKnown) text += ", " + RestText(static_cast<double>(total - done) / rate);
    return text;
}

Progress::Progress(Console& console, std::string what, std::size_t total)
    : m_console(console), m_what(std::move(what)), m_total(total), m_outer(console.Follow(this)) {
    if (console.m_terminals.messages) m_thread = std::thread([this] { Run(); });
}

Progress::~Progress() {
    {
        const std::scoped_lock lock(m_mutex);
        m_isOver = true;
    }
    m_end.notify_one();
    if (m_thread.joinable()) m_thread.join();
    m_console.Follow(m_outer);
}

void Progress::Run() {
    constexpr std::chrono::milliseconds first(1000);
    constexpr std::chrono::milliseconds next(200);
    std::unique_lock lock(m_mutex);
    for (auto pause = first; !m_end.wait_for(lock, pause, [this] { return m_isOver; }); pause = next)
        m_console.Show(*this,
                       ProgressText(m_what, m_done, m_total, std::chrono::steady_clock::now() - m_began));
}

}  // namespace korvex::cli
