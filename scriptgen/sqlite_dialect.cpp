#include "automation/text.h"
#include "scriptgen/engine_dialect.h"
#include "scriptgen/script_names.h"
#include "scriptgen/script_text.h"

#include <algorithm>

namespace korvex::scriptgen {

namespace {

// clang-format off
constexpr std::string_view Words =
    " ADD ALL ALTER AND AS AUTOINCREMENT BETWEEN CASE CAST CHECK COLLATE COMMIT CONSTRAINT "
    "CREATE CURRENT_DATE CURRENT_TIME CURRENT_TIMESTAMP DEFAULT DEFERRABLE DELETE DISTINCT "
    "DROP ELSE ESCAPE EXCEPT EXISTS FOREIGN FROM GROUP HAVING IF IN INDEX INSERT INTERSECT "
    "INTO IS ISNULL JOIN LIMIT NOT NOTHING NOTNULL NULL ON OR ORDER PRIMARY RAISE REFERENCES "
    "RETURNING SELECT SET TABLE THEN TO TRANSACTION UNION UNIQUE UPDATE USING VALUES WHEN "
    "WHERE ";
// clang-format on

constexpr EngineFile ScriptFiles[] = {{"LiteCreate.sql", &EngineScripts::create},
                                      {"LiteDel.sql", &EngineScripts::drop}};

constexpr std::string_view Triggers[] = {"_I", "_U"};

constexpr CatalogueQueries Queries = {
    .columns =
        "select t.name, c.name as col, c.type, "
        "case when c.pk = 1 and instr(upper(t.sql), 'AUTOINCREMENT') > 0 then 1 else 0 end, "
        "case when c.pk > 0 then 1 else 0 end, c.dflt_value from sqlite_master t, pragma_table_info(t.name) c "
        "where t.type = 'table' and substr(t.name, 1, 7) <> 'sqlite_'",
    .indexes =
        "select t.name, i.name as ind, c.name as col from sqlite_master t, pragma_index_list(t.name) i, "
        "pragma_index_info(i.name) c where t.type = 'table' and i.origin <> 'pk'",
    .foreignKeys =
        "select t.name, f.\"from\", f.\"table\", f.\"to\", null from sqlite_master t, "
        "pragma_foreign_key_list(t.name) f where t.type = 'table'",
    .triggers = "select tbl_name, name from sqlite_master where type = 'trigger'",
    .dependents =
        "select tbl_name, name, sql from sqlite_master where type in ('index', 'trigger') and sql "
        "is not null order by rowid"};

constexpr EngineFacts SqliteFacts = {.name = "sqlite",
                                     .files = ScriptFiles,
                                     .types = {.integer16 = "smallint",
                                               .integer32 = "int",
                                               .single = "real",
                                               .real = "double",
                                               .currency = "decimal(19,4)",
                                               .date = "datetime",
                                               .boolean = "bit",
                                               .object = "blob",
                                               .variant = "blob",
                                               .byte = "tinyint",
                                               .text = "varchar",
                                               .longText = "text"},
                                     .limits = {.columns = 2000, .indexes = std::string::npos},
                                     .catalogue = Queries,
                                     .reservedWords = Words,
                                     .triggers = Triggers};

/// Foreign keys stand in their tables.
class Sqlite final : public EngineDialect {
  public:
    Sqlite() : EngineDialect(SqliteFacts) {}

    std::string TypeAsWritten(std::string type) const override {
        return automation::EqualsIgnoreCase(type, "INTEGER") ? std::string(SqliteFacts.types.integer32)
                                                             : type;
    }

  protected:
    /// Only a column of exactly this type is numbered, and only as the primary key.
    std::string NumberedColumn(const DescribedTable& table) const override {
        return "INTEGER CONSTRAINT " + PrimaryKeyName(table.Name) + " PRIMARY KEY AUTOINCREMENT";
    }
    void AppendConstraints(std::string& text, const DescribedTable& table) const override;
    void AddNoParent(EngineScripts& scripts, const DescribedTable& table,
                     std::span<const std::string> columns) const override;
};

/// The engine adds no constraint to a table that is there, so a table brings its references with it.
void Sqlite::AppendConstraints(std::string& text, const DescribedTable& table) const {
    const auto isKey = [&](const Column& column) { return IsNumbered(table, column); };
    if (std::ranges::none_of(table.Columns, isKey)) EngineDialect::AppendConstraints(text, table);
    for (const ForeignKey& key : table.ForeignKeys)
        if (key.IsInRun) Append(text, ",\r\n\t", ForeignKeyText(table, key));
}

/// References are looked up when the statement ends, after its triggers. A list has no limit of depth, as a
/// chain of comparisons has.
void Sqlite::AddNoParent(EngineScripts& scripts, const DescribedTable& table,
                         std::span<const std::string> columns) const {
    JoinedText values(", ");
    JoinedText assignments(", ");
    for (const std::string& column : columns) {
        values.Add("NEW.", column);
        assignments.Add(column, " = NULLIF(", column, ", 0)");
    }
    const std::string key = table.PrimaryKey.size() == 1 ? table.PrimaryKey.front() : "rowid";
    const auto add = [&](std::string_view suffix, const std::string& event) {
        std::string text;
        Append(text, "CREATE TRIGGER ", table.Name, suffix, " AFTER ", event, " ON ", table.Name);
        Append(text, " WHEN 0 IN (", values.Text(), ") BEGIN\r\n\tUPDATE ", table.Name, " SET ");
        Append(text, assignments.Text(), " WHERE ", key, " = NEW.", key, ";\r\nEND");
        scripts.create.push_back(
            {std::move(text), EngineThing::Trigger, table.Name, table.Name + std::string(suffix)});
    };
    add("_I", "INSERT");
    add("_U", "UPDATE OF " + Joined(columns));
}

}  // namespace

const EngineDialect& SqliteDialect() noexcept {
    static const Sqlite dialect;
    return dialect;
}

}  // namespace korvex::scriptgen
