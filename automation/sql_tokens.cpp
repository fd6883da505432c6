#include "automation/sql_tokens.h"

#include "automation/sql_words.h"
#include "automation/text.h"

#include <algorithm>
#include <array>

namespace korvex::automation::sql {

Token TokenScanner::Next() noexcept {
    SkipBlanks();
    const std::size_t start = m_at;
    const TokenKind kind = m_at < m_sql.size() ? Step() : TokenKind::Symbol;
    return {kind, m_sql.substr(start, m_at - start), start};
}

void TokenScanner::SkipLine() noexcept { m_at = std::min(m_sql.find('\n', m_at), m_sql.size()); }

void TokenScanner::SkipBlanks() noexcept {
    for (;;) {
        m_at = BehindBlanks(m_sql, m_at);
        const std::string_view comment = m_sql.substr(m_at, BehindComment(m_sql, m_at) - m_at);
        if (comment.empty()) return;
        const bool isClosed = comment.starts_with("--") || (comment.size() > 3 && comment.ends_with("*/"));
        if (!isClosed) m_unclosed = m_at;
        m_at += comment.size();
    }
}

TokenKind TokenScanner::Step() noexcept {
    if (IsAtMark()) {
        m_at += m_mark.size();
        return TokenKind::Symbol;
    }
    const char c = m_sql[m_at];
    switch (c) {
        case '\'':
            SkipQuoted(c);
            return TokenKind::Text;
        case '"':
        case '`':
            SkipQuoted(c);
            return TokenKind::Quoted;
        case '[': {
            // Behind a name it is an array's.
            const char before = m_at == 0 ? ' ' : m_sql[m_at - 1];
            if (IsWordPart(before) || before == '[' || before == ']') break;
            SkipQuoted(']');
            return TokenKind::Quoted;
        }
        default:
            break;
    }
    if (const std::size_t opening = DollarQuote(); opening > 0) {
        SkipTo(m_sql.substr(m_at, opening), opening);
        return TokenKind::Text;
    }
    if (!IsWordPart(c)) {
        ++m_at;
        return TokenKind::Symbol;
    }
    while (m_at < m_sql.size() && (IsWordPart(m_sql[m_at]) || (IsDigit(c) && m_sql[m_at] == '.')) &&
           !IsAtMark())
        ++m_at;
    return IsDigit(c) ? TokenKind::Number : TokenKind::Word;
}

void TokenScanner::SkipTo(std::string_view end, std::size_t opening) noexcept {
    const std::size_t found = m_sql.find(end, m_at + opening);
    if (found == std::string_view::npos) m_unclosed = m_at;
    m_at = found == std::string_view::npos ? m_sql.size() : found + end.size();
}

/// A doubled closing quote stands for one.
void TokenScanner::SkipQuoted(char close) noexcept {
    const std::size_t start = m_at;
    do {
        SkipTo(std::string_view(&close, 1), 1);
    } while (m_at < m_sql.size() && m_sql[m_at] == close);
    if (m_unclosed != std::string_view::npos) m_unclosed = start;
}

bool TokenScanner::IsAtMark() const noexcept {
    return !m_mark.empty() && m_sql.substr(m_at).starts_with(m_mark);
}

/// The length of "$$" or "$word$" that begins here; 0 for none.
std::size_t TokenScanner::DollarQuote() const noexcept {
    if (m_sql[m_at] != '$') return 0;
    std::size_t end = m_at + 1;
    while (end < m_sql.size() && IsWordPart(m_sql[end]) && m_sql[end] != '$')
        ++end;
    const bool isQuote = end < m_sql.size() && m_sql[end] == '$' && !IsDigit(m_sql[m_at + 1]);
    return isQuote ? end + 1 - m_at : 0;
}

std::vector<Token> Tokenize(std::string_view sql) {
    std::vector<Token> tokens;
    TokenScanner scanner(sql);
    for (Token token = scanner.Next(); !token.text.empty(); token = scanner.Next())
        tokens.push_back(token);
    return tokens;
}

namespace {

bool IsName(const Token& token) noexcept {
    return token.kind == TokenKind::Word || token.kind == TokenKind::Quoted;
}

}  // namespace

const Token& TokenReader::Peek(std::size_t ahead) const noexcept {
    static constexpr Token Nothing{TokenKind::Symbol, {}, 0};
    return m_next + ahead < m_tokens.size() ? m_tokens[m_next + ahead] : Nothing;
}

const Token& TokenReader::Next() noexcept {
    const Token& token = Peek();
    ++m_next;
    return token;
}

bool TokenReader::Sees(std::string_view words) const noexcept {
    std::size_t ahead = 0;
    for (std::size_t at = 0; at < words.size(); ++ahead) {
        const std::size_t end = std::min(words.find(' ', at), words.size());
        if (!Is(Peek(ahead), words.substr(at, end - at))) return false;
        at = end + 1;
    }
    return true;
}

bool TokenReader::Take(std::string_view words) noexcept {
    if (!Sees(words)) return false;
    m_next += static_cast<std::size_t>(std::count(words.begin(), words.end(), ' ')) + 1;
    return true;
}

std::string TokenReader::TakeName() {
    if (!IsName(Peek())) return {};
    while (Is(Peek(1), ".") && IsName(Peek(2)))
        m_next += 2;
    const Token& name = Next();
    const bool isQuoted = name.kind == TokenKind::Quoted && name.text.size() > 1;
    return std::string(isQuoted ? name.text.substr(1, name.text.size() - 2) : name.text);
}

bool Is(const Token& token, std::string_view word) noexcept {
    const bool isPlain = token.kind == TokenKind::Word || token.kind == TokenKind::Symbol;
    return isPlain && EqualsIgnoreCase(token.text, word);
}

bool HoldsBody(std::string_view statement) noexcept {
    static constexpr std::array<std::string_view, 5> Bodies = {"trigger", "procedure", "function", "package",
                                                               "type"};
    static constexpr std::array<std::string_view, 12> Before = {
        "create", "or",    "replace",     "temp",           "temporary",  "definer",
        "public", "alter", "editionable", "noneditionable", "constraint", "force"};
    TokenScanner scanner(statement);
    Token token = scanner.Next();
    if (Is(token, "declare")) return true;
    if (Is(token, "begin")) {
        token = scanner.Next();
        return !token.text.empty() && !Is(token, ";") && !Is(token, "transaction");
    }
    while (IsOneOf(token.text, Before))
        token = scanner.Next();
    return IsOneOf(token.text, Bodies);
}

}  // namespace korvex::automation::sql
