#include "repository/schema.h"

#include "automation/error.h"

#include <iterator>
#include <memory>

namespace korvex::repository {

namespace {

// Numbers that the engine makes never come back after a row was deleted, so a reference that dangles can not
// be taken for one to a newer row.
constexpr std::string_view AutoNumber = "INTEGER PRIMARY KEY AUTOINCREMENT";
constexpr std::string_view Id = "INTEGER";
// Nothing is 0 here and not Null: the queries of the library compare these columns with 0.
constexpr std::string_view Number = "INTEGER DEFAULT 0";
constexpr std::string_view Text = "VARCHAR(255)";
constexpr std::string_view LongText = "TEXT";

constexpr SchemaColumn DataDefColumns[] = {{"Storage", Text}, {"RootObjectID", Id}};

constexpr SchemaColumn ObjectColumns[] = {{"ObjectID", AutoNumber},       {"Name", Text},
                                          {"CollectionObjectID", Number}, {"TableName", Text},
                                          {"IsIncluded", Number},         {"Guid", Text}};

constexpr SchemaColumn InterfaceColumns[] = {{"InterfaceID", AutoNumber}, {"Name", Text}};

constexpr SchemaColumn ObjectInterfaceColumns[] = {{"ObjectID", Id}, {"InterfaceID", Id}};

constexpr SchemaColumn ValueColumns[] = {
    {"ValueID", AutoNumber}, {"InterfaceID", Id},    {"ChildObjectID", Number}, {"Name", Text},
    {"FieldName", Text},     {"DataType", Number},   {"MaxLength", Text},       {"IsAutoNumber", Number},
    {"DefaultVal", Text},    {"IsIncluded", Number}, {"IsReadOnly", Number},    {"Description", LongText},
    {"Caption", Text},       {"Translation", Text},  {"MaxValue", Text},        {"MinValue", Text},
    {"VID", Number},         {"VIDTag1", Text},      {"VIDTag2", Text},         {"VIDTag3", Text}};

constexpr SchemaColumn PrimaryKeyColumns[] = {{"ObjectID", Id}, {"ValueID", Id}, {"Seq", Number}};

constexpr SchemaColumn ForeignKeyColumns[] = {
    {"ObjectID", Id}, {"ValueID", Id}, {"FKObjectID", Number}, {"FKValueID", Number}, {"FKObjectGUID", Text}};

constexpr SchemaTable Tables[] = {
    {"tDataDefs", DataDefColumns, ""},
    {"tObjects", ObjectColumns, ""},
    {"tInterfaces", InterfaceColumns, ""},
    {"tObjectInterfaces", ObjectInterfaceColumns, ""},
    {"tValues", ValueColumns, ""},
    {"tPrimaryKeys", PrimaryKeyColumns, "PRIMARY KEY (ObjectID, ValueID)"},
    {"tForeignKeys", ForeignKeyColumns, "PRIMARY KEY (ObjectID, ValueID, FKObjectID)"},
};

// One column each: rows that share the value then come in the order in which they were added, and that is
// the order of the columns in a table and of the tables in a script.
constexpr std::string_view Indexes[] = {
    "CREATE INDEX tDataDefs_Storage ON tDataDefs (Storage)",
    "CREATE INDEX tObjectInterfaces_ObjectID ON tObjectInterfaces (ObjectID)",
    "CREATE INDEX tObjectInterfaces_InterfaceID ON tObjectInterfaces (InterfaceID)",
    "CREATE INDEX tValues_InterfaceID ON tValues (InterfaceID)",
};

std::string CreateTableText(const SchemaTable& table) {
    std::string text = "CREATE TABLE " + std::string(table.name) + " (";
    std::string_view separator;
    for (const SchemaColumn& column : table.columns) {
        text.append(separator).append(column.name).append(" ").append(column.type);
        separator = ", ";
    }
    if (!table.key.empty()) text.append(separator).append(table.key);
    return text + ")";
}

bool HasColumn(dao::Recordset& recordset, std::string_view column) {
    try {
        static_cast<void>(recordset.Fields(column));
        return true;
    } catch (const automation::Error& error) {
        if (error.Number() != dao::ItemNotFound) throw;
        return false;
    }
}

/// The empty recordset of a table, or nullptr when the table is missing.
std::unique_ptr<dao::Recordset> OpenEmpty(dao::Database& database, std::string_view table) {
    try {
        return database.OpenRecordset("select * from " + std::string(table) + " where 1 = 0",
                                      dao::dbOpenSnapshot);
    } catch (const automation::Error& error) {
        if (error.Number() != dao::TableNotFound) throw;
        return nullptr;
    }
}

}  // namespace

std::span<const SchemaTable> SchemaTables() noexcept { return Tables; }

std::vector<std::string> SchemaStatements() {
    std::vector<std::string> statements;
    for (const SchemaTable& table : Tables) {
        statements.push_back(CreateTableText(table));
    }
    statements.insert(statements.end(), std::begin(Indexes), std::end(Indexes));
    return statements;
}

void CreateSchema(dao::Database& database) {
    for (const std::string& statement : SchemaStatements()) {
        database.Execute(statement);
    }
}

std::vector<SchemaGap> CheckSchema(dao::Database& database) {
    std::vector<SchemaGap> gaps;
    for (const SchemaTable& table : Tables) {
        const std::unique_ptr<dao::Recordset> recordset = OpenEmpty(database, table.name);
        if (!recordset) {
            gaps.push_back({std::string(table.name), {}});
            continue;
        }
        for (const SchemaColumn& column : table.columns) {
            if (!HasColumn(*recordset, column.name)) {
                gaps.push_back({std::string(table.name), std::string(column.name)});
            }
        }
        recordset->Close();
    }
    return gaps;
}

std::string DescribeGaps(std::span<const SchemaGap> gaps) {
    std::string text;
    for (const SchemaGap& gap : gaps) {
        if (!text.empty()) text += "; ";
        text += gap.column.empty() ? "table " + gap.table : "column " + gap.table + "." + gap.column;
        text += " is missing";
    }
    return text;
}

}  // namespace korvex::repository
