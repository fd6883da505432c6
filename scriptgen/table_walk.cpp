#include "automation/convert.h"
#include "repository/lookups.h"
#include "repository/object_walk.h"
#include "repository/read_value.h"
#include "scriptgen/column_model.h"
#include "scriptgen/constraint_scripts.h"
#include "scriptgen/dialect.h"
#include "scriptgen/generator.h"
#include "scriptgen/script_text.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace korvex::scriptgen {

using repository::ReadValue;
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

/// Scripts the table of every object that a walk meets, before those of the objects beneath it.
class TableWalk final : public repository::ObjectVisitor {
  public:
    TableWalk(RunState& run, Repository& repository, const Dialect& dialect)
        : m_run(run), m_repository(repository), m_dialect(dialect), m_names(repository) {}

    void WalkObject(std::int32_t lObjectID) { repository::WalkObjects(m_repository, lObjectID, *this); }

  private:
    std::optional<std::int32_t> Enter(std::int32_t lObjectID) override;
    void ScriptTable();

    RunState& m_run;
    Repository& m_repository;
    const Dialect& m_dialect;
    RepositoryNames m_names;
    std::string m_createText;  ///< of one table; kept for its memory
};

/// Scripts the object's table; nothing for an object that takes no part in the scripts.
std::optional<std::int32_t> TableWalk::Enter(std::int32_t lObjectID) {
    m_run.m_lCurrentObjectID = lObjectID;

    // The word touches the number in this statement; the engines' layer knows that.
    std::string sql;
    Append(sql,
           "SELECT CollectionObjectID, TableName from tObjects where IsIncluded <> 0"
           "and TableName is not null and ObjectID = ",
           std::to_string(lObjectID));
    const auto object = m_repository.OpenSnapshot(sql);
    if (object == nullptr || object->Eof()) return std::nullopt;

    const std::string what = "object " + std::to_string(lObjectID);
    const std::int32_t lCollectionObjectID =
        ReadValue(object->Fields("CollectionObjectID"), automation::ToLong, what);
    m_run.m_sCurrentTable = ReadValue(object->Fields("TableName"), automation::ToString, what);
    object->Close();

    ScriptTable();
    return lCollectionObjectID;
}

/// Scripts of the table in hand, in the order in which the script files need them.
void TableWalk::ScriptTable() {
    m_run.m_colFields.clear();
    BuildTableFields(m_run, m_repository, m_dialect, m_run.m_lCurrentObjectID);
    AddForeignKeyScripts(m_run, m_run.m_sCurrentTable, m_dialect.ConstraintTerminator(), m_names);
    m_dialect.AddStoredProcedures(m_run);
    m_createText.clear();
    m_dialect.AddTable(m_run, m_createText);
    Append(m_run.m_sDbSQL, m_createText, "\r\n");
}

}  // namespace

void GenerateForStorage(RunState& run, Repository& repository, std::string_view storageName) {
    if (const Dialect* dialect = FindDialect(run.m_nScriptType)) {
        TableWalk walk(run, repository, *dialect);
        for (const std::int32_t root : repository::GetRootObjects(repository, storageName))
            walk.WalkObject(root);
    }
    run.m_lCurrentObjectID = -1;
    run.m_sCurrentTable.clear();
    run.m_colFields.clear();
}

}  // namespace korvex::scriptgen
