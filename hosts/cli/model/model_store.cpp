#include "hosts/cli/model/model_store.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/model/model_changes.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace korvex::cli {

namespace {

using automation::Error;
using automation::Variant;
using repository::InterfaceId;
using repository::NoObject;
using repository::ObjectId;
using repository::RowId;
using repository::ValueId;

/// Writes rows of one table.
class TableWriter {
  public:
    TableWriter(const Model& model, dao::Database& database, std::string_view table, std::string_view id = {})
        : m_model(model), m_database(database), m_select("select * from " + std::string(table)), m_id(id) {}

    /// Begins a row, a new one unless it has an identifier. `place` is that of the entry which it says.
    void Begin(const ModelPlace& place, RowId auto id) { Begin(place, Number(id)); }
    void Begin(const ModelPlace& place, std::int32_t id = 0) {
        m_place = &place;
        if (id == 0) {
            if (!m_added) m_added = m_database.OpenRecordset(m_select, dao::dbOpenDynaset);
            m_added->AddNew();
            return;
        }
        m_edited = m_database.OpenRecordset(m_select + " where " + m_id + " = " + std::to_string(id),
                                            dao::dbOpenDynaset);
        m_edited->Edit();
    }
    /// `member` is the one which the column says, for the errors of its value.
    void Put(std::string_view column, std::string_view member, const Variant& value) {
        Placed(member, [&] { Row().Fields(column).Value(value); });
    }
    void Put(std::string_view column, std::string_view member, RowId auto id) {
        Put(column, member, Variant(Number(id)));
    }
    /// No text is Null.
    void PutText(std::string_view column, std::string_view member, const std::string& text) {
        if (!text.empty() || m_edited) Put(column, member, text.empty() ? Variant::Null() : Variant(text));
    }
    /// Stores the row; its identifier, where the table has them.
    std::int32_t Store() {
        Placed({}, [this] { Row().Update(); });
        if (m_edited) {
            m_edited->Close();
            m_edited = nullptr;
            return 0;
        }
        if (m_id.empty()) return 0;
        m_added->MoveLast();
        return automation::ToLong(m_added->Fields(m_id).Value());
    }

  private:
    dao::Recordset& Row() const { return m_edited ? *m_edited : *m_added; }

    template <class Action>
    void Placed(std::string_view member, Action&& action) const {
        try {
            action();
        } catch (const Error& error) {
            throw Error(error.Number(), PlaceText(m_model, *m_place, member) + error.Description(),
                        error.Source());
        }
    }

    const Model& m_model;
    dao::Database& m_database;
    std::string m_select;
    std::string m_id;
    std::unique_ptr<dao::Recordset> m_added;   ///< open for all new rows
    std::unique_ptr<dao::Recordset> m_edited;  ///< the row being changed
    const ModelPlace* m_place = nullptr;
};

template <RowId Id>
using Positions = std::unordered_map<Id, std::size_t>;

template <RowId Id>
Positions<Id> Index(const std::vector<Id>& ids) {
    Positions<Id> positions;
    for (std::size_t i = 0; i < ids.size(); ++i)
        positions.emplace(ids[i], i);
    return positions;
}

/// What belongs to an object in other tables, by identifiers.
struct ObjectRows {
    std::vector<InterfaceId> interfaces;
    std::vector<std::tuple<ValueId, std::int32_t>> primaryKeys;
    std::vector<std::tuple<ValueId, ObjectId, ValueId, std::string>> foreignKeys;
};

ValueId ValueID(const ModelIDs& ids, const ModelValueRef& ref) {
    return ids.values[ref.interface][ref.value];
}

ObjectRows RowsOf(const ModelObject& object, const ModelIDs& ids) {
    ObjectRows rows;
    for (const std::size_t interface : object.interfaces)
        rows.interfaces.push_back(ids.interfaces[interface]);
    for (const ModelPrimaryKey& key : object.primaryKeys)
        rows.primaryKeys.emplace_back(ValueID(ids, key.value), key.seq);
    for (const ModelForeignKey& key : object.foreignKeys)
        rows.foreignKeys.emplace_back(ValueID(ids, key.value), ids.objects[key.object], ValueID(ids, key.key),
                                      key.guid);
    return rows;
}

class Store {
  public:
    Store(const StoredModel& before, StoredModel& after, dao::Database& database)
        : m_before(before),
          m_after(after.model),
          m_ids(after.ids),
          m_database(database),
          m_objects(Index(before.ids.objects)),
          m_interfaces(Index(before.ids.interfaces)) {}

    void Run() {
        KeepOrder();
        WriteObjects();
        WriteElements();
        WriteInterfaces();
        WriteValues();
        WriteObjectRows();
        WriteDefinitions();
        DeleteRest();
    }

  private:
    const ModelObject* Before(ObjectId id) const {
        const auto found = m_objects.find(id);
        return found == m_objects.end() ? nullptr : &m_before.model.objects[found->second];
    }

    /// Values stand in the order of their identifiers, and new ones are the highest: what stands behind a new
    /// one, or is to stand behind one that it stood before, gets a new one, too.
    void KeepOrder() {
        for (std::vector<ValueId>& ids : m_ids.values) {
            ValueId last{};
            for (ValueId& id : ids) {
                if (id < last) id = {};
                last = id == ValueId() ? ValueId{std::numeric_limits<std::int32_t>::max()} : id;
            }
        }
    }

    void WriteObjects() {
        TableWriter table(m_after, m_database, "tObjects", "ObjectID");
        for (std::size_t i = 0; i < m_after.objects.size(); ++i) {
            const ModelObject& object = m_after.objects[i];
            const ModelObject* before = Before(m_ids.objects[i]);
            if (before != nullptr && Differences(*before, object).empty()) continue;
            table.Begin(object.place, m_ids.objects[i]);
            table.Put("Name", "name", object.name);
            if (before == nullptr) table.Put("CollectionObjectID", "element", std::int32_t{0});
            table.PutText("TableName", "table", object.tableName.value_or(""));
            table.Put("IsIncluded", "included", object.isIncluded);
            table.PutText("Guid", "guid", object.guid);
            const ObjectId id{table.Store()};
            if (before == nullptr) m_ids.objects[i] = id;
        }
    }

    /// Elements may stand behind their collections, so their numbers are known only now.
    void WriteElements() {
        for (std::size_t i = 0; i < m_after.objects.size(); ++i) {
            const auto& element = m_after.objects[i].element;
            const ObjectId id = element ? m_ids.objects[*element] : NoObject;
            const ModelObject* before = Before(m_ids.objects[i]);
            const ObjectId old =
                before != nullptr && before->element ? m_before.ids.objects[*before->element] : NoObject;
            if (id == old) continue;
            m_database.Execute("update tObjects set CollectionObjectID = " + std::to_string(Number(id)) +
                               " where ObjectID = " + std::to_string(Number(m_ids.objects[i])));
        }
    }

    void WriteInterfaces() {
        TableWriter table(m_after, m_database, "tInterfaces", "InterfaceID");
        for (std::size_t i = 0; i < m_after.interfaces.size(); ++i) {
            const ModelInterface& interface = m_after.interfaces[i];
            const auto before = m_interfaces.find(m_ids.interfaces[i]);
            const bool isNew = before == m_interfaces.end();
            if (!isNew && m_before.model.interfaces[before->second].name == interface.name) continue;
            table.Begin(interface.place, m_ids.interfaces[i]);
            table.Put("Name", "name", interface.name);
            const InterfaceId id{table.Store()};
            if (isNew) m_ids.interfaces[i] = id;
        }
    }

    void WriteValues() {
        TableWriter table(m_after, m_database, "tValues", "ValueID");
        for (std::size_t i = 0; i < m_after.interfaces.size(); ++i) {
            const auto interface = m_interfaces.find(m_ids.interfaces[i]);
            const bool isNew = interface == m_interfaces.end();
            const auto before = isNew ? Positions<ValueId>() : Index(m_before.ids.values[interface->second]);
            for (std::size_t j = 0; j < m_after.interfaces[i].values.size(); ++j) {
                const ModelValue& value = m_after.interfaces[i].values[j];
                ValueId& id = m_ids.values[i][j];
                const auto old = before.find(id);
                if (old != before.end() &&
                    IsSame(m_before.model.interfaces[interface->second].values[old->second], value))
                    continue;
                const ValueId given = WriteValue(table, value, m_ids.interfaces[i], id);
                if (old == before.end()) id = given;
            }
        }
    }

    bool IsSame(const ModelValue& before, const ModelValue& now) const {
        const ObjectId child = before.child ? m_before.ids.objects[*before.child] : NoObject;
        return child == ChildID(now) && Differences(before, now).empty();
    }

    ObjectId ChildID(const ModelValue& value) const {
        return value.child ? m_ids.objects[*value.child] : NoObject;
    }

    ValueId WriteValue(TableWriter& table, const ModelValue& value, InterfaceId interfaceID,
                       ValueId id) const {
        table.Begin(value.place, id);
        table.Put("InterfaceID", {}, interfaceID);
        table.Put("ChildObjectID", "child", ChildID(value));
        table.Put("Name", "name", value.name);
        table.PutText("FieldName", "field", value.fieldName.value_or(""));
        table.Put("DataType", "type", value.dataType);
        table.Put("MaxLength", "maxLength", value.maxLength);
        table.Put("IsAutoNumber", "autoNumber", value.isAutoNumber);
        table.PutText("DefaultVal", "default", value.defaultVal);
        table.Put("IsIncluded", "included", value.isIncluded);
        table.Put("IsReadOnly", "readOnly", value.isReadOnly);
        table.PutText("Description", "description", value.description);
        table.PutText("Caption", "caption", value.caption);
        table.PutText("Translation", "translation", value.translation);
        table.PutText("MaxValue", "maxValue", value.maxValue);
        table.PutText("MinValue", "minValue", value.minValue);
        table.Put("VID", "vid", value.vid.value_or(0));
        table.PutText("VIDTag1", "tags[0]", value.tags[0]);
        table.PutText("VIDTag2", "tags[1]", value.tags[1]);
        table.PutText("VIDTag3", "tags[2]", value.tags[2]);
        return ValueId{table.Store()};
    }

    void WriteObjectRows() {
        TableWriter links(m_after, m_database, "tObjectInterfaces");
        TableWriter primary(m_after, m_database, "tPrimaryKeys");
        TableWriter foreign(m_after, m_database, "tForeignKeys");
        for (std::size_t i = 0; i < m_after.objects.size(); ++i) {
            const ModelObject& object = m_after.objects[i];
            const ObjectId id = m_ids.objects[i];
            const ModelObject* before = Before(id);
            const ObjectRows old = before == nullptr ? ObjectRows() : RowsOf(*before, m_before.ids);
            const ObjectRows now = RowsOf(object, m_ids);
            if (Replaces(old.interfaces, now.interfaces, "tObjectInterfaces", id))
                WriteLinks(links, object, id);
            if (Replaces(old.primaryKeys, now.primaryKeys, "tPrimaryKeys", id))
                WritePrimaryKeys(primary, object, id);
            if (Replaces(old.foreignKeys, now.foreignKeys, "tForeignKeys", id))
                WriteForeignKeys(foreign, object, id);
        }
    }

    /// Whether the rows of an object are to be written; the old ones are gone then.
    template <class Rows>
    bool Replaces(const Rows& before, const Rows& now, std::string_view table, ObjectId objectID) const {
        if (before == now) return false;
        if (!before.empty()) Delete(table, "ObjectID", std::vector{objectID});
        return true;
    }

    void WriteLinks(TableWriter& table, const ModelObject& object, ObjectId id) const {
        for (const std::size_t interface : object.interfaces) {
            table.Begin(object.place);
            table.Put("ObjectID", "interfaces", id);
            table.Put("InterfaceID", "interfaces", m_ids.interfaces[interface]);
            table.Store();
        }
    }

    void WritePrimaryKeys(TableWriter& table, const ModelObject& object, ObjectId id) const {
        for (const ModelPrimaryKey& key : object.primaryKeys) {
            table.Begin(key.place);
            table.Put("ObjectID", {}, id);
            table.Put("ValueID", "value", ValueID(m_ids, key.value));
            table.Put("Seq", "seq", key.seq);
            table.Store();
        }
    }

    void WriteForeignKeys(TableWriter& table, const ModelObject& object, ObjectId id) const {
        for (const ModelForeignKey& key : object.foreignKeys) {
            table.Begin(key.place);
            table.Put("ObjectID", {}, id);
            table.Put("ValueID", "value", ValueID(m_ids, key.value));
            table.Put("FKObjectID", "object", m_ids.objects[key.object]);
            table.Put("FKValueID", "key", ValueID(m_ids, key.key));
            table.PutText("FKObjectGUID", "guid", key.guid);
            table.Store();
        }
    }

    /// Rows of one storage name are told apart by nothing, so they are written anew where they differ.
    void WriteDefinitions() {
        const auto rootsOf = [](const Model& model, const ModelIDs& ids) {
            std::unordered_map<std::string, std::vector<ObjectId>> roots;
            for (const ModelDefinition& definition : model.definitions)
                roots[definition.storage].push_back(ids.objects[definition.root]);
            return roots;
        };
        const auto before = rootsOf(m_before.model, m_before.ids);
        const auto now = rootsOf(m_after, m_ids);
        for (const auto& [storage, roots] : before) {
            const auto same = now.find(storage);
            if (same != now.end() && (roots == same->second || roots.size() == 1)) continue;
            m_database.Execute("delete from tDataDefs where Storage = " + Literal(storage));
        }
        TableWriter table(m_after, m_database, "tDataDefs");
        for (const ModelDefinition& definition : m_after.definitions) {
            const ObjectId root = m_ids.objects[definition.root];
            const auto old = before.find(definition.storage);
            if (old != before.end() && old->second == now.at(definition.storage)) continue;
            if (old != before.end() && old->second.size() == 1) {
                m_database.Execute("update tDataDefs set RootObjectID = " + std::to_string(Number(root)) +
                                   " where Storage = " + Literal(definition.storage));
                continue;
            }
            table.Begin(definition.place);
            table.Put("Storage", "storage", definition.storage);
            table.Put("RootObjectID", "root", root);
            table.Store();
        }
    }

    static std::string Literal(const std::string& text) {
        std::string literal = "'";
        for (const char c : text)
            literal.append(c == '\'' ? 2 : 1, c);
        return literal + "'";
    }

    void DeleteRest() const {
        const std::vector<ObjectId> objects = Gone(m_before.ids.objects, m_ids.objects);
        for (const std::string_view table : {"tObjects", "tObjectInterfaces", "tPrimaryKeys", "tForeignKeys"})
            Delete(table, "ObjectID", objects);
        Delete("tForeignKeys", "FKObjectID", objects);
        Delete("tInterfaces", "InterfaceID", Gone(m_before.ids.interfaces, m_ids.interfaces));
        Delete("tValues", "ValueID", Gone(Flat(m_before.ids.values), Flat(m_ids.values)));
    }

    static std::vector<ValueId> Flat(const std::vector<std::vector<ValueId>>& lists) {
        std::vector<ValueId> all;
        for (const std::vector<ValueId>& list : lists)
            all.insert(all.end(), list.begin(), list.end());
        return all;
    }

    template <RowId Id>
    static std::vector<Id> Gone(std::vector<Id> before, std::vector<Id> now) {
        std::ranges::sort(before);
        std::ranges::sort(now);
        std::vector<Id> gone;
        std::ranges::set_difference(before, now, std::back_inserter(gone));
        return gone;
    }

    template <RowId Id>
    void Delete(std::string_view table, std::string_view column, const std::vector<Id>& ids) const {
        constexpr std::size_t most = 500;  // of one statement
        for (std::size_t i = 0; i < ids.size(); i += most) {
            std::string list;
            for (std::size_t j = i; j < std::min(i + most, ids.size()); ++j)
                list += (list.empty() ? "" : ", ") + std::to_string(Number(ids[j]));
            m_database.Execute("delete from " + std::string(table) + " where " + std::string(column) +
                               " in (" + list + ")");
        }
    }

    const StoredModel& m_before;
    const Model& m_after;
    ModelIDs& m_ids;
    dao::Database& m_database;
    Positions<ObjectId> m_objects;        ///< of m_before
    Positions<InterfaceId> m_interfaces;  ///< likewise
};

}  // namespace

void StoreModel(const StoredModel& before, StoredModel& after, dao::Database& database) {
    Store(before, after, database).Run();
}

}  // namespace korvex::cli
