#include "automation/convert.h"
#include "automation/error.h"
#include "repository/lookups.h"
#include "scriptgen/column_model.h"
#include "scriptgen/constraint_scripts.h"
#include "scriptgen/dialect.h"
#include "scriptgen/generator.h"
#include "scriptgen/read_value.h"
#include "scriptgen/script_text.h"

#include <memory>
#include <optional>
#include <unordered_set>
#include <utility>
#include <vector>

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

/// Walks the object graph depth first: an object's own table, then its collection's object, then the child
/// objects of its interfaces. The way down is kept here and not on the call stack, so its depth has no limit.
/// An object is scripted once per path that leads to it.
class TableWalk {
  public:
    TableWalk(RunState& run, Repository& repository, const Dialect& dialect)
        : m_run(run), m_repository(repository), m_dialect(dialect), m_names(repository) {}

    void WalkObject(std::int32_t lObjectID);

  private:
    /// An object on the way down, and how far its own objects are walked.
    struct Level {
        std::int32_t lObjectID = 0;
        std::int32_t lCollectionObjectID = 0;  ///< 0 once it is walked
        std::optional<std::vector<std::int32_t>> interfaces;
        std::size_t nextInterface = 0;
        std::vector<std::int32_t> children;  ///< of the interface before the next one
        std::size_t nextChild = 0;
    };

    void Enter(std::int32_t lObjectID);
    std::optional<std::int32_t> NextBelow(Level& level);
    void Leave();
    void ScriptTable();

    RunState& m_run;
    Repository& m_repository;
    const Dialect& m_dialect;
    RepositoryNames m_names;
    std::vector<Level> m_path;
    std::unordered_set<std::int32_t> m_objectsOnPath;
    std::string m_createText;  ///< of one table; kept for its memory
};

void TableWalk::WalkObject(std::int32_t lObjectID) {
    Enter(lObjectID);
    while (!m_path.empty()) {
        if (const auto next = NextBelow(m_path.back())) {
            Enter(*next);
        } else {
            Leave();
        }
    }
}

/// Scripts the object's table and takes it onto the path, unless it takes no part in the scripts.
void TableWalk::Enter(std::int32_t lObjectID) {
    if (m_objectsOnPath.contains(lObjectID)) {
        throw automation::Error(automation::OutOfStackSpace,
                                "Object " + std::to_string(lObjectID) + " is its own ancestor: object " +
                                    std::to_string(m_path.back().lObjectID) + " holds it again.");
    }
    m_run.m_lCurrentObjectID = lObjectID;

    // The word touches the number in this statement; the engines' layer knows that.
    std::string sql;
    Append(sql,
           "SELECT CollectionObjectID, TableName from tObjects where IsIncluded <> 0"
           "and TableName is not null and ObjectID = ",
           std::to_string(lObjectID));
    const auto object = m_repository.OpenSnapshot(sql);
    if (object == nullptr || object->Eof()) return;

    const std::string what = "object " + std::to_string(lObjectID);
    Level level;
    level.lObjectID = lObjectID;
    level.lCollectionObjectID = ReadValue(object->Fields("CollectionObjectID"), automation::ToLong, what);
    m_run.m_sCurrentTable = ReadValue(object->Fields("TableName"), automation::ToString, what);
    object->Close();

    ScriptTable();
    m_objectsOnPath.insert(lObjectID);
    m_path.push_back(std::move(level));
}

/// The next object to walk below a level; nothing when all are done.
std::optional<std::int32_t> TableWalk::NextBelow(Level& level) {
    if (level.lCollectionObjectID > 0) return std::exchange(level.lCollectionObjectID, 0);

    if (!level.interfaces) level.interfaces = repository::GetObjectInterfaces(m_repository, level.lObjectID);
    while (level.nextChild == level.children.size()) {
        if (level.nextInterface == level.interfaces->size()) return std::nullopt;
        level.children = repository::GetChildObjects(m_repository, (*level.interfaces)[level.nextInterface]);
        level.nextChild = 0;
        ++level.nextInterface;
    }
    return level.children[level.nextChild++];
}

void TableWalk::Leave() {
    m_objectsOnPath.erase(m_path.back().lObjectID);
    m_path.pop_back();
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
