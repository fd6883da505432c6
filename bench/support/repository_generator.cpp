#include "support/repository_generator.h"

#include "platform/platform.h"

#include <string_view>

namespace korvex::bench {

namespace {

constexpr std::int64_t ChildrenPerObject = 4;

struct ValueKind {
    std::string_view name;
    int dataType;
    std::string_view maxLength;
    std::string_view defaultValue;
};
constexpr ValueKind PlainValues[] = {
    {"Name", 8, "80", ""},   {"Number", 3, "0", ""},        {"Price", 6, "0", "0"},
    {"Created", 7, "0", ""}, {"IsActive", 11, "0", "1"},    {"Notes", 8, "6000", ""},
    {"Weight", 5, "0", ""},  {"Category", 8, "30", "none"}, {"Priority", 2, "0", "5"},
    {"Picture", 9, "0", ""},
};

/// Adds rows to one table through a dynaset: Add({{"Column", value}, ...}).
class Table {
  public:
    Table(dao::Database& database, const std::string& name)
        : m_recordset(database.OpenRecordset("select * from " + name, dao::dbOpenDynaset)) {}

    void Add(std::initializer_list<std::pair<std::string_view, automation::Variant>> values) {
        m_recordset->AddNew();
        for (const auto& [column, value] : values) {
            m_recordset->Fields(column).Value(value);
        }
        m_recordset->Update();
    }

  private:
    std::unique_ptr<dao::Recordset> m_recordset;
};

class Generator {
  public:
    Generator(dao::Database& database, std::int64_t objects)
        : m_objectCount(objects),
          m_definitions(database, "tDataDefs"),
          m_objects(database, "tObjects"),
          m_interfaces(database, "tInterfaces"),
          m_objectInterfaces(database, "tObjectInterfaces"),
          m_values(database, "tValues") {}

    void Run() {
        m_definitions.Add({{"Storage", "Bench"}, {"RootObjectID", 1}});
        for (std::int64_t id = 1; id <= m_objectCount; ++id)
            AddObject(id);
    }

  private:
    void AddObject(std::int64_t id) {
        const std::string name = "Object" + std::to_string(id);
        const std::int64_t firstChild = (id - 1) * ChildrenPerObject + 2;
        const bool isCollection = id % 5 == 0 && firstChild <= m_objectCount;
        m_objects.Add({{"ObjectID", id},
                       {"Name", name},
                       {"CollectionObjectID", isCollection ? firstChild : 0},
                       {"IsIncluded", 0},
                       {"Guid", "{bench-" + std::to_string(id) + "}"}});
        m_interfaces.Add({{"InterfaceID", id}, {"Name", name}});
        m_objectInterfaces.Add({{"ObjectID", id}, {"InterfaceID", id}});
        std::int32_t vid = 1;
        for (const ValueKind& kind : PlainValues) {
            AddValue(id, 0, kind.name, kind, vid++);
        }
        for (std::int64_t child = firstChild + (isCollection ? 1 : 0);
             child < firstChild + ChildrenPerObject && child <= m_objectCount; ++child) {
            AddValue(id, child, "Child" + std::to_string(child), {"", 9, "0", ""}, vid++);
        }
    }

    void AddValue(std::int64_t interfaceId, std::int64_t child, std::string_view name, const ValueKind& kind,
                  std::int32_t vid) {
        m_values.Add({{"InterfaceID", interfaceId},
                      {"ChildObjectID", child},
                      {"Name", name},
                      {"DataType", kind.dataType},
                      {"MaxLength", kind.maxLength},
                      {"DefaultVal", kind.defaultValue},
                      {"IsAutoNumber", 0},
                      {"IsIncluded", 0},
                      {"VID", vid}});
    }

    std::int64_t m_objectCount;
    Table m_definitions;
    Table m_objects;
    Table m_interfaces;
    Table m_objectInterfaces;
    Table m_values;
};

}  // namespace

void GenerateRepository(dao::Database& database, std::int64_t objects, repository::SchemaEngine engine) {
    repository::CreateSchema(database, engine);
    const bool inTransaction = database.BeginTrans();
    Generator(database, objects).Run();
    if (inTransaction) database.CommitTrans();
}

void GenerateRepository(const std::string& file, std::int64_t objects) {
    const std::unique_ptr<dao::Database> database = DefaultPlatform().repositoryEngine->CreateDatabase(file);
    GenerateRepository(*database, objects, repository::SchemaEngine::Embedded);
    database->Close();
}

}  // namespace korvex::bench
