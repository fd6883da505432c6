#pragma once

#include "support/print_variant.h"

#include <string>
#include <utility>

namespace korvex::tests {

/// Notes the last call that reached an object: "DbGetField(Long 1, String <K>)".
class CallNote {
  public:
    template <class... Arguments>
    void Note(const char* member, const Arguments&... arguments) {
        std::string noted;
        ((noted += (noted.empty() ? "" : ", ") + automation::Describe(automation::Variant(arguments))), ...);
        last = std::string(member) + "(" + noted + ")";
    }
    template <class T, class... Arguments>
    T Noted(T answer, const char* member, const Arguments&... arguments) {
        Note(member, arguments...);
        return answer;
    }
    /// Answers "the FKPrefix".
    template <class... Arguments>
    const std::string& Answer(const char* member, const Arguments&... arguments) {
        Note(member, arguments...);
        return m_answer = std::string("the ") + member;
    }

    std::string last;

  private:
    std::string m_answer;
};

}  // namespace korvex::tests
