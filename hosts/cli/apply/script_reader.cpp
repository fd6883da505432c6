#include "hosts/cli/apply/script_reader.h"

#include "automation/error.h"
#include "automation/sql_tokens.h"
#include "automation/text.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace korvex::cli {

namespace {

using automation::Error;
using namespace automation::sql;

constexpr std::string_view Blanks = " \t\r\n\f\v";

std::string_view TrimBlanks(std::string_view text) noexcept {
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(Blanks) + 1 - first);
}

std::string_view WithoutByteOrderMark(std::string_view text) noexcept {
    constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
    return text.substr(text.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0);
}

/// Where the pieces of a script stand in its lines.
class ScriptLines {
  public:
    explicit ScriptLines(std::string_view script) : m_script(script) {}

    bool IsFirst(const Token& token) const noexcept {
        const std::string_view before = m_script.substr(0, token.at);
        const std::size_t last = before.find_last_not_of(" \t\r\f\v");
        return last == std::string_view::npos || before[last] == '\n';
    }
    /// The line holds nothing else.
    bool IsAlone(const Token& token) const noexcept {
        return TrimBlanks(RestOf(token)).empty() && IsFirst(token);
    }
    /// The line begins with that word.
    bool IsCommand(const Token& token, std::string_view word) const noexcept {
        const std::string_view next = m_script.substr(token.End(), 1);
        return Is(token, word) && TrimBlanks(next).empty() && IsFirst(token);
    }
    bool IsRemark(const Token& token) const noexcept {
        return IsCommand(token, "rem") || IsCommand(token, "remark");
    }
    /// What stands behind a piece in its last line.
    std::string_view RestOf(const Token& token) const noexcept {
        return m_script.substr(token.End(), m_script.find('\n', token.End()) - token.End());
    }
    bool IsOnALaterLine(const Token& token, const Token& earlier) const noexcept {
        return m_script.substr(earlier.End(), token.at - earlier.End()).find('\n') != std::string_view::npos;
    }
    /// The number of lines that begin in a part of the script.
    std::size_t Count(std::size_t begin, std::size_t end) const noexcept {
        return static_cast<std::size_t>(std::ranges::count(m_script.substr(begin, end - begin), '\n'));
    }

  private:
    std::string_view m_script;
};

bool AltersTable(std::string_view statement) {
    constexpr std::size_t Beginning = 200;
    return TokenReader(Tokenize(statement.substr(0, Beginning))).Sees("alter table");
}

/// Divides a script into statements.
class ScriptDivider {
  public:
    ScriptDivider(const std::string& file, std::string_view script, ScriptStyle style)
        : m_file(file), m_script(script), m_style(style), m_lines(script), m_scanner(script) {}

    std::vector<ScriptStatement> Run() && {
        Token token = m_scanner.Next();
        for (; !token.text.empty(); token = m_scanner.Next()) {
            const bool isTaken = m_style == ScriptStyle::Batches   ? TakeInBatch(token)
                                 : m_style == ScriptStyle::SqlPlus ? TakeInSqlPlus(token)
                                                                   : TakeInPlain(token);
            if (!isTaken && !m_start) m_start = token.at;
            m_before = std::exchange(m_last, token);
        }
        if (const std::size_t open = m_scanner.Unclosed(); open != std::string_view::npos) {
            const bool isComment = m_script.substr(open).starts_with("/*");
            Raise(open, std::string("The ") + (isComment ? "comment" : "quote") +
                            " that begins here is never closed.");
        }
        EndOfSqlPlusLine(token);
        Finish(m_script.size());
        return std::move(m_statements);
    }

  private:
    /// Each of these takes what divides statements and is no part of any.
    bool TakeInBatch(const Token& token) {
        if (Is(token, "go") && m_lines.IsAlone(token)) {
            Finish(token.at);
            return true;
        }
        // Sybase's foreign-key scripts have nothing between their statements.
        if (m_start && Is(token, "alter") && m_lines.IsFirst(token) &&
            AltersTable(m_script.substr(token.at)) && AltersTable(m_script.substr(*m_start))) {
            Finish(token.at);
        }
        return false;
    }

    bool TakeInSqlPlus(const Token& token) {
        if (m_lines.IsOnALaterLine(token, m_last)) EndOfSqlPlusLine(token);
        if (Is(token, "/") && m_lines.IsAlone(token)) {
            Finish(token.at);
            return true;
        }
        return TakeCommand(m_lines.IsRemark(token));
    }

    /// A semicolon that was the last piece of its line ends a statement that is no block.
    void EndOfSqlPlusLine(const Token& next) {
        if (m_style != ScriptStyle::SqlPlus || !m_start || !Is(m_last, ";")) return;
        if (!HoldsBody(m_script.substr(*m_start, next.at - *m_start))) Finish(m_last.at);
    }

    bool TakeInPlain(const Token& token) {
        if (!m_start && m_lines.IsCommand(token, "delimiter")) {
            const std::string_view rest = TrimBlanks(m_lines.RestOf(token));
            if (rest.empty()) Raise(token.at, "DELIMITER must name the mark that ends statements.");
            m_mark = rest.substr(0, rest.find_first_of(Blanks));
            m_scanner.SetMark(m_mark);
            return TakeCommand(true);
        }
        if (token.kind == TokenKind::Symbol && token.text == m_mark) {
            const bool endsBody = Is(m_last, "end") && (Is(m_before, ";") || Is(m_before, "begin"));
            if (m_isInBody && m_mark == ";" && !endsBody) return false;
            Finish(token.at);
            return true;
        }
        if (m_start && !m_isInBody && Is(token, "begin"))
            m_isInBody = HoldsBody(m_script.substr(*m_start, token.at - *m_start));
        return false;
    }

    /// Takes the rest of a line between statements that is meant for the client.
    bool TakeCommand(bool isCommand) noexcept {
        if (m_start || !isCommand) return false;
        m_scanner.SkipLine();
        return true;
    }

    void Finish(std::size_t end) {
        if (!m_start) return;
        const std::string_view text = TrimBlanks(m_script.substr(*m_start, end - *m_start));
        if (!text.empty()) {
            m_line += m_lines.Count(m_counted, *m_start);
            m_counted = *m_start;
            m_statements.push_back({m_file, m_line, std::string(text), m_style});
        }
        m_start.reset();
        m_isInBody = false;
    }

    [[noreturn]] void Raise(std::size_t at, const std::string& description) const {
        throw Error(automation::InvalidProcedureCall,
                    m_file + ", line " + std::to_string(1 + m_lines.Count(0, at)) + ": " + description);
    }

    const std::string& m_file;
    std::string_view m_script;
    ScriptStyle m_style;
    ScriptLines m_lines;
    TokenScanner m_scanner;
    std::string_view m_mark = ";";
    std::size_t m_counted = 0;  ///< where line m_line was counted to
    std::size_t m_line = 1;
    std::optional<std::size_t> m_start;  ///< of the statement that is read
    bool m_isInBody = false;             ///< of a routine, where semicolons end other statements
    Token m_last{};
    Token m_before{};  ///< the one before the last
    std::vector<ScriptStatement> m_statements;
};

}  // namespace

ScriptStyle GuessStyle(std::string_view text) {
    const std::string_view script = WithoutByteOrderMark(text);
    const ScriptLines lines(script);
    TokenScanner scanner(script);
    bool isSqlPlus = false;
    bool isPlain = false;
    bool isBetween = true;
    Token last{};
    for (Token token = scanner.Next(); !token.text.empty(); last = token, token = scanner.Next()) {
        if (Is(last, ";") && lines.IsOnALaterLine(token, last)) isPlain = isBetween = true;
        if (Is(token, "go") && lines.IsAlone(token)) return ScriptStyle::Batches;
        if (isBetween && lines.IsCommand(token, "delimiter")) return ScriptStyle::Plain;
        const bool isSlash = Is(token, "/") && lines.IsAlone(token);
        const bool isRemark = isBetween && lines.IsRemark(token);
        if (isRemark) scanner.SkipLine();
        isSqlPlus = isSqlPlus || isSlash || isRemark;
        isBetween = isSlash || isRemark;
    }
    isPlain = isPlain || Is(last, ";");
    return isSqlPlus ? ScriptStyle::SqlPlus : isPlain ? ScriptStyle::Plain : ScriptStyle::Batches;
}

std::vector<ScriptStatement> ReadScript(const std::string& file, std::string_view text, ScriptStyle style) {
    return ScriptDivider(file, WithoutByteOrderMark(text), style).Run();
}

}  // namespace korvex::cli
