#include "repository/lookups.h"

#include "automation/convert.h"
#include "repository/read_value.h"

namespace korvex::repository {

namespace {

/// One column of every row.
template <RowId Id>
std::vector<Id> ReadIdentifiers(DefinitionRows::Rows rows, std::string_view table, std::string_view column) {
    std::vector<Id> identifiers;
    if (!rows) return identifiers;
    dao::Field& field = rows->Fields(column);
    for (; !rows->Eof(); rows->MoveNext())
        identifiers.push_back(ReadValue(field, ToId<Id>, [&] { return DescribeRow(table, *rows); }));
    rows->Close();
    return identifiers;
}

/// One text column of the first row, "" when there is none.
std::string ReadText(DefinitionRows::Rows rows, std::string_view column, std::string_view what) {
    if (!rows) return {};
    std::string text;
    if (!rows->Eof()) text = ReadValue(rows->Fields(column), automation::ToString, what);
    rows->Close();
    return text;
}

}  // namespace

std::vector<InterfaceId> GetObjectInterfaces(DefinitionRows& rows, ObjectId lObjectID) {
    return ReadIdentifiers<InterfaceId>(rows.Interfaces(lObjectID), "tObjectInterfaces", "InterfaceID");
}

InterfaceId FindObjectInterface(DefinitionRows& rows, ObjectId lObjectID, std::string_view sInterfaceName) {
    const auto interfaces = rows.InterfacesLike(lObjectID, sInterfaceName);
    if (!interfaces) return {};
    const InterfaceId interfaceID =
        interfaces->Eof() ? InterfaceId() : ToId<InterfaceId>(interfaces->Fields("InterfaceID").Value());
    interfaces->Close();
    return interfaceID;
}

std::vector<ObjectId> GetChildObjects(DefinitionRows& rows, InterfaceId lInterfaceID) {
    return ReadIdentifiers<ObjectId>(rows.Ask(questions::Children, lInterfaceID), "tValues", "ChildObjectID");
}

std::string GetFieldName(DefinitionRows& rows, ValueId lValueID) {
    return ReadText(rows.Ask(questions::FieldName, lValueID), "FieldName", "a tValues row");
}

std::string GetObjectTableName(DefinitionRows& rows, ObjectId lObjectID) {
    return ReadText(rows.Ask(questions::TableName, lObjectID), "tableName", "a tObjects row");
}

std::vector<ObjectId> GetRootObjects(DefinitionRows& rows, std::string_view storageName) {
    return ReadIdentifiers<ObjectId>(rows.RootObjects(storageName), "tDataDefs", "RootObjectID");
}

}  // namespace korvex::repository
