#pragma once

#include "support/sqlite_handle.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::bench {

inline constexpr int ElementsPerTree = 10;
/// Plain columns of a record beside its key, its foreign key and its two state columns.
inline constexpr int PlainColumns = 10;

/// The tables of the benchmark: a collection object and its elements, fourteen columns each.
std::vector<std::string> TreeTables();

/// What a good programmer would write by hand for the trees of the benchmark: the engine's C interface, every
/// statement prepared once, the same rows in the same transactions.
class TreeFloor {
  public:
    explicit TreeFloor(const std::string& file);

    /// Inserts a tree, row by row; the new key of its root.
    std::int64_t Save();
    /// Reads the root, the keys of its elements, then each element by its key, every column of them.
    std::int64_t Load(std::int64_t key);
    /// Looks up and deletes the elements one by one, then the root.
    void Delete(std::int64_t key);
    void Execute(const std::string& text);

  private:
    SqliteStatement Prepare(const std::string& text) { return PrepareSqlite(m_connection.get(), text); }
    std::int64_t Insert(sqlite3_stmt* statement, int index, std::int64_t parent);
    std::int64_t ReadRow(sqlite3_stmt* statement, std::int64_t key);
    std::vector<std::int64_t> ElementKeys(std::int64_t parent);
    void Run(sqlite3_stmt* statement, std::int64_t key);

    SqliteConnection m_connection;
    SqliteStatement m_insertRoot, m_insertElement;
    SqliteStatement m_selectRoot, m_selectElements, m_selectElement;
    SqliteStatement m_deleteRoot, m_deleteElement;
};

}  // namespace korvex::bench
