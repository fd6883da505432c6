#include "platform/native/jet/jet_table.h"

#include "automation/error.h"
#include "automation/text.h"
#include "platform/dao.h"

#include <utility>

namespace korvex::native::jet {

namespace {

/// A page lists where its rows begin; the upper bits of an entry are marks.
constexpr int RowStartMask = 0x1FFF;
/// What a table's map of its pages holds before the map itself.
constexpr std::size_t MapHeaderSize = 5;

const MdbColumn& ColumnAt(const MdbTableDef& table, std::size_t index) {
    return *static_cast<const MdbColumn*>(table.columns->pdata[index]);
}

}  // namespace

// Neither the library's list of tables nor its look-up by name is used: both read the properties of all
// objects, which they do not get to the end of in some damaged files.
JetTable::JetTable(MdbHandle& file, std::string name, unsigned long page)
    : m_file(file), m_name(std::move(name)) {
    m_entry.mdb = &file;
    m_entry.object_type = MDB_TABLE;
    m_entry.table_pg = page;
    m_table.reset(mdb_read_table(&m_entry));
    if (!m_table || m_table->usage_map == nullptr || m_table->map_sz < MapHeaderSize)
        RaiseDamaged("its definition cannot be read");
    if (mdb_read_columns(m_table.get()) == nullptr || m_table->columns->len != m_table->num_cols ||
        m_table->num_cols > m_fields.size()) {
        RaiseDamaged("its columns cannot be read");
    }
    mdb_rewind_table(m_table.get());
}

std::optional<std::size_t> JetTable::Find(std::string_view column) const {
    for (std::size_t i = 0; i < m_table->num_cols; ++i)
        if (automation::EqualsIgnoreCase(ColumnAt(*m_table, i).name, column)) return i;
    return std::nullopt;
}

bool JetTable::Next() {
    const bool isThere = mdb_fetch_row(m_table.get()) != 0;
    if (isThere ? m_row >= m_table->num_rows : m_row != m_table->num_rows) {
        RaiseDamaged("it holds " + std::to_string(m_row) + (isThere ? " rows and more" : " rows") +
                     ", and should hold " + std::to_string(m_table->num_rows));
    }
    if (!isThere) return false;
    ++m_row;
    int start = 0;
    std::size_t size = 0;
    if (mdb_find_row(&m_file, static_cast<int>(m_table->cur_row) - 1, &start, &size) != 0 ||
        mdb_crack_row(m_table.get(), start & RowStartMask, size, m_fields.data()) < 0) {
        RaiseDamaged("row " + std::to_string(m_row) + " cannot be read");
    }
    return true;
}

automation::Variant JetTable::Value(std::size_t column) const {
    const MdbColumn& type = ColumnAt(*m_table, column);
    try {
        return FieldValue(m_file, type, m_fields[column]);
    } catch (const UnreadableValue& failure) {
        RaiseDamaged("column " + std::string(type.name) + " of row " + std::to_string(m_row) + " " +
                     failure.what());
    }
}

void JetTable::RaiseDamaged(std::string_view what) const {
    throw automation::Error(dao::DamagedFile,
                            "its table " + automation::Quoted(m_name) + " is damaged: " + std::string(what));
}

}  // namespace korvex::native::jet
