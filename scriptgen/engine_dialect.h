#pragma once

#include "automation/text.h"
#include "scriptgen/column_text.h"
#include "scriptgen/script_text.h"
#include "scriptgen/table_model.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Scripts for database engines that anybody can run. Written from the described tables; no procedures, as
/// persistence needs none.
namespace korvex::scriptgen {

/// What a statement makes or removes.
enum class EngineThing : std::uint8_t { Table, Index, Trigger, ForeignKey };

/// A statement, without what ends it, and what it is for.
struct EngineStatement {
    std::string text;
    EngineThing thing = EngineThing::Table;
    std::string table;
    std::string name;  ///< of an index or a trigger (its function included); of a foreign key, its column
};

/// The statements that make and remove tables on one engine.
struct EngineScripts {
    std::vector<EngineStatement> create;    ///< tables, indexes, triggers
    std::vector<EngineStatement> drop;      ///< leaves nothing of it, also of what was made in part
    std::vector<EngineStatement> addKeys;   ///< foreign keys; none where `create` holds them
    std::vector<EngineStatement> dropKeys;  ///< runs before `drop`
    std::vector<std::string> notes;  ///< for people: what is left out, or is not as the definition has it
};

/// A script file of an engine and the statements that it holds.
struct EngineFile {
    std::string_view name;
    std::vector<EngineStatement> EngineScripts::*statements = nullptr;
};

/// What an engine takes at most in one table.
struct EngineLimits {
    std::size_t columns = 0;
    std::size_t indexes = 0;  ///< the primary key's included
};

/// Queries by which an engine tells what is there. Each row begins with the name of the table.
struct CatalogueQueries {
    /// column, its type, 1 for a numbered one, 1 for one of the primary key, its default (Null for none)
    std::string_view columns;
    std::string_view indexes;  ///< index, one of its columns; in their order
    /// column, table and column referred to (Null for that table's key), the constraint (Null for no name)
    std::string_view foreignKeys;
    std::string_view triggers;  ///< trigger
    /// index or trigger, the statement that makes it; "" where an engine keeps none
    std::string_view dependents = {};
};

/// What is fixed for an engine.
struct EngineFacts {
    std::string_view name;  ///< of the dialect, for people who choose one: "sqlite"
    std::span<const EngineFile> files;
    TypeNames types;
    EngineLimits limits;
    CatalogueQueries catalogue;
    /// The words that are no names of tables or columns, each between blanks, in capitals.
    std::string_view reservedWords;
    /// What stands behind the name of a numbered column, and behind the parentheses of a table.
    std::string_view numberedColumn = {}, tableOptions = {};
    std::string_view falseLiteral = "0", trueLiteral = "1";
    /// What stands behind the name of a table in those of its triggers.
    std::span<const std::string_view> triggers;
    /// What a foreign key is called where it is dropped; "" where references can neither be added to a table
    /// that is there nor removed.
    std::string_view droppedKey = {};
    /// Whether what was made in a transaction goes when that is rolled back.
    bool definitionsRollBack = true;
    /// Whether names of tables are the same in any case.
    bool foldsTableNames = true;
    /// Whether the engine numbers the column of a key only, and only a key of one column.
    bool numbersTheKeyOnly = true;
};

/// How tables are made on one engine. What most engines agree on stands here; each overrides the rest.
class EngineDialect {
  public:
    explicit EngineDialect(const EngineFacts& facts) : m_facts(facts) {}
    virtual ~EngineDialect() = default;

    const EngineFacts& Facts() const noexcept { return m_facts; }
    std::string_view Name() const noexcept { return m_facts.name; }
    bool DefinitionsRollBack() const noexcept { return m_facts.definitionsRollBack; }
    bool FoldsTableNames() const noexcept { return m_facts.foldsTableNames; }
    /// Whether references can be added to a table that is there, and removed.
    bool AltersForeignKeys() const noexcept { return !m_facts.droppedKey.empty(); }
    /// Whether the engine's "float" keeps single precision.
    bool FloatIsSingle() const noexcept { return m_facts.types.single == "float"; }

    /// The scripts of these tables. InvalidProcedureCall (5) for a default that is no value of its column's
    /// type, TypeMismatch (13) for a length that is no number, both naming table and column.
    EngineScripts Write(std::span<const DescribedTable> tables) const;

    /// The tables as the engine will tell of them once they are made: column types, defaults, indexes,
    /// triggers, and only such references in the run as it can keep. Errors as above.
    std::vector<DescribedTable> Tables(std::span<const DescribedTable> tables) const;
    /// What makes a table alone, as Tables() gives it.
    std::string TableText(const DescribedTable& table) const;
    /// The type of a column as it stands in TableText, with what numbers it.
    std::string ColumnType(const DescribedTable& table, const Column& column) const;
    /// A column with its type and default, as it stands in TableText.
    std::string ColumnText(const DescribedTable& table, const Column& column) const;
    /// The names of the triggers that turn 0 into Null.
    std::vector<std::string> TriggerNames(const DescribedTable& table) const;

    /// A column type that the engine tells, as the scripts write it.
    virtual std::string TypeAsWritten(std::string type) const { return type; }
    /// A default that the engine tells, as the scripts write it; "" for Null.
    virtual std::string DefaultAsWritten(std::string text) const {
        if (automation::EqualsIgnoreCase(text, "NULL")) text.clear();
        return text;
    }

    /// What the engine will not take, a line each: names that are reserved or no identifiers, defaults that
    /// are no values of their columns, numbered columns beside the key, more columns or indexes than a table
    /// may have.
    std::vector<std::string> Problems(std::span<const DescribedTable> tables) const;

  protected:
    virtual std::string TextLiteral(std::string_view text) const { return scriptgen::TextLiteral(text); }
    /// Type texts of the columns of a table, in their order; `notes` takes what is not as asked for.
    virtual std::vector<std::string> ColumnTypes(const DescribedTable& table,
                                                 std::vector<std::string>& notes) const;
    /// What stands behind the name of a numbered column.
    virtual std::string NumberedColumn(const DescribedTable& /*table*/) const {
        return std::string(m_facts.numberedColumn);
    }
    /// Adds the constraints of a table behind its columns, each with the comma before it.
    virtual void AppendConstraints(std::string& text, const DescribedTable& table) const;
    /// Adds what turns 0 into Null in columns that refer to parents: 0 stands for none.
    virtual void AddNoParent(EngineScripts& scripts, const DescribedTable& table,
                             std::span<const std::string> columns) const = 0;
    virtual void AddDropTable(EngineScripts& scripts, const DescribedTable& table) const;

    bool IsNumbered(const DescribedTable& table, const Column& column) const;
    /// "CONSTRAINT n FOREIGN KEY (c) REFERENCES t (k)"
    static std::string ForeignKeyText(const DescribedTable& table, const ForeignKey& key);

  private:
    std::string TypeText(const DescribedTable& table, const Column& column) const;
    std::vector<DescribedTable> Resolve(std::span<const DescribedTable> tables,
                                        std::vector<std::string>& notes) const;
    std::string DefaultLiteral(const DescribedTable& table, const Column& column) const;
    std::string Literal(const DescribedTable& table, const Column& column) const;
    void AddTable(EngineScripts& scripts, const DescribedTable& table) const;
    void AddForeignKey(EngineScripts& scripts, const DescribedTable& table, const ForeignKey& key) const;

    const EngineFacts& m_facts;
};

/// One by one.
const EngineDialect& SqliteDialect() noexcept;
const EngineDialect& MariaDbDialect() noexcept;
const EngineDialect& PostgreSqlDialect() noexcept;
/// The dialect of that name; InvalidProcedureCall (5) when there is none.
const EngineDialect& EngineDialectOf(std::string_view name);
/// All of them, in the order in which they are offered.
std::span<const EngineDialect* const> AllEngineDialects() noexcept;

/// The statements as the engine's own client reads them.
std::string ScriptText(std::span<const EngineStatement> statements);

/// Longest text that engines keep in a column of variable length; longer ones are long texts.
inline constexpr int LongestVarchar = 4000;

/// Name of a thing that a table has for one of its columns: `kind`, table and column, and, where that could
/// be another's or is too long for an engine, a hash of both in place of what is too much.
std::string ColumnThingName(std::string_view kind, std::string_view table, std::string_view column);

}  // namespace korvex::scriptgen
