#include "support/tree_floor.h"

namespace korvex::bench {

namespace {

std::string PlainColumnNames() {
    std::string names;
    for (int i = 0; i < PlainColumns; ++i)
        names += (i % 2 == 0 ? "Text" : "Number") + std::to_string(i) + ", ";
    return names;
}

std::string TableText(const std::string& name, const std::string& states) {
    std::string text = "create table t" + name + " (";
    for (int i = 0; i < PlainColumns; ++i) {
        text += i % 2 == 0 ? "Text" + std::to_string(i) + " varchar(40), "
                           : "Number" + std::to_string(i) + " int, ";
    }
    return text + name + "ID integer primary key autoincrement, FK_ListID int, " + states + ")";
}

std::string InsertText(const std::string& table, const std::string& states) {
    std::string text =
        "insert into " + table + " (" + PlainColumnNames() + "FK_ListID, " + states + ") values (?";
    for (int i = 0; i < PlainColumns + 2; ++i)
        text += ", ?";
    return text + ")";
}

}  // namespace

std::vector<std::string> TreeTables() {
    return {TableText("List", "QORSelectedItem int, QORCounterHolder int"),
            TableText("Item", "QORSelectState int, QORCounter int"),
            "create index tItem1 on tItem (FK_ListID)"};
}

TreeFloor::TreeFloor(const std::string& file) : m_connection(OpenSqlite(file)) {
    Execute("pragma foreign_keys = on");
    const bool isNew = file == ":memory:";
    if (isNew) {
        for (const std::string& text : TreeTables())
            Execute(text);
    }
    m_insertRoot = Prepare(InsertText("tList", "QORSelectedItem, QORCounterHolder"));
    m_insertElement = Prepare(InsertText("tItem", "QORSelectState, QORCounter"));
    m_selectRoot = Prepare("select * from tList where ListID=?");
    m_selectElements = Prepare("select * from tItem where FK_ListID=?");
    m_selectElement = Prepare("select * from tItem where ItemID=?");
    m_deleteRoot = Prepare("delete from tList where ListID=?");
    m_deleteElement = Prepare("delete from tItem where ItemID=?");
}

void TreeFloor::Execute(const std::string& text) {
    RequireSqlite(sqlite3_exec(m_connection.get(), text.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK,
                  m_connection.get());
}

std::int64_t TreeFloor::Save() {
    const std::int64_t root = Insert(m_insertRoot.get(), 0, 0);
    for (int i = 1; i <= ElementsPerTree; ++i)
        Insert(m_insertElement.get(), i, root);
    return root;
}

std::int64_t TreeFloor::Insert(sqlite3_stmt* statement, int index, std::int64_t parent) {
    static const std::string text = "a text of some length";
    for (int i = 0; i < PlainColumns; ++i) {
        if (i % 2 == 0) {
            sqlite3_bind_text(statement, i + 1, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
        } else {
            sqlite3_bind_int64(statement, i + 1, index * 100 + i);
        }
    }
    sqlite3_bind_int64(statement, PlainColumns + 1, parent);
    sqlite3_bind_int64(statement, PlainColumns + 2, 0);
    sqlite3_bind_int64(statement, PlainColumns + 3, 0);
    RequireSqlite(sqlite3_step(statement) == SQLITE_DONE, m_connection.get());
    sqlite3_reset(statement);
    return sqlite3_last_insert_rowid(m_connection.get());
}

std::int64_t TreeFloor::Load(std::int64_t key) {
    const std::int64_t read = ReadRow(m_selectRoot.get(), key);
    std::int64_t sum = 0;
    for (const std::int64_t element : ElementKeys(key))
        sum += ReadRow(m_selectElement.get(), element);
    return read + sum;
}

/// Every column as the value of its type, texts copied as a caller would keep them.
std::int64_t TreeFloor::ReadRow(sqlite3_stmt* statement, std::int64_t key) {
    sqlite3_bind_int64(statement, 1, key);
    RequireSqlite(sqlite3_step(statement) == SQLITE_ROW, m_connection.get());
    std::int64_t sum = 0;
    for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        if (sqlite3_column_type(statement, i) == SQLITE_TEXT) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
            const std::string copy(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, i)));
            sum += static_cast<std::int64_t>(copy.size());
        } else {
            sum += sqlite3_column_int64(statement, i);
        }
    }
    sqlite3_reset(statement);
    return sum;
}

std::vector<std::int64_t> TreeFloor::ElementKeys(std::int64_t parent) {
    std::vector<std::int64_t> keys;
    sqlite3_stmt* statement = m_selectElements.get();
    sqlite3_bind_int64(statement, 1, parent);
    while (sqlite3_step(statement) == SQLITE_ROW)
        keys.push_back(sqlite3_column_int64(statement, PlainColumns));
    sqlite3_reset(statement);
    return keys;
}

void TreeFloor::Delete(std::int64_t key) {
    ReadRow(m_selectRoot.get(), key);
    for (const std::int64_t element : ElementKeys(key)) {
        ReadRow(m_selectElement.get(), element);
        Run(m_deleteElement.get(), element);
    }
    Run(m_deleteRoot.get(), key);
}

void TreeFloor::Run(sqlite3_stmt* statement, std::int64_t key) {
    sqlite3_bind_int64(statement, 1, key);
    RequireSqlite(sqlite3_step(statement) == SQLITE_DONE, m_connection.get());
    sqlite3_reset(statement);
}

}  // namespace korvex::bench
