#pragma once

#include "platform/native/jet/jet_value.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace korvex::native::jet {

/// One table, row by row. libmdb answers a damaged file with fewer rows or other values as if all were well;
/// what contradicts itself here raises DamagedFile (3049).
class JetTable {
  public:
    /// `page` is that of the table's definition.
    JetTable(MdbHandle& file, std::string name, unsigned long page);
    JetTable(const JetTable&) = delete;
    JetTable& operator=(const JetTable&) = delete;

    /// The position of a column of that name, in any case.
    std::optional<std::size_t> Find(std::string_view column) const;

    /// Goes to the next row; false behind the last one.
    bool Next();
    automation::Variant Value(std::size_t column) const;

  private:
    [[noreturn]] void RaiseDamaged(std::string_view what) const;

    struct Free {
        void operator()(MdbTableDef* table) const noexcept { mdb_free_tabledef(table); }
    };

    MdbHandle& m_file;
    std::string m_name;
    MdbCatalogEntry m_entry{};
    std::unique_ptr<MdbTableDef, Free> m_table;
    std::array<MdbField, MDB_MAX_COLS> m_fields{};
    unsigned int m_row = 0;
};

}  // namespace korvex::native::jet
