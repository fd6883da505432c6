#include "repository/catalog.h"

#include "automation/convert.h"
#include "repository/read_value.h"

#include <memory>

namespace korvex::repository {

namespace {

/// Reads the columns of one table's current record.
class RowReader {
    template <class Conversion>
    auto Convert(std::string_view column, Conversion conversion) const {
        return repository::ReadValue(m_recordset.Fields(column), conversion,
                                     [this] { return DescribeRow(m_table, m_recordset); });
    }

  public:
    RowReader(std::string_view table, dao::Recordset& recordset) : m_table(table), m_recordset(recordset) {}

    bool IsNull(std::string_view column) const { return m_recordset.Fields(column).Value().IsNull(); }
    template <RowId Id>
    Id Identifier(std::string_view column) const {
        return Id(Long(column));
    }
    std::int32_t Long(std::string_view column) const {
        return Convert(column, [](const automation::Variant& value) { return automation::ToLong(value); });
    }
    bool Flag(std::string_view column) const {
        return Convert(column, [](const automation::Variant& value) { return automation::ToBoolean(value); });
    }
    std::string Text(std::string_view column) const { return OptionalText(column).value_or(std::string()); }
    std::optional<std::string> OptionalText(std::string_view column) const {
        return Convert(column, [](const automation::Variant& value) -> std::optional<std::string> {
            if (value.IsEmpty()) return std::nullopt;
            return automation::ToString(value);
        });
    }

  private:
    std::string_view m_table;
    dao::Recordset& m_recordset;
};

template <class Row, class ReadRow>
std::vector<Row> ReadTable(dao::Database& database, std::string_view table, std::string_view orderBy,
                           ReadRow readRow) {
    std::string sql = "select * from " + std::string(table);
    if (!orderBy.empty()) sql.append(" order by ").append(orderBy);
    const std::unique_ptr<dao::Recordset> recordset = database.OpenRecordset(sql, dao::dbOpenSnapshot);
    const RowReader reader(table, *recordset);
    std::vector<Row> rows;
    for (; !recordset->Eof(); recordset->MoveNext()) {
        rows.push_back(readRow(reader));
    }
    recordset->Close();
    return rows;
}

DataDefRow ReadDataDef(const RowReader& row) {
    return {.Storage = row.Text("Storage"), .RootObjectID = row.Identifier<ObjectId>("RootObjectID")};
}

ObjectRow ReadObject(const RowReader& row) {
    return {.ObjectID = row.Identifier<ObjectId>("ObjectID"),
            .Name = row.Text("Name"),
            .CollectionObjectID = row.Identifier<ObjectId>("CollectionObjectID"),
            .TableName = row.OptionalText("TableName"),
            .IsIncluded = row.Flag("IsIncluded"),
            .Guid = row.Text("Guid"),
            .HasKind = !row.IsNull("CollectionObjectID")};
}

InterfaceRow ReadInterface(const RowReader& row) {
    return {.InterfaceID = row.Identifier<InterfaceId>("InterfaceID"), .Name = row.Text("Name")};
}

ObjectInterfaceRow ReadObjectInterface(const RowReader& row) {
    return {.ObjectID = row.Identifier<ObjectId>("ObjectID"),
            .InterfaceID = row.Identifier<InterfaceId>("InterfaceID")};
}

ValueRow ReadValueRow(const RowReader& row) {
    return {
        .ValueID = row.Identifier<ValueId>("ValueID"),
        .InterfaceID = row.Identifier<InterfaceId>("InterfaceID"),
        .ChildObjectID = row.Identifier<ObjectId>("ChildObjectID"),
        .Name = row.Text("Name"),
        .FieldName = row.OptionalText("FieldName"),
        .DataType = row.Long("DataType"),
        .MaxLength = row.Text("MaxLength"),
        .IsAutoNumber = row.Flag("IsAutoNumber"),
        .DefaultVal = row.Text("DefaultVal"),
        .IsIncluded = row.Flag("IsIncluded"),
        .IsReadOnly = row.Flag("IsReadOnly"),
        .Description = row.Text("Description"),
        .Caption = row.Text("Caption"),
        .Translation = row.Text("Translation"),
        .MaxValue = row.Text("MaxValue"),
        .MinValue = row.Text("MinValue"),
        .VID = row.Long("VID"),
        .VIDTag1 = row.Text("VIDTag1"),
        .VIDTag2 = row.Text("VIDTag2"),
        .VIDTag3 = row.Text("VIDTag3"),
        .IsPlain = !row.IsNull("ChildObjectID") && row.Long("ChildObjectID") == 0 && !row.IsNull("DataType")};
}

PrimaryKeyRow ReadPrimaryKey(const RowReader& row) {
    return {.ObjectID = row.Identifier<ObjectId>("ObjectID"),
            .ValueID = row.Identifier<ValueId>("ValueID"),
            .Seq = row.Long("Seq")};
}

ForeignKeyRow ReadForeignKey(const RowReader& row) {
    return {.ObjectID = row.Identifier<ObjectId>("ObjectID"),
            .ValueID = row.Identifier<ValueId>("ValueID"),
            .FKObjectID = row.Identifier<ObjectId>("FKObjectID"),
            .FKValueID = row.Identifier<ValueId>("FKValueID"),
            .FKObjectGUID = row.Text("FKObjectGUID")};
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
    catalog.m_dataDefs = ReadTable<DataDefRow>(database, "tDataDefs", "", ReadDataDef);
    catalog.m_objects = ReadTable<ObjectRow>(database, "tObjects", "ObjectID", ReadObject);
    catalog.m_interfaces = ReadTable<InterfaceRow>(database, "tInterfaces", "InterfaceID", ReadInterface);
    catalog.m_objectInterfaces =
        ReadTable<ObjectInterfaceRow>(database, "tObjectInterfaces", "", ReadObjectInterface);
    catalog.m_values = ReadTable<ValueRow>(database, "tValues", "ValueID", ReadValueRow);
    catalog.m_primaryKeys =
        ReadTable<PrimaryKeyRow>(database, "tPrimaryKeys", "ObjectID, Seq, ValueID", ReadPrimaryKey);
    catalog.m_foreignKeys =
        ReadTable<ForeignKeyRow>(database, "tForeignKeys", "ObjectID, ValueID, FKObjectID", ReadForeignKey);
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

std::vector<const ValueRow*> Catalog::ValuesOf(ObjectId objectID) const {
    std::vector<const ValueRow*> values;
    for (const InterfaceId interfaceID : InterfacesOf(objectID)) {
        const std::vector<const ValueRow*> own = ValuesOfInterface(interfaceID);
        values.insert(values.end(), own.begin(), own.end());
    }
    return values;
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
    for (const ValueRow* value : ValuesOf(objectID)) {
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
