#include "repository/lookups.h"

#include "automation/convert.h"
#include "repository/read_value.h"

namespace korvex::repository {

namespace {

/// One column of every row, as 32-bit integers.
std::vector<std::int32_t> ReadIdentifiers(DefinitionRows::Rows rows, std::string_view table,
                                          std::string_view column) {
    std::vector<std::int32_t> identifiers;
    if (!rows) return identifiers;
    dao::Field& field = rows->Fields(column);
    for (; !rows->Eof(); rows->MoveNext())
        identifiers.push_back(
            ReadValue(field, automation::ToLong, [&] { return DescribeRow(table, *rows); }));
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

std::vector<std::int32_t> GetObjectInterfaces(DefinitionRows& rows, std::int32_t lObjectID) {
    return ReadIdentifiers(rows.Interfaces(lObjectID), "tObjectInterfaces", "InterfaceID");
}

std::int32_t FindObjectInterface(DefinitionRows& rows, std::int32_t lObjectID,
                                 std::string_view sInterfaceName) {
    const auto interfaces = rows.InterfacesLike(lObjectID, sInterfaceName);
    if (!interfaces) return 0;
    const std::int32_t interfaceID =
        interfaces->Eof() ? 0 : automation::ToLong(interfaces->Fields("InterfaceID").Value());
    interfaces->Close();
    return interfaceID;
}

std::vector<std::int32_t> GetChildObjects(DefinitionRows& rows, std::int32_t lInterfaceID) {
    return ReadIdentifiers(rows.Children(lInterfaceID), "tValues", "ChildObjectID");
}

std::string GetFieldName(DefinitionRows& rows, std::int32_t lValueID) {
    return ReadText(rows.FieldName(lValueID), "FieldName", "a tValues row");
}

std::string GetObjectTableName(DefinitionRows& rows, std::int32_t lObjectID) {
    return ReadText(rows.TableName(lObjectID), "tableName", "a tObjects row");
}

std::vector<std::int32_t> GetRootObjects(DefinitionRows& rows, std::string_view storageName) {
    return ReadIdentifiers(rows.RootObjects(storageName), "tDataDefs", "RootObjectID");
}

}  // namespace korvex::repository
