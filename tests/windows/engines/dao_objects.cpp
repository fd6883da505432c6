#include "tests/windows/engines/dao_objects.h"

#include "automation/convert.h"
#include "platform/native/dao/dao_engine.h"
#include "tests/windows/engines/dao_files.h"
#include "tests/windows/engines/dao_recordset_objects.h"

#include <string>

namespace korvex::test {

namespace {

using automation::ClassInfo;
using automation::InvokeKind;
using automation::Member;
using automation::Object;
using automation::Parameter;
using automation::Passing;
using automation::Variant;
using automation::VarType;
using Arguments = std::span<Variant>;

template <class T>
T& As(Object& self) {
    return static_cast<T&>(self);
}

const std::string& Text(const Variant& argument) { return *argument.If<std::string>(); }

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

Variant OpenRecordset(Object& self, Arguments arguments) {
    auto& database = As<DatabaseObject>(self);
    auto rows = database.Engine().OpenRecordset(Text(arguments[0]), automation::ToLong(arguments[1]),
                                                LongOrOmitted(arguments[2]), LongOrOmitted(arguments[3]));
    return WrapRecordset(std::move(rows), database.shared_from_this());
}

constexpr Parameter OpenRecordsetParameters[] = {
    {"Name", VarType::String}, {"Type", VarType::Long}, Optional("Options"), Optional("LockEdit")};
constexpr Parameter ExecuteParameters[] = {{"Query", VarType::String}, Optional("Options")};

constexpr Member DatabaseMembers[] = {
    {"OpenRecordset", InvokeKind::Method, OpenRecordsetParameters, VarType::Object, OpenRecordset},
    {"Execute", InvokeKind::Method, ExecuteParameters, VarType::Void,
     [](Object& self, Arguments arguments) -> Variant {
         As<DatabaseObject>(self).Engine().Execute(Text(arguments[0]));
         return {};
     }},
    {"Close",
     InvokeKind::Method,
     {},
     VarType::Void,
     [](Object& self, Arguments) -> Variant {
         As<DatabaseObject>(self).Engine().Close();
         return {};
     }},
};
constexpr ClassInfo DatabaseClass{"Database", {}, DatabaseMembers};

// ---- Workspace

class WorkspaceObject final : public automation::TableObject {
  public:
    const ClassInfo& Class() const noexcept override;
    native::dao_engine::NativeWorkspace engine{nullptr};
};

constexpr Parameter OpenConnectionParameters[] = {{"Name", VarType::String},
                                                  Optional("Options"),
                                                  {"ReadOnly", VarType::Boolean},
                                                  {"Connect", VarType::String}};

constexpr Member WorkspaceMembers[] = {
    {"OpenConnection", InvokeKind::Method, OpenConnectionParameters, VarType::Object,
     [](Object& self, Arguments arguments) -> Variant {
         return std::make_shared<DatabaseObject>(As<WorkspaceObject>(self).engine.OpenConnection(
             Text(arguments[0]), *arguments[2].If<bool>(), Text(arguments[3])));
     }},
};
constexpr ClassInfo WorkspaceClass{"Workspace", {}, WorkspaceMembers};

const ClassInfo& WorkspaceObject::Class() const noexcept { return WorkspaceClass; }

// ---- DBEngine

template <void (*Work)(dao::Database&)>
Variant OnAll(Object& self, Arguments) {
    As<DBEngineObject>(self).ForAll(Work);
    return {};
}

constexpr Parameter NameParameter[] = {{"Name", VarType::String}, Optional("Locale")};
constexpr Parameter WorkspaceParameters[] = {{"Name", VarType::String},
                                             {"UserName", VarType::String},
                                             {"Password", VarType::String},
                                             Optional("UseType")};

constexpr Member EngineMembers[] = {
    {"CreateWorkspace", InvokeKind::Method, WorkspaceParameters, VarType::Object,
     [](Object&, Arguments) -> Variant { return std::make_shared<WorkspaceObject>(); }},
    {"OpenDatabase", InvokeKind::Method, NameParameter, VarType::Object,
     [](Object& self, Arguments arguments) -> Variant {
         return As<DBEngineObject>(self).Keep(OpenDatabaseFile(Text(arguments[0])));
     }},
    {"CreateDatabase", InvokeKind::Method, NameParameter, VarType::Object,
     [](Object& self, Arguments arguments) -> Variant {
         return As<DBEngineObject>(self).Keep(CreateDatabaseFile(Text(arguments[0])));
     }},
    {"BeginTrans",
     InvokeKind::Method,
     {},
     VarType::Void,
     OnAll<[](dao::Database& database) { database.BeginTrans(); }>},
    {"CommitTrans",
     InvokeKind::Method,
     {},
     VarType::Void,
     OnAll<[](dao::Database& database) { database.CommitTrans(); }>},
    {"Rollback",
     InvokeKind::Method,
     {},
     VarType::Void,
     OnAll<[](dao::Database& database) { database.Rollback(); }>},
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
