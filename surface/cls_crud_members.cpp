#include "surface/cls_crud.h"
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

clsCRUD& Self(Object& self) { return static_cast<clsCRUD&>(self); }

QORObject::Ref Data(const Variant& value) { return automation::ObjectAs<QORObject>(value); }

const std::string& AsText(const Variant& value) { return surface::Argument<std::string>(value); }

template <std::string (clsCRUD::*Name)(const QORObject::Ref&)>
Variant NameOf(Object& self, Arguments arguments) {
    return (Self(self).*Name)(Data(arguments[0]));
}

constexpr std::string_view FKPrefixText =
    "Allows an implementation team to set its own prefix for foreign key field names.  The default is "
    "\"FK_\".";
constexpr std::string_view DbConnText = "Object representing an ADO database connection. ";

constexpr Member Members[] = {
    {.name = "LastResult",
     .kind = InvokeKind::PropertyGet,
     .result = VarType::Long,
     .call = [](Object& self, Arguments) -> Variant {
         return static_cast<std::int32_t>(Self(self).LastResult());
     },
     .description =
         "Describes the result of the last public method called on this object.  Indicates whether "
         "the method was successful or not, and if unsuccessful, what error occured.",
     .resultTypeName = "dbResults"},
    surface::PropertyGet<clsCRUD, std::string, &clsCRUD::FKPrefix>("FKPrefix", FKPrefixText),
    surface::PropertyLet<clsCRUD, std::string, &clsCRUD::FKPrefix, Passing::ByReference>("FKPrefix",
                                                                                         FKPrefixText),
    {.name = "DbConn",
     .kind = InvokeKind::PropertyGet,
     .result = VarType::Object,
     .call = [](Object& self, Arguments) -> Variant { return Self(self).DbConn(); },
     .description = DbConnText,
     .resultTypeName = "ADODB.Connection"},
    {.name = "DbConn",
     .kind = InvokeKind::PropertyLet,
     .parameters = NewConnection,
     .call = [](Object& self, Arguments arguments) -> Variant {
         Self(self).DbConn(automation::ObjectAs<ado::Connection>(arguments[0]));
         return {};
     },
     .description = DbConnText},
    {.name = "ConnectDB",
     .parameters = ConnectParameters,
     .result = VarType::Boolean,
     .call = [](Object& self, Arguments arguments) -> Variant {
         return Self(self).ConnectDB(arguments[0], arguments[1]);
     },
     .description = "Connects this object to the specified database.  An optional foreign key prefix can be "
                    "specified as the second parameter of this method."},
    {.name = "DisconnectDB",
     .result = VarType::Variant,
     .call = [](Object& self, Arguments) { return Self(self).DisconnectDB(); },
     .description = "Disconnects this object from the database (if a connection exists)."},
    {.name = "DbDataExists",
     .parameters = ExistsParameters,
     .result = VarType::Boolean,
     .call = [](Object& self, Arguments arguments) -> Variant {
         return Self(self).DbDataExists(Data(arguments[0]), arguments[1]);
     },
     .description = "Determines if data for a specific primary key exists in the database.  Returns True if "
                    "the data exists, False if it does not."},
    {.name = "DbGetField",
     .parameters = FieldParameters,
     .result = VarType::Boolean,
     .call = [](Object& self, Arguments arguments) -> Variant {
         return Self(self).DbGetField(arguments[0], AsText(arguments[1]), AsText(arguments[2]),
                                      AsText(arguments[3]), arguments[4]);
     },
     .description = "Retrieves the value of a specifc field in a table.  Returns True if the field was "
                    "successfully retrieved, False if not."},
    {.name = "DbSaveField",
     .parameters = FieldParameters,
     .result = VarType::Boolean,
     .call = [](Object& self, Arguments arguments) -> Variant {
         return Self(self).DbSaveField(arguments[0], AsText(arguments[1]), AsText(arguments[2]),
                                       AsText(arguments[3]), arguments[4]);
     },
     .description = "Saves a value to a specifc field in a table. Returns True if the field was successfully "
                    "saved, False if it was not."},
    {.name = "DbGetData",
     .parameters = GetDataParameters,
     .result = VarType::Long,
     .call = [](Object& self, Arguments arguments) -> Variant {
         return Self(self).DbGetData(Data(arguments[0]), arguments[1], AsText(arguments[2]));
     },
     .description = "Retrieves an object (identified by a specific primary key) from the database. "},
    {.name = "DbSaveData",
     .parameters = SaveDataParameters,
     .result = VarType::Long,
     .call = [](Object& self, Arguments arguments) -> Variant {
         return Self(self).DbSaveData(Data(arguments[0]));
     },
     .description =
         "Writes an object to the database and returns the new primary key of the topmost record; it "
         "may be given the data from any point of a data definition's tree."},
    {.name = "DbUpdateData",
     .parameters = UpdateDataParameters,
     .result = VarType::Long,
     .call = [](Object& self, Arguments arguments) -> Variant {
         return Self(self).DbUpdateData(Data(arguments[0]), arguments[1], AsText(arguments[2]));
     },
     .description =
         "Updates an existing object in the database by writing only the changes made to the object "
         "to the database.  Existing data that was not modified is not rewritten to the database."},
    {.name = "DbUpdateDataRetainRoot",
     .parameters = RetainRootParameters,
     .result = VarType::Long,
     .call = [](Object& self, Arguments arguments) -> Variant {
         return Self(self).DbUpdateDataRetainRoot(Data(arguments[0]), arguments[1]);
     },
     .description =
         "Updates an existing object in the database by retaining only the record for the root object "
         "(thus preserving this record's primary key).  All child records for the old coData are "
         "first deleted, and then new ones written to the database."},
    {.name = "DbDeleteData",
     .parameters = DeleteDataParameters,
     .result = VarType::Long,
     .call = [](Object& self, Arguments arguments) -> Variant {
         return Self(self).DbDeleteData(Data(arguments[0]), arguments[1], AsText(arguments[2]));
     },
     .description = "Deletes an object (identified by a specific primary key) from the database."},
    {.name = "GetTableName",
     .parameters = DefinitionParameters,
     .result = VarType::String,
     .call = NameOf<&clsCRUD::GetTableName>,
     .description =
         "Retrieves the name of the database table stored at the top level of this data definition."},
    {.name = "GetPrimaryKeyFieldName",
     .parameters = DefinitionParameters,
     .result = VarType::String,
     .call = NameOf<&clsCRUD::GetPrimaryKeyFieldName>,
     .description = "Retrieves the name of the primary key field for the top level of this data definition."},
    {.name = "GetForeignKeyFieldName",
     .parameters = DefinitionParameters,
     .result = VarType::String,
     .call = NameOf<&clsCRUD::GetForeignKeyFieldName>,
     .description = "Retrieves the name of the foriegn key field for the top level of this data definition."},
    {.name = "OpenRecordset",
     .parameters = StatementParameters,
     .result = VarType::Object,
     .call = [](Object& self, Arguments arguments) -> Variant {
         return Self(self).OpenRecordset(AsText(arguments[0]));
     },
     .description =
         "Open an ADO recordset object for the specified SQL string, using the existing m_DbConnection.",
     .resultTypeName = "ADODB.Recordset"},
};

constexpr automation::ClassInfo Info = {
    .name = "clsCRUD",
    .description = "This object is used to read and write QORObject data to/from a relational database.",
    .members = Members};

}  // namespace

const automation::ClassInfo& clsCRUD::Class() const noexcept { return Info; }

}  // namespace korvex
