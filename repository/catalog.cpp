#include "repository/catalog.h"

#include "repository/read_value.h"
#include "repository/row_columns.h"

#include <memory>

namespace korvex::repository {

namespace {

/// `mark` notes about a row what its columns do not tell as they are kept.
template <class Row, std::size_t N>
std::vector<Row> ReadTable(dao::Database& database, std::string_view table, std::string_view orderBy,
                           const RowColumn<Row> (&columns)[N],
                           void (*mark)(Row& row, dao::Recordset& rows) = nullptr) {
    std::string sql = "select * from " + std::string(table);
    if (!orderBy.empty()) sql.append(" order by ").append(orderBy);
    const std::unique_ptr<dao::Recordset> recordset = database.OpenRecordset(sql, dao::dbOpenSnapshot);
    const auto what = [&] { return DescribeRow(table, *recordset); };
    std::vector<Row> rows;
    for (std::vector<dao::Field*> fields; !recordset->Eof(); recordset->MoveNext()) {
        for (std::size_t i = fields.size(); i < N; ++i)
            fields.push_back(&recordset->Fields(columns[i].name));
        Row& row = rows.emplace_back();
        for (std::size_t i = 0; i < N; ++i)
            ReadValue(
                *fields[i], [&](const automation::Variant& value) { columns[i].set(row, value); }, what);
        if (mark != nullptr) mark(row, *recordset);
    }
    recordset->Close();
    return rows;
}

bool IsNull(dao::Recordset& rows, std::string_view column) { return rows.Fields(column).Value().IsNull(); }

void MarkObject(ObjectRow& row, dao::Recordset& rows) { row.HasKind = !IsNull(rows, "CollectionObjectID"); }

void MarkValue(ValueRow& row, dao::Recordset& rows) {
    row.IsPlain =
        row.ChildObjectID == NoObject && !IsNull(rows, "ChildObjectID") && !IsNull(rows, "DataType");
}

template <RowId Id>
using Positions = std::unordered_map<Id, std::vector<std::size_t>>;

template <class Row, RowId Id>
Positions<Id> IndexBy(const std::vector<Row>& rows, Id Row::*key) {
    Positions<Id> positions;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        positions[rows[i].*key].push_back(i);
    }
    return positions;
}

template <class Row, RowId Id>
std::vector<const Row*> RowsOf(const std::vector<Row>& rows, const Positions<Id>& positions, Id key) {
    std::vector<const Row*> found;
    if (const auto entry = positions.find(key); entry != positions.end()) {
        found.reserve(entry->second.size());
        for (const std::size_t position : entry->second) {
            found.push_back(&rows[position]);
        }
    }
    return found;
}

template <class Row, RowId Id>
const Row* FirstRow(const std::vector<Row>& rows, const Positions<Id>& positions, Id key) {
    const auto entry = positions.find(key);
    return entry == positions.end() ? nullptr : &rows[entry->second.front()];
}

}  // namespace

Catalog Catalog::Read(dao::Database& database) {
    Catalog catalog;
    catalog.m_dataDefs = ReadTable(database, "tDataDefs", "", DataDefColumns);
    catalog.m_objects = ReadTable(database, "tObjects", "ObjectID", ObjectColumns, MarkObject);
    catalog.m_interfaces = ReadTable(database, "tInterfaces", "InterfaceID", InterfaceColumns);
    catalog.m_objectInterfaces = ReadTable(database, "tObjectInterfaces", "", ObjectInterfaceColumns);
    catalog.m_values = ReadTable(database, "tValues", "ValueID", ValueColumns, MarkValue);
    catalog.m_primaryKeys = ReadTable(database, "tPrimaryKeys", "ObjectID, Seq, ValueID", PrimaryKeyColumns);
    catalog.m_foreignKeys =
        ReadTable(database, "tForeignKeys", "ObjectID, ValueID, FKObjectID", ForeignKeyColumns);
    catalog.BuildIndexes();
    return catalog;
}

void Catalog::BuildIndexes() {
    m_objectByID = IndexBy(m_objects, &ObjectRow::ObjectID);
    m_interfaceByID = IndexBy(m_interfaces, &InterfaceRow::InterfaceID);
    m_valueByID = IndexBy(m_values, &ValueRow::ValueID);
    m_interfacesByObject = IndexBy(m_objectInterfaces, &ObjectInterfaceRow::ObjectID);
    m_objectsByInterface = IndexBy(m_objectInterfaces, &ObjectInterfaceRow::InterfaceID);
    m_valuesByInterface = IndexBy(m_values, &ValueRow::InterfaceID);
    m_primaryKeysByObject = IndexBy(m_primaryKeys, &PrimaryKeyRow::ObjectID);
    m_foreignKeysByObject = IndexBy(m_foreignKeys, &ForeignKeyRow::ObjectID);
}

const ObjectRow* Catalog::FindObject(ObjectId objectID) const {
    return FirstRow(m_objects, m_objectByID, objectID);
}

const InterfaceRow* Catalog::FindInterface(InterfaceId interfaceID) const {
    return FirstRow(m_interfaces, m_interfaceByID, interfaceID);
}

const ValueRow* Catalog::FindValue(ValueId valueID) const { return FirstRow(m_values, m_valueByID, valueID); }

std::vector<InterfaceId> Catalog::InterfacesOf(ObjectId objectID) const {
    std::vector<InterfaceId> interfaces;
    for (const ObjectInterfaceRow* row : RowsOf(m_objectInterfaces, m_interfacesByObject, objectID)) {
        interfaces.push_back(row->InterfaceID);
    }
    return interfaces;
}

std::vector<const ValueRow*> Catalog::ValuesOfInterface(InterfaceId interfaceID) const {
    return RowsOf(m_values, m_valuesByInterface, interfaceID);
}

std::vector<const PrimaryKeyRow*> Catalog::PrimaryKeysOf(ObjectId objectID) const {
    return RowsOf(m_primaryKeys, m_primaryKeysByObject, objectID);
}

std::vector<const ForeignKeyRow*> Catalog::ForeignKeysOf(ObjectId objectID) const {
    return RowsOf(m_foreignKeys, m_foreignKeysByObject, objectID);
}

std::vector<ObjectId> Catalog::ChildrenOf(ObjectId objectID) const {
    std::vector<ObjectId> children;
    const ObjectRow* object = FindObject(objectID);
    if (object != nullptr && IsRow(object->CollectionObjectID))
        children.push_back(object->CollectionObjectID);
    for (const ValueRow* value : ValuesOf(*this, objectID)) {
        if (IsRow(value->ChildObjectID)) children.push_back(value->ChildObjectID);
    }
    return children;
}

std::vector<ObjectId> Catalog::ObjectsWith(InterfaceId interfaceID) const {
    std::vector<ObjectId> objects;
    for (const ObjectInterfaceRow* row : RowsOf(m_objectInterfaces, m_objectsByInterface, interfaceID))
        objects.push_back(row->ObjectID);
    return objects;
}

}  // namespace korvex::repository
