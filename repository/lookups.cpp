#include "repository/lookups.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "repository/read_value.h"

namespace korvex::repository {

namespace {

/// One column of every row, as 32-bit integers.
std::vector<std::int32_t> ReadIdentifiers(Repository& repository, std::string_view sSQL,
                                          std::string_view table, std::string_view column) {
    std::vector<std::int32_t> identifiers;
    const auto rows = repository.OpenSnapshot(sSQL);
    if (!rows) return identifiers;
    dao::Field& field = rows->Fields(column);
    for (; !rows->Eof(); rows->MoveNext()) {
        identifiers.push_back(
            ReadValue(field, automation::ToLong, [&] { return DescribeRow(table, *rows, sSQL); }));
    }
    rows->Close();
    return identifiers;
}

/// One text column of the first row, "" when there is none.
std::string ReadText(Repository& repository, std::string_view sSQL, std::string_view column) {
    const auto rows = repository.OpenSnapshot(sSQL);
    if (!rows) return {};
    std::string text;
    if (!rows->Eof()) text = ReadValue(rows->Fields(column), automation::ToString, sSQL);
    rows->Close();
    return text;
}

}  // namespace

std::vector<std::int32_t> GetObjectInterfaces(Repository& repository, std::int32_t lObjectID) {
    return ReadIdentifiers(
        repository, "select InterfaceID from tObjectInterfaces where ObjectID= " + std::to_string(lObjectID),
        "tObjectInterfaces", "InterfaceID");
}

std::int32_t FindObjectInterface(Repository& repository, std::int32_t lObjectID,
                                 std::string_view sInterfaceName) {
    std::string sSQL =
        "SELECT tInterfaces.InterfaceID "
        "FROM tInterfaces INNER JOIN tObjectInterfaces ON "
        "tInterfaces.InterfaceID = tObjectInterfaces.InterfaceID "
        "WHERE tInterfaces.Name like '";
    sSQL.append(sInterfaceName).append("' AND tObjectInterfaces.ObjectID=").append(std::to_string(lObjectID));

    const auto rows = repository.OpenSnapshot(sSQL);
    if (!rows) return 0;
    const std::int32_t interfaceID =
        rows->Eof() ? 0 : automation::ToLong(rows->Fields("InterfaceID").Value());
    rows->Close();
    return interfaceID;
}

std::vector<std::int32_t> GetChildObjects(Repository& repository, std::int32_t lInterfaceID) {
    return ReadIdentifiers(repository,
                           "SELECT ChildObjectID FROM tValues WHERE ChildObjectID > 0 and InterfaceID = " +
                               std::to_string(lInterfaceID),
                           "tValues", "ChildObjectID");
}

std::string GetFieldName(Repository& repository, std::int32_t lValueID) {
    return ReadText(repository, "select FieldName from tValues where ValueID= " + std::to_string(lValueID),
                    "FieldName");
}

std::string GetObjectTableName(Repository& repository, std::int32_t lObjectID) {
    return ReadText(repository, "select TableName from tObjects where ObjectID= " + std::to_string(lObjectID),
                    "tableName");
}

std::vector<std::int32_t> GetRootObjects(Repository& repository, std::string_view storageName) {
    std::string sSQL = "select * from tDataDefs";
    if (!storageName.empty()) {
        if (storageName.find('\'') != std::string_view::npos) {
            throw automation::Error(automation::InvalidProcedureCall,
                                    "The storage name " + automation::Quoted(storageName) +
                                        " holds a single quote; storage names must not.");
        }
        sSQL.append(" where Storage='").append(storageName).append("'");
    }
    return ReadIdentifiers(repository, sSQL, "tDataDefs", "RootObjectID");
}

}  // namespace korvex::repository
