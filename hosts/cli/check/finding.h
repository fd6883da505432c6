#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::cli {

/// How bad a finding is: an error makes a run fail or its scripts useless, a warning may be meant so.
enum class Severity : std::uint8_t { Error, Warning };

struct Finding {
    Severity severity;
    std::string text;
    bool endangersData = false;  ///< what is stored with such a definition may be mixed up or lost
};

/// What a check has found, each finding once, in the order of discovery. Control characters in names are
/// written as "\n" or "\x1b": a finding is one line.
class Findings {
  public:
    void Error(std::string_view text) { Add(Severity::Error, text, false); }
    void Warning(std::string_view text) { Add(Severity::Warning, text, false); }
    /// An error that endangers data.
    void Danger(std::string_view text) { Add(Severity::Error, text, true); }

    const std::vector<Finding>& All() const noexcept { return m_findings; }
    std::size_t Count(Severity severity) const;

  private:
    void Add(Severity severity, std::string_view text, bool endangersData);

    std::vector<Finding> m_findings;
    std::set<std::string> m_texts;
};

}  // namespace korvex::cli
