#include "repository/repository.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "repository/whole_tables.h"

#include <utility>

namespace korvex::repository {

using automation::Error;
using automation::Variant;

Repository::Repository(Platform platform) : m_platform(std::move(platform)) {}

void Repository::OpenRepository(std::string_view sConnection) {
    m_scriptedParents.clear();
    m_bOdbc = automation::ContainsIgnoreCase(sConnection, "DSN=");
    if (m_bOdbc) {
        m_wsOdbc = m_platform.repositoryEngine->CreateWorkspace("", "admin", "", dao::dbUseODBC);
        m_dbRepository = nullptr;
        m_dbRepository = m_wsOdbc->OpenConnection("", false, sConnection);
        return;
    }
    dao::DBEngine& engine = *m_platform.repositoryEngine;
    const auto tables = engine.ReadTables(sConnection, EmptyTables());
    m_dbRepository = tables ? InMemory(engine, *tables, sConnection) : engine.OpenDatabase(sConnection);
}

Repository Repository::NewPrivate() const {
    Repository repository(m_platform);
    repository.m_dbRepository = m_platform.repositoryEngine->CreateDatabase("");
    return repository;
}

std::unique_ptr<dao::Recordset> Repository::OpenSnapshot(std::string_view sSQL) {
    try {
        return Open().OpenRecordset(sSQL, dao::dbOpenSnapshot);
    } catch (const Error& error) {
        Desktop().ShowMessage(error.Description(), platform::StyleOkOnly, "");
        return nullptr;
    }
}

std::unique_ptr<dao::Recordset> Repository::OpenDynaset(std::string_view sSQL) {
    try {
        if (m_bOdbc) {
            return Open().OpenRecordset(sSQL, dao::dbOpenDynaset, dao::dbExecDirect, dao::dbOptimistic);
        }
        return Open().OpenRecordset(sSQL, dao::dbOpenDynaset);
    } catch (const Error& error) {
        Desktop().ShowMessage(error.Description(), platform::StyleOkOnly, "");
        return nullptr;
    }
}

Variant Repository::FieldValue(dao::Field& field) {
    Variant value = field.Value();
    if (value.IsNull()) value = {};
    return value;
}

bool Repository::IsObjectIncluded(ObjectId lObjectID) {
    const auto rows =
        OpenSnapshot("select IsIncluded from tObjects where ObjectID = " + std::to_string(Number(lObjectID)));
    if (!rows) throw Error(automation::ObjectVariableNotSet);
    const bool included = !rows->Eof() && automation::ToBoolean(FieldValue(rows->Fields("IsIncluded")));
    rows->Close();
    return included;
}

void Repository::Execute(std::string_view sSQL) { Open().Execute(sSQL); }

dao::Database& Repository::Open() {
    if (!m_dbRepository) throw Error(automation::ObjectVariableNotSet);
    return *m_dbRepository;
}

void Repository::Close() {
    // Let go first: a repository whose close fails is not held any longer.
    const std::unique_ptr<dao::Database> repository = std::move(m_dbRepository);
    m_scriptedParents.clear();
    if (!repository) throw Error(automation::ObjectVariableNotSet);
    repository->Close();
}

}  // namespace korvex::repository
