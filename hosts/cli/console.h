#pragma once

#include "hosts/cli/shell/terminal.h"

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <memory>
#include <mutex>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::cli {

class Progress;

/// Where a command speaks: results on standard output, messages and a progress line on standard error. The
/// progress line appears only on a terminal and never mixes with messages; severities are coloured there.
///
/// Where machines read, the results are one JSON document: Finish prints it, with all messages in it, and
/// with the error that ended the command.
class Console {
  public:
    Console(std::ostream& results, std::ostream& messages, Terminals terminals = {});
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;
    ~Console();

    /// The results; a pending progress line is removed first.
    std::ostream& Results();
    /// One line of the results, which may begin with a severity.
    void Result(std::string_view line);
    /// Results, one a line.
    void Lines(std::span<const std::string> lines);
    /// One message line, "korvex: ...", as automation::Readable shows it.
    void Message(std::string_view text);
    /// Messages about what a result lacks, "Left out: ...".
    void TellLeftOut(std::span<const std::string> leftOut);
    /// A text as it stands, with a line end behind it.
    void Text(std::string_view text);
    /// The message about the error that ends the command.
    void Error(std::int32_t number, std::string_view description);

    /// Asks whoever sits at the terminal; InvalidProcedureCall (5) when nobody does (`flag` would have
    /// answered), or the answer is no.
    void ExpectConsent(const std::string& question, const std::string& flag);

    /// From now on the results are a document.
    void UseDocument();
    /// What it holds so far; nullptr where people read.
    nlohmann::ordered_json* Document() noexcept { return m_document.get(); }

    /// A step of the work whose progress is shown, if there is one.
    void Step();

    /// Brings the results to their reader. Raises DeviceIoError (57) when they could not be written.
    void Finish();

  private:
    friend class Progress;

    /// Makes `progress` the one that is shown; the one before it.
    Progress* Follow(Progress* progress);
    void Show(const Progress& progress, std::string_view line);
    /// Removes the line; none appears before the next step, because somebody else writes.
    void Clear();

    std::ostream& m_results;
    std::ostream& m_messages;
    Terminals m_terminals;
    std::unique_ptr<nlohmann::ordered_json> m_document;
    std::vector<std::string> m_said;
    std::mutex m_mutex;  ///< of what follows, and of standard error
    Progress* m_progress = nullptr;
    bool m_isShown = false;
    bool m_waits = false;
};

}  // namespace korvex::cli
