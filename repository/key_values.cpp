#include "repository/key_values.h"

#include "automation/convert.h"
#include "repository/read_value.h"

namespace korvex::repository {

namespace {

constexpr std::int32_t LongDataType = 3;

std::int32_t ReadLong(dao::Recordset& rows, std::string_view column, const KeyValue& key) {
    return ReadValue(rows.Fields(column), automation::ToLong, key.name);
}

/// Sets every column of the record being added or edited that a key value fills.
void FillRecord(dao::Recordset& values, const KeyValue& key) {
    values.Fields("InterfaceID").Value(Number(key.interfaceID));
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

ValueId KeyValues::Add(dao::Recordset& values, const KeyValue& key) {
    const std::int32_t vid = NextVid(key);
    values.AddNew();
    FillRecord(values, key);
    values.Fields("VID").Value(vid);
    values.Update();
    return ReadNewNumber<ValueId>(values, "ValueID", key.name);
}

ValueId KeyValues::Edit(dao::Recordset& values, const KeyValue& key) {
    const ValueId valueID{ReadLong(values, "ValueID", key)};
    const std::int32_t vid = ReadLong(values, "VID", key);
    // A number beyond the range was given when that was used up, and stays.
    const std::int32_t keyVid = vid > LowestKeyVid ? vid : NextVid(key);
    values.Edit();
    FillRecord(values, key);
    if (keyVid != vid) values.Fields("VID").Value(keyVid);
    values.Update();
    return valueID;
}

bool KeyValues::Rename(ValueId valueID, const KeyValue& key) {
    const auto values = m_rows.Ask(questions::Value, valueID);
    if (!values || values->Eof()) return false;
    const bool isAutoNumber = ReadValue(values->Fields("IsAutoNumber"), automation::ToBoolean, key.name);
    const bool isSuchKey = isAutoNumber == key.isAutoNumber && IsKeyVid(ReadLong(*values, "VID", key)) &&
                           IsKeyInterface(InterfaceId(ReadLong(*values, "InterfaceID", key)));
    if (isSuchKey) Edit(*values, key);
    values->Close();
    return isSuchKey;
}

bool KeyValues::IsKeyInterface(InterfaceId interfaceID) {
    const auto rows = m_rows.InterfaceName(interfaceID);
    if (!rows) return false;
    const bool isOne =
        !rows->Eof() && IsKeyInterfaceName(ReadValue(rows->Fields("Name"), automation::ToString,
                                                     std::to_string(Number(interfaceID))));
    rows->Close();
    return isOne;
}

/// The number after the highest key number that the interface's objects have; where the range ends there, the
/// next free one of the interface.
std::int32_t KeyValues::NextVid(const KeyValue& key) {
    const auto [position, isFirst] = m_numberings.try_emplace(key.interfaceID);
    Numbering& numbering = position->second;
    if (isFirst) {
        const auto rows = m_rows.KeyNumbers(key.interfaceID);
        if (rows && !rows->Eof()) {
            rows->MoveLast();
            numbering.last = ReadLong(*rows, "VID", key);
            rows->Close();
        }
    }
    if (numbering.last + 1 < HighestKeyVid) return ++numbering.last;
    return NextFreeVid(numbering, key);
}

std::int32_t KeyValues::NextFreeVid(Numbering& numbering, const KeyValue& key) {
    if (numbering.taken.empty()) {
        ForEachRow(m_rows.Ask(questions::Numbers, key.interfaceID),
                   [&](dao::Recordset& rows) { numbering.taken.insert(ReadLong(rows, "VID", key)); });
    }
    while (!numbering.taken.insert(numbering.next).second)
        ++numbering.next;
    return numbering.next;
}

}  // namespace korvex::repository
