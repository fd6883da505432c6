#include "scriptgen/generator.h"

#include "repository/lookups.h"
#include "scriptgen/column_model.h"
#include "scriptgen/dialect.h"
#include "scriptgen/table_walk.h"

#include <utility>

namespace korvex::scriptgen {

using repository::DefinitionRows;

namespace {

/// Scripts every table that the walk meets.
class TableScripts final : public TableVisitor {
  public:
    TableScripts(RunState& run, DefinitionRows& rows, const Dialect& dialect)
        : TableVisitor(rows), m_run(run), m_dialect(dialect) {}

  private:
    bool EnterTable(repository::ObjectId lObjectID, const std::string& table) override {
        DescribedTable described;
        described.Name = table;
        described.Columns = BuildTableFields(m_rows, lObjectID, table);
        m_dialect.AddScripts(m_run, described, m_names);
        return true;
    }

    RunState& m_run;
    const Dialect& m_dialect;
    const ReferencedNames m_names{
        [this](repository::ObjectId id) { return repository::GetObjectTableName(m_rows, id); },
        [this](repository::ValueId id) { return repository::GetFieldName(m_rows, id); }};
};

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
}

}  // namespace korvex::scriptgen
