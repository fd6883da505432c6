#pragma once

#include "automation/error.h"
#include "automation/text.h"
#include "repository/definition_rows.h"
#include "repository/key_values.h"

#include <string>

namespace korvex::repository {

/// The rows of an open repository. Every statement that the library sends to it stands here or in a question.
class StoredRows final : public DefinitionRows {
  public:
    explicit StoredRows(Repository& repository) : m_repository(repository) {}

    Rows Ask(const ObjectQuestion& question, ObjectId objectID) override { return Send(question, objectID); }
    Rows Ask(const ValuesQuestion& question, InterfaceId id) override { return Send(question, id); }
    Rows Ask(const ValueQuestion& question, ValueId valueID) override { return Send(question, valueID); }
    Rows Ask(const KeyQuestion& question, ObjectId objectID) override { return Send(question, objectID); }

    /// A storage name with a single quote raises InvalidProcedureCall (5) before anything is sent.
    Rows RootObjects(std::string_view storageName) override {
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
    Rows Interfaces(ObjectId objectID) override {
        return Snapshot("select InterfaceID from tObjectInterfaces where ObjectID= ", objectID);
    }
    Rows ForeignKeys(ObjectId objectID) override {
        return Snapshot(
            "SELECT tValues.FieldName, tForeignKeys.FKObjectID, tForeignKeys.FKValueID "
            "FROM tObjects INNER JOIN "
            "(tForeignKeys INNER JOIN tValues ON tForeignKeys.ValueID = tValues.ValueID) "
            "ON tObjects.ObjectID = tForeignKeys.ObjectID "
            "where tObjects.ObjectID =",
            objectID);
    }
    const KeyParents& ScriptedParents() const noexcept override { return m_repository.ScriptedParents(); }

    Rows InterfacesLike(ObjectId objectID, std::string_view name) override {
        std::string sSQL =
            "SELECT tInterfaces.InterfaceID "
            "FROM tInterfaces INNER JOIN tObjectInterfaces ON "
            "tInterfaces.InterfaceID = tObjectInterfaces.InterfaceID "
            "WHERE tInterfaces.Name like '";
        return Snapshot(sSQL.append(name).append("' AND tObjectInterfaces.ObjectID="), objectID);
    }
    Rows NewInterfaces() override { return m_repository.OpenDynaset("select * from tInterfaces"); }
    Rows NewObjectInterfaces() override {
        return m_repository.OpenDynaset("select * from tObjectInterfaces");
    }
    void DeletePrimaryKey(ObjectId objectID) override {
        m_repository.Execute(With("delete from tPrimaryKeys where ObjectID = ", objectID));
    }
    Rows NamedValue(std::string_view name, InterfaceId interfaceID) override {
        return m_repository.OpenDynaset(With(
            "select * from tValues where Name='" + std::string(name) + "' and InterfaceID=", interfaceID));
    }
    Rows InterfaceName(InterfaceId interfaceID) override {
        return Snapshot("select Name from tInterfaces where InterfaceID = ", interfaceID);
    }
    Rows KeyNumbers(InterfaceId interfaceID) override {
        return m_repository.OpenSnapshot(
            "SELECT tObjectInterfaces.*, tObjectInterfaces_1.*,  tValues.ValueID, "
            "tValues.VID FROM (tObjectInterfaces INNER JOIN tObjectInterfaces AS tObjectInterfaces_1 ON "
            "tObjectInterfaces.ObjectID = tObjectInterfaces_1.ObjectID) INNER JOIN tValues ON "
            "tObjectInterfaces_1.InterfaceID = tValues.InterfaceID"
            " Where ((" +
            KeyRange("VID") + With(") AND ((tObjectInterfaces.InterfaceID)= ", interfaceID) +
            "))ORDER BY VID");
    }
    Rows ForeignKeyRows(ObjectId objectID, std::optional<ValueId> valueID,
                        std::optional<ObjectId> parentID) override {
        std::string sSQL = With("select * from tForeignKeys where ObjectID = ", objectID);
        if (valueID) sSQL += With(" and ValueID = ", *valueID);
        if (parentID) sSQL += With(" and FKObjectID = ", *parentID);
        return m_repository.OpenDynaset(sSQL);
    }

    Rows NumberedForeignKeys() override {
        return m_repository.OpenSnapshot(
            "SELECT tForeignKeys.ObjectID, tForeignKeys.ValueID, tForeignKeys.FKObjectID, tInterfaces.Name "
            "FROM (tForeignKeys INNER JOIN tValues ON tForeignKeys.ValueID = tValues.ValueID) "
            "INNER JOIN tInterfaces ON tValues.InterfaceID = tInterfaces.InterfaceID WHERE " +
            KeyRange("tValues.VID"));
    }
    Rows HeldObjects(ObjectId objectID) override {
        return Snapshot(
            "SELECT tValues.ChildObjectID FROM tObjectInterfaces INNER JOIN tValues ON "
            "tObjectInterfaces.InterfaceID = tValues.InterfaceID "
            "WHERE tValues.ChildObjectID > 0 AND tObjectInterfaces.ObjectID = ",
            objectID);
    }
    void DeleteForeignKey(ObjectId objectID, ValueId valueID, ObjectId parentID) override {
        m_repository.Execute(With("delete from tForeignKeys where ValueID = ", valueID) +
                             With(" and ObjectID = ", objectID) + With(" and FKObjectID = ", parentID));
    }
    Rows PrimaryKeysOfValue(ObjectId objectID, ValueId valueID) override {
        return Snapshot(
            With("select ValueID from tPrimaryKeys where ValueID = ", valueID) + " and ObjectID = ",
            objectID);
    }
    void DeleteValue(ValueId valueID) override {
        m_repository.Execute(With("delete from tValues where ValueID = ", valueID));
    }

  private:
    static std::string With(std::string_view sql, RowId auto id) {
        return std::string(sql) + std::to_string(Number(id));
    }
    static std::string KeyRange(std::string_view column) {
        return std::string(column) + ">" + std::to_string(LowestKeyVid) + " And " + std::string(column) +
               "<" + std::to_string(HighestKeyVid);
    }
    Rows Snapshot(std::string_view sql, RowId auto id) { return m_repository.OpenSnapshot(With(sql, id)); }
    template <class Row, RowId Id>
    Rows Send(const Question<Row, Id>& question, Id id) {
        const std::string sSQL = With(question.sql, id).append(question.end);
        return question.isEdited ? m_repository.OpenDynaset(sSQL) : m_repository.OpenSnapshot(sSQL);
    }

    Repository& m_repository;
};

}  // namespace korvex::repository
