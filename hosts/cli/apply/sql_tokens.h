#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::cli {

enum class TokenKind : std::uint8_t {
    Word,    ///< a name or keyword
    Number,  ///< digits with anything that belongs to them
    Text,    ///< a text literal, quotes included
    Quoted,  ///< a name in double quotes, brackets or backticks, these included
    Symbol,  ///< one other character
};

/// A piece of a statement. `text` points into the statement.
struct Token {
    TokenKind kind;
    std::string_view text;
    std::size_t at;  ///< where it begins in the statement

    std::size_t End() const noexcept { return at + text.size(); }
};

/// The pieces of a SQL text in their order, without blanks and comments. A quote that is never closed goes to
/// the end of the text.
std::vector<Token> Tokenize(std::string_view sql);

/// Reads a statement piece by piece. Behind the last piece it stands on an empty symbol.
class TokenReader {
  public:
    explicit TokenReader(std::vector<Token> tokens) : m_tokens(std::move(tokens)) {}

    bool AtEnd() const noexcept { return m_next >= m_tokens.size(); }
    const Token& Peek(std::size_t ahead = 0) const noexcept;
    const Token& Next() noexcept;

    /// Whether the next pieces are these, in any case; words and symbols divided by one blank ("( *").
    bool Sees(std::string_view words) const noexcept;
    /// Sees, and steps behind them.
    bool Take(std::string_view words) noexcept;
    /// The next piece as a name, without quotes and without an owner before it ("dbo.Orders"); empty, taking
    /// nothing, when it is no name.
    std::string TakeName();

  private:
    std::vector<Token> m_tokens;
    std::size_t m_next = 0;
};

/// Whether a piece is that word or symbol, in any case.
bool Is(const Token& token, std::string_view word) noexcept;

/// A name without its quotes; other pieces as they stand.
std::string NameOf(const Token& token);

/// A name in double quotes.
std::string QuoteName(std::string_view name);

}  // namespace korvex::cli
