#pragma once

#include <concepts>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace korvex::scriptgen {

/// Appends the pieces to `text`, one behind the other.
template <std::convertible_to<std::string_view>... Pieces>
void Append(std::string& text, const Pieces&... pieces) {
    (text.append(std::string_view(pieces)), ...);
}

/// A list within a statement: items with a separator between them.
class JoinedText {
  public:
    /// `separator` must outlive the list; it is a literal of the emitter.
    explicit JoinedText(std::string_view separator) : m_separator(separator) { m_text.reserve(UsualLength); }

    /// Adds one item, given in pieces.
    template <std::convertible_to<std::string_view>... Pieces>
    void Add(const Pieces&... pieces) {
        if (!m_empty) Append(m_text, m_separator);
        Append(m_text, pieces...);
        m_empty = false;
    }

    bool Empty() const noexcept { return m_empty; }
    const std::string& Text() const noexcept { return m_text; }

  private:
    static constexpr std::size_t UsualLength = 512;

    std::string_view m_separator;
    std::string m_text;
    bool m_empty = true;
};

/// A text between single quotes, those in it doubled.
inline std::string TextLiteral(std::string_view text) {
    std::string literal = "'";
    for (const char c : text)
        literal.append(c == '\'' ? 2U : 1U, c);
    return literal + "'";
}

/// "A, B, C".
inline std::string Joined(std::span<const std::string> items, std::string_view separator = ", ") {
    JoinedText text(separator);
    for (const std::string& item : items)
        text.Add(item);
    return text.Text();
}

}  // namespace korvex::scriptgen
