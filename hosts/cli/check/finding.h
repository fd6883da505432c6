#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace korvex::cli {

/// How bad a finding is: an error makes a run fail or its scripts useless, a warning may be meant so.
enum class Severity : std::uint8_t { Error, Warning };

struct Finding {
    Severity severity;
    std::string text;
};

/// What a check has found, each finding once, in the order of discovery.
class Findings {
  public:
    void Error(std::string text) { Add(Severity::Error, std::move(text)); }
    void Warning(std::string text) { Add(Severity::Warning, std::move(text)); }

    const std::vector<Finding>& All() const noexcept { return m_findings; }
    std::size_t Count(Severity severity) const;

  private:
    void Add(Severity severity, std::string text);

    std::vector<Finding> m_findings;
    std::set<std::string> m_texts;
};

}  // namespace korvex::cli
