#include "surface/cls_create_db.h"
#include "surface/member_rows.h"

#include <span>
#include <string>
#include <string_view>

namespace korvex {

namespace {

using automation::InvokeKind;
using automation::Member;
using automation::Object;
using automation::Parameter;
using automation::Passing;
using automation::Variant;
using automation::VarType;
using Arguments = std::span<Variant>;

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

clsCreateDb& Self(Object& self) { return static_cast<clsCreateDb&>(self); }

const std::string& Text(const Variant& value) { return surface::Argument<std::string>(value); }

template <class T, T (clsCreateDb::*Get)()>
constexpr Member Read(std::string_view name) {
    return surface::PropertyGet<clsCreateDb, T, Get>(name);
}

template <void (clsCreateDb::*Let)(const std::string&)>
constexpr Member Write(std::string_view name) {
    return surface::PropertyLet<clsCreateDb, std::string, Let, Passing::ByReference>(name);
}

using RunMethod = void (clsCreateDb::*)(const std::string&, const std::string&, const Variant&);

template <RunMethod Run>
constexpr Member Method(std::string_view name) {
    return {
        .name = name, .parameters = RunParameters, .call = [](Object& self, Arguments arguments) -> Variant {
            (Self(self).*Run)(Text(arguments[0]), Text(arguments[1]), arguments[2]);
            return {};
        }};
}

template <void (clsCreateDb::*Run)()>
constexpr Member Method(std::string_view name) {
    return {.name = name, .call = [](Object& self, Arguments) -> Variant {
                (Self(self).*Run)();
                return {};
            }};
}

Variant ScriptTypes(Object& self, Arguments arguments) { return Self(self).ScriptTypes(arguments[0]); }

Variant DoScript(Object& self, Arguments arguments) {
    Self(self).DoScript(Text(arguments[0]), Text(arguments[1]), Text(arguments[2]), arguments[3],
                        arguments[4]);
    return {};
}

Variant CreateRelationship(Object& self, Arguments arguments) {
    Self(self).CreateRelationship(Text(arguments[0]), arguments[1]);
    return {};
}

Variant ConnectDB(Object& self, Arguments arguments) { return Self(self).ConnectDB(Text(arguments[0])); }

constexpr Member Members[] = {
    {.name = "ScriptTypes",
     .kind = InvokeKind::PropertyGet,
     .parameters = ScriptTypesParameters,
     .result = VarType::Object,
     .call = ScriptTypes,
     .resultTypeName = "Collection"},
    {.name = "DoScript", .parameters = DoScriptParameters, .call = DoScript},
    Read<std::string, &clsCreateDb::FKPrefix>("FKPrefix"),
    Write<&clsCreateDb::FKPrefix>("FKPrefix"),
    Read<std::string, &clsCreateDb::ScriptFilePath>("ScriptFilePath"),
    Write<&clsCreateDb::ScriptFilePath>("ScriptFilePath"),
    Method<&clsCreateDb::DoMSsqlDb>("DoMSsqlDb"),
    Method<&clsCreateDb::DoOracleDb>("DoOracleDb"),
    Method<&clsCreateDb::DoSybaseDb>("DoSybaseDb"),
    {.name = "CreateRelationship", .parameters = CreateRelationshipParameters, .call = CreateRelationship},
    Method<&clsCreateDb::ShutDown>("ShutDown"),
    Read<const std::string&, &clsCreateDb::DbSQL>("DbSQL"),
    Read<const std::string&, &clsCreateDb::DropSQL>("DropSQL"),
    Read<const std::string&, &clsCreateDb::StoredProcSQL>("StoredProcSQL"),
    Read<const std::string&, &clsCreateDb::FkConstraintSQL>("FkConstraintSQL"),
    Read<const std::string&, &clsCreateDb::DropFkConstraintSQL>("DropFkConstraintSQL"),
    Method<&clsCreateDb::ShowLog>("ShowLog"),
    {.name = "ConnectDB", .parameters = ConnectParameters, .result = VarType::Variant, .call = ConnectDB},
};

constexpr automation::ClassInfo Info = {.name = "clsCreateDb", .description = {}, .members = Members};

}  // namespace

const automation::ClassInfo& clsCreateDb::Class() const noexcept { return Info; }

}  // namespace korvex
