#pragma once

#include "repository/catalog.h"
#include "repository/definition_rows.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace korvex::repository {

/// A catalogue as the relationship builder would leave it: its rows, and over them the ones that were
/// changed or added. The repository behind it stays as it is, and so does the catalogue, which must outlive
/// this.
class RelatedCatalog final : public DefinitionRows {
  public:
    explicit RelatedCatalog(const Catalog& catalog);
    RelatedCatalog(const RelatedCatalog&) = delete;
    RelatedCatalog& operator=(const RelatedCatalog&) = delete;

    /// Does with these rows what CreateRelationship does with those of a repository; errors as there. An
    /// object that more ways lead to than table names have numbers raises Overflow (6) before the first step.
    void Relate(std::string_view storageName, std::string_view sFKPrefix);
    /// The same for a definition whose objects may stand beneath parents of other definitions: these are
    /// related first, as far as they can be, so that the keys to those parents are there. Names are those of
    /// the one definition.
    void RelateAmongOthers(std::string_view storageName, std::string_view sFKPrefix);

    // The look-ups of a catalogue.
    const ObjectRow* FindObject(std::int32_t objectID) const;
    const InterfaceRow* FindInterface(std::int32_t interfaceID) const;
    const ValueRow* FindValue(std::int32_t valueID) const;
    std::vector<std::int32_t> InterfacesOf(std::int32_t objectID) const;
    std::vector<const ValueRow*> ValuesOfInterface(std::int32_t interfaceID) const;
    std::vector<const ValueRow*> ValuesOf(std::int32_t objectID) const;
    std::vector<const PrimaryKeyRow*> PrimaryKeysOf(std::int32_t objectID) const;
    std::vector<const ForeignKeyRow*> ForeignKeysOf(std::int32_t objectID) const;

    Rows RootObjects(std::string_view storageName) override;
    Rows Interfaces(std::int32_t objectID) override;
    Rows Children(std::int32_t interfaceID) override;

    Rows ScriptedObject(std::int32_t objectID) override;
    Rows StoredValues(std::int32_t interfaceID) override;
    Rows PrimaryKey(std::int32_t objectID) override { return PrimaryKeyRows(objectID); }
    Rows ForeignKeys(std::int32_t objectID) override;
    Rows SingleObject(std::int32_t objectID) override;
    Rows CollectionObject(std::int32_t objectID) override;
    Rows TableName(std::int32_t objectID) override { return ElementObject(objectID); }
    Rows FieldName(std::int32_t valueID) override { return Value(valueID); }
    const KeyParents& ScriptedParents() const noexcept override { return m_scriptedParents; }

    Rows Object(std::int32_t objectID) override;
    Rows InterfacesLike(std::int32_t objectID, std::string_view name) override;
    Rows NewInterfaces() override;
    Rows NewObjectInterfaces() override;
    Rows PlainValues(std::int32_t interfaceID) override;
    Rows PrimaryKeyRows(std::int32_t objectID) override;
    void DeletePrimaryKey(std::int32_t objectID) override { m_primaryKeys[objectID].clear(); }
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
    template <class Row>
    using ByID = std::unordered_map<std::int32_t, Row>;
    using IDs = std::vector<std::int32_t>;

    Rows ObjectRows(std::int32_t objectID, bool (*takes)(const ObjectRow& object));
    Rows ValueRows(std::vector<const ValueRow*> values);
    const ValueRow* StoreValue(ValueRow row, const ValueRow* before);
    IDs& ValueIDs(std::int32_t interfaceID);
    std::vector<PrimaryKeyRow>& PrimaryKeys(std::int32_t objectID);
    std::vector<ForeignKeyRow>& ForeignKeyList(std::int32_t objectID);

    const Catalog& m_catalog;
    ByID<ObjectRow> m_objects;
    ByID<InterfaceRow> m_interfaces;  ///< added ones
    ByID<IDs> m_interfacesOfObject;
    ByID<IDs> m_objectsOfInterface;  ///< of added interfaces
    ByID<ValueRow> m_values;
    std::unordered_set<std::int32_t> m_deletedValues;
    ByID<IDs> m_valuesOfInterface;
    ByID<std::vector<PrimaryKeyRow>> m_primaryKeys;  ///< by object
    ByID<std::vector<ForeignKeyRow>> m_foreignKeys;  ///< by object
    std::int32_t m_lastInterfaceID = 0;
    std::int32_t m_lastValueID = 0;
    KeyParents m_scriptedParents;
};

}  // namespace korvex::repository
