#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::automation::sql {

enum class TokenKind : std::uint8_t {
    Word,    ///< a name or keyword
    Number,  ///< digits with anything that belongs to them
    Text,    ///< a text literal, quotes included; also what stands between $$ or $word$
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

/// Goes through a SQL text piece by piece; blanks and comments are none. A quote that is never closed goes to
/// the end of the text.
class TokenScanner {
  public:
    explicit TokenScanner(std::string_view sql) : m_sql(sql) {}

    /// The next piece; an empty symbol behind the last one.
    Token Next() noexcept;
    /// Leaves out what is left of the line.
    void SkipLine() noexcept;
    /// From here on `mark` is a symbol, also where it touches a word or begins like a quote.
    void SetMark(std::string_view mark) noexcept { m_mark = mark; }

    /// Where the quote or comment begins that is never closed; npos for none.
    std::size_t Unclosed() const noexcept { return m_unclosed; }

  private:
    void SkipBlanks() noexcept;
    TokenKind Step() noexcept;
    void SkipTo(std::string_view end, std::size_t opening) noexcept;
    void SkipQuoted(char close) noexcept;
    bool IsAtMark() const noexcept;
    std::size_t DollarQuote() const noexcept;

    std::string_view m_sql;
    std::string_view m_mark;
    std::size_t m_at = 0;
    std::size_t m_unclosed = std::string_view::npos;
};

/// All pieces of a SQL text.
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

/// Whether a statement, by its beginning, holds statements of its own: one that makes a trigger, procedure,
/// function, package or type, and a block.
bool HoldsBody(std::string_view statement) noexcept;

}  // namespace korvex::automation::sql
