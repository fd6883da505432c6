#include "hosts/cli/model/model_store.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "hosts/cli/model/model_changes.h"
#include "hosts/cli/wording.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <string_view>
#include <unordered_map>

namespace korvex::cli {

namespace {

using automation::Error;
using automation::Variant;
using repository::ForeignKeyRow;
using repository::InterfaceId;
using repository::ObjectId;
using repository::PrimaryKeyRow;
using repository::RowId;
using repository::ValueId;

/// A value of a row with the member which it says.
struct Cell {
    std::string_view column;
    std::string_view member;
    Variant value;
};

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
    /// Adds a row to a table without identifiers.
    void Add(const ModelPlace& place, std::initializer_list<Cell> cells) {
        Begin(place);
        for (const auto& [column, member, value] : cells)
            if (!value.IsNull()) Put(column, member, value);
        Store();
    }
    /// Stores the row. A new one's identifier becomes `id`.
    template <RowId Id>
    void Store(Id& id) {
        const bool isNew = !m_edited;
        Store();
        if (!isNew) return;
        m_added->MoveLast();
        id = Id{automation::ToLong(m_added->Fields(m_id).Value())};
    }
    void Store() {
        Placed({}, [this] { Row().Update(); });
        if (m_edited) m_edited->Close();
        m_edited = nullptr;
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

/// What belongs to an object in other tables.
struct ObjectRows {
    std::vector<InterfaceId> interfaces;
    std::vector<PrimaryKeyRow> primaryKeys;
    std::vector<ForeignKeyRow> foreignKeys;
};

ObjectRows RowsOf(const Model& model, const ModelObject& object) {
    const auto valueID = [&](const ModelValueRef& ref) {
        return model.interfaces[ref.interface].values[ref.value].ValueID;
    };
    ObjectRows rows;
    for (const std::size_t interface : object.interfaces)
        rows.interfaces.push_back(model.interfaces[interface].InterfaceID);
    for (const ModelPrimaryKey& key : object.primaryKeys)
        rows.primaryKeys.push_back({object.ObjectID, valueID(key.value), key.seq});
    for (const ModelForeignKey& key : object.foreignKeys)
        rows.foreignKeys.push_back(
            {object.ObjectID, valueID(key.value), model.IdOf(key.object), valueID(key.key), key.guid});
    return rows;
}

class Store {
  public:
    Store(const Model& before, Model& after, dao::Database& database)
        : m_before(before),
          m_after(after),
          m_database(database),
          m_objects(before.objects, &ModelObject::ObjectID),
          m_interfaces(before.interfaces, &ModelInterface::InterfaceID) {}

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
    /// Values stand in the order of their identifiers, and new ones are the highest: what stands behind a new
    /// one, or is to stand behind one that it stood before, gets a new one, too.
    void KeepOrder() {
        for (ModelInterface& interface : m_after.interfaces) {
            ValueId last{};
            for (ModelValue& value : interface.values) {
                ValueId& id = value.ValueID;
                if (id < last) id = {};
                last = id == ValueId() ? ValueId{std::numeric_limits<std::int32_t>::max()} : id;
            }
        }
    }

    void WriteObjects() {
        TableWriter table(m_after, m_database, "tObjects", "ObjectID");
        for (ModelObject& object : m_after.objects) {
            const ModelObject* before = m_objects.Find(object.ObjectID);
            if (before != nullptr && Differences(*before, object).empty()) continue;
            table.Begin(object.place, object.ObjectID);
            table.Put("Name", "name", object.Name);
            if (before == nullptr) table.Put("CollectionObjectID", "element", std::int32_t{0});
            table.PutText("TableName", "table", object.TableName.value_or(""));
            table.Put("IsIncluded", "included", object.IsIncluded);
            table.PutText("Guid", "guid", object.Guid);
            table.Store(object.ObjectID);
        }
    }

    /// Elements may stand behind their collections, so their numbers are known only now.
    void WriteElements() {
        for (const ModelObject& object : m_after.objects) {
            const ObjectId element = m_after.IdOf(object.element);
            const ModelObject* before = m_objects.Find(object.ObjectID);
            if (element == (before == nullptr ? repository::NoObject : m_before.IdOf(before->element)))
                continue;
            m_database.Execute("update tObjects set CollectionObjectID = " + std::to_string(Number(element)) +
                               " where ObjectID = " + std::to_string(Number(object.ObjectID)));
        }
    }

    void WriteInterfaces() {
        TableWriter table(m_after, m_database, "tInterfaces", "InterfaceID");
        for (ModelInterface& interface : m_after.interfaces) {
            const ModelInterface* before = m_interfaces.Find(interface.InterfaceID);
            if (before != nullptr && before->Name == interface.Name) continue;
            table.Begin(interface.place, interface.InterfaceID);
            table.Put("Name", "name", interface.Name);
            table.Store(interface.InterfaceID);
        }
    }

    void WriteValues() {
        const std::vector<ModelValue> none;
        TableWriter table(m_after, m_database, "tValues", "ValueID");
        for (ModelInterface& interface : m_after.interfaces) {
            const ModelInterface* old = m_interfaces.Find(interface.InterfaceID);
            const EntryIndex before(old == nullptr ? none : old->values, &ModelValue::ValueID);
            for (ModelValue& value : interface.values) {
                const ModelValue* same = before.Find(value.ValueID);
                if (same != nullptr && IsSame(*same, value)) continue;
                table.Begin(value.place, value.ValueID);
                table.Put("InterfaceID", {}, interface.InterfaceID);
                PutMembers(table, value);
                table.Store(value.ValueID);
            }
        }
    }

    bool IsSame(const ModelValue& before, const ModelValue& now) const {
        return m_before.IdOf(before.child) == m_after.IdOf(now.child) && Differences(before, now).empty();
    }

    void PutMembers(TableWriter& table, const ModelValue& value) const {
        table.Put("ChildObjectID", "child", m_after.IdOf(value.child));
        table.Put("Name", "name", value.Name);
        table.PutText("FieldName", "field", value.FieldName.value_or(""));
        table.Put("DataType", "type", value.DataType);
        table.Put("MaxLength", "maxLength", value.MaxLength);
        table.Put("IsAutoNumber", "autoNumber", value.IsAutoNumber);
        table.PutText("DefaultVal", "default", value.DefaultVal);
        table.Put("IsIncluded", "included", value.IsIncluded);
        table.Put("IsReadOnly", "readOnly", value.IsReadOnly);
        table.PutText("Description", "description", value.Description);
        table.PutText("Caption", "caption", value.Caption);
        table.PutText("Translation", "translation", value.Translation);
        table.PutText("MaxValue", "maxValue", value.MaxValue);
        table.PutText("MinValue", "minValue", value.MinValue);
        table.Put("VID", "vid", value.VID);
        table.PutText("VIDTag1", "tags[0]", value.VIDTag1);
        table.PutText("VIDTag2", "tags[1]", value.VIDTag2);
        table.PutText("VIDTag3", "tags[2]", value.VIDTag3);
    }

    void WriteObjectRows() {
        TableWriter links(m_after, m_database, "tObjectInterfaces");
        TableWriter primary(m_after, m_database, "tPrimaryKeys");
        TableWriter foreign(m_after, m_database, "tForeignKeys");
        for (const ModelObject& object : m_after.objects) {
            const ModelObject* before = m_objects.Find(object.ObjectID);
            const ObjectRows old = before == nullptr ? ObjectRows() : RowsOf(m_before, *before);
            const ObjectRows now = RowsOf(m_after, object);
            if (Replaces(old.interfaces, now.interfaces, "tObjectInterfaces", object.ObjectID))
                for (const InterfaceId interface : now.interfaces)
                    links.Add(object.place, {{"ObjectID", "interfaces", Number(object.ObjectID)},
                                             {"InterfaceID", "interfaces", Number(interface)}});
            if (Replaces(old.primaryKeys, now.primaryKeys, "tPrimaryKeys", object.ObjectID))
                WritePrimaryKeys(primary, object, now.primaryKeys);
            if (Replaces(old.foreignKeys, now.foreignKeys, "tForeignKeys", object.ObjectID))
                WriteForeignKeys(foreign, object, now.foreignKeys);
        }
    }

    /// Whether the rows of an object are to be written; the old ones are gone then.
    template <class Rows>
    bool Replaces(const Rows& before, const Rows& now, std::string_view table, ObjectId objectID) const {
        if (before == now) return false;
        if (!before.empty()) Delete(table, "ObjectID", std::vector{objectID});
        return true;
    }

    static void WritePrimaryKeys(TableWriter& table, const ModelObject& object,
                                 const std::vector<PrimaryKeyRow>& rows) {
        for (std::size_t i = 0; i < rows.size(); ++i)
            table.Add(object.primaryKeys[i].place, {{"ObjectID", {}, Number(rows[i].ObjectID)},
                                                    {"ValueID", "value", Number(rows[i].ValueID)},
                                                    {"Seq", "seq", rows[i].Seq}});
    }

    static void WriteForeignKeys(TableWriter& table, const ModelObject& object,
                                 const std::vector<ForeignKeyRow>& rows) {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const std::string& guid = rows[i].FKObjectGUID;
            table.Add(object.foreignKeys[i].place,
                      {{"ObjectID", {}, Number(rows[i].ObjectID)},
                       {"ValueID", "value", Number(rows[i].ValueID)},
                       {"FKObjectID", "object", Number(rows[i].FKObjectID)},
                       {"FKValueID", "key", Number(rows[i].FKValueID)},
                       {"FKObjectGUID", "guid", guid.empty() ? Variant::Null() : Variant(guid)}});
        }
    }

    /// Rows of one storage name are told apart by nothing, so they are written anew where they differ.
    void WriteDefinitions() {
        const auto rootsOf = [](const Model& model) {
            std::unordered_map<std::string, std::vector<ObjectId>> roots;
            for (const ModelDefinition& definition : model.definitions)
                roots[definition.storage].push_back(model.IdOf(definition.root));
            return roots;
        };
        const auto before = rootsOf(m_before);
        const auto now = rootsOf(m_after);
        for (const auto& [storage, roots] : before) {
            const auto same = now.find(storage);
            if (same != now.end() && (roots == same->second || roots.size() == 1)) continue;
            m_database.Execute("delete from tDataDefs where Storage = " + InQuotes(storage, '\''));
        }
        TableWriter table(m_after, m_database, "tDataDefs");
        for (const ModelDefinition& definition : m_after.definitions) {
            const ObjectId root = m_after.IdOf(definition.root);
            const auto old = before.find(definition.storage);
            if (old != before.end() && old->second == now.at(definition.storage)) continue;
            if (old != before.end() && old->second.size() == 1) {
                m_database.Execute("update tDataDefs set RootObjectID = " + std::to_string(Number(root)) +
                                   " where Storage = " + InQuotes(definition.storage, '\''));
                continue;
            }
            table.Add(definition.place,
                      {{"Storage", "storage", definition.storage}, {"RootObjectID", "root", Number(root)}});
        }
    }

    void DeleteRest() const {
        const auto objects = Gone(IdsOf(m_before.objects, &ModelObject::ObjectID),
                                  IdsOf(m_after.objects, &ModelObject::ObjectID));
        for (const std::string_view table : {"tObjects", "tObjectInterfaces", "tPrimaryKeys", "tForeignKeys"})
            Delete(table, "ObjectID", objects);
        Delete("tForeignKeys", "FKObjectID", objects);
        Delete("tInterfaces", "InterfaceID",
               Gone(IdsOf(m_before.interfaces, &ModelInterface::InterfaceID),
                    IdsOf(m_after.interfaces, &ModelInterface::InterfaceID)));
        Delete("tValues", "ValueID", Gone(ValueIds(m_before), ValueIds(m_after)));
    }

    template <class Entry, class Row, RowId Id>
    static std::vector<Id> IdsOf(const std::vector<Entry>& entries, Id Row::*id) {
        std::vector<Id> ids;
        std::ranges::transform(entries, std::back_inserter(ids), id);
        return ids;
    }

    static std::vector<ValueId> ValueIds(const Model& model) {
        std::vector<ValueId> all;
        for (const ModelInterface& interface : model.interfaces)
            std::ranges::transform(interface.values, std::back_inserter(all), &ModelValue::ValueID);
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

    const Model& m_before;
    Model& m_after;
    dao::Database& m_database;
    EntryIndex<ModelObject, ObjectId> m_objects;           ///< of m_before
    EntryIndex<ModelInterface, InterfaceId> m_interfaces;  ///< likewise
};

}  // namespace

void StoreModel(const Model& before, Model& after, dao::Database& database) {
    Store(before, after, database).Run();
}

}  // namespace korvex::cli
