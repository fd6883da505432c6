#pragma once

#include "repository/ids.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex::cli {

/// How bad a finding is: an error makes a run fail or its scripts useless, a warning may be meant so.
enum class Severity : std::uint8_t { Error, Warning };

/// "error" or "warning".
inline const char* WordOf(Severity severity) { return severity == Severity::Error ? "error" : "warning"; }

struct Finding {
    Severity severity;
    std::string text;
    bool endangersData = false;  ///< what is stored with such a definition may be mixed up or lost
    std::vector<repository::ObjectId> objects = {};  ///< those that it is about
};

/// What a check has found, each finding once, in the order of discovery. Control characters in names are
/// written as "\n" or "\x1b": a finding is one line.
class Findings {
  public:
    /// What is found while this lives is about these objects.
    class About {
      public:
        About(Findings& findings, std::vector<repository::ObjectId> objects) : m_findings(findings) {
            findings.m_objects = std::move(objects);
        }
        About(const About&) = delete;
        About& operator=(const About&) = delete;
        ~About() { m_findings.m_objects.clear(); }

      private:
        Findings& m_findings;
    };

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
    std::vector<repository::ObjectId> m_objects;
};

}  // namespace korvex::cli
