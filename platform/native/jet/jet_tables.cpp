#include "platform/native/jet/jet_tables.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "platform/native/jet/jet_value.h"
#include "platform/native/jet/quiet_thread.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <iterator>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

namespace korvex::native::jet {

namespace {

using automation::Error;

/// A page lists where its rows begin; the upper bits of an entry are marks.
constexpr int RowStartMask = 0x1FFF;
/// What a table's map of its pages holds before the map itself.
constexpr std::size_t MapHeaderSize = 5;

const MdbColumn& ColumnAt(const MdbTableDef& table, std::size_t index) {
    return *static_cast<const MdbColumn*>(table.columns->pdata[index]);
}

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

    MdbHandle& m_file;
    std::string m_name;
    MdbCatalogEntry m_entry{};
    std::unique_ptr<MdbTableDef, decltype(&mdb_free_tabledef)> m_table{nullptr, &mdb_free_tabledef};
    std::array<MdbField, MDB_MAX_COLS> m_fields{};
    unsigned int m_row = 0;
};

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

/// The table that lists all others, always on this page.
constexpr unsigned long ListPage = 2;
constexpr std::int32_t PageMask = 0xFFFFFF;

using File = std::unique_ptr<MdbHandle, decltype(&mdb_close)>;

/// How a table stands in the list: its own, or that of another file or server.
enum ListedType : std::int32_t { OwnTable = 1, OdbcLink = 4, FileLink = 6 };

struct ListedTable {
    std::string name;
    std::int32_t page = 0;  ///< 0 for a link
    std::string linkedFile;
};

File OpenFile(const std::string& path) {
    File file(mdb_open(path.c_str(), MDB_NOFLAGS), &mdb_close);
    if (!file) throw Error(dao::UnrecognizedFormat, "it is of a version that is not known here");
    std::error_code failure;
    if (std::filesystem::file_size(path, failure) % static_cast<std::uintmax_t>(file->fmt->pg_size) != 0)
        throw Error(dao::DamagedFile, "it ends within a page");
    return file;
}

std::size_t Expect(const JetTable& table, std::string_view column) {
    if (const auto found = table.Find(column)) return *found;
    throw Error(dao::DamagedFile, "the list of its tables has no column " + std::string(column));
}

std::string TextOrNothing(const automation::Variant& value) {
    return value.IsNull() ? std::string() : automation::ToString(value);
}

std::vector<ListedTable> ReadList(MdbHandle& file) {
    JetTable list(file, "MSysObjects", ListPage);
    const std::size_t id = Expect(list, "Id");
    const std::size_t name = Expect(list, "Name");
    const std::size_t type = Expect(list, "Type");
    const std::size_t database = Expect(list, "Database");
    std::vector<ListedTable> tables;
    while (list.Next()) {
        const std::int32_t kind = automation::ToLong(list.Value(type));
        if (kind == OwnTable) {
            tables.push_back(
                {TextOrNothing(list.Value(name)), automation::ToLong(list.Value(id)) & PageMask, {}});
        } else if (kind == OdbcLink || kind == FileLink) {
            tables.push_back({TextOrNothing(list.Value(name)), 0, TextOrNothing(list.Value(database))});
        }
    }
    return tables;
}

std::vector<ListedTable> ListTables(MdbHandle& file) {
    try {
        return ReadList(file);
    } catch (const Error&) {
        if (file.f->db_key == 0) throw;
        throw Error(dao::WrongPassword, "it is encrypted");
    }
}

dao::WholeTable ReadRows(MdbHandle& file, const ListedTable& listed, const dao::WholeTable& wanted) {
    JetTable table(file, listed.name, static_cast<unsigned long>(listed.page));
    dao::WholeTable read{wanted.name, {}, {}};
    std::vector<std::size_t> positions;
    for (const std::string& column : wanted.columns) {
        const std::optional<std::size_t> position = table.Find(column);
        if (!position) continue;
        read.columns.push_back(column);
        positions.push_back(*position);
    }
    while (table.Next())
        for (const std::size_t position : positions)
            read.values.push_back(table.Value(position));
    return read;
}

std::vector<dao::WholeTable> ReadFile(const std::string& path, std::span<const dao::WholeTable> wanted) {
    const File file = OpenFile(path);
    const std::vector<ListedTable> listed = ListTables(*file);
    std::vector<dao::WholeTable> tables;
    for (const dao::WholeTable& each : wanted) {
        const auto found = std::ranges::find_if(listed, [&](const ListedTable& table) {
            return automation::EqualsIgnoreCase(table.name, each.name);
        });
        if (found == listed.end()) continue;
        if (found->page == 0) {
            throw Error(dao::TableNotFound, "its table " + each.name + " is a link to that of " +
                                                (found->linkedFile.empty() ? "a server" : found->linkedFile));
        }
        tables.push_back(ReadRows(*file, *found, each));
    }
    return tables;
}

/// What to do about a failure. Whatever else happens while a file is read, it is damaged.
struct Advice {
    std::int32_t number;
    std::string_view text;
};
constexpr Advice Advices[] = {{dao::WrongPassword, "take its password off with the program that made it"},
                              {dao::TableNotFound, "open that one"},
                              {dao::UnrecognizedFormat, "save it as an older version"},
                              {dao::DamagedFile, "repair it with the program that made it"}};

}  // namespace

std::vector<dao::WholeTable> ReadJetTables(const std::string& path, std::span<const dao::WholeTable> wanted) {
    std::vector<dao::WholeTable> tables;
    try {
        RunQuietly([&] { tables = ReadFile(path, wanted); });
    } catch (const Error& error) {
        const auto* advice = std::ranges::find(Advices, error.Number(), &Advice::number);
        if (advice == std::end(Advices)) --advice;
        std::string text = "This file of the desktop database engine cannot be read, ";
        text.append(error.Description()).append("; ").append(advice->text).append(": ").append(path);
        throw Error(advice->number, text);
    }
    return tables;
}

}  // namespace korvex::native::jet
