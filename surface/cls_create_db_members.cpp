#include "automation/member_rows.h"
#include "surface/cls_create_db.h"
#include "surface/korvex_help.h"

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
    GetRow<&clsCreateDb::ScriptTypes>("ScriptTypes", {.parameters = ScriptTypesParameters,
                                                      .description = KORVEX_HELP_clsCreateDb_ScriptTypes,
                                                      .resultTypeName = "Collection"}),
    MethodRow<&clsCreateDb::DoScript>(
        "DoScript", {.parameters = DoScriptParameters, .description = KORVEX_HELP_clsCreateDb_DoScript}),
    GetRow<Taking<>(&clsCreateDb::FKPrefix)>("FKPrefix", {.description = KORVEX_HELP_clsCreateDb_FKPrefix}),
    LetRow<Taking<const std::string&>(&clsCreateDb::FKPrefix), Passing::ByReference>(
        "FKPrefix", {.description = KORVEX_HELP_clsCreateDb_FKPrefix}),
    GetRow<Taking<>(&clsCreateDb::ScriptFilePath)>("ScriptFilePath",
                                                   {.description = KORVEX_HELP_clsCreateDb_ScriptFilePath}),
    LetRow<Taking<const std::string&>(&clsCreateDb::ScriptFilePath), Passing::ByReference>(
        "ScriptFilePath", {.description = KORVEX_HELP_clsCreateDb_ScriptFilePath}),
    MethodRow<&clsCreateDb::DoMSsqlDb>(
        "DoMSsqlDb", {.parameters = RunParameters, .description = KORVEX_HELP_clsCreateDb_DoMSsqlDb}),
    MethodRow<&clsCreateDb::DoOracleDb>(
        "DoOracleDb", {.parameters = RunParameters, .description = KORVEX_HELP_clsCreateDb_DoOracleDb}),
    MethodRow<&clsCreateDb::DoSybaseDb>(
        "DoSybaseDb", {.parameters = RunParameters, .description = KORVEX_HELP_clsCreateDb_DoSybaseDb}),
    MethodRow<&clsCreateDb::CreateRelationship>("CreateRelationship",
                                                {.parameters = CreateRelationshipParameters,
                                                 .description = KORVEX_HELP_clsCreateDb_CreateRelationship}),
    MethodRow<&clsCreateDb::ShutDown>("ShutDown", {.description = KORVEX_HELP_clsCreateDb_ShutDown}),
    GetRow<&clsCreateDb::DbSQL>("DbSQL", {.description = KORVEX_HELP_clsCreateDb_DbSQL}),
    GetRow<&clsCreateDb::DropSQL>("DropSQL", {.description = KORVEX_HELP_clsCreateDb_DropSQL}),
    GetRow<&clsCreateDb::StoredProcSQL>("StoredProcSQL",
                                        {.description = KORVEX_HELP_clsCreateDb_StoredProcSQL}),
    GetRow<&clsCreateDb::FkConstraintSQL>("FkConstraintSQL",
                                          {.description = KORVEX_HELP_clsCreateDb_FkConstraintSQL}),
    GetRow<&clsCreateDb::DropFkConstraintSQL>("DropFkConstraintSQL",
                                              {.description = KORVEX_HELP_clsCreateDb_DropFkConstraintSQL}),
    MethodRow<&clsCreateDb::ShowLog>("ShowLog", {.description = KORVEX_HELP_clsCreateDb_ShowLog}),
    MethodRow<&clsCreateDb::ConnectDB>(
        "ConnectDB", {.parameters = ConnectParameters, .description = KORVEX_HELP_clsCreateDb_ConnectDB}),
};

constexpr automation::ClassInfo Info = {
    .name = "clsCreateDb", .description = KORVEX_HELP_clsCreateDb, .members = Members};

}  // namespace

const automation::ClassInfo& clsCreateDb::Class() const noexcept { return Info; }

}  // namespace korvex
