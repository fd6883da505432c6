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
    Rows Interfaces(std::int32_t objectID) override;
    Rows Children(std::int32_t interfaceID) override;

    Rows ScriptedObject(std::int32_t objectID) override;
    Rows StoredValues(std::int32_t interfaceID) override;
    Rows PrimaryKey(std::int32_t objectID) override;
    Rows ForeignKeys(std::int32_t objectID) override;
    Rows SingleObject(std::int32_t objectID) override;
    Rows CollectionObject(std::int32_t objectID) override;
    Rows TableName(std::int32_t objectID) override;
    Rows FieldName(std::int32_t valueID) override;
    const KeyParents& ScriptedParents() const noexcept override { return m_repository.ScriptedParents(); }

    Rows Object(std::int32_t objectID) override;
    Rows InterfacesLike(std::int32_t objectID, std::string_view name) override;
    Rows NewInterfaces() override;
    Rows NewObjectInterfaces() override;
    Rows PlainValues(std::int32_t interfaceID) override;
    Rows PrimaryKeyRows(std::int32_t objectID) override;
    void DeletePrimaryKey(std::int32_t objectID) override;
    Rows NamedValue(std::string_view name, std::int32_t interfaceID) override;
    Rows Value(std::int32_t valueID) override;
    Rows InterfaceName(std::int32_t interfaceID) override;
    Rows KeyNumbers(std::int32_t interfaceID) override;
    Rows Numbers(std::int32_t interfaceID) override;
    Rows ForeignKeyRows(std::int32_t objectID, std::optional<std::int32_t> valueID,
                        std::optional<std::int32_t> parentID) override;

    Rows NumberedForeignKeys() override;
    Rows ElementObject(std::int32_t objectID) override;
    Rows HeldObjects(std::int32_t objectID) override;
    void DeleteForeignKey(std::int32_t objectID, std::int32_t valueID, std::int32_t parentID) override;
    Rows PrimaryKeysOfValue(std::int32_t objectID, std::int32_t valueID) override;
    void DeleteValue(std::int32_t valueID) override;

  private:
    Rows Snapshot(std::string_view sql, std::int32_t id);
    Rows Dynaset(std::string_view sql, std::int32_t id);

    Repository& m_repository;
};

}  // namespace korvex::repository
