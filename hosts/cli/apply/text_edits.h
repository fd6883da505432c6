#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex::cli {

/// Changes to make in a text, gathered in the order of their places, made all at once.
class TextEdits {
  public:
    explicit TextEdits(std::string_view text) : m_text(text) {}

    void Replace(std::size_t begin, std::size_t end, std::string_view replacement) {
        m_result.append(m_text.substr(m_copied, begin - m_copied)).append(replacement);
        m_copied = end;
    }

    /// Removes a part with the blanks in front of it.
    void Remove(std::size_t begin, std::size_t end) {
        while (begin > m_copied && (m_text[begin - 1] == ' ' || m_text[begin - 1] == '\t'))
            --begin;
        Replace(begin, end, {});
    }

    void Insert(std::size_t at, std::string_view text) { Replace(at, at, text); }

    std::string Finish() && { return std::move(m_result.append(m_text.substr(m_copied))); }

  private:
    std::string_view m_text;
    std::size_t m_copied = 0;
    std::string m_result;
};

}  // namespace korvex::cli
