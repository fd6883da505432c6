#pragma once

#include "scriptgen/column_text.h"
#include "scriptgen/script_types.h"
#include "scriptgen/table_model.h"

#include <functional>
#include <string>
#include <string_view>

namespace korvex::scriptgen {

/// What a published dialect puts around the statements of a table.
struct TableWords {
    std::string_view owner;          ///< before the table's name
    std::string_view keyKind;        ///< "PRIMARY KEY ..."
    std::string_view end;            ///< of each statement
    std::string_view constraintEnd;  ///< of a constraint statement, before its line break
};

/// The same for the procedures of a table.
struct ProcedureWords {
    std::string_view create;
    std::string_view begin;         ///< up to the first statement
    std::string_view mark;          ///< makes the name of a column that of a parameter
    std::string_view keySeparator;  ///< between the parameters that pick rows by the key
    std::string_view statementEnd;
    std::string_view afterChange;  ///< behind a statement that changes rows
    std::string_view end;
    std::string_view writeBegin;  ///< before an insert or an update
    std::string_view insertEnd;   ///< in place of `end`
    std::string_view updateEnd;   ///< in place of `end`
};

/// The names that foreign keys refer to by number; "" for a number that stands for nothing.
struct ReferencedNames {
    std::function<std::string(repository::ObjectId)> GetObjectTableName;
    std::function<std::string(repository::ValueId)> GetFieldName;
};

/// How the scripts of one target database are written. What the three agree on stands here.
class Dialect {
  public:
    Dialect(ScriptType type, const TypeNames& types, const TableWords& table,
            const ProcedureWords& procedures)
        : m_nMaxCharLen(FindScriptType(type)->maxCharLen),
          m_types(types),
          m_table(table),
          m_procedures(procedures) {}
    virtual ~Dialect() = default;

    /// Appends all scripts of a table to those of the run. TypeMismatch (13) when a declared length that the
    /// type of a column needs is no number.
    void AddScripts(RunState& run, DescribedTable& table, const ReferencedNames& names) const;

    /// Sets the type texts of the columns; marks columns that become long ones. Errors as above.
    void SetTypes(DescribedTable& table) const;
    /// The tables as the scripts make them: types, defaults, indexes, triggers. All constraints of a table
    /// bear one name there, so that a server keeps the first: only that one is in the run. Errors as above.
    std::vector<DescribedTable> Tables(std::span<const DescribedTable> tables) const;
    /// The type of a column as it stands in its table, with what numbers it.
    virtual std::string ColumnType(const DescribedTable& /*table*/, const Column& column) const {
        return column.TypeSize;
    }

    /// Appends one constraint per object that the table references, and its drop.
    void AddForeignKeys(RunState& run, const DescribedTable& table, const ReferencedNames& names) const;
    /// Appends the procedures: to read and delete all rows, those of its key and those of each object that it
    /// refers to, to insert a row and to update one; and their drops, if any.
    void AddStoredProcedures(RunState& run, const DescribedTable& table) const;
    /// Appends the create text of a table, all of it or none; its types are set.
    void AddTable(RunState& run, const DescribedTable& table) const;
    virtual void AppendTableDrop(std::string& drop, const DescribedTable& table) const = 0;

    const ProcedureWords& Procedures() const noexcept { return m_procedures; }
    /// Whether a table with a counter has a trigger, TriggerName, that fills it.
    virtual bool NumbersByTrigger() const noexcept { return false; }
    /// Whether the parameters of procedures name the types of columns.
    virtual bool ProceduresNameTypes() const noexcept = 0;
    /// The type of a parameter for a column.
    virtual std::string ParameterType(std::string_view table, const Column& column) const = 0;
    /// Appends the drop of a procedure.
    virtual void AppendProcedureDrop(std::string& drop, std::string_view procedure) const = 0;
    /// Appends the parameter by which the new key leaves an insert, behind the others.
    virtual void AppendKeyOutput(std::string& parameters, std::string_view table,
                                 const Column& counter) const = 0;
    /// Appends what reads that key.
    virtual void AppendKeyReading(std::string& text, std::string_view table, std::string_view key) const = 0;

  protected:
    /// Appends what creates a table with all that belongs to it.
    virtual void AppendCreate(std::string& text, RunState& run, const DescribedTable& table) const = 0;
    /// Appends what creates a table and its indexes.
    void AppendTable(std::string& text, const DescribedTable& table) const;

  private:
    void Describe(DescribedTable& table) const;
    std::string TypeText(std::string_view table, Column& column) const;
    void AppendPrimaryKey(std::string& text, const DescribedTable& table) const;
    void AppendForeignKeyIndexes(std::string& text, const DescribedTable& table) const;

    double m_nMaxCharLen;
    const TypeNames& m_types;
    const TableWords& m_table;
    const ProcedureWords& m_procedures;
};

/// The dialect of a script type; nullptr for None.
const Dialect* FindDialect(ScriptType type) noexcept;

/// One by one.
const Dialect& SqlServerDialect() noexcept;
const Dialect& SybaseDialect() noexcept;
const Dialect& OracleDialect() noexcept;

/// The column that numbers the rows of a table; nullptr for none.
const Column* CounterOf(const DescribedTable& table);
/// The trigger by which Oracle does so, without its terminator.
std::string OracleTriggerText(std::string_view table, std::string_view counter);

/// What stands before the default of a column.
inline constexpr std::string_view DefaultWord = " default ";

}  // namespace korvex::scriptgen
