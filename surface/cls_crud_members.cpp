#include "automation/member_rows.h"
#include "surface/cls_crud.h"
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

constexpr Parameter DataObject(std::string_view name, Passing passing) {
    return {name, VarType::Object, passing, false, "QORObject"};
}
constexpr Parameter AnyValue(std::string_view name, bool optional = false) {
    return {name, VarType::Variant, Passing::ByReference, optional};
}
constexpr Parameter Text(std::string_view name) { return {name, VarType::String, Passing::ByReference}; }
constexpr Parameter OptionalText(std::string_view name) {
    return {name, VarType::String, Passing::ByValue, true};
}

constexpr Parameter NewConnection[] = {
    {"newValue", VarType::Object, Passing::ByReference, false, "ADODB.Connection"}};
constexpr Parameter ConnectParameters[] = {AnyValue("sConnection"), AnyValue("sFKPrefix", true)};
constexpr Parameter ExistsParameters[] = {DataObject("coData", Passing::ByReference), AnyValue("lKey", true)};
constexpr Parameter FieldParameters[] = {AnyValue("lKey"), Text("sKeyFieldName"), Text("sTableName"),
                                         Text("sFieldName"), AnyValue("vntFieldValue")};
constexpr Parameter GetDataParameters[] = {DataObject("coData", Passing::ByValue), AnyValue("lKey"),
                                           OptionalText("sKeyFieldName")};
constexpr Parameter SaveDataParameters[] = {DataObject("coData", Passing::ByValue)};
constexpr Parameter UpdateDataParameters[] = {DataObject("coData", Passing::ByValue), AnyValue("lKey", true),
                                              OptionalText("sKeyFieldName")};
constexpr Parameter RetainRootParameters[] = {DataObject("coData", Passing::ByValue), AnyValue("lKey")};
constexpr Parameter DeleteDataParameters[] = {DataObject("coData", Passing::ByValue), AnyValue("lKey"),
                                              OptionalText("sSelKey")};
constexpr Parameter DefinitionParameters[] = {DataObject("coDataDef", Passing::ByReference)};
constexpr Parameter StatementParameters[] = {Text("sSQL")};

constexpr automation::Member Members[] = {
    GetRow<&clsCRUD::LastResult>(
        "LastResult", {.description = KORVEX_HELP_clsCRUD_LastResult, .resultTypeName = "dbResults"}),
    GetRow<Taking<>(&clsCRUD::FKPrefix)>("FKPrefix", {.description = KORVEX_HELP_clsCRUD_FKPrefix}),
    LetRow<Taking<const std::string&>(&clsCRUD::FKPrefix), Passing::ByReference>(
        "FKPrefix", {.description = KORVEX_HELP_clsCRUD_FKPrefix}),
    GetRow<Taking<>(&clsCRUD::DbConn)>(
        "DbConn", {.description = KORVEX_HELP_clsCRUD_DbConn, .resultTypeName = "ADODB.Connection"}),
    LetRow<Taking<const std::shared_ptr<ado::Connection>&>(&clsCRUD::DbConn)>(
        "DbConn", {.parameters = NewConnection, .description = KORVEX_HELP_clsCRUD_DbConn}),
    MethodRow<&clsCRUD::ConnectDB>(
        "ConnectDB", {.parameters = ConnectParameters, .description = KORVEX_HELP_clsCRUD_ConnectDB}),
    MethodRow<&clsCRUD::DisconnectDB>("DisconnectDB", {.description = KORVEX_HELP_clsCRUD_DisconnectDB}),
    MethodRow<&clsCRUD::DbDataExists>(
        "DbDataExists", {.parameters = ExistsParameters, .description = KORVEX_HELP_clsCRUD_DbDataExists}),
    MethodRow<&clsCRUD::DbGetField>(
        "DbGetField", {.parameters = FieldParameters, .description = KORVEX_HELP_clsCRUD_DbGetField}),
    MethodRow<&clsCRUD::DbSaveField>(
        "DbSaveField", {.parameters = FieldParameters, .description = KORVEX_HELP_clsCRUD_DbSaveField}),
    MethodRow<&clsCRUD::DbGetData>(
        "DbGetData", {.parameters = GetDataParameters, .description = KORVEX_HELP_clsCRUD_DbGetData}),
    MethodRow<&clsCRUD::DbSaveData>(
        "DbSaveData", {.parameters = SaveDataParameters, .description = KORVEX_HELP_clsCRUD_DbSaveData}),
    MethodRow<&clsCRUD::DbUpdateData>("DbUpdateData", {.parameters = UpdateDataParameters,
                                                       .description = KORVEX_HELP_clsCRUD_DbUpdateData}),
    MethodRow<&clsCRUD::DbUpdateDataRetainRoot>(
        "DbUpdateDataRetainRoot",
        {.parameters = RetainRootParameters, .description = KORVEX_HELP_clsCRUD_DbUpdateDataRetainRoot}),
    MethodRow<&clsCRUD::DbDeleteData>("DbDeleteData", {.parameters = DeleteDataParameters,
                                                       .description = KORVEX_HELP_clsCRUD_DbDeleteData}),
    MethodRow<&clsCRUD::GetTableName>("GetTableName", {.parameters = DefinitionParameters,
                                                       .description = KORVEX_HELP_clsCRUD_GetTableName}),
    MethodRow<&clsCRUD::GetPrimaryKeyFieldName>(
        "GetPrimaryKeyFieldName",
        {.parameters = DefinitionParameters, .description = KORVEX_HELP_clsCRUD_GetPrimaryKeyFieldName}),
    MethodRow<&clsCRUD::GetForeignKeyFieldName>(
        "GetForeignKeyFieldName",
        {.parameters = DefinitionParameters, .description = KORVEX_HELP_clsCRUD_GetForeignKeyFieldName}),
    MethodRow<&clsCRUD::OpenRecordset>("OpenRecordset", {.parameters = StatementParameters,
                                                         .description = KORVEX_HELP_clsCRUD_OpenRecordset,
                                                         .resultTypeName = "ADODB.Recordset"}),
};

constexpr automation::ClassInfo Info = {
    .name = "clsCRUD", .description = KORVEX_HELP_clsCRUD, .members = Members};

}  // namespace

const automation::ClassInfo& clsCRUD::Class() const noexcept { return Info; }

}  // namespace korvex
