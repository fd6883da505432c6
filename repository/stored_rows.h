#pragma once

#include "repository/definition_rows.h"

#include <string>

namespace korvex::repository {

/// The rows of an open repository. Every statement that the library sends to it stands here.
class StoredRows final : public DefinitionRows {
  public:
    explicit StoredRows(Repository& repository) : m_repository(repository) {}

    /// A storage name with a single quote raises InvalidProcedureCall (5) before anything is sent.
    Rows RootObjects(std::string_view storageName) override;
    Rows Interfaces(ObjectId objectID) override;
    Rows Children(InterfaceId interfaceID) override;

    Rows ScriptedObject(ObjectId objectID) override;
    Rows StoredValues(InterfaceId interfaceID) override;
    Rows PrimaryKey(ObjectId objectID) override;
    Rows ForeignKeys(ObjectId objectID) override;
    Rows SingleObject(ObjectId objectID) override;
    Rows CollectionObject(ObjectId objectID) override;
    Rows TableName(ObjectId objectID) override;
    Rows FieldName(ValueId valueID) override;
    const KeyParents& ScriptedParents() const noexcept override { return m_repository.ScriptedParents(); }

    Rows Object(ObjectId objectID) override;
    Rows InterfacesLike(ObjectId objectID, std::string_view name) override;
    Rows NewInterfaces() override;
    Rows NewObjectInterfaces() override;
    Rows PlainValues(InterfaceId interfaceID) override;
    Rows PrimaryKeyRows(ObjectId objectID) override;
    void DeletePrimaryKey(ObjectId objectID) override;
    Rows NamedValue(std::string_view name, InterfaceId interfaceID) override;
    Rows Value(ValueId valueID) override;
    Rows InterfaceName(InterfaceId interfaceID) override;
    Rows KeyNumbers(InterfaceId interfaceID) override;
    Rows Numbers(InterfaceId interfaceID) override;
    Rows ForeignKeyRows(ObjectId objectID, std::optional<ValueId> valueID,
                        std::optional<ObjectId> parentID) override;

    Rows NumberedForeignKeys() override;
    Rows ElementObject(ObjectId objectID) override;
    Rows HeldObjects(ObjectId objectID) override;
    void DeleteForeignKey(ObjectId objectID, ValueId valueID, ObjectId parentID) override;
    Rows PrimaryKeysOfValue(ObjectId objectID, ValueId valueID) override;
    void DeleteValue(ValueId valueID) override;

  private:
    Rows Snapshot(std::string_view sql, RowId auto id);
    Rows Dynaset(std::string_view sql, RowId auto id);

    Repository& m_repository;
};

}  // namespace korvex::repository
