#include "hosts/cli/console.h"

#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/shell/progress.h"

#include <nlohmann/json.hpp>

#include <iostream>
#include <unistd.h>
#include <utility>

namespace korvex::cli {

using Json = nlohmann::ordered_json;

Console::Console(std::ostream& results, std::ostream& messages, Terminals terminals)
    : m_results(results), m_messages(messages), m_terminals(terminals) {}

Console::~Console() = default;

std::ostream& Console::Results() {
    if (m_terminals.results) {
        const std::scoped_lock lock(m_mutex);
        Clear();
    }
    return m_results;
}

void Console::Result(std::string_view line) {
    const bool isColoured = m_terminals.results && m_terminals.takesColours;
    Results() << (isColoured ? Coloured(line) : line) << '\n';
}

void Console::Lines(std::span<const std::string> lines) {
    for (const std::string& line : lines)
        Results() << line << '\n';
}

void Console::Message(std::string_view text) {
    constexpr std::size_t longest = 2000;
    const std::string line = automation::Readable(text, longest);
    const bool isColoured = m_terminals.messages && m_terminals.takesColours;
    Text("korvex: " + (isColoured ? Coloured(line) : line));
    m_said.push_back(line);
}

void Console::TellLeftOut(std::span<const std::string> leftOut) {
    for (const std::string& what : leftOut)
        Message("Left out: " + what);
}

void Console::Text(std::string_view text) {
    const std::scoped_lock lock(m_mutex);
    Clear();
    // Results written so far stand before the message when both go to the same place.
    m_results.flush();
    m_messages << text << '\n' << std::flush;
}

void Console::Error(std::int32_t number, std::string_view description) {
    Message("error " + std::to_string(number) + ": " + std::string(description));
    if (m_document) (*m_document)["error"] = {{"number", number}, {"description", description}};
}

void Console::ExpectConsent(const std::string& question, const std::string& flag) {
    if (isatty(STDIN_FILENO) != 1) {
        throw automation::Error(automation::InvalidProcedureCall,
                                question + " Nobody can be asked here: say so with " + flag + ".");
    }
    Text(question + " [y/N]");
    std::string answer;
    std::getline(std::cin, answer);
    if (answer != "y" && answer != "yes")
        throw automation::Error(automation::InvalidProcedureCall, "Nothing was dropped.");
}

void Console::UseDocument() { m_document = std::make_unique<Json>(Json::object()); }

void Console::Step() {
    const std::scoped_lock lock(m_mutex);
    m_waits = false;
    if (m_progress != nullptr) m_progress->Step();
}

Progress* Console::Follow(Progress* progress) {
    const std::scoped_lock lock(m_mutex);
    Clear();
    m_waits = false;
    return std::exchange(m_progress, progress);
}

void Console::Show(const Progress& progress, std::string_view line) {
    const std::scoped_lock lock(m_mutex);
    if (m_waits || m_progress != &progress) return;
    m_messages << "\r\033[K" << line << std::flush;
    m_isShown = true;
}

void Console::Clear() {
    m_waits = true;
    if (m_isShown) m_messages << "\r\033[K" << std::flush;
    m_isShown = false;
}

void Console::Finish() {
    if (m_document) {
        (*m_document)["messages"] = m_said;
        Results() << m_document->dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
        m_document.reset();
    }
    if (!m_results.flush()) {
        throw automation::Error(automation::DeviceIoError, "The results cannot be written.");
    }
}

}  // namespace korvex::cli
