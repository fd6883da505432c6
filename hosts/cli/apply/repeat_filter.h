#pragma once

#include "hosts/cli/apply/statement_kind.h"

#include <set>
#include <string>
#include <string_view>

namespace korvex::cli {

/// Finds statements that make or drop the same once more. What was dropped may be made again, and the other
/// way round.
class RepeatFilter {
  public:
    bool IsRepeat(StatementKind kind, const std::string& text) {
        if (Makes(kind)) {
            m_dropped.clear();
            return !m_made.insert(text).second;
        }
        m_made.clear();
        if (Drops(kind)) return !m_dropped.insert(text).second;
        m_dropped.clear();
        return false;
    }

  private:
    std::set<std::string, std::less<>> m_made;
    std::set<std::string, std::less<>> m_dropped;
};

}  // namespace korvex::cli
