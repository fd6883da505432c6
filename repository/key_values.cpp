#include "repository/key_values.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "repository/read_value.h"

namespace korvex::repository {

namespace {

constexpr std::int32_t LongDataType = 3;

std::int32_t ReadLong(dao::Recordset& rows, std::string_view column, const KeyValue& key) {
    return ReadValue(rows.Fields(column), automation::ToLong, key.name);
}

/// Sets every column of the record being added or edited that a key value fills.
void FillRecord(dao::Recordset& values, const KeyValue& key) {
    values.Fields("InterfaceID").Value(key.interfaceID);
    values.Fields("ChildObjectID").Value(std::int32_t{0});
    values.Fields("Name").Value(key.name);
    values.Fields("FieldName").Value(key.name);
    values.Fields("DataType").Value(LongDataType);
    values.Fields("MaxLength").Value("0");
    values.Fields("IsAutoNumber").Value(key.isAutoNumber);
    values.Fields("IsIncluded").Value(true);
    values.Fields("IsReadOnly").Value(true);
    values.Fields("Caption").Value(key.caption);
    values.Fields("Translation").Value(key.caption);
    values.Fields("Description").Value(key.description);
    values.Fields("MinValue").Value("1");
    values.Fields("MaxValue").Value("2147483647");
}

}  // namespace

std::unique_ptr<dao::Recordset> KeyValues::Open(const KeyValue& key) {
    return m_repository.OpenDynaset("select * from tValues where Name='" + key.name + "'" +
                                    " and InterfaceID=" + std::to_string(key.interfaceID));
}

std::int32_t KeyValues::Add(dao::Recordset& values, const KeyValue& key) {
    const std::int32_t vid = NextVid(key);
    values.AddNew();
    FillRecord(values, key);
    values.Fields("VID").Value(vid);
    values.Update();
    return ReadNewNumber(values, "ValueID", key.name);
}

std::int32_t KeyValues::Edit(dao::Recordset& values, const KeyValue& key) {
    const std::int32_t valueID = ReadLong(values, "ValueID", key);
    const std::int32_t vid = ReadLong(values, "VID", key);
    const std::int32_t keyVid = IsKeyVid(vid) ? vid : NextVid(key);
    values.Edit();
    FillRecord(values, key);
    if (keyVid != vid) values.Fields("VID").Value(keyVid);
    values.Update();
    return valueID;
}

bool KeyValues::Rename(std::int32_t valueID, const KeyValue& key) {
    const auto values =
        m_repository.OpenDynaset("select * from tValues where ValueID = " + std::to_string(valueID));
    if (!values || values->Eof()) return false;
    const bool isAutoNumber = ReadValue(values->Fields("IsAutoNumber"), automation::ToBoolean, key.name);
    const bool isSuchKey = IsKeyVid(ReadLong(*values, "VID", key)) && isAutoNumber == key.isAutoNumber;
    if (isSuchKey) Edit(*values, key);
    values->Close();
    return isSuchKey;
}

/// The number after the highest that a key value of the interface's objects has.
std::int32_t KeyValues::NextVid(const KeyValue& key) {
    const auto [position, isFirst] = m_lastVids.try_emplace(key.interfaceID, LowestKeyVid);
    std::int32_t& last = position->second;
    if (isFirst) {
        const auto rows = m_repository.OpenSnapshot(
            "SELECT tObjectInterfaces.*, tObjectInterfaces_1.*,  tValues.ValueID, "
            "tValues.VID FROM (tObjectInterfaces INNER JOIN tObjectInterfaces AS tObjectInterfaces_1 ON "
            "tObjectInterfaces.ObjectID = tObjectInterfaces_1.ObjectID) INNER JOIN tValues ON "
            "tObjectInterfaces_1.InterfaceID = tValues.InterfaceID"
            " Where ((VID>" +
            std::to_string(LowestKeyVid) + " And VID<" + std::to_string(HighestKeyVid) +
            ") AND ((tObjectInterfaces.InterfaceID)= " + std::to_string(key.interfaceID) + "))" +
            "ORDER BY VID");
        if (rows && !rows->Eof()) {
            rows->MoveLast();
            last = ReadLong(*rows, "VID", key);
            rows->Close();
        }
    }
    if (last + 1 >= HighestKeyVid) {
        throw automation::Error(automation::Overflow, "The interface " + std::to_string(key.interfaceID) +
                                                          " has no number left for a further key value.");
    }
    return ++last;
}

}  // namespace korvex::repository
