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
    return {.Storage = row.Text("Storage"), .RootObjectID = row.Long("RootObjectID")};
}

ObjectRow ReadObject(const RowReader& row) {
    return {.ObjectID = row.Long("ObjectID"),
            .Name = row.Text("Name"),
            .CollectionObjectID = row.Long("CollectionObjectID"),
            .TableName = row.OptionalText("TableName"),
            .IsIncluded = row.Flag("IsIncluded"),
            .Guid = row.Text("Guid"),
            .HasKind = !row.IsNull("CollectionObjectID")};
}

InterfaceRow ReadInterface(const RowReader& row) {
    return {.InterfaceID = row.Long("InterfaceID"), .Name = row.Text("Name")};
}

ObjectInterfaceRow ReadObjectInterface(const RowReader& row) {
    return {.ObjectID = row.Long("ObjectID"), .InterfaceID = row.Long("InterfaceID")};
}

ValueRow ReadValueRow(const RowReader& row) {
    return {
        .ValueID = row.Long("ValueID"),
        .InterfaceID = row.Long("InterfaceID"),
        .ChildObjectID = row.Long("ChildObjectID"),
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
    return {.ObjectID = row.Long("ObjectID"), .ValueID = row.Long("ValueID"), .Seq = row.Long("Seq")};
}

ForeignKeyRow ReadForeignKey(const RowReader& row) {
    return {.ObjectID = row.Long("ObjectID"),
            .ValueID = row.Long("ValueID"),
            .FKObjectID = row.Long("FKObjectID"),
            .FKValueID = row.Long("FKValueID"),
            .FKObjectGUID = row.Text("FKObjectGUID")};
}

using Positions = std::unordered_map<std::int32_t, std::vector<std::size_t>>;

template <class Row>
Positions IndexBy(const std::vector<Row>& rows, std::int32_t Row::*key) {
    Positions positions;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        positions[rows[i].*key].push_back(i);
    }
    return positions;
}

template <class Row>
std::vector<const Row*> RowsOf(const std::vector<Row>& rows, const Positions& positions, std::int32_t key) {
    std::vector<const Row*> found;
    if (const auto entry = positions.find(key); entry != positions.end()) {
        for (const std::size_t position : entry->second) {
            found.push_back(&rows[position]);
        }
    }
    return found;
}

template <class Row>
const Row* FirstRow(const std::vector<Row>& rows, const Positions& positions, std::int32_t key) {
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

const ObjectRow* Catalog::FindObject(std::int32_t objectID) const {
    return FirstRow(m_objects, m_objectByID, objectID);
}

const InterfaceRow* Catalog::FindInterface(std::int32_t interfaceID) const {
    return FirstRow(m_interfaces, m_interfaceByID, interfaceID);
}

const ValueRow* Catalog::FindValue(std::int32_t valueID) const {
    return FirstRow(m_values, m_valueByID, valueID);
}

std::vector<std::int32_t> Catalog::InterfacesOf(std::int32_t objectID) const {
    std::vector<std::int32_t> interfaces;
    for (const ObjectInterfaceRow* row : RowsOf(m_objectInterfaces, m_interfacesByObject, objectID)) {
        interfaces.push_back(row->InterfaceID);
    }
    return interfaces;
}

std::vector<const ValueRow*> Catalog::ValuesOfInterface(std::int32_t interfaceID) const {
    return RowsOf(m_values, m_valuesByInterface, interfaceID);
}

std::vector<const ValueRow*> Catalog::ValuesOf(std::int32_t objectID) const {
    std::vector<const ValueRow*> values;
    for (const std::int32_t interfaceID : InterfacesOf(objectID)) {
        const std::vector<const ValueRow*> own = ValuesOfInterface(interfaceID);
        values.insert(values.end(), own.begin(), own.end());
    }
    return values;
}

std::vector<const PrimaryKeyRow*> Catalog::PrimaryKeysOf(std::int32_t objectID) const {
    return RowsOf(m_primaryKeys, m_primaryKeysByObject, objectID);
}

std::vector<const ForeignKeyRow*> Catalog::ForeignKeysOf(std::int32_t objectID) const {
    return RowsOf(m_foreignKeys, m_foreignKeysByObject, objectID);
}

std::vector<std::int32_t> Catalog::ChildrenOf(std::int32_t objectID) const {
    std::vector<std::int32_t> children;
    const ObjectRow* object = FindObject(objectID);
    if (object != nullptr && object->CollectionObjectID > 0) children.push_back(object->CollectionObjectID);
    for (const ValueRow* value : ValuesOf(objectID)) {
        if (value->ChildObjectID > 0) children.push_back(value->ChildObjectID);
    }
    return children;
}

std::vector<std::int32_t> Catalog::ObjectsWith(std::int32_t interfaceID) const {
    std::vector<std::int32_t> objects;
    for (const ObjectInterfaceRow* row : RowsOf(m_objectInterfaces, m_objectsByInterface, interfaceID))
        objects.push_back(row->ObjectID);
    return objects;
}

}  // namespace korvex::repository
