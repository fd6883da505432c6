#include "tests/windows/engines/dao_objects.h"

#include "automation/convert.h"
#include "automation/member_rows.h"
#include "platform/native/dao/dao_engine.h"
#include "tests/windows/engines/dao_files.h"
#include "tests/windows/engines/dao_recordset_objects.h"

#include <string>

namespace korvex::test {

namespace {

using automation::ClassInfo;
using automation::Member;
using automation::MethodRow;
using automation::Parameter;
using automation::Passing;
using automation::Variant;
using automation::VarType;

constexpr std::int32_t invalidArgument = 3001;

/// What may be left out must not be given as anything that is no option.
std::int32_t LongOrOmitted(const Variant& argument) {
    if (argument.IsMissing()) return dao::dbOmitted;
    const std::int32_t option = automation::ToLong(argument);
    if (option < 0) throw automation::Error(invalidArgument, "Invalid argument.", "DAO.Database");
    return option;
}

constexpr Parameter Optional(std::string_view name) {
    return {name, VarType::Variant, Passing::ByValue, true};
}

// ---- Database

automation::ObjectRef OpenRecordset(DatabaseObject& database, const std::string& sql, std::int32_t type,
                                    const Variant& options, const Variant& lockEdit) {
    auto rows = database.Engine().OpenRecordset(sql, type, LongOrOmitted(options), LongOrOmitted(lockEdit));
    return WrapRecordset(std::move(rows), database.shared_from_this());
}

void Execute(DatabaseObject& database, const std::string& sql, const Variant&) {
    database.Engine().Execute(sql);
}

void Close(DatabaseObject& database) { database.Engine().Close(); }

constexpr Parameter OpenRecordsetParameters[] = {
    {"Name", VarType::String}, {"Type", VarType::Long}, Optional("Options"), Optional("LockEdit")};
constexpr Parameter ExecuteParameters[] = {{"Query", VarType::String}, Optional("Options")};

constexpr Member DatabaseMembers[] = {
    MethodRow<OpenRecordset>("OpenRecordset", {OpenRecordsetParameters}),
    MethodRow<Execute>("Execute", {ExecuteParameters}),
    MethodRow<Close>("Close"),
};
constexpr ClassInfo DatabaseClass{"Database", {}, DatabaseMembers};

// ---- Workspace

class WorkspaceObject final : public automation::TableObject {
  public:
    const ClassInfo& Class() const noexcept override;
};

constexpr Parameter OpenConnectionParameters[] = {{"Name", VarType::String},
                                                  Optional("Options"),
                                                  {"ReadOnly", VarType::Boolean},
                                                  {"Connect", VarType::String}};

std::shared_ptr<DatabaseObject> OpenConnection(WorkspaceObject&, const std::string&, const Variant&,
                                               bool readOnly, const std::string& connect) {
    return std::make_shared<DatabaseObject>(native::dao_engine::OdbcDatabase(connect, readOnly, nullptr));
}

constexpr Member WorkspaceMembers[] = {
    MethodRow<OpenConnection>("OpenConnection", {OpenConnectionParameters})};
constexpr ClassInfo WorkspaceClass{"Workspace", {}, WorkspaceMembers};

const ClassInfo& WorkspaceObject::Class() const noexcept { return WorkspaceClass; }

// ---- DBEngine

std::shared_ptr<WorkspaceObject> CreateWorkspace(DBEngineObject&, const std::string&, const std::string&,
                                                 const std::string&, const Variant&) {
    return std::make_shared<WorkspaceObject>();
}

template <std::unique_ptr<dao::Database> (*open)(std::string_view)>
std::shared_ptr<DatabaseObject> KeepFile(DBEngineObject& engine, const std::string& name, const Variant&) {
    return engine.Keep(open(name));
}

template <auto work>
void OnAll(DBEngineObject& engine) {
    engine.ForAll([](dao::Database& database) { (database.*work)(); });
}

constexpr Parameter NameParameter[] = {{"Name", VarType::String}, Optional("Locale")};
constexpr Parameter WorkspaceParameters[] = {{"Name", VarType::String},
                                             {"UserName", VarType::String},
                                             {"Password", VarType::String},
                                             Optional("UseType")};

constexpr Member EngineMembers[] = {
    MethodRow<CreateWorkspace>("CreateWorkspace", {WorkspaceParameters}),
    MethodRow<KeepFile<OpenDatabaseFile>>("OpenDatabase", {NameParameter}),
    MethodRow<KeepFile<CreateDatabaseFile>>("CreateDatabase", {NameParameter}),
    MethodRow<OnAll<&dao::Database::BeginTrans>>("BeginTrans"),
    MethodRow<OnAll<&dao::Database::CommitTrans>>("CommitTrans"),
    MethodRow<OnAll<&dao::Database::Rollback>>("Rollback"),
};
constexpr ClassInfo EngineClass{"DBEngine", {}, EngineMembers};

}  // namespace

const ClassInfo& DatabaseObject::Class() const noexcept { return DatabaseClass; }
const ClassInfo& DBEngineObject::Class() const noexcept { return EngineClass; }

std::shared_ptr<DatabaseObject> DBEngineObject::Keep(std::unique_ptr<dao::Database> database) {
    auto object = std::make_shared<DatabaseObject>(std::move(database));
    m_databases.push_back(object);
    return object;
}

void DBEngineObject::ForAll(void (*work)(dao::Database&)) {
    std::erase_if(m_databases, [](const auto& database) { return database.expired(); });
    for (const auto& database : m_databases)
        work(database.lock()->Engine());
}

}  // namespace korvex::test
