#pragma once

#include "hosts/cli/apply/sql_tokens.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::cli {

/// A FOREIGN KEY constraint.
struct ForeignKey {
    std::string constraint;  ///< empty for one without a name
    std::vector<std::string> columns;
    std::string parent;
    std::vector<std::string> parentColumns;  ///< empty for the parent's primary key
    std::string rest;                        ///< what stands behind ("ON DELETE CASCADE")

    /// As it stands in a CREATE TABLE.
    std::string Text() const;
};

/// The same columns refer to the same columns of the same table; names apart.
bool IsSameKey(const ForeignKey& a, const ForeignKey& b) noexcept;

/// Reads "[CONSTRAINT name] FOREIGN KEY (columns) REFERENCES parent(columns) ...", which is the whole of
/// `text`; nothing for any other text.
std::optional<ForeignKey> ReadForeignKey(std::string_view text);

/// A CREATE TABLE statement taken apart: what stands before its entries, the entries (columns and
/// constraints, each without blanks and comments around it), and what stands behind them.
class TableText {
  public:
    /// Nothing for a text that is no list of columns in parentheses.
    static std::optional<TableText> Read(std::string_view statement);

    std::vector<std::string>& Entries() noexcept { return m_entries; }
    const std::vector<std::string>& Entries() const noexcept { return m_entries; }

    bool HasColumn(std::string_view name) const;
    std::vector<ForeignKey> ForeignKeys() const;
    void Add(const ForeignKey& key) { m_entries.push_back(key.Text()); }
    /// Removes the foreign keys of that name; how many there were.
    std::size_t Remove(std::string_view constraint);
    void Rename(std::string_view table);

    std::string Text() const;

  private:
    std::string m_head;  ///< up to the opening parenthesis
    std::vector<std::string> m_entries;
    std::string m_tail;  ///< from the closing one
};

/// Whether the table has that key, under any name.
bool HasKey(const TableText& table, const ForeignKey& key);

/// "a, b" in double quotes.
std::string JoinColumns(const std::vector<std::string>& columns);

}  // namespace korvex::cli
