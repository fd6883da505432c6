#include "repository/key_writer.h"

#include "automation/convert.h"
#include "repository/read_value.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace korvex::repository {

namespace {

/// Position of an own key in its table's primary key, which has no other column.
constexpr std::int16_t KeySeq = 1;

ValueId ReadValueID(dao::Recordset& rows, const KeyedObject& object) {
    return ReadValue(rows.Fields("ValueID"), ToId<ValueId>, object.name);
}

}  // namespace

std::string Describe(const KeyedObject& object) {
    return "'" + object.name + "' (ObjectID " + std::to_string(Number(object.objectID)) + ")";
}

void KeyWriter::WriteOwnKey(KeyedObject& object) {
    m_references.AddObject(object.objectID);
    const auto keys = m_rows.Ask(questions::PrimaryKeyRows, object.objectID);
    if (!keys) return;
    std::vector<ValueId> earlierValues;
    for (; !keys->Eof(); keys->MoveNext()) {
        earlierValues.push_back(ReadValueID(*keys, object));
    }
    m_rows.DeletePrimaryKey(object.objectID);

    const KeyValue key{object.keyInterfaceID, object.keyColumn, object.name + " ID",
                       "Primary key of " + object.name + ", assigned by the database.", true};
    const auto values = m_values.Open(key);
    if (!values) return;
    if (!values->Eof()) {
        object.keyValueID = m_values.Edit(*values, key);
    } else {
        const auto renamed = std::find_if(earlierValues.begin(), earlierValues.end(),
                                          [&](ValueId valueID) { return m_values.Rename(valueID, key); });
        object.keyValueID = renamed != earlierValues.end() ? *renamed : m_values.Add(*values, key);
    }
    values->Close();

    keys->AddNew();
    keys->Fields("ObjectID").Value(Number(object.objectID));
    keys->Fields("ValueID").Value(Number(object.keyValueID));
    keys->Fields("Seq").Value(KeySeq);
    keys->Update();
    keys->Close();
}

void KeyWriter::WriteForeignKey(const KeyedObject& child, const KeyedObject& parent) {
    const KeyValue key{child.keyInterfaceID, m_names.ForeignKeyColumn(parent.keyColumn), parent.name + " ID",
                       "Foreign key of " + child.name + " to its parent " + parent.name + ".", false};
    const auto values = m_values.Open(key);
    if (!values) return;
    const ForeignKey foreignKey =
        values->Eof() ? RenameOrAdd(*values, key, child, parent) : EditByName(*values, key, child, parent);
    values->Close();
    m_references.Add(child.objectID, parent.objectID, foreignKey.valueID);
    if (foreignKey.rows) StoreForeignKey(*foreignKey.rows, child, foreignKey.valueID, parent);
}

KeyWriter::ForeignKey KeyWriter::EditByName(dao::Recordset& values, const KeyValue& key,
                                            const KeyedObject& child, const KeyedObject& parent) {
    const ValueId valueID = ReadValueID(values, child);
    m_values.Edit(values, key);
    return {valueID, m_rows.ForeignKeyRows(child.objectID, valueID, parent.objectID)};
}

KeyWriter::ForeignKey KeyWriter::RenameOrAdd(dao::Recordset& values, const KeyValue& key,
                                             const KeyedObject& child, const KeyedObject& parent) {
    auto rows = m_rows.ForeignKeyRows(child.objectID, std::nullopt, parent.objectID);
    for (; rows && !rows->Eof(); rows->MoveNext()) {
        const ValueId valueID = ReadValueID(*rows, child);
        if (!IsShared(child, valueID) && m_values.Rename(valueID, key)) return {valueID, std::move(rows)};
    }
    return {m_values.Add(values, key), std::move(rows)};
}

bool KeyWriter::IsShared(const KeyedObject& child, ValueId valueID) {
    int parents = 0;
    return !ForEachRow(m_rows.ForeignKeyRows(child.objectID, valueID, std::nullopt), [&](dao::Recordset&) {
        ++parents;
    }) || parents > 1;
}

void KeyWriter::StoreForeignKey(dao::Recordset& rows, const KeyedObject& child, ValueId valueID,
                                const KeyedObject& parent) {
    if (rows.Eof()) {
        rows.AddNew();
        rows.Fields("ObjectID").Value(Number(child.objectID));
        rows.Fields("ValueID").Value(Number(valueID));
    } else {
        rows.Edit();
    }
    rows.Fields("FKObjectID").Value(Number(parent.objectID));
    rows.Fields("FKValueID").Value(Number(parent.keyValueID));
    rows.Fields("FKObjectGUID").Value(parent.guid);
    rows.Update();
    rows.Close();
}

}  // namespace korvex::repository
