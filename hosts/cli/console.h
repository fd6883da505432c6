#pragma once

#include <ostream>
#include <string_view>

namespace korvex::cli {

/// Where a command speaks: results on standard output, messages and a progress line on standard error. The
/// progress line appears only on a terminal and never mixes with messages.
class Console {
  public:
    Console(std::ostream& results, std::ostream& messages, bool isTerminal)
        : m_results(results), m_messages(messages), m_isTerminal(isTerminal) {}
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;
    ~Console() { ClearProgress(); }

    /// The results; a pending progress line is removed first.
    std::ostream& Results();
    /// One message line, "korvex: ...", as automation::Readable shows it.
    void Message(std::string_view text);
    /// A text as it stands, with a line end behind it.
    void Text(std::string_view text);

    void Progress(std::string_view text);
    void ClearProgress();

    /// Brings the results to their reader. Raises DeviceIoError (57) when they could not be written.
    void Finish();

  private:
    std::ostream& m_results;
    std::ostream& m_messages;
    bool m_isTerminal;
    bool m_hasProgress = false;
};

}  // namespace korvex::cli
