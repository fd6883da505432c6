#include "hosts/cli/model/model_import.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "repository/catalog.h"
#include "repository/key_values.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace korvex::cli {

namespace {

using automation::Error;
using automation::Variant;

void RefuseClashes(const Model& model, dao::Database& database) {
    const repository::Catalog catalog = repository::Catalog::Read(database);
    std::unordered_set<std::string_view> storages;
    for (const repository::DataDefRow& row : catalog.DataDefs())
        storages.insert(row.Storage);
    for (const ModelDefinition& definition : model.definitions) {
        if (!storages.contains(definition.storage)) continue;
        throw Error(automation::InvalidProcedureCall,
                    PlaceText(model, definition.place, "storage") +
                        "the repository already has a definition with the storage name " +
                        automation::Quoted(definition.storage) + "; nothing was imported.");
    }
    std::unordered_map<std::string_view, const repository::ObjectRow*> guids;
    for (const repository::ObjectRow& row : catalog.Objects())
        guids.emplace(row.Guid, &row);
    for (const ModelObject& object : model.objects) {
        const auto same = object.guid.empty() ? guids.end() : guids.find(object.guid);
        if (same == guids.end()) continue;
        throw Error(automation::InvalidProcedureCall,
                    PlaceText(model, object.place, "guid") + "the repository's object " +
                        automation::Quoted(same->second->Name) + " already has the guid " + object.guid +
                        "; nothing was imported.");
    }
}

/// Gives the values of an interface that have no number the next free ones, behind the highest one that is
/// not a key's.
class VidNumbering {
  public:
    explicit VidNumbering(const ModelInterface& interface) {
        for (const ModelValue& value : interface.values) {
            if (!value.vid) continue;
            m_taken.insert(*value.vid);
            if (*value.vid <= repository::LowestKeyVid) m_last = std::max(m_last, *value.vid);
        }
    }

    std::int32_t Of(const ModelValue& value) {
        if (value.vid) return *value.vid;
        do {
            ++m_last;
        } while (repository::IsKeyVid(m_last) || !m_taken.insert(m_last).second);
        return m_last;
    }

  private:
    std::int32_t m_last = 0;
    std::unordered_set<std::int32_t> m_taken;
};

/// Adds rows to one table.
class TableWriter {
  public:
    TableWriter(const Model& model, dao::Database& database, std::string_view table)
        : m_model(model),
          m_recordset(database.OpenRecordset("select * from " + std::string(table), dao::dbOpenDynaset)) {}

    /// `place` is that of the entry which the row says.
    void Add(const ModelPlace& place) {
        m_place = &place;
        m_recordset->AddNew();
    }
    /// `member` is the one which the column says, for the errors of its value.
    void Put(std::string_view column, std::string_view member, const Variant& value) {
        Placed(member, [&] { m_recordset->Fields(column).Value(value); });
    }
    void PutText(std::string_view column, std::string_view member, const std::string& text) {
        if (!text.empty()) Put(column, member, text);
    }
    void Store() {
        Placed({}, [this] { m_recordset->Update(); });
    }

    /// The number that the engine gave the row stored last.
    std::int32_t StoredID(std::string_view column) {
        m_recordset->MoveLast();
        return automation::ToLong(m_recordset->Fields(column).Value());
    }

  private:
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
    std::unique_ptr<dao::Recordset> m_recordset;
    const ModelPlace* m_place = nullptr;
};

class Importer {
  public:
    Importer(const Model& model, dao::Database& database) : m_model(model), m_database(database) {}

    ImportedIDs Import() {
        AddObjects();
        SetElements();
        AddInterfaces();
        AddValues();
        AddKeys();
        TableWriter table(m_model, m_database, "tDataDefs");
        for (const ModelDefinition& definition : m_model.definitions) {
            table.Add(definition.place);
            table.Put("Storage", "storage", definition.storage);
            table.Put("RootObjectID", "root", m_ids.objects[definition.root]);
            table.Store();
        }
        return std::move(m_ids);
    }

  private:
    void AddObjects() {
        TableWriter table(m_model, m_database, "tObjects");
        for (const ModelObject& object : m_model.objects) {
            table.Add(object.place);
            table.Put("Name", "name", object.name);
            table.Put("CollectionObjectID", "element", std::int32_t{0});
            if (object.tableName) table.Put("TableName", "table", *object.tableName);
            table.Put("IsIncluded", "included", object.isIncluded);
            table.PutText("Guid", "guid", object.guid);
            table.Store();
            m_ids.objects.push_back(table.StoredID("ObjectID"));
        }
    }

    /// Elements may stand behind their collections, so their numbers are known only now.
    void SetElements() {
        for (std::size_t i = 0; i < m_model.objects.size(); ++i) {
            const std::optional<std::size_t> element = m_model.objects[i].element;
            if (!element) continue;
            m_database.Execute(
                "update tObjects set CollectionObjectID = " + std::to_string(m_ids.objects[*element]) +
                " where ObjectID = " + std::to_string(m_ids.objects[i]));
        }
    }

    void AddInterfaces() {
        TableWriter table(m_model, m_database, "tInterfaces");
        for (const ModelInterface& interface : m_model.interfaces) {
            table.Add(interface.place);
            table.Put("Name", "name", interface.name);
            table.Store();
            m_ids.interfaces.push_back(table.StoredID("InterfaceID"));
        }
        TableWriter links(m_model, m_database, "tObjectInterfaces");
        for (std::size_t i = 0; i < m_model.objects.size(); ++i) {
            for (const std::size_t interface : m_model.objects[i].interfaces) {
                links.Add(m_model.objects[i].place);
                links.Put("ObjectID", "interfaces", m_ids.objects[i]);
                links.Put("InterfaceID", "interfaces", m_ids.interfaces[interface]);
                links.Store();
            }
        }
    }

    void AddValues() {
        TableWriter table(m_model, m_database, "tValues");
        m_ids.values.resize(m_model.interfaces.size());
        for (std::size_t i = 0; i < m_model.interfaces.size(); ++i) {
            VidNumbering numbers(m_model.interfaces[i]);
            for (const ModelValue& value : m_model.interfaces[i].values) {
                AddValue(table, value, numbers.Of(value), i);
                m_ids.values[i].push_back(table.StoredID("ValueID"));
            }
        }
    }

    void AddValue(TableWriter& table, const ModelValue& value, std::int32_t vid, std::size_t interface) {
        table.Add(value.place);
        table.Put("InterfaceID", {}, m_ids.interfaces[interface]);
        table.Put("ChildObjectID", "child", value.child ? m_ids.objects[*value.child] : std::int32_t{0});
        table.Put("Name", "name", value.name);
        if (value.fieldName) table.Put("FieldName", "field", *value.fieldName);
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
        table.Put("VID", "vid", vid);
        table.PutText("VIDTag1", "tags[0]", value.tags[0]);
        table.PutText("VIDTag2", "tags[1]", value.tags[1]);
        table.PutText("VIDTag3", "tags[2]", value.tags[2]);
        table.Store();
    }

    void AddKeys() {
        TableWriter primary(m_model, m_database, "tPrimaryKeys");
        TableWriter foreign(m_model, m_database, "tForeignKeys");
        for (std::size_t i = 0; i < m_model.objects.size(); ++i) {
            for (const ModelPrimaryKey& key : m_model.objects[i].primaryKeys) {
                primary.Add(key.place);
                primary.Put("ObjectID", {}, m_ids.objects[i]);
                primary.Put("ValueID", "value", ValueID(key.value));
                primary.Put("Seq", "seq", key.seq);
                primary.Store();
            }
            for (const ModelForeignKey& key : m_model.objects[i].foreignKeys) {
                foreign.Add(key.place);
                foreign.Put("ObjectID", {}, m_ids.objects[i]);
                foreign.Put("ValueID", "value", ValueID(key.value));
                foreign.Put("FKObjectID", "object", m_ids.objects[key.object]);
                foreign.Put("FKValueID", "key", ValueID(key.key));
                foreign.PutText("FKObjectGUID", "guid", key.guid);
                foreign.Store();
            }
        }
    }

    std::int32_t ValueID(const ModelValueRef& ref) const { return m_ids.values[ref.interface][ref.value]; }

    const Model& m_model;
    dao::Database& m_database;
    ImportedIDs m_ids;
};

}  // namespace

ImportedIDs ImportModel(const Model& model, dao::Database& database) {
    RefuseClashes(model, database);
    const bool inTransaction = database.BeginTrans();
    try {
        ImportedIDs ids = Importer(model, database).Import();
        if (inTransaction) database.CommitTrans();
        return ids;
    } catch (...) {
        if (inTransaction) database.Rollback();
        throw;
    }
}

}  // namespace korvex::cli
