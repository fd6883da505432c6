#include "hosts/cli/apply/script_reader.h"

#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/apply/sql_tokens.h"

#include <optional>
#include <utility>

namespace korvex::cli {

namespace {

using automation::EqualsIgnoreCase;

constexpr std::string_view Blanks = " \t\r\n\f\v";

std::string_view TrimBlanks(std::string_view text) noexcept {
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(Blanks) + 1 - first);
}

bool IsRemark(std::string_view line) noexcept {
    const std::string_view word = line.substr(0, line.find_first_of(Blanks));
    return EqualsIgnoreCase(word, "rem") || EqualsIgnoreCase(word, "remark");
}

/// Cuts a script into lines and knows where each stands with regard to quotes and comments.
class LineScanner {
  public:
    explicit LineScanner(std::string_view text) : m_text(text) {
        constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
        if (m_text.starts_with(ByteOrderMark)) m_at = ByteOrderMark.size();
    }

    struct Line {
        std::size_t at = 0;               ///< of the line in the script
        std::string_view text;            ///< with its line end
        bool startsOutside = true;        ///< no quote or comment goes on from the lines before
        bool isRemark = false;            ///< a SQL*Plus comment: no quote in it begins anything
        std::optional<std::size_t> code;  ///< first character that is neither blank nor comment
        bool endsInSemicolon = false;     ///< the last such character is a semicolon outside of quotes
    };

    /// False behind the last line. `mayBeRemark`: the line stands between statements.
    bool Next(Line& line, bool mayBeRemark) {
        if (m_at >= m_text.size()) return false;
        const std::size_t end = m_text.find('\n', m_at);
        line = {};
        line.at = m_at;
        line.text = m_text.substr(m_at, end == std::string_view::npos ? end : end + 1 - m_at);
        line.startsOutside = m_open == Open::None;
        line.isRemark = mayBeRemark && line.startsOutside && IsRemark(TrimBlanks(line.text));
        ++m_number;
        if (!line.isRemark) Scan(line);
        m_at += line.text.size();
        return true;
    }

    std::size_t Number() const noexcept { return m_number; }

    /// Where a quote or comment began that was not closed; 0 for none.
    std::size_t OpenSince() const noexcept { return m_open == Open::None ? 0 : m_openSince; }
    bool IsInComment() const noexcept { return m_open == Open::Comment; }

  private:
    enum class Open : char {
        None = 0,
        Text = '\'',
        Name = '"',
        Backtick = '`',
        Bracket = ']',
        Comment = '*'
    };

    void Scan(Line& line) {
        for (std::size_t i = 0; i < line.text.size(); ++i) {
            const char c = line.text[i];
            if (m_open == Open::Comment) {
                if (c == '*' && line.text.substr(i, 2) == "*/") {
                    m_open = Open::None;
                    ++i;
                }
            } else if (m_open != Open::None) {
                Note(line, i, false);
                if (c == static_cast<char>(m_open)) m_open = Open::None;
            } else if (line.text.substr(i, 2) == "--") {
                return;
            } else if (line.text.substr(i, 2) == "/*") {
                Begin(Open::Comment);
                ++i;
            } else if (Blanks.find(c) == std::string_view::npos) {
                Note(line, i, c == ';');
                if (c == '\'' || c == '"' || c == '`') Begin(static_cast<Open>(c));
                if (c == '[') Begin(Open::Bracket);
            }
        }
    }

    static void Note(Line& line, std::size_t at, bool isSemicolon) noexcept {
        if (!line.code) line.code = at;
        line.endsInSemicolon = isSemicolon;
    }

    void Begin(Open open) noexcept {
        m_open = open;
        m_openSince = m_number;
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    std::size_t m_number = 0;
    Open m_open = Open::None;
    std::size_t m_openSince = 0;
};

/// Whether a statement holds statements of its own, so that only "/" ends it.
bool IsBlock(std::string_view statement) {
    constexpr std::size_t Beginning = 200;
    TokenReader words(Tokenize(statement.substr(0, Beginning)));
    if (words.Take("declare")) return true;
    if (words.Take("begin")) return !words.Sees(";") && !words.Sees("transaction");
    if (!words.Take("create")) return false;
    words.Take("or replace");
    if (!words.Take("editionable")) words.Take("noneditionable");
    for (const std::string_view kind : {"procedure", "function", "trigger", "package", "type"})
        if (words.Sees(kind)) return true;
    return false;
}

/// Gathers the lines of statements.
class StatementBuilder {
  public:
    StatementBuilder(std::string file, std::string_view script) : m_file(std::move(file)), m_script(script) {}

    bool IsEmpty() const noexcept { return !m_start; }

    void Add(const LineScanner::Line& line, std::size_t number) {
        if (!m_start && line.code) {
            m_start = line.at + *line.code;
            m_line = number;
        }
        m_end = line.at + line.text.size();
    }

    /// The text gathered so far.
    std::string_view Text() const noexcept {
        return m_start ? TrimBlanks(m_script.substr(*m_start, m_end - *m_start)) : std::string_view();
    }

    void Finish(bool dropSemicolon = false) {
        std::string_view text = Text();
        if (dropSemicolon) text = TrimBlanks(text.substr(0, text.rfind(';')));
        if (!text.empty()) m_statements.push_back({m_file, m_line, std::string(text)});
        m_start.reset();
    }

    std::vector<ScriptStatement> Statements() && { return std::move(m_statements); }

  private:
    std::string m_file;
    std::string_view m_script;
    std::optional<std::size_t> m_start;
    std::size_t m_end = 0;
    std::size_t m_line = 0;
    std::vector<ScriptStatement> m_statements;
};

bool StartsAlterTable(std::string_view text) {
    constexpr std::size_t Beginning = 80;
    return TokenReader(Tokenize(text.substr(0, Beginning))).Sees("alter table");
}

void AddBatchLine(StatementBuilder& builder, const LineScanner::Line& line, std::size_t number) {
    if (line.startsOutside && EqualsIgnoreCase(TrimBlanks(line.text), "GO")) {
        builder.Finish();
        return;
    }
    // Sybase's foreign-key scripts have nothing between their statements.
    if (line.startsOutside && !builder.IsEmpty() && StartsAlterTable(line.text) &&
        StartsAlterTable(builder.Text())) {
        builder.Finish();
    }
    builder.Add(line, number);
}

void AddSqlPlusLine(StatementBuilder& builder, const LineScanner::Line& line, std::size_t number) {
    if (line.startsOutside && TrimBlanks(line.text) == "/") {
        builder.Finish();
        return;
    }
    if (!line.isRemark) builder.Add(line, number);
    if (line.endsInSemicolon && !IsBlock(builder.Text())) builder.Finish(true);
}

}  // namespace

ScriptStyle GuessStyle(std::string_view text) {
    LineScanner lines(text);
    LineScanner::Line line;
    bool isSqlPlus = false;
    bool isBetween = true;
    while (lines.Next(line, isBetween)) {
        const std::string_view content = TrimBlanks(line.text);
        if (line.startsOutside && EqualsIgnoreCase(content, "GO")) return ScriptStyle::Batches;
        const bool ends = line.endsInSemicolon || (line.startsOutside && content == "/");
        isSqlPlus = isSqlPlus || ends || line.isRemark;
        if (line.code) isBetween = ends;
    }
    return isSqlPlus ? ScriptStyle::SqlPlus : ScriptStyle::Batches;
}

std::vector<ScriptStatement> ReadScript(const std::string& file, std::string_view text, ScriptStyle style) {
    LineScanner lines(text);
    LineScanner::Line line;
    StatementBuilder builder(file, text);
    const bool isSqlPlus = style == ScriptStyle::SqlPlus;
    while (lines.Next(line, isSqlPlus && builder.IsEmpty())) {
        if (isSqlPlus) {
            AddSqlPlusLine(builder, line, lines.Number());
        } else {
            AddBatchLine(builder, line, lines.Number());
        }
    }
    if (lines.OpenSince() > 0) {
        throw automation::Error(automation::InvalidProcedureCall,
                                file + ", line " + std::to_string(lines.OpenSince()) + ": The " +
                                    (lines.IsInComment() ? "comment" : "quote") +
                                    " that begins here is never closed.");
    }
    builder.Finish();
    return std::move(builder).Statements();
}

}  // namespace korvex::cli
