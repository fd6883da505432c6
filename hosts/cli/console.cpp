#include "hosts/cli/console.h"

#include "automation/error.h"
#include "automation/text.h"

#include <string>

namespace korvex::cli {

std::ostream& Console::Results() {
    ClearProgress();
    return m_results;
}

void Console::Message(std::string_view text) {
    constexpr std::size_t longest = 2000;
    Text("korvex: " + automation::Readable(text, longest));
}

void Console::Text(std::string_view text) {
    ClearProgress();
    // Results written so far stand before the message when both go to the same place.
    m_results.flush();
    m_messages << text << '\n' << std::flush;
}

void Console::Progress(std::string_view text) {
    if (!m_isTerminal) return;
    m_messages << "\r\033[K" << text << std::flush;
    m_hasProgress = true;
}

void Console::ClearProgress() {
    if (!m_hasProgress) return;
    m_messages << "\r\033[K" << std::flush;
    m_hasProgress = false;
}

void Console::Finish() {
    ClearProgress();
    if (!m_results.flush()) {
        throw automation::Error(automation::DeviceIoError, "The results cannot be written.");
    }
}

}  // namespace korvex::cli
