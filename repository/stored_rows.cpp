#include "repository/stored_rows.h"

#include "automation/error.h"
#include "automation/text.h"
#include "repository/key_values.h"

namespace korvex::repository {

using Rows = DefinitionRows::Rows;

namespace {

std::string With(std::string_view sql, RowId auto id) {
    return std::string(sql) + std::to_string(Number(id));
}

std::string KeyRange(std::string_view column) {
    return std::string(column) + ">" + std::to_string(LowestKeyVid) + " And " + std::string(column) + "<" +
           std::to_string(HighestKeyVid);
}

}  // namespace

Rows StoredRows::Snapshot(std::string_view sql, RowId auto id) {
    return m_repository.OpenSnapshot(With(sql, id));
}

Rows StoredRows::Dynaset(std::string_view sql, RowId auto id) {
    return m_repository.OpenDynaset(With(sql, id));
}

Rows StoredRows::RootObjects(std::string_view storageName) {
    std::string sSQL = "select * from tDataDefs";
    if (!storageName.empty()) {
        if (storageName.find('\'') != std::string_view::npos) {
            throw automation::Error(automation::InvalidProcedureCall,
                                    "The storage name " + automation::Quoted(storageName) +
                                        " holds a single quote; storage names must not.");
        }
        sSQL.append(" where Storage='").append(storageName).append("'");
    }
    return m_repository.OpenSnapshot(sSQL);
}

Rows StoredRows::Interfaces(ObjectId objectID) {
    return Snapshot("select InterfaceID from tObjectInterfaces where ObjectID= ", objectID);
}

Rows StoredRows::Children(InterfaceId interfaceID) {
    return Snapshot("SELECT ChildObjectID FROM tValues WHERE ChildObjectID > 0 and InterfaceID = ",
                    interfaceID);
}

Rows StoredRows::ScriptedObject(ObjectId objectID) {
    // The word touches the number in this statement; the engines' layer knows that.
    return Snapshot(
        "SELECT CollectionObjectID, TableName from tObjects where IsIncluded <> 0"
        "and TableName is not null and ObjectID = ",
        objectID);
}

Rows StoredRows::StoredValues(InterfaceId interfaceID) {
    return Snapshot(
        "SELECT ValueID, MaxLength, DataType, FieldName, IsAutoNumber, DefaultVal "
        "FROM tValues where ChildObjectID = 0 and FieldName is not null "
        "and IsIncluded <> 0  and DataType <> 13  and InterfaceID = ",
        interfaceID);
}

Rows StoredRows::PrimaryKey(ObjectId objectID) {
    return Snapshot("SELECT ValueID, Seq from tPrimaryKeys where ObjectID = ", objectID);
}

Rows StoredRows::ForeignKeys(ObjectId objectID) {
    return Snapshot(
        "SELECT tValues.FieldName, tForeignKeys.FKObjectID, tForeignKeys.FKValueID "
        "FROM tObjects INNER JOIN "
        "(tForeignKeys INNER JOIN tValues ON tForeignKeys.ValueID = tValues.ValueID) "
        "ON tObjects.ObjectID = tForeignKeys.ObjectID "
        "where tObjects.ObjectID =",
        objectID);
}

Rows StoredRows::SingleObject(ObjectId objectID) {
    return Snapshot(
        "SELECT Name from tObjects where CollectionObjectID = 0 "
        " and IsIncluded <> 0 and TableName  is not null and ObjectID =",
        objectID);
}

Rows StoredRows::CollectionObject(ObjectId objectID) {
    return Snapshot(
        "SELECT Name from tObjects where CollectionObjectID <> 0 "
        " and IsIncluded <> 0 and TableName  is not null and ObjectID =",
        objectID);
}

Rows StoredRows::TableName(ObjectId objectID) {
    return Snapshot("select TableName from tObjects where ObjectID= ", objectID);
}

Rows StoredRows::FieldName(ValueId valueID) {
    return Snapshot("select FieldName from tValues where ValueID= ", valueID);
}

Rows StoredRows::Object(ObjectId objectID) {
    return Dynaset("SELECT * FROM tObjects WHERE ObjectID = ", objectID);
}

Rows StoredRows::InterfacesLike(ObjectId objectID, std::string_view name) {
    std::string sSQL =
        "SELECT tInterfaces.InterfaceID "
        "FROM tInterfaces INNER JOIN tObjectInterfaces ON "
        "tInterfaces.InterfaceID = tObjectInterfaces.InterfaceID "
        "WHERE tInterfaces.Name like '";
    return Snapshot(sSQL.append(name).append("' AND tObjectInterfaces.ObjectID="), objectID);
}

Rows StoredRows::NewInterfaces() { return m_repository.OpenDynaset("select * from tInterfaces"); }

Rows StoredRows::NewObjectInterfaces() { return m_repository.OpenDynaset("select * from tObjectInterfaces"); }

Rows StoredRows::PlainValues(InterfaceId interfaceID) {
    return m_repository.OpenDynaset(With("select * from tValues where "
                                         "InterfaceID=",
                                         interfaceID) +
                                    " and ChildObjectID = 0 and DataType <> 13 "
                                    " and DataType <> "
                                    "1");
}

Rows StoredRows::PrimaryKeyRows(ObjectId objectID) {
    return Dynaset("select * from tPrimaryKeys where ObjectID = ", objectID);
}

void StoredRows::DeletePrimaryKey(ObjectId objectID) {
    m_repository.Execute(With("delete from tPrimaryKeys where ObjectID = ", objectID));
}

Rows StoredRows::NamedValue(std::string_view name, InterfaceId interfaceID) {
    return Dynaset("select * from tValues where Name='" + std::string(name) + "' and InterfaceID=",
                   interfaceID);
}

Rows StoredRows::Value(ValueId valueID) { return Dynaset("select * from tValues where ValueID = ", valueID); }

Rows StoredRows::InterfaceName(InterfaceId interfaceID) {
    return Snapshot("select Name from tInterfaces where InterfaceID = ", interfaceID);
}

Rows StoredRows::KeyNumbers(InterfaceId interfaceID) {
    return m_repository.OpenSnapshot(
        "SELECT tObjectInterfaces.*, tObjectInterfaces_1.*,  tValues.ValueID, "
        "tValues.VID FROM (tObjectInterfaces INNER JOIN tObjectInterfaces AS tObjectInterfaces_1 ON "
        "tObjectInterfaces.ObjectID = tObjectInterfaces_1.ObjectID) INNER JOIN tValues ON "
        "tObjectInterfaces_1.InterfaceID = tValues.InterfaceID"
        " Where ((" +
        KeyRange("VID") + ") AND ((tObjectInterfaces.InterfaceID)= " + std::to_string(Number(interfaceID)) +
        "))" + "ORDER BY VID");
}

Rows StoredRows::Numbers(InterfaceId interfaceID) {
    return Snapshot("select VID from tValues where InterfaceID = ", interfaceID);
}

Rows StoredRows::ForeignKeyRows(ObjectId objectID, std::optional<ValueId> valueID,
                                std::optional<ObjectId> parentID) {
    std::string sSQL = With("select * from tForeignKeys where ObjectID = ", objectID);
    if (valueID) sSQL += With(" and ValueID = ", *valueID);
    if (parentID) sSQL += With(" and FKObjectID = ", *parentID);
    return m_repository.OpenDynaset(sSQL);
}

Rows StoredRows::NumberedForeignKeys() {
    return m_repository.OpenSnapshot(
        "SELECT tForeignKeys.ObjectID, tForeignKeys.ValueID, tForeignKeys.FKObjectID, tInterfaces.Name "
        "FROM (tForeignKeys INNER JOIN tValues ON tForeignKeys.ValueID = tValues.ValueID) "
        "INNER JOIN tInterfaces ON tValues.InterfaceID = tInterfaces.InterfaceID WHERE " +
        KeyRange("tValues.VID"));
}

Rows StoredRows::ElementObject(ObjectId objectID) {
    return Snapshot("select CollectionObjectID from tObjects where ObjectID = ", objectID);
}

Rows StoredRows::HeldObjects(ObjectId objectID) {
    return Snapshot(
        "SELECT tValues.ChildObjectID FROM tObjectInterfaces INNER JOIN tValues ON "
        "tObjectInterfaces.InterfaceID = tValues.InterfaceID "
        "WHERE tValues.ChildObjectID > 0 AND tObjectInterfaces.ObjectID = ",
        objectID);
}

void StoredRows::DeleteForeignKey(ObjectId objectID, ValueId valueID, ObjectId parentID) {
    m_repository.Execute(With("delete from tForeignKeys where ValueID = ", valueID) +
                         With(" and ObjectID = ", objectID) + With(" and FKObjectID = ", parentID));
}

Rows StoredRows::PrimaryKeysOfValue(ObjectId objectID, ValueId valueID) {
    return Snapshot(With("select ValueID from tPrimaryKeys where ValueID = ", valueID) + " and ObjectID = ",
                    objectID);
}

void StoredRows::DeleteValue(ValueId valueID) {
    m_repository.Execute(With("delete from tValues where ValueID = ", valueID));
}

}  // namespace korvex::repository
