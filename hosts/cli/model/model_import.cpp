#include "hosts/cli/model/model_import.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "repository/catalog.h"

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
                    "The repository already has a definition with the storage name " +
                        automation::Quoted(definition.storage) + "; nothing was imported.");
    }
    std::unordered_map<std::string_view, const repository::ObjectRow*> guids;
    for (const repository::ObjectRow& row : catalog.Objects())
        guids.emplace(row.Guid, &row);
    for (const ModelObject& object : model.objects) {
        const auto same = object.guid.empty() ? guids.end() : guids.find(object.guid);
        if (same == guids.end()) continue;
        throw Error(automation::InvalidProcedureCall, "Object " + object.name + ": the repository's object " +
                                                          same->second->Name + " already has the guid " +
                                                          object.guid + "; nothing was imported.");
    }
}

/// Adds rows to one table.
class TableWriter {
  public:
    TableWriter(dao::Database& database, std::string_view table)
        : m_recordset(database.OpenRecordset("select * from " + std::string(table), dao::dbOpenDynaset)) {}

    /// `item` says where in the model the row comes from, for the errors of its values.
    void Add(std::string item) {
        m_item = std::move(item);
        m_recordset->AddNew();
    }
    void Put(std::string_view column, const Variant& value) {
        Named([&] { m_recordset->Fields(column).Value(value); });
    }
    void PutText(std::string_view column, const std::string& text) {
        if (!text.empty()) Put(column, text);
    }
    void Store() {
        Named([this] { m_recordset->Update(); });
    }

    /// The number that the engine gave the row stored last.
    std::int32_t StoredID(std::string_view column) {
        m_recordset->MoveLast();
        return automation::ToLong(m_recordset->Fields(column).Value());
    }

  private:
    template <class Action>
    void Named(Action&& action) const {
        try {
            action();
        } catch (const Error& error) {
            throw Error(error.Number(), m_item + ": " + error.Description(), error.Source());
        }
    }

    std::unique_ptr<dao::Recordset> m_recordset;
    std::string m_item;
};

class Importer {
  public:
    Importer(const Model& model, dao::Database& database) : m_model(model), m_database(database) {}

    void Import() {
        AddObjects();
        SetElements();
        AddInterfaces();
        AddValues();
        AddKeys();
        TableWriter table(m_database, "tDataDefs");
        for (const ModelDefinition& definition : m_model.definitions) {
            table.Add("definition " + automation::Quoted(definition.storage));
            table.Put("Storage", definition.storage);
            table.Put("RootObjectID", m_objectIDs[definition.root]);
            table.Store();
        }
    }

  private:
    void AddObjects() {
        TableWriter table(m_database, "tObjects");
        for (const ModelObject& object : m_model.objects) {
            table.Add("object " + automation::Quoted(object.name));
            table.Put("Name", object.name);
            table.Put("CollectionObjectID", std::int32_t{0});
            if (object.tableName) table.Put("TableName", *object.tableName);
            table.Put("IsIncluded", object.isIncluded);
            table.PutText("Guid", object.guid);
            table.Store();
            m_objectIDs.push_back(table.StoredID("ObjectID"));
        }
    }

    /// Elements may stand behind their collections, so their numbers are known only now.
    void SetElements() {
        for (std::size_t i = 0; i < m_model.objects.size(); ++i) {
            const std::optional<std::size_t> element = m_model.objects[i].element;
            if (!element) continue;
            m_database.Execute(
                "update tObjects set CollectionObjectID = " + std::to_string(m_objectIDs[*element]) +
                " where ObjectID = " + std::to_string(m_objectIDs[i]));
        }
    }

    void AddInterfaces() {
        TableWriter table(m_database, "tInterfaces");
        for (const ModelInterface& interface : m_model.interfaces) {
            table.Add("interface " + automation::Quoted(interface.name));
            table.Put("Name", interface.name);
            table.Store();
            m_interfaceIDs.push_back(table.StoredID("InterfaceID"));
        }
        TableWriter links(m_database, "tObjectInterfaces");
        for (std::size_t i = 0; i < m_model.objects.size(); ++i) {
            for (const std::size_t interface : m_model.objects[i].interfaces) {
                links.Add("object " + automation::Quoted(m_model.objects[i].name));
                links.Put("ObjectID", m_objectIDs[i]);
                links.Put("InterfaceID", m_interfaceIDs[interface]);
                links.Store();
            }
        }
    }

    void AddValues() {
        TableWriter table(m_database, "tValues");
        m_valueIDs.resize(m_model.interfaces.size());
        for (std::size_t i = 0; i < m_model.interfaces.size(); ++i) {
            for (const ModelValue& value : m_model.interfaces[i].values) {
                AddValue(table, value, i);
                m_valueIDs[i].push_back(table.StoredID("ValueID"));
            }
        }
    }

    void AddValue(TableWriter& table, const ModelValue& value, std::size_t interface) {
        table.Add("value " + automation::Quoted(value.name) + " of interface " +
                  automation::Quoted(m_model.interfaces[interface].name));
        table.Put("InterfaceID", m_interfaceIDs[interface]);
        table.Put("ChildObjectID", value.child ? m_objectIDs[*value.child] : std::int32_t{0});
        table.Put("Name", value.name);
        if (value.fieldName) table.Put("FieldName", *value.fieldName);
        table.Put("DataType", value.dataType);
        table.Put("MaxLength", value.maxLength);
        table.Put("IsAutoNumber", value.isAutoNumber);
        table.PutText("DefaultVal", value.defaultVal);
        table.Put("IsIncluded", value.isIncluded);
        table.Put("IsReadOnly", value.isReadOnly);
        table.PutText("Description", value.description);
        table.PutText("Caption", value.caption);
        table.PutText("Translation", value.translation);
        table.PutText("MaxValue", value.maxValue);
        table.PutText("MinValue", value.minValue);
        table.Put("VID", value.vid);
        table.PutText("VIDTag1", value.tags[0]);
        table.PutText("VIDTag2", value.tags[1]);
        table.PutText("VIDTag3", value.tags[2]);
        table.Store();
    }

    void AddKeys() {
        TableWriter primary(m_database, "tPrimaryKeys");
        TableWriter foreign(m_database, "tForeignKeys");
        for (std::size_t i = 0; i < m_model.objects.size(); ++i) {
            for (const ModelPrimaryKey& key : m_model.objects[i].primaryKeys) {
                primary.Add("primary key of object " + automation::Quoted(m_model.objects[i].name));
                primary.Put("ObjectID", m_objectIDs[i]);
                primary.Put("ValueID", ValueID(key.value));
                primary.Put("Seq", key.seq);
                primary.Store();
            }
            for (const ModelForeignKey& key : m_model.objects[i].foreignKeys) {
                foreign.Add("foreign key of object " + automation::Quoted(m_model.objects[i].name));
                foreign.Put("ObjectID", m_objectIDs[i]);
                foreign.Put("ValueID", ValueID(key.value));
                foreign.Put("FKObjectID", m_objectIDs[key.object]);
                foreign.Put("FKValueID", ValueID(key.key));
                foreign.PutText("FKObjectGUID", key.guid);
                foreign.Store();
            }
        }
    }

    std::int32_t ValueID(const ModelValueRef& ref) const { return m_valueIDs[ref.interface][ref.value]; }

    const Model& m_model;
    dao::Database& m_database;
    std::vector<std::int32_t> m_objectIDs;              ///< by position in the model
    std::vector<std::int32_t> m_interfaceIDs;           ///< likewise
    std::vector<std::vector<std::int32_t>> m_valueIDs;  ///< by interface and position
};

}  // namespace

void ImportModel(const Model& model, dao::Database& database) {
    RefuseClashes(model, database);
    const bool inTransaction = database.BeginTrans();
    try {
        Importer(model, database).Import();
        if (inTransaction) database.CommitTrans();
    } catch (...) {
        if (inTransaction) database.Rollback();
        throw;
    }
}

}  // namespace korvex::cli
