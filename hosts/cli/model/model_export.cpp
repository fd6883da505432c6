#include "hosts/cli/model/model_export.h"

#include "automation/text.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

namespace korvex::cli {

namespace {

using repository::Catalog;
using repository::ForeignKeyRow;
using repository::InterfaceId;
using repository::ObjectId;
using repository::ObjectRow;
using repository::PrimaryKeyRow;
using repository::ValueId;
using repository::ValueRow;

class Exporter {
  public:
    Exporter(const Catalog& catalog, std::string_view storage) : m_catalog(catalog), m_storage(storage) {}

    Model Export() {
        CollectObjects();
        for (const ObjectRow* row : m_objects)
            AddObject(*row);
        if (m_storage.empty()) AddUnusedInterfaces();
        // Children and keys refer to objects and interfaces that may stand anywhere.
        for (std::size_t i = 0; i < m_interfaceIDs.size(); ++i) {
            AddInterface(i);
        }
        for (ModelObject& object : m_result.objects)
            FillKeys(object);
        return std::move(m_result);
    }

  private:
    void LeaveOut(std::string what) { m_result.leftOut.push_back(std::move(what)); }

    void CollectObjects() {
        for (const repository::DataDefRow& row : m_catalog.DataDefs()) {
            if (!m_storage.empty() && row.Storage != m_storage) continue;
            CollectFrom(row.RootObjectID);
            const std::optional<std::size_t> root = Find(m_objectIndex, row.RootObjectID);
            if (root) {
                m_result.definitions.push_back({row.Storage, *root, {}});
            } else {
                LeaveOut("definition " + automation::Quoted(row.Storage) + ": its root object " +
                         std::to_string(Number(row.RootObjectID)) + " does not exist");
            }
        }
        if (!m_storage.empty()) return;
        for (const ObjectRow& row : m_catalog.Objects()) {
            CollectFrom(row.ObjectID);
        }
    }

    /// Adds an object and everything beneath it that is not there yet, each before its children.
    void CollectFrom(ObjectId start) {
        std::vector<ObjectId> waiting = {start};
        while (!waiting.empty()) {
            const ObjectId id = waiting.back();
            waiting.pop_back();
            const ObjectRow* row = m_catalog.FindObject(id);
            if (row == nullptr || !m_objectIndex.emplace(id, m_objects.size()).second) continue;
            m_objects.push_back(row);
            const std::vector<ObjectId> children = m_catalog.ChildrenOf(id);
            waiting.insert(waiting.end(), children.rbegin(), children.rend());
        }
    }

    void AddObject(const ObjectRow& row) {
        ModelObject object{row};
        for (const InterfaceId interfaceID : m_catalog.InterfacesOf(row.ObjectID)) {
            if (m_catalog.FindInterface(interfaceID) == nullptr) {
                LeaveOut("object " + row.Name + ": interface " + std::to_string(Number(interfaceID)) +
                         " does not exist");
            } else {
                object.interfaces.push_back(InterfaceIndex(interfaceID));
            }
        }
        object.element = Held(row.CollectionObjectID, "object " + row.Name + ": its element object ");
        m_result.objects.push_back(std::move(object));
    }

    /// The object that an entry holds, if it does; `what` says of which it is told that there is none.
    std::optional<std::size_t> Held(ObjectId id, const std::string& what) {
        const std::optional<std::size_t> held = IsRow(id) ? Find(m_objectIndex, id) : std::nullopt;
        if (IsRow(id) && !held) LeaveOut(what + std::to_string(Number(id)) + " does not exist");
        return held;
    }

    std::size_t InterfaceIndex(InterfaceId interfaceID) {
        const auto [entry, isNew] = m_interfaceIndex.emplace(interfaceID, m_interfaceIDs.size());
        if (isNew) m_interfaceIDs.push_back(interfaceID);
        return entry->second;
    }

    void AddUnusedInterfaces() {
        for (const repository::InterfaceRow& row : m_catalog.Interfaces()) {
            static_cast<void>(InterfaceIndex(row.InterfaceID));
        }
    }

    void AddInterface(std::size_t index) {
        ModelInterface interface { *m_catalog.FindInterface(m_interfaceIDs[index]) };
        for (const ValueRow* row : m_catalog.ValuesOfInterface(interface.InterfaceID)) {
            m_valueRefs[row->ValueID] = {index, interface.values.size()};
            interface.values.push_back(Value(*row));
        }
        m_result.interfaces.push_back(std::move(interface));
    }

    ModelValue Value(const ValueRow& row) {
        ModelValue value{row, true};
        value.child = Held(row.ChildObjectID, "value " + row.Name + ": its child object ");
        return value;
    }

    void FillKeys(ModelObject& object) {
        for (const PrimaryKeyRow* row : m_catalog.PrimaryKeysOf(object.ObjectID)) {
            if (const std::optional<ModelValueRef> value = ValueOf(object, row->ValueID)) {
                object.primaryKeys.push_back({*value, row->Seq, {}});
            } else {
                LeaveOut("object " + object.Name + ": its primary-key value " +
                         std::to_string(Number(row->ValueID)) + " is none of its values");
            }
        }
        for (const ForeignKeyRow* row : m_catalog.ForeignKeysOf(object.ObjectID))
            AddForeignKey(object, *row);
    }

    void AddForeignKey(ModelObject& object, const ForeignKeyRow& row) {
        const std::optional<ModelValueRef> value = ValueOf(object, row.ValueID);
        const std::optional<std::size_t> target = Find(m_objectIndex, row.FKObjectID);
        const std::optional<ModelValueRef> key =
            target ? ValueOf(m_result.objects[*target], row.FKValueID) : std::optional<ModelValueRef>();
        if (value && key) {
            object.foreignKeys.push_back({*value, *target, *key, row.FKObjectGUID, {}});
        } else {
            LeaveOut("object " + object.Name + ": its foreign key from value " +
                     std::to_string(Number(row.ValueID)) + " to object " +
                     std::to_string(Number(row.FKObjectID)) + ", value " +
                     std::to_string(Number(row.FKValueID)) + " leads nowhere");
        }
    }

    /// Where a value stands in the model, when it is one of the object's.
    std::optional<ModelValueRef> ValueOf(const ModelObject& object, ValueId valueID) const {
        const auto entry = m_valueRefs.find(valueID);
        if (entry == m_valueRefs.end()) return std::nullopt;
        const bool isOwn =
            std::ranges::find(object.interfaces, entry->second.interface) != object.interfaces.end();
        return isOwn ? std::optional(entry->second) : std::nullopt;
    }

    using ObjectIndex = std::unordered_map<ObjectId, std::size_t>;
    static std::optional<std::size_t> Find(const ObjectIndex& index, ObjectId id) {
        const auto entry = index.find(id);
        return entry == index.end() ? std::nullopt : std::optional(entry->second);
    }

    const Catalog& m_catalog;
    std::string_view m_storage;
    std::vector<const ObjectRow*> m_objects;
    ObjectIndex m_objectIndex;
    std::vector<InterfaceId> m_interfaceIDs;
    std::unordered_map<InterfaceId, std::size_t> m_interfaceIndex;
    std::unordered_map<ValueId, ModelValueRef> m_valueRefs;
    Model m_result;
};

}  // namespace

Model ExportModel(const Catalog& catalog, std::string_view storage) {
    return Exporter(catalog, storage).Export();
}

}  // namespace korvex::cli
