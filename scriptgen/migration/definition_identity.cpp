#include "scriptgen/migration/definition_identity.h"

#include "automation/text.h"
#include "repository/catalog.h"

#include <unordered_map>

namespace korvex::scriptgen {

using repository::Catalog;

namespace {

/// What the numbers of one interface say.
struct Numbering {
    std::unordered_map<std::int32_t, int> uses;  ///< values of each number
    bool countsOnly = true;
};

class Identifier {
  public:
    Identifier(const Catalog& catalog, const std::unordered_set<repository::ValueId>* numbered)
        : m_catalog(catalog), m_numbered(numbered) {
        for (const repository::InterfaceRow& row : catalog.Interfaces()) {
            Numbering& numbering = m_numberings[row.InterfaceID];
            std::int32_t place = 0;
            for (const repository::ValueRow* value : catalog.ValuesOfInterface(row.InterfaceID)) {
                ++numbering.uses[value->VID];
                numbering.countsOnly = numbering.countsOnly && value->VID == ++place;
            }
        }
        for (const repository::DataDefRow& definition : catalog.DataDefs())
            m_places[definition.RootObjectID].push_back({repository::NoObject, definition.Storage});
        for (const repository::ObjectRow& object : catalog.Objects())
            AddPlaces(object);
    }

    void Identify(DescribedTable& table) const {
        if (const repository::ObjectRow* object = m_catalog.FindObject(table.ObjectID)) {
            table.ObjectName = object->Name;
            table.Guid = object->Guid;
        }
        if (const auto places = m_places.find(table.ObjectID); places != m_places.end())
            table.Places = places->second;
        for (Column& column : table.Columns) {
            const repository::ValueRow* value = m_catalog.FindValue(column.ValueID);
            if (value == nullptr) continue;
            const repository::InterfaceRow* interface_ = m_catalog.FindInterface(value->InterfaceID);
            if (interface_ == nullptr) continue;
            column.Interface = interface_->Name;
            column.VID = NumberOf(*value);
            column.VIDIsGiven = IsGiven(column.VID);
            column.VIDIsPlace = m_numberings.at(value->InterfaceID).countsOnly && !column.VIDIsGiven;
        }
    }

  private:
    std::int32_t NumberOf(const repository::ValueRow& value) const {
        const bool isOwn = m_numberings.at(value.InterfaceID).uses.at(value.VID) == 1;
        return isOwn && (m_numbered == nullptr || m_numbered->contains(value.ValueID)) ? value.VID : 0;
    }
    bool IsGiven(std::int32_t number) const { return m_numbered != nullptr && number != 0; }
    void AddPlaces(const repository::ObjectRow& object) {
        if (IsRow(object.CollectionObjectID))
            m_places[object.CollectionObjectID].push_back({object.ObjectID, ""});
        for (const repository::ValueRow* value : ValuesOf(m_catalog, object.ObjectID)) {
            const repository::InterfaceRow* interface_ = m_catalog.FindInterface(value->InterfaceID);
            if (!IsRow(value->ChildObjectID) || interface_ == nullptr) continue;
            const std::int32_t number = NumberOf(*value);
            m_places[value->ChildObjectID].push_back(
                {object.ObjectID, value->Name, interface_->Name, number, IsGiven(number)});
        }
    }

    const Catalog& m_catalog;
    const std::unordered_set<repository::ValueId>* m_numbered;
    std::unordered_map<repository::InterfaceId, Numbering> m_numberings;         ///< by InterfaceID
    std::unordered_map<repository::ObjectId, std::vector<TablePlace>> m_places;  ///< by ObjectID
};

}  // namespace

DefinitionState DescribeState(const Catalog& catalog, const std::string& storageName,
                              std::string_view sFKPrefix,
                              const std::unordered_set<repository::ValueId>* numbered) {
    DefinitionState state{DescribeDefinition(catalog, storageName, sFKPrefix), {}};
    const Identifier identifier(catalog, numbered);
    for (DescribedTable& table : state.tables)
        identifier.Identify(table);
    std::set<std::string> storages = {storageName};
    for (const repository::DataDefRow& definition : catalog.DataDefs()) {
        if (storageName.empty() || !storages.insert(definition.Storage).second) continue;
        for (const DescribedTable& table : DescribeDefinition(catalog, definition.Storage, sFKPrefix))
            state.others.insert(automation::ToUpperAscii(table.Name));
    }
    return state;
}

}  // namespace korvex::scriptgen
