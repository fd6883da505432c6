#include "hosts/cli/check/planned_tables.h"

#include "automation/text.h"
#include "hosts/cli/model/data_types.h"
#include "repository/key_values.h"
#include "repository/name_list.h"
#include "repository/names.h"

#include <algorithm>
#include <set>
#include <unordered_map>

namespace korvex::cli {

namespace {

using repository::Catalog;
using repository::LimitNameLength;
using repository::ObjectRow;
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
        : m_catalog(catalog),
          m_fkPrefix(fkPrefix),
          m_prefixLength(static_cast<std::int16_t>(automation::Length(fkPrefix))) {}

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
        table.name = "t" + LimitNameLength(m_names.MakeUniqueName(object.Name), 1);
        ++table.visits;
        const bool isKnown =
            std::find(table.parents.begin(), table.parents.end(), parentID) != table.parents.end();
        if (parentID > 0 && !isKnown) table.parents.push_back(parentID);
    }

    std::string KeyColumn(const std::string& objectName) const {
        return LimitNameLength(objectName + "ID", m_prefixLength);
    }

    void AddColumns(PlannedTable& table) const {
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
                {.name = m_fkPrefix + KeyColumn(parent),
                 .origin = "the key of " + parent + " (ObjectID " + std::to_string(parentID) + ")",
                 .parentID = parentID});
        }
        const bool isCollection = table.object->CollectionObjectID != 0;
        for (const char* name : isCollection ? CollectionColumns : ObjectColumns) {
            table.columns.push_back({.name = name, .origin = "an added column"});
        }
    }

    /// Values of earlier runs that become the table's keys again, under today's names.
    std::set<std::int32_t> CurrentKeyValues(const PlannedTable& table) const {
        std::set<std::int32_t> values;
        const std::int32_t id = table.object->ObjectID;
        for (const repository::PrimaryKeyRow* row : m_catalog.PrimaryKeysOf(id)) {
            values.insert(row->ValueID);
        }
        for (const repository::ForeignKeyRow* row : m_catalog.ForeignKeysOf(id)) {
            const bool isParent =
                std::find(table.parents.begin(), table.parents.end(), row->FKObjectID) != table.parents.end();
            if (isParent) values.insert(row->ValueID);
        }
        std::erase_if(values, [this](std::int32_t valueID) {
            const ValueRow* value = m_catalog.FindValue(valueID);
            return value == nullptr || !repository::IsKeyVid(value->VID);
        });
        return values;
    }

    static void AddValue(PlannedTable& table, const ValueRow& value) {
        if (value.ChildObjectID != 0 || value.DataType == TypeNoColumn) return;
        PlannedColumn column{
            .name = LimitNameLength(value.Name),
            .origin = "value " + value.Name + " (ValueID " + std::to_string(value.ValueID) + ")",
            .value = &value};
        if (value.DataType == TypeNull) {
            // Such values are never marked: they are columns only when they were made so by hand.
            if (!value.FieldName || !value.IsIncluded) return;
            column.name = *value.FieldName;
        }
        table.columns.push_back(std::move(column));
    }

    static constexpr const char* ObjectColumns[] = {"QORSelectState", "QORCounter"};
    static constexpr const char* CollectionColumns[] = {"QORSelectedItem", "QORCounterHolder"};

    const Catalog& m_catalog;
    std::string m_fkPrefix;
    std::int16_t m_prefixLength;
    repository::NameList m_names;
    std::unordered_map<std::int32_t, std::size_t> m_tableIndex;  ///< by ObjectID
    PlannedDefinition m_plan;
};

}  // namespace

PlannedDefinition PlanDefinition(const Catalog& catalog, const repository::DataDefRow& dataDef,
                                 std::string_view fkPrefix) {
    return Planner(catalog, fkPrefix).Plan(dataDef);
}

}  // namespace korvex::cli
