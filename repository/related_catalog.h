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
    /// The same for a definition whose objects may stand beneath parents of other definitions: those that
    /// share objects with it are related, too, as far as they can be, so that the keys to these parents are
    /// there, in one order whichever definition is in hand. Names are those of the one definition.
    void RelateAmongOthers(std::string_view storageName, std::string_view sFKPrefix);

    // The look-ups of a catalogue.
    const ObjectRow* FindObject(ObjectId objectID) const;
    const InterfaceRow* FindInterface(InterfaceId interfaceID) const;
    const ValueRow* FindValue(ValueId valueID) const;
    std::vector<InterfaceId> InterfacesOf(ObjectId objectID) const;
    std::vector<const ValueRow*> ValuesOfInterface(InterfaceId interfaceID) const;
    std::vector<const PrimaryKeyRow*> PrimaryKeysOf(ObjectId objectID) const;
    std::vector<const ForeignKeyRow*> ForeignKeysOf(ObjectId objectID) const;

    Rows Ask(const ObjectQuestion& question, ObjectId objectID) override;
    Rows Ask(const ValuesQuestion& question, InterfaceId interfaceID) override;
    Rows Ask(const ValueQuestion& question, ValueId valueID) override;
    Rows Ask(const KeyQuestion& question, ObjectId objectID) override;

    Rows RootObjects(std::string_view storageName) override;
    Rows Interfaces(ObjectId objectID) override;
    Rows ForeignKeys(ObjectId objectID) override;
    const KeyParents& ScriptedParents() const noexcept override { return m_scriptedParents; }

    Rows InterfacesLike(ObjectId objectID, std::string_view name) override;
    Rows NewInterfaces() override;
    Rows NewObjectInterfaces() override;
    void DeletePrimaryKey(ObjectId objectID) override { m_primaryKeys[objectID].clear(); }
    Rows NamedValue(std::string_view name, InterfaceId interfaceID) override;
    Rows InterfaceName(InterfaceId interfaceID) override;
    Rows KeyNumbers(InterfaceId interfaceID) override;
    Rows ForeignKeyRows(ObjectId objectID, std::optional<ValueId> valueID,
                        std::optional<ObjectId> parentID) override;

    Rows NumberedForeignKeys() override;
    Rows HeldObjects(ObjectId objectID) override;
    void DeleteForeignKey(ObjectId objectID, ValueId valueID, ObjectId parentID) override;
    Rows PrimaryKeysOfValue(ObjectId objectID, ValueId valueID) override;
    void DeleteValue(ValueId valueID) override;

  private:
    template <class Row>
    using ByObject = std::unordered_map<ObjectId, Row>;
    template <class Row>
    using ByInterface = std::unordered_map<InterfaceId, Row>;

    Rows ValueRows(std::vector<const ValueRow*> values);
    const ValueRow* StoreValue(ValueRow&& row, const ValueRow* before);
    std::vector<ValueId>& ValueIDs(InterfaceId interfaceID);
    std::vector<PrimaryKeyRow>& PrimaryKeys(ObjectId objectID);
    std::vector<ForeignKeyRow>& ForeignKeyList(ObjectId objectID);

    const Catalog& m_catalog;
    ByObject<ObjectRow> m_objects;
    ByInterface<InterfaceRow> m_interfaces;  ///< added ones
    ByObject<std::vector<InterfaceId>> m_interfacesOfObject;
    ByInterface<std::vector<ObjectId>> m_objectsOfInterface;  ///< of added interfaces
    std::unordered_map<ValueId, ValueRow> m_values;
    std::unordered_set<ValueId> m_deletedValues;
    ByInterface<std::vector<ValueId>> m_valuesOfInterface;
    ByObject<std::vector<PrimaryKeyRow>> m_primaryKeys;  ///< by object
    ByObject<std::vector<ForeignKeyRow>> m_foreignKeys;  ///< by object
    InterfaceId m_lastInterfaceID = {};
    ValueId m_lastValueID = {};
    KeyParents m_scriptedParents;
};

}  // namespace korvex::repository
