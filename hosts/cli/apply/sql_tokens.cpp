#include "hosts/cli/apply/sql_tokens.h"

#include "automation/text.h"

#include <algorithm>

namespace korvex::cli {

namespace {

constexpr bool IsBlank(char c) noexcept { return c == ' ' || (c >= '\t' && c <= '\r'); }
constexpr bool IsDigit(char c) noexcept { return c >= '0' && c <= '9'; }
constexpr bool IsWordPart(char c) noexcept {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || IsDigit(c) || c == '_' || c == '$' ||
           c == '#' || c == '@' || static_cast<unsigned char>(c) >= 0x80;
}

class Tokenizer {
  public:
    explicit Tokenizer(std::string_view sql) : m_sql(sql) {}

    std::vector<Token> Run() {
        std::vector<Token> tokens;
        for (SkipBlanks(); m_at < m_sql.size(); SkipBlanks()) {
            const std::size_t start = m_at;
            const TokenKind kind = Step();
            tokens.push_back({kind, m_sql.substr(start, m_at - start), start});
        }
        return tokens;
    }

  private:
    void SkipBlanks() noexcept {
        while (m_at < m_sql.size()) {
            const std::string_view opening = m_sql.substr(m_at, 2);
            if (IsBlank(m_sql[m_at])) {
                ++m_at;
            } else if (opening == "--") {
                m_at = std::min(m_sql.find('\n', m_at), m_sql.size());
            } else if (opening == "/*") {
                SkipTo("*/", 2);
            } else {
                return;
            }
        }
    }

    TokenKind Step() noexcept {
        const char c = m_sql[m_at];
        switch (c) {
            case '\'':
                SkipQuoted(c);
                return TokenKind::Text;
            case '"':
            case '`':
                SkipQuoted(c);
                return TokenKind::Quoted;
            case '[':
                SkipQuoted(']');
                return TokenKind::Quoted;
            default:
                break;
        }
        if (!IsWordPart(c)) {
            ++m_at;
            return TokenKind::Symbol;
        }
        while (m_at < m_sql.size() && (IsWordPart(m_sql[m_at]) || (IsDigit(c) && m_sql[m_at] == '.')))
            ++m_at;
        return IsDigit(c) ? TokenKind::Number : TokenKind::Word;
    }

    void SkipTo(std::string_view end, std::size_t opening) noexcept {
        const std::size_t found = m_sql.find(end, m_at + opening);
        m_at = found == std::string_view::npos ? m_sql.size() : found + end.size();
    }

    /// A doubled closing quote stands for one.
    void SkipQuoted(char close) noexcept {
        do {
            SkipTo(std::string_view(&close, 1), 1);
        } while (m_at < m_sql.size() && m_sql[m_at] == close);
    }

    std::string_view m_sql;
    std::size_t m_at = 0;
};

}  // namespace

std::vector<Token> Tokenize(std::string_view sql) { return Tokenizer(sql).Run(); }

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
    const auto isName = [](const Token& token) {
        return token.kind == TokenKind::Word || token.kind == TokenKind::Quoted;
    };
    if (!isName(Peek())) return {};
    while (Is(Peek(1), ".") && isName(Peek(2)))
        m_next += 2;
    return NameOf(Next());
}

bool Is(const Token& token, std::string_view word) noexcept {
    const bool isPlain = token.kind == TokenKind::Word || token.kind == TokenKind::Symbol;
    return isPlain && automation::EqualsIgnoreCase(token.text, word);
}

std::string NameOf(const Token& token) {
    if (token.kind != TokenKind::Quoted || token.text.size() < 2) return std::string(token.text);
    const char close = token.text.back();
    std::string name;
    for (std::size_t i = 1; i + 1 < token.text.size(); ++i) {
        name += token.text[i];
        if (token.text[i] == close) ++i;
    }
    return name;
}

std::string QuoteName(std::string_view name) {
    std::string quoted = "\"";
    for (const char c : name) {
        quoted += c;
        if (c == '"') quoted += c;
    }
    return quoted + "\"";
}

}  // namespace korvex::cli
