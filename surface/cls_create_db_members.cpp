#include "automation/member_rows.h"
#include "surface/cls_create_db.h"

#include <string>
#include <string_view>

namespace korvex {

namespace {

using automation::GetRow;
using automation::LetRow;
using automation::MethodRow;
using automation::Parameter;
using automation::Passing;
using automation::Taking;
using automation::VarType;

constexpr Parameter TextParameter(std::string_view name) {
    return {name, VarType::String, Passing::ByReference};
}
constexpr Parameter OptionalText(std::string_view name) {
    return {name, VarType::String, Passing::ByReference, true};
}
constexpr Parameter OptionalVariant(std::string_view name) {
    return {name, VarType::Variant, Passing::ByReference, true};
}

constexpr Parameter ScriptTypesParameters[] = {OptionalVariant("oLanguageSvr")};
constexpr Parameter DoScriptParameters[] = {TextParameter("sID"), TextParameter("sFilename"),
                                            OptionalText("storageName"), OptionalVariant("sFKPrefix"),
                                            OptionalVariant("oLanguageSvr")};
constexpr Parameter RunParameters[] = {TextParameter("FileName"), OptionalText("storageName"),
                                       OptionalVariant("sFKPrefix")};
constexpr Parameter CreateRelationshipParameters[] = {OptionalText("storageName"),
                                                      OptionalVariant("sFKPrefix")};
constexpr Parameter ConnectParameters[] = {TextParameter("sConnection")};

constexpr automation::Member Members[] = {
    GetRow<&clsCreateDb::ScriptTypes>("ScriptTypes", {ScriptTypesParameters, {}, "Collection"}),
    MethodRow<&clsCreateDb::DoScript>("DoScript", {DoScriptParameters}),
    GetRow<Taking<>(&clsCreateDb::FKPrefix)>("FKPrefix"),
    LetRow<Taking<const std::string&>(&clsCreateDb::FKPrefix), Passing::ByReference>("FKPrefix"),
    GetRow<Taking<>(&clsCreateDb::ScriptFilePath)>("ScriptFilePath"),
    LetRow<Taking<const std::string&>(&clsCreateDb::ScriptFilePath), Passing::ByReference>("ScriptFilePath"),
    MethodRow<&clsCreateDb::DoMSsqlDb>("DoMSsqlDb", {RunParameters}),
    MethodRow<&clsCreateDb::DoOracleDb>("DoOracleDb", {RunParameters}),
    MethodRow<&clsCreateDb::DoSybaseDb>("DoSybaseDb", {RunParameters}),
    MethodRow<&clsCreateDb::CreateRelationship>("CreateRelationship", {CreateRelationshipParameters}),
    MethodRow<&clsCreateDb::ShutDown>("ShutDown"),
    GetRow<&clsCreateDb::DbSQL>("DbSQL"),
    GetRow<&clsCreateDb::DropSQL>("DropSQL"),
    GetRow<&clsCreateDb::StoredProcSQL>("StoredProcSQL"),
    GetRow<&clsCreateDb::FkConstraintSQL>("FkConstraintSQL"),
    GetRow<&clsCreateDb::DropFkConstraintSQL>("DropFkConstraintSQL"),
    MethodRow<&clsCreateDb::ShowLog>("ShowLog"),
    MethodRow<&clsCreateDb::ConnectDB>("ConnectDB", {ConnectParameters}),
};

constexpr automation::ClassInfo Info = {.name = "clsCreateDb", .description = {}, .members = Members};

}  // namespace

const automation::ClassInfo& clsCreateDb::Class() const noexcept { return Info; }

}  // namespace korvex
