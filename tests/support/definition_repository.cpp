#include "support/definition_repository.h"

#include "automation/convert.h"
#include "automation/text.h"
#include "repository/schema.h"
#include "support/driver.h"

namespace korvex::tests {

namespace {

std::string Quoted(std::string_view text) {
    std::string quoted = "'";
    for (const char c : text) {
        quoted += c;
        if (c == '\'') quoted += c;
    }
    return quoted + "'";
}

std::vector<std::string> ReadRows(dao::Database& database, std::string_view sql,
                                  const std::vector<std::string>& columns) {
    std::vector<std::string> lines;
    const auto rows = database.OpenRecordset(sql, dao::dbOpenSnapshot);
    for (; !rows->Eof(); rows->MoveNext()) {
        std::string& line = lines.emplace_back();
        for (const std::string& column : columns) {
            const automation::Variant value = rows->Fields(column).Value();
            if (&column != &columns.front()) line += '|';
            line += value.IsNull() ? std::string("-") : automation::ToString(value);
        }
    }
    return lines;
}

}  // namespace

DefinitionRepository::DefinitionRepository(const Platform& platform, const std::string& path)
    : m_database(automation::ContainsIgnoreCase(path, "DSN=")
                     ? OpenAt(platform, path)
                     : platform.repositoryEngine->CreateDatabase(path)) {
    repository::CreateSchema(*m_database, repository::SchemaEngineOf(*m_database));
}

DefinitionRepository& DefinitionRepository::Definition(std::string_view storage, std::int32_t rootObjectID) {
    m_database->Execute("insert into tDataDefs (Storage, RootObjectID) values (" + Quoted(storage) + ", " +
                        std::to_string(rootObjectID) + ")");
    return *this;
}

DefinitionRepository& DefinitionRepository::Object(std::int32_t objectID, std::string_view name,
                                                   std::int32_t elementObjectID) {
    const std::string id = std::to_string(objectID);
    m_database->Execute(
        "insert into tObjects (ObjectID, Name, CollectionObjectID, IsIncluded, Guid) values (" + id + ", " +
        Quoted(name) + ", " + std::to_string(elementObjectID) + ", 0, '{" + id + "}')");
    m_database->Execute("insert into tInterfaces (InterfaceID, Name) values (" + id + ", " +
                        Quoted("I" + std::string(name)) + ")");
    m_database->Execute("insert into tObjectInterfaces (ObjectID, InterfaceID) values (" + id + ", " + id +
                        ")");
    return *this;
}

DefinitionRepository& DefinitionRepository::Value(std::int32_t objectID, std::string_view name,
                                                  std::int32_t dataType, std::string_view maxLength) {
    m_database->Execute(
        "insert into tValues (InterfaceID, ChildObjectID, Name, DataType, MaxLength, IsAutoNumber, "
        "IsIncluded, "
        "VID) values (" +
        std::to_string(objectID) + ", 0, " + Quoted(name) + ", " + std::to_string(dataType) + ", " +
        Quoted(maxLength) + ", 0, 0, " + std::to_string(++m_vid) + ")");
    return *this;
}

DefinitionRepository& DefinitionRepository::Child(std::int32_t objectID, std::string_view name,
                                                  std::int32_t childObjectID) {
    m_database->Execute(
        "insert into tValues (InterfaceID, ChildObjectID, Name, DataType, IsAutoNumber, IsIncluded, VID) "
        "values (" +
        std::to_string(objectID) + ", " + std::to_string(childObjectID) + ", " + Quoted(name) +
        ", 9, 0, 0, " + std::to_string(++m_vid) + ")");
    return *this;
}

std::vector<std::string> ReadRows(const Platform& platform, const std::string& path, std::string_view sql,
                                  const std::vector<std::string>& columns) {
    return ReadRows(*OpenAt(platform, path), sql, columns);
}

std::string DumpRepository(const Platform& platform, const std::string& path) {
    const auto database = OpenAt(platform, path);
    std::string dump;
    for (const repository::SchemaTable& table : repository::SchemaTables()) {
        const std::string name(table.name);
        std::vector<std::string> columns;
        for (const repository::SchemaColumn& column : table.columns) {
            columns.emplace_back(column.name);
        }
        for (const std::string& row :
             ReadRows(*database, "select * from " + name + " order by 1, 2", columns)) {
            dump += name + " " + row + "\n";
        }
    }
    return dump;
}

void Execute(const Platform& platform, const std::string& path, std::string_view sql) {
    OpenAt(platform, path)->Execute(sql);
}

}  // namespace korvex::tests
