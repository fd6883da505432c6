#include "hosts/cli/apply/table_text.h"

#include "automation/text.h"

#include <algorithm>
#include <utility>

namespace korvex::cli {

namespace {

using automation::EqualsIgnoreCase;

bool SameNames(const std::vector<std::string>& a, const std::vector<std::string>& b) noexcept {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const auto& left, const auto& right) { return EqualsIgnoreCase(left, right); });
}

/// "(a, b)"; empty, taking nothing, for anything else.
std::vector<std::string> TakeColumns(TokenReader& tokens) {
    std::vector<std::string> columns;
    if (!tokens.Take("(")) return columns;
    do {
        columns.push_back(tokens.TakeName());
    } while (tokens.Take(","));
    if (columns.back().empty() || !tokens.Take(")")) columns.clear();
    return columns;
}

/// Cuts the text between two places into the parts that commas outside of parentheses divide.
class EntryCutter {
  public:
    explicit EntryCutter(std::string_view text) : m_text(text) {}

    void Add(const Token& token) {
        if (m_depth == 0 && Is(token, ",")) {
            Finish();
            return;
        }
        if (Is(token, "(")) ++m_depth;
        if (Is(token, ")")) --m_depth;
        if (m_end == 0) m_start = token.at;
        m_end = token.End();
    }

    void Finish() {
        m_entries.emplace_back(m_text.substr(m_start, m_end - m_start));
        m_start = m_end = 0;
    }

    /// The parenthesis around the entries is about to be closed.
    bool IsOutside() const noexcept { return m_depth == 0; }
    std::vector<std::string> Entries() && { return std::move(m_entries); }

  private:
    std::string_view m_text;
    int m_depth = 0;
    std::size_t m_start = 0;
    std::size_t m_end = 0;
    std::vector<std::string> m_entries;
};

}  // namespace

std::string JoinColumns(const std::vector<std::string>& columns) {
    std::string text;
    for (const std::string& column : columns)
        text.append(text.empty() ? "" : ", ").append(QuoteName(column));
    return text;
}

std::string ForeignKey::Text() const {
    std::string text = constraint.empty() ? "" : "CONSTRAINT " + QuoteName(constraint) + " ";
    text += "FOREIGN KEY (" + JoinColumns(columns) + ") REFERENCES " + QuoteName(parent);
    if (!parentColumns.empty()) text += "(" + JoinColumns(parentColumns) + ")";
    if (!rest.empty()) text += " " + rest;
    return text;
}

bool IsSameKey(const ForeignKey& a, const ForeignKey& b) noexcept {
    return EqualsIgnoreCase(a.parent, b.parent) && SameNames(a.columns, b.columns) &&
           SameNames(a.parentColumns, b.parentColumns);
}

std::optional<ForeignKey> ReadForeignKey(std::string_view text) {
    TokenReader tokens(Tokenize(text));
    ForeignKey key;
    if (tokens.Take("constraint")) key.constraint = tokens.TakeName();
    if (!tokens.Take("foreign key")) return std::nullopt;
    key.columns = TakeColumns(tokens);
    if (key.columns.empty() || !tokens.Take("references")) return std::nullopt;
    key.parent = tokens.TakeName();
    if (key.parent.empty()) return std::nullopt;
    if (tokens.Sees("(")) {
        key.parentColumns = TakeColumns(tokens);
        if (key.parentColumns.empty()) return std::nullopt;
    }
    if (!tokens.AtEnd()) key.rest = text.substr(tokens.Peek().at);
    return key;
}

std::optional<TableText> TableText::Read(std::string_view statement) {
    const std::vector<Token> tokens = Tokenize(statement);
    const auto open = std::ranges::find_if(tokens, [](const Token& token) { return Is(token, "("); });
    if (open == tokens.end()) return std::nullopt;
    EntryCutter cutter(statement);
    for (auto token = open + 1; token != tokens.end(); ++token) {
        if (!cutter.IsOutside() || !Is(*token, ")")) {
            cutter.Add(*token);
            continue;
        }
        cutter.Finish();
        TableText table;
        table.m_head = statement.substr(0, open->End());
        table.m_entries = std::move(cutter).Entries();
        table.m_tail = statement.substr(token->at);
        return table;
    }
    return std::nullopt;
}

bool TableText::HasColumn(std::string_view name) const {
    return std::ranges::any_of(m_entries, [name](const std::string& entry) {
        return EqualsIgnoreCase(TokenReader(Tokenize(entry)).TakeName(), name);
    });
}

std::vector<ForeignKey> TableText::ForeignKeys() const {
    std::vector<ForeignKey> keys;
    for (const std::string& entry : m_entries)
        if (auto key = ReadForeignKey(entry)) keys.push_back(*std::move(key));
    return keys;
}

bool HasKey(const TableText& table, const ForeignKey& key) {
    return std::ranges::any_of(table.ForeignKeys(),
                               [&key](const ForeignKey& other) { return IsSameKey(key, other); });
}

std::size_t TableText::Remove(std::string_view constraint) {
    return std::erase_if(m_entries, [constraint](const std::string& entry) {
        const auto key = ReadForeignKey(entry);
        return key && EqualsIgnoreCase(key->constraint, constraint);
    });
}

void TableText::Rename(std::string_view table) { m_head = "CREATE TABLE " + QuoteName(table) + " ("; }

std::string TableText::Text() const {
    std::string text = m_head;
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        text.append(i == 0 ? "\n\t" : ",\n\t").append(m_entries[i]);
    return text + "\n" + m_tail;
}

}  // namespace korvex::cli
