#include "hosts/cli/apply/embedded_columns.h"

#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/apply/sql_tokens.h"
#include "hosts/cli/apply/table_text.h"
#include "hosts/cli/apply/text_edits.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <optional>
#include <vector>

namespace korvex::cli {

namespace {

using automation::Error;
using Tokens = std::vector<Token>;

bool IsAnyOf(const Token& token, std::initializer_list<std::string_view> words) noexcept {
    return std::ranges::any_of(words, [&](std::string_view word) { return Is(token, word); });
}

/// A constraint of the table, or an empty entry.
bool IsConstraint(std::string_view entry) {
    const Tokens tokens = Tokenize(entry);
    return tokens.empty() || IsAnyOf(tokens.front(), {"constraint", "primary", "unique", "foreign", "check"});
}

/// A column, rewritten.
struct Column {
    std::string name;
    std::string text;
    bool isIdentity = false;
    bool isKey = false;  ///< says PRIMARY KEY itself
};

/// Position behind the parentheses that open at `at`; `at` itself when none do.
std::size_t BehindParentheses(const Tokens& tokens, std::size_t at) noexcept {
    if (at >= tokens.size() || !Is(tokens[at], "(")) return at;
    int depth = 0;
    for (; at < tokens.size(); ++at) {
        if (Is(tokens[at], "(")) ++depth;
        if (Is(tokens[at], ")") && --depth == 0) return at + 1;
    }
    return at;
}

/// Rewrites one column, piece by piece.
class ColumnRewriter {
  public:
    explicit ColumnRewriter(std::string_view entry)
        : m_entry(entry), m_tokens(Tokenize(entry)), m_edits(entry) {
        m_column.name = NameOf(m_tokens.front());
        m_column.isIdentity = std::any_of(m_tokens.begin() + 1, m_tokens.end(),
                                          [](const Token& token) { return Is(token, "identity"); });
    }

    Column Run() && {
        std::size_t at = 1;
        if (m_column.isIdentity) at = ReplaceType();
        while (at < m_tokens.size())
            at = Step(at);
        m_column.text = std::move(m_edits).Finish();
        return std::move(m_column);
    }

  private:
    /// Only a column of exactly this type is numbered by the engine.
    std::size_t ReplaceType() {
        const std::size_t end = BehindParentheses(m_tokens, 2);
        m_edits.Replace(m_tokens[1].at, m_tokens[end - 1].End(), "INTEGER");
        return end;
    }

    std::size_t Step(std::size_t at) {
        const Token& token = m_tokens[at];
        if (Is(token, "identity")) return RemoveIdentity(at);
        if (Is(token, "default")) return RewriteDefault(at);
        if (IsAnyOf(token, {"clustered", "nonclustered"})) m_edits.Remove(token.at, token.End());
        if (Is(token, "key") && Is(m_tokens[at - 1], "primary")) {
            m_column.isKey = true;
            if (m_column.isIdentity) m_edits.Insert(token.End(), " AUTOINCREMENT");
        }
        return at + 1;
    }

    std::size_t RemoveIdentity(std::size_t at) {
        const std::size_t end = BehindParentheses(m_tokens, at + 1);
        std::string counting;
        for (std::size_t i = at + 1; i < end; ++i)
            counting += m_tokens[i].text;
        if (!counting.empty() && counting != "(1,1)") {
            throw Error(automation::InvalidProcedureCall,
                        "Column " + m_column.name + ": IDENTITY " + counting +
                            " is not possible here; the embedded engine counts from 1 by 1.");
        }
        m_edits.Remove(m_tokens[at].at, m_tokens[end - 1].End());
        return end;
    }

    /// A default ends where another constraint of the column begins.
    std::size_t EndOfDefault(std::size_t at) const noexcept {
        std::size_t end = at;
        for (; end < m_tokens.size(); end = std::max(end + 1, BehindParentheses(m_tokens, end))) {
            const bool isFirst = end == at;
            if (IsAnyOf(m_tokens[end],
                        {"not", "constraint", "check", "unique", "references", "primary", "collate"}) ||
                (!isFirst && Is(m_tokens[end], "null"))) {
                break;
            }
        }
        return end;
    }

    std::size_t RewriteDefault(std::size_t at) {
        const std::size_t begin = at + 1;
        const std::size_t end = EndOfDefault(begin);
        if (begin == end) {
            m_edits.Remove(m_tokens[at].at, m_tokens[at].End());
            return end;
        }
        const std::size_t from = m_tokens[begin].at;
        const std::size_t to = m_tokens[end - 1].End();
        if (IsCurrentDate(begin, end)) {
            m_edits.Replace(from, to, "CURRENT_TIMESTAMP");
        } else if (!IsPlainDefault(begin, end)) {
            m_edits.Insert(from, "(");
            m_edits.Insert(to, ")");
        }
        return end;
    }

    bool IsCurrentDate(std::size_t begin, std::size_t end) const noexcept {
        return end - begin == 3 && Is(m_tokens[begin], "getdate") && Is(m_tokens[begin + 1], "(");
    }

    /// A literal, a number with a sign, or something in parentheses.
    bool IsPlainDefault(std::size_t begin, std::size_t end) const noexcept {
        if (end - begin == 1 || BehindParentheses(m_tokens, begin) == end) return true;
        return end - begin == 2 && IsAnyOf(m_tokens[begin], {"-", "+"}) &&
               m_tokens[begin + 1].kind == TokenKind::Number;
    }

    std::string_view m_entry;
    Tokens m_tokens;
    TextEdits m_edits;
    Column m_column;
};

/// Rewrites a table's own constraint. The identity column is numbered only when it is a key by itself; where
/// the table's key is another, that one becomes UNIQUE. Sets `numbersIt` in the first case.
std::string RewriteConstraint(std::string_view entry, const Column* identity, bool& numbersIt) {
    const Tokens tokens = Tokenize(entry);
    const auto open = std::ranges::find_if(tokens, [](const Token& token) { return Is(token, "("); });
    const bool isKey = open != tokens.end() && std::any_of(tokens.begin(), open, [](const Token& token) {
                           return Is(token, "primary");
                       });
    const bool isOneColumn =
        std::none_of(open, tokens.end(), [](const Token& token) { return Is(token, ","); });
    const bool isNumbered = isKey && identity != nullptr && isOneColumn &&
                            automation::EqualsIgnoreCase(NameOf(*(open + 1)), identity->name);
    numbersIt = numbersIt || isNumbered;
    const bool isSecond = isKey && identity != nullptr && !isNumbered;

    TextEdits edits(entry);
    for (const Token& token : tokens) {
        if (isSecond && Is(token, "primary")) edits.Replace(token.at, token.End(), "UNIQUE");
        const bool isGone = IsAnyOf(token, {"clustered", "nonclustered"}) || (isSecond && Is(token, "key"));
        if (isGone) edits.Remove(token.at, token.End());
        if (isNumbered && &token == &*(open + 1)) edits.Insert(token.End(), " AUTOINCREMENT");
    }
    return std::move(edits).Finish();
}

}  // namespace

void RewriteEntries(TableText& table) {
    std::vector<std::string>& entries = table.Entries();
    std::optional<Column> identity;
    std::size_t identityEntry = 0;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (IsConstraint(entries[i])) continue;
        Column column = ColumnRewriter(entries[i]).Run();
        entries[i] = column.text;
        if (!column.isIdentity) continue;
        if (identity) {
            throw Error(automation::InvalidProcedureCall, "Column " + column.name +
                                                              ": a table has one IDENTITY column, and " +
                                                              identity->name + " is it already.");
        }
        identity = std::move(column);
        identityEntry = i;
    }

    bool isNumbered = !identity || identity->isKey;
    for (std::string& entry : entries) {
        if (!IsConstraint(entry)) continue;
        entry = RewriteConstraint(entry, identity ? &*identity : nullptr, isNumbered);
    }
    if (!isNumbered) entries[identityEntry] += " PRIMARY KEY AUTOINCREMENT";
}

}  // namespace korvex::cli
