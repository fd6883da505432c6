#include "hosts/cli/check/planned_tables.h"

#include "automation/text.h"
#include "hosts/cli/check/held_objects.h"
#include "hosts/cli/model/data_types.h"
#include "repository/key_values.h"
#include "repository/name_list.h"
#include "repository/names.h"

#include <algorithm>
#include <set>
#include <unordered_map>
#include <utility>

namespace korvex::cli {

namespace {

using repository::Catalog;
using repository::ObjectRow;
using repository::ValueColumnName;
using repository::ValueRow;

/// A definition with objects shared in layers has more ways than anybody could script.
constexpr std::int64_t MostVisits = 1'000'000;

struct Visit {
    std::int32_t objectID;
    std::int32_t parentID;  ///< 0 for the root
};

class Planner {
  public:
    Planner(const Catalog& catalog, std::string_view fkPrefix)
        : m_catalog(catalog), m_objects(catalog), m_fkPrefix(fkPrefix) {}

    PlannedDefinition Plan(const repository::DataDefRow& dataDef) {
        m_plan.storage = dataDef.Storage;
        Walk(dataDef.RootObjectID);
        for (PlannedTable& table : m_plan.tables) {
            AddColumns(table);
        }
        return std::move(m_plan);
    }

  private:
    void Walk(std::int32_t root) {
        std::vector<Visit> waiting = {{root, 0}};
        for (std::int64_t visits = 0; !waiting.empty(); ++visits) {
            if (visits == MostVisits) {
                m_plan.isCutOff = true;
                return;
            }
            const Visit visit = waiting.back();
            waiting.pop_back();
            const ObjectRow* object = m_catalog.FindObject(visit.objectID);
            if (object == nullptr) continue;
            Enter(*object, visit.parentID);
            const std::vector<std::int32_t> children = m_catalog.ChildrenOf(visit.objectID);
            for (auto child = children.rbegin(); child != children.rend(); ++child) {
                waiting.push_back({*child, visit.objectID});
            }
        }
    }

    void Enter(const ObjectRow& object, std::int32_t parentID) {
        const auto [entry, isNew] = m_tableIndex.emplace(object.ObjectID, m_plan.tables.size());
        if (isNew) m_plan.tables.emplace_back().object = &object;
        PlannedTable& table = m_plan.tables[entry->second];
        // The last visit names the table.
        table.name = repository::TableName(m_names.MakeUniqueName(object.Name));
        ++table.visits;
        const bool isNewParent = parentID > 0 && m_parents.emplace(object.ObjectID, parentID).second;
        if (isNewParent) table.parents.push_back(parentID);
    }

    std::string KeyColumn(const std::string& objectName) const {
        return repository::KeyColumnName(objectName,
                                         static_cast<std::int16_t>(automation::Length(m_fkPrefix)));
    }
    /// The scripts take the blanks from the names of columns.
    std::string ForeignKeyColumn(std::int32_t parentID) const {
        return std::string(automation::Trim(m_fkPrefix + KeyColumn(m_catalog.FindObject(parentID)->Name)));
    }

    void AddColumns(PlannedTable& table) {
        const std::int32_t id = table.object->ObjectID;
        const std::set<std::int32_t> keyValues = CurrentKeyValues(table);
        for (const ValueRow* value : m_catalog.ValuesOf(id)) {
            if (!keyValues.contains(value->ValueID)) AddValue(table, *value);
        }
        table.columns.push_back(
            {.name = KeyColumn(table.object->Name), .origin = "the own key", .isKey = true});
        for (const std::int32_t parentID : table.parents) {
            const std::string& parent = m_catalog.FindObject(parentID)->Name;
            table.columns.push_back(
                {.name = ForeignKeyColumn(parentID),
                 .origin = "the key of " + parent + " (ObjectID " + std::to_string(parentID) + ")",
                 .parentID = parentID});
        }
        const bool isCollection = table.object->CollectionObjectID != 0;
        for (const std::string_view name : isCollection ? CollectionColumns : ObjectColumns) {
            table.columns.push_back({.name = std::string(name), .origin = "an added column"});
        }
    }

    /// Values of earlier runs that become the table's keys again, under today's names, or that are deleted
    /// because their parent does not hold the object any longer.
    std::set<std::int32_t> CurrentKeyValues(const PlannedTable& table) {
        std::set<std::int32_t> values;
        const std::int32_t id = table.object->ObjectID;
        for (const repository::PrimaryKeyRow* row : m_catalog.PrimaryKeysOf(id)) {
            values.insert(row->ValueID);
        }
        for (const repository::ForeignKeyRow* row : m_catalog.ForeignKeysOf(id)) {
            if (m_parents.contains({id, row->FKObjectID}) || !m_objects.Holds(row->FKObjectID, id))
                values.insert(row->ValueID);
        }
        std::erase_if(values, [this](std::int32_t valueID) {
            const ValueRow* value = m_catalog.FindValue(valueID);
            return value == nullptr || !IsKeyValue(*value);
        });
        AddKeysByName(table, values);
        return values;
    }

    bool IsKeyValue(const ValueRow& value) const {
        const repository::InterfaceRow* interface = m_catalog.FindInterface(value.InterfaceID);
        return interface != nullptr && repository::IsKeyValue(value.VID, interface->Name);
    }

    /// What has the name of a key in the object's key interface becomes that key.
    void AddKeysByName(const PlannedTable& table, std::set<std::int32_t>& values) const {
        std::set<std::string> names = {KeyColumn(table.object->Name)};
        for (const std::int32_t parentID : table.parents)
            names.insert(m_fkPrefix + KeyColumn(m_catalog.FindObject(parentID)->Name));
        const std::string keyInterface = repository::KeyInterfaceName(table.object->Name);
        for (const std::int32_t interfaceID : m_catalog.InterfacesOf(table.object->ObjectID)) {
            const repository::InterfaceRow* interface = m_catalog.FindInterface(interfaceID);
            if (interface == nullptr || !automation::EqualsIgnoreCase(interface->Name, keyInterface))
                continue;
            for (const ValueRow* value : m_catalog.ValuesOfInterface(interfaceID)) {
                if (names.contains(value->Name)) values.insert(value->ValueID);
            }
            return;
        }
    }

    static void AddValue(PlannedTable& table, const ValueRow& value) {
        if (value.ChildObjectID != 0 || value.DataType == TypeNoColumn) return;
        PlannedColumn column{
            .name = ValueColumnName(value.Name),
            .origin = "value " + value.Name + " (ValueID " + std::to_string(value.ValueID) + ")",
            .value = &value};
        if (value.DataType == TypeNull) {
            // Such values are never marked: they are columns only when they were made so by hand.
            if (!value.FieldName || !value.IsIncluded) return;
            column.name = *value.FieldName;
        }
        table.columns.push_back(std::move(column));
    }

    static constexpr std::string_view ObjectColumns[] = {repository::SelectStateColumn,
                                                         repository::CounterColumn};
    static constexpr std::string_view CollectionColumns[] = {repository::SelectedItemColumn,
                                                             repository::CounterHolderColumn};

    const Catalog& m_catalog;
    HeldObjects m_objects;
    std::string m_fkPrefix;
    repository::NameList m_names;
    std::unordered_map<std::int32_t, std::size_t> m_tableIndex;  ///< by ObjectID
    std::set<std::pair<std::int32_t, std::int32_t>> m_parents;   ///< objects with their parents
    PlannedDefinition m_plan;
};

}  // namespace

PlannedDefinition PlanDefinition(const Catalog& catalog, const repository::DataDefRow& dataDef,
                                 std::string_view fkPrefix) {
    return Planner(catalog, fkPrefix).Plan(dataDef);
}

}  // namespace korvex::cli
