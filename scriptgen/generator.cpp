#include "scriptgen/generator.h"

#include "repository/lookups.h"
#include "scriptgen/column_model.h"
#include "scriptgen/constraint_scripts.h"
#include "scriptgen/dialect.h"
#include "scriptgen/script_text.h"
#include "scriptgen/table_walk.h"

namespace korvex::scriptgen {

using repository::Repository;

namespace {

class RepositoryNames final : public ReferencedNames {
  public:
    explicit RepositoryNames(Repository& repository) : m_repository(repository) {}

    std::string GetObjectTableName(std::int32_t lObjectID) override {
        return repository::GetObjectTableName(m_repository, lObjectID);
    }
    std::string GetFieldName(std::int32_t lValueID) override {
        return repository::GetFieldName(m_repository, lValueID);
    }

  private:
    Repository& m_repository;
};

/// Scripts every table that the walk meets.
class TableScripts final : public TableVisitor {
  public:
    TableScripts(RunState& run, Repository& repository, const Dialect& dialect)
        : TableVisitor(repository), m_run(run), m_dialect(dialect), m_names(repository) {}

  private:
    bool EnterTable(std::int32_t lObjectID, const std::string& table) override;

    RunState& m_run;
    const Dialect& m_dialect;
    RepositoryNames m_names;
    std::string m_createText;  ///< of one table; kept for its memory
};

/// The scripts of a table, in the order in which the script files need them.
bool TableScripts::EnterTable(std::int32_t lObjectID, const std::string& table) {
    m_run.m_lCurrentObjectID = lObjectID;
    m_run.m_sCurrentTable = table;
    m_run.m_colFields = BuildTableFields(m_repository, lObjectID, table);
    for (Column& column : m_run.m_colFields)
        column.TypeSize = m_dialect.ColumnTypeText(m_run, column);
    AddForeignKeyScripts(m_run, table, m_dialect.ConstraintTerminator(), m_names);
    m_dialect.AddStoredProcedures(m_run);
    m_createText.clear();
    m_dialect.AddTable(m_run, m_createText);
    Append(m_run.m_sDbSQL, m_createText, "\r\n");
    return true;
}

}  // namespace

void GenerateForStorage(RunState& run, Repository& repository, std::string_view storageName) {
    if (const Dialect* dialect = FindDialect(run.m_nScriptType))
        TableScripts(run, repository, *dialect).WalkStorage(storageName);
    run.m_lCurrentObjectID = -1;
    run.m_sCurrentTable.clear();
    run.m_colFields.clear();
}

}  // namespace korvex::scriptgen
