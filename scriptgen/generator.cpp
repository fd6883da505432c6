#include "scriptgen/generator.h"

#include "repository/lookups.h"
#include "scriptgen/column_model.h"
#include "scriptgen/constraint_scripts.h"
#include "scriptgen/dialect.h"
#include "scriptgen/script_text.h"
#include "scriptgen/table_walk.h"

#include <utility>

namespace korvex::scriptgen {

using repository::DefinitionRows;

namespace {

class RowNames final : public ReferencedNames {
  public:
    explicit RowNames(DefinitionRows& rows) : m_rows(rows) {}

    std::string GetObjectTableName(repository::ObjectId lObjectID) override {
        return repository::GetObjectTableName(m_rows, lObjectID);
    }
    std::string GetFieldName(repository::ValueId lValueID) override {
        return repository::GetFieldName(m_rows, lValueID);
    }

  private:
    DefinitionRows& m_rows;
};

/// Scripts every table that the walk meets.
class TableScripts final : public TableVisitor {
  public:
    TableScripts(RunState& run, DefinitionRows& rows, const Dialect& dialect)
        : TableVisitor(rows), m_run(run), m_dialect(dialect), m_names(rows) {}

  private:
    bool EnterTable(repository::ObjectId lObjectID, const std::string& table) override;

    RunState& m_run;
    const Dialect& m_dialect;
    RowNames m_names;
    std::string m_createText;  ///< of one table; kept for its memory
};

/// The scripts of a table, in the order in which the script files need them.
bool TableScripts::EnterTable(repository::ObjectId lObjectID, const std::string& table) {
    m_run.m_lCurrentObjectID = lObjectID;
    m_run.m_sCurrentTable = table;
    m_run.m_colFields = BuildTableFields(m_rows, lObjectID, table);
    for (Column& column : m_run.m_colFields)
        column.TypeSize = m_dialect.ColumnTypeText(m_run, column);
    AddForeignKeyScripts(m_run, table, m_dialect.ConstraintTerminator(), m_names);
    m_dialect.AddStoredProcedures(m_run);
    m_createText.clear();
    m_dialect.AddTable(m_run, m_createText);
    Append(m_run.Text(ScriptKind::Create), m_createText, "\r\n");
    return true;
}

/// Room for the scripts of that many tables: what grows bit by bit is copied again and again.
void MakeRoom(RunState& run, std::size_t tables) {
    constexpr std::pair<ScriptKind, std::size_t> usualLengths[] = {{ScriptKind::Create, 1024},
                                                                   {ScriptKind::Drop, 1536},
                                                                   {ScriptKind::Procedures, 4096},
                                                                   {ScriptKind::CreateForeignKeys, 256},
                                                                   {ScriptKind::DropForeignKeys, 128}};
    for (const auto& [kind, length] : usualLengths)
        run.Text(kind).reserve(run.Text(kind).size() + tables * length);
}

}  // namespace

void GenerateForStorage(RunState& run, DefinitionRows& rows, std::string_view storageName) {
    MakeRoom(run, rows.ScriptedParents().size() + 1);  // all tables but a root's refer to a parent's
    if (const Dialect* dialect = FindDialect(run.m_nScriptType))
        TableScripts(run, rows, *dialect).WalkStorage(storageName);
    run.m_lCurrentObjectID = repository::ObjectId{-1};
    run.m_sCurrentTable.clear();
    run.m_colFields.clear();
}

}  // namespace korvex::scriptgen
