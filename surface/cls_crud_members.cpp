#include "automation/member_rows.h"
#include "surface/cls_crud.h"

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

constexpr std::string_view FKPrefixText =
    "Allows an implementation team to set its own prefix for foreign key field names.  The default is "
    "\"FK_\".";
constexpr std::string_view DbConnText = "Object representing an ADO database connection. ";

constexpr automation::Member Members[] = {
    GetRow<&clsCRUD::LastResult>(
        "LastResult",
        {.description =
             "Describes the result of the last public method called on this object.  Indicates whether "
             "the method was successful or not, and if unsuccessful, what error occured.",
         .resultTypeName = "dbResults"}),
    GetRow<Taking<>(&clsCRUD::FKPrefix)>("FKPrefix", {.description = FKPrefixText}),
    LetRow<Taking<const std::string&>(&clsCRUD::FKPrefix), Passing::ByReference>(
        "FKPrefix", {.description = FKPrefixText}),
    GetRow<Taking<>(&clsCRUD::DbConn)>("DbConn",
                                       {.description = DbConnText, .resultTypeName = "ADODB.Connection"}),
    LetRow<Taking<const std::shared_ptr<ado::Connection>&>(&clsCRUD::DbConn)>(
        "DbConn", {.parameters = NewConnection, .description = DbConnText}),
    MethodRow<&clsCRUD::ConnectDB>(
        "ConnectDB",
        {.parameters = ConnectParameters,
         .description =
             "Connects this object to the specified database.  An optional foreign key prefix can be "
             "specified as the second parameter of this method."}),
    MethodRow<&clsCRUD::DisconnectDB>(
        "DisconnectDB",
        {.description = "Disconnects this object from the database (if a connection exists)."}),
    MethodRow<&clsCRUD::DbDataExists>(
        "DbDataExists",
        {.parameters = ExistsParameters,
         .description =
             "Determines if data for a specific primary key exists in the database.  Returns True if "
             "the data exists, False if it does not."}),
    MethodRow<&clsCRUD::DbGetField>(
        "DbGetField",
        {.parameters = FieldParameters,
         .description = "Retrieves the value of a specifc field in a table.  Returns True if the field was "
                        "successfully retrieved, False if not."}),
    MethodRow<&clsCRUD::DbSaveField>(
        "DbSaveField",
        {.parameters = FieldParameters,
         .description =
             "Saves a value to a specifc field in a table. Returns True if the field was successfully "
             "saved, False if it was not."}),
    MethodRow<&clsCRUD::DbGetData>(
        "DbGetData",
        {.parameters = GetDataParameters,
         .description = "Retrieves an object (identified by a specific primary key) from the database. "}),
    MethodRow<&clsCRUD::DbSaveData>(
        "DbSaveData",
        {.parameters = SaveDataParameters,
         .description =
             "Writes an object to the database and returns the new primary key of the topmost record; it "
             "may be given the data from any point of a data definition's tree."}),
    MethodRow<&clsCRUD::DbUpdateData>(
        "DbUpdateData",
        {.parameters = UpdateDataParameters,
         .description =
             "Updates an existing object in the database by writing only the changes made to the object "
             "to the database.  Existing data that was not modified is not rewritten to the database."}),
    MethodRow<&clsCRUD::DbUpdateDataRetainRoot>(
        "DbUpdateDataRetainRoot",
        {.parameters = RetainRootParameters,
         .description =
             "Updates an existing object in the database by retaining only the record for the root object "
             "(thus preserving this record's primary key).  All child records for the old coData are "
             "first deleted, and then new ones written to the database."}),
    MethodRow<&clsCRUD::DbDeleteData>(
        "DbDeleteData",
        {.parameters = DeleteDataParameters,
         .description = "Deletes an object (identified by a specific primary key) from the database."}),
    MethodRow<&clsCRUD::GetTableName>(
        "GetTableName",
        {.parameters = DefinitionParameters,
         .description =
             "Retrieves the name of the database table stored at the top level of this data definition."}),
    MethodRow<&clsCRUD::GetPrimaryKeyFieldName>(
        "GetPrimaryKeyFieldName",
        {.parameters = DefinitionParameters,
         .description =
             "Retrieves the name of the primary key field for the top level of this data definition."}),
    MethodRow<&clsCRUD::GetForeignKeyFieldName>(
        "GetForeignKeyFieldName",
        {.parameters = DefinitionParameters,
         .description =
             "Retrieves the name of the foriegn key field for the top level of this data definition."}),
    MethodRow<&clsCRUD::OpenRecordset>(
        "OpenRecordset",
        {.parameters = StatementParameters,
         .description =
             "Open an ADO recordset object for the specified SQL string, using the existing m_DbConnection.",
         .resultTypeName = "ADODB.Recordset"}),
};

constexpr automation::ClassInfo Info = {
    .name = "clsCRUD",
    .description = "This object is used to read and write QORObject data to/from a relational database.",
    .members = Members};

}  // namespace

const automation::ClassInfo& clsCRUD::Class() const noexcept { return Info; }

}  // namespace korvex
