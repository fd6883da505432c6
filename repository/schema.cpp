#include "repository/schema.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"

#include <iterator>
#include <memory>
#include <utility>

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
    "CREATE INDEX IF NOT EXISTS tDataDefs_Storage ON tDataDefs (Storage)",
    "CREATE INDEX IF NOT EXISTS tObjectInterfaces_ObjectID ON tObjectInterfaces (ObjectID)",
    "CREATE INDEX IF NOT EXISTS tObjectInterfaces_InterfaceID ON tObjectInterfaces (InterfaceID)",
    "CREATE INDEX IF NOT EXISTS tValues_InterfaceID ON tValues (InterfaceID)",
};

// In place of the keys, where there are none.
constexpr std::string_view KeyIndexes[] = {
    "CREATE INDEX IF NOT EXISTS tPrimaryKeys_ObjectID ON tPrimaryKeys (ObjectID)",
    "CREATE INDEX IF NOT EXISTS tForeignKeys_ObjectID ON tForeignKeys (ObjectID)",
};

/// A column as an engine declares it.
std::string ColumnText(const SchemaColumn& column, SchemaEngine engine) {
    std::string name(column.name);
    std::string_view type = column.type;
    if (engine == SchemaEngine::MariaDb) {
        name = "`" + name + "`";  // MaxValue is a reserved word there
        if (type == AutoNumber) type = "INTEGER AUTO_INCREMENT PRIMARY KEY";
        if (type == LongText) type = "LONGTEXT";
    }
    if (engine == SchemaEngine::PostgreSql && type == AutoNumber) type = "SERIAL PRIMARY KEY";
    if (engine == SchemaEngine::Private && type == Text) type = LongText;
    return name.append(" ").append(type);
}

std::string CreateTableText(const SchemaTable& table, SchemaEngine engine) {
    std::string text = "CREATE TABLE IF NOT EXISTS " + std::string(table.name) + " (";
    std::string_view separator;
    for (const SchemaColumn& column : table.columns) {
        text.append(separator).append(ColumnText(column, engine));
        separator = ", ";
    }
    if (!table.key.empty() && engine != SchemaEngine::Private) text.append(separator).append(table.key);
    text += ")";
    // Whatever the database takes for its own tables: names are in all scripts.
    if (engine == SchemaEngine::MariaDb) text += " DEFAULT CHARACTER SET utf8mb4";
    return text;
}

/// A serial column does not take notice of numbers that rows bring with them, and would give them once more.
void AddNumbering(std::vector<std::string>& statements) {
    statements.emplace_back(
        "CREATE OR REPLACE FUNCTION NumberFromHere() RETURNS trigger LANGUAGE plpgsql AS $$ "
        "DECLARE given bigint := (to_jsonb(NEW) ->> lower(TG_ARGV[0]))::bigint; "
        "numbers text := pg_get_serial_sequence(TG_RELID::regclass::text, lower(TG_ARGV[0])); "
        "BEGIN "
        "IF given > coalesce(pg_sequence_last_value(numbers::regclass), 0) THEN "
        "PERFORM setval(numbers, given); END IF; "
        "RETURN NEW; END $$");
    for (const SchemaTable& table : Tables) {
        for (const SchemaColumn& column : table.columns) {
            if (column.type != AutoNumber) continue;
            std::string text = "CREATE OR REPLACE TRIGGER ";
            text.append(table.name).append("_Number BEFORE INSERT ON ").append(table.name);
            text.append(" FOR EACH ROW EXECUTE FUNCTION NumberFromHere('").append(column.name).append("')");
            statements.push_back(std::move(text));
        }
    }
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

/// What a query for a single text gives; empty when the engine does not understand it.
std::string Answer(dao::Database& database, std::string_view question) {
    try {
        const auto recordset = database.OpenRecordset(question, dao::dbOpenSnapshot);
        if (recordset->Eof()) return {};
        return automation::ToString(recordset->Fields("Answer").Value());
    } catch (const automation::Error& error) {
        if (error.Number() == dao::OdbcConnectFailed || error.Number() == dao::ObjectInvalid) throw;
        return {};
    }
}

}  // namespace

std::span<const SchemaTable> SchemaTables() noexcept { return Tables; }

SchemaEngine SchemaEngineOf(dao::Database& database) {
    if (!Answer(database, "select sqlite_version() as Answer").empty()) return SchemaEngine::Embedded;
    const std::string version = Answer(database, "select version() as Answer");
    if (automation::ContainsIgnoreCase(version, "mariadb")) return SchemaEngine::MariaDb;
    if (automation::ContainsIgnoreCase(version, "postgresql")) return SchemaEngine::PostgreSql;
    throw automation::Error(automation::InvalidProcedureCall,
                            "The tables of a repository can be made on SQLite, MariaDB and PostgreSQL; this "
                            "database is on another engine" +
                                (version.empty() ? "." : ": " + version));
}

std::vector<std::string> SchemaStatements(SchemaEngine engine) {
    std::vector<std::string> statements;
    for (const SchemaTable& table : Tables) {
        statements.push_back(CreateTableText(table, engine));
    }
    statements.insert(statements.end(), std::begin(Indexes), std::end(Indexes));
    if (engine == SchemaEngine::Private)
        statements.insert(statements.end(), std::begin(KeyIndexes), std::end(KeyIndexes));
    if (engine == SchemaEngine::PostgreSql) AddNumbering(statements);
    return statements;
}

void CreateSchema(dao::Database& database, SchemaEngine engine) {
    for (const std::string& statement : SchemaStatements(engine)) {
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

void RaiseGaps(std::span<const SchemaGap> gaps, std::string_view name) {
    throw automation::Error(
        gaps.front().column.empty() ? dao::TableNotFound : dao::ItemNotFound,
        "This is no complete repository, " + DescribeGaps(gaps) + ": " + std::string(name));
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
