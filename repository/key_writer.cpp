#include "repository/key_writer.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "repository/names.h"
#include "repository/read_value.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace korvex::repository {

using automation::Error;
using automation::InvalidProcedureCall;

namespace {

/// Position of an own key in its table's primary key, which has no other column.
constexpr std::int16_t KeySeq = 1;

/// A key column keeps at least "ID" and one unit of the object's name.
constexpr std::size_t ShortestKeyColumn = 3;

std::int32_t ReadValueID(dao::Recordset& rows, const KeyedObject& object) {
    return ReadValue(rows.Fields("ValueID"), automation::ToLong, object.name);
}

}  // namespace

std::string Describe(const KeyedObject& object) {
    return "'" + object.name + "' (ObjectID " + std::to_string(object.objectID) + ")";
}

KeyWriter::KeyWriter(Repository& repository, std::string_view sFKPrefix)
    : m_repository(repository), m_values(repository), m_sFKPrefix(sFKPrefix) {
    const std::size_t length = automation::Length(sFKPrefix);
    const std::size_t longest = static_cast<std::size_t>(MaxNameLength) - ShortestKeyColumn;
    if (length > longest) {
        throw Error(InvalidProcedureCall, "The foreign-key prefix '" + m_sFKPrefix + "' has " +
                                              std::to_string(length) + " characters; at most " +
                                              std::to_string(longest) + " leave room for the name of a key.");
    }
    if (sFKPrefix.find('\'') != std::string_view::npos) {
        throw Error(InvalidProcedureCall,
                    "The foreign-key prefix \"" + m_sFKPrefix + "\" holds a single quote.");
    }
    m_prefixLength = static_cast<std::int16_t>(length);
}

void KeyWriter::WriteOwnKey(KeyedObject& object) {
    m_references.AddObject(object.objectID);
    const std::string ofObject = " from tPrimaryKeys where ObjectID = " + std::to_string(object.objectID);
    const auto keys = m_repository.OpenDynaset("select *" + ofObject);
    if (!keys) return;
    std::vector<std::int32_t> earlierValues;
    for (; !keys->Eof(); keys->MoveNext()) {
        earlierValues.push_back(ReadValueID(*keys, object));
    }
    m_repository.Execute("delete" + ofObject);

    const KeyValue key{object.keyInterfaceID, object.keyColumn, object.name + " ID",
                       "Primary key of " + object.name + ", assigned by the database.", true};
    const auto values = m_values.Open(key);
    if (!values) return;
    if (!values->Eof()) {
        object.keyValueID = m_values.Edit(*values, key);
    } else {
        const auto renamed =
            std::find_if(earlierValues.begin(), earlierValues.end(),
                         [&](std::int32_t valueID) { return m_values.Rename(valueID, key); });
        object.keyValueID = renamed != earlierValues.end() ? *renamed : m_values.Add(*values, key);
    }
    values->Close();

    keys->AddNew();
    keys->Fields("ObjectID").Value(object.objectID);
    keys->Fields("ValueID").Value(object.keyValueID);
    keys->Fields("Seq").Value(KeySeq);
    keys->Update();
    keys->Close();
}

void KeyWriter::WriteForeignKey(const KeyedObject& child, const KeyedObject& parent) {
    const KeyValue key{child.keyInterfaceID, ForeignKeyColumn(parent), parent.name + " ID",
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
    const std::int32_t valueID = ReadValueID(values, child);
    m_values.Edit(values, key);
    return {valueID, OpenForeignKey(child, "ValueID = " + std::to_string(valueID) +
                                               " and FKObjectID = " + std::to_string(parent.objectID))};
}

KeyWriter::ForeignKey KeyWriter::RenameOrAdd(dao::Recordset& values, const KeyValue& key,
                                             const KeyedObject& child, const KeyedObject& parent) {
    auto rows = OpenForeignKey(child, "FKObjectID = " + std::to_string(parent.objectID));
    for (; rows && !rows->Eof(); rows->MoveNext()) {
        const std::int32_t valueID = ReadValueID(*rows, child);
        if (!IsShared(child, valueID) && m_values.Rename(valueID, key)) return {valueID, std::move(rows)};
    }
    return {m_values.Add(values, key), std::move(rows)};
}

bool KeyWriter::IsShared(const KeyedObject& child, std::int32_t valueID) {
    const auto rows = OpenForeignKey(child, "ValueID = " + std::to_string(valueID));
    if (!rows) return true;
    int parents = 0;
    for (; !rows->Eof(); rows->MoveNext())
        ++parents;
    rows->Close();
    return parents > 1;
}

std::unique_ptr<dao::Recordset> KeyWriter::OpenForeignKey(const KeyedObject& child,
                                                          const std::string& condition) {
    return m_repository.OpenDynaset("select * from tForeignKeys where ObjectID = " +
                                    std::to_string(child.objectID) + " and " + condition);
}

void KeyWriter::StoreForeignKey(dao::Recordset& rows, const KeyedObject& child, std::int32_t valueID,
                                const KeyedObject& parent) {
    if (rows.Eof()) {
        rows.AddNew();
        rows.Fields("ObjectID").Value(child.objectID);
        rows.Fields("ValueID").Value(valueID);
    } else {
        rows.Edit();
    }
    rows.Fields("FKObjectID").Value(parent.objectID);
    rows.Fields("FKValueID").Value(parent.keyValueID);
    rows.Fields("FKObjectGUID").Value(parent.guid);
    rows.Update();
    rows.Close();
}

}  // namespace korvex::repository
