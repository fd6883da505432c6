#include "repository/whole_tables.h"

#include "repository/transaction.h"

#include <algorithm>
#include <string>

namespace korvex::repository {

namespace {

std::string SelectAll(std::string_view table) { return "select * from " + std::string(table); }

std::vector<dao::Field*> FieldsOf(dao::Recordset& recordset, const dao::WholeTable& table) {
    std::vector<dao::Field*> fields;
    for (const std::string& column : table.columns)
        fields.push_back(&recordset.Fields(column));
    return fields;
}

void AddRows(dao::Database& database, const dao::WholeTable& table) {
    const auto recordset = database.OpenRecordset(SelectAll(table.name), dao::dbOpenDynaset);
    const std::vector<dao::Field*> fields = FieldsOf(*recordset, table);
    for (auto value = table.values.begin(); value != table.values.end();) {
        recordset->AddNew();
        for (dao::Field* field : fields)
            field->Value(*value++);
        recordset->Update();
    }
    recordset->Close();
}

std::vector<SchemaGap> GapsOf(std::span<const dao::WholeTable> tables) {
    std::vector<SchemaGap> gaps;
    for (const dao::WholeTable& wanted : EmptyTables()) {
        const auto table = std::ranges::find(tables, wanted.name, &dao::WholeTable::name);
        if (table == tables.end()) {
            gaps.push_back({wanted.name, {}});
            continue;
        }
        for (const std::string& column : wanted.columns)
            if (std::ranges::find(table->columns, column) == table->columns.end())
                gaps.push_back({wanted.name, column});
    }
    return gaps;
}

}  // namespace

std::vector<dao::WholeTable> EmptyTables() {
    std::vector<dao::WholeTable> tables;
    for (const SchemaTable& table : SchemaTables()) {
        dao::WholeTable& whole = tables.emplace_back();
        whole.name = table.name;
        for (const SchemaColumn& column : table.columns)
            whole.columns.emplace_back(column.name);
    }
    return tables;
}

std::vector<dao::WholeTable> ReadAll(dao::Database& database) {
    std::vector<dao::WholeTable> tables = EmptyTables();
    for (dao::WholeTable& table : tables) {
        const auto recordset = database.OpenRecordset(SelectAll(table.name), dao::dbOpenSnapshot);
        const std::vector<dao::Field*> fields = FieldsOf(*recordset, table);
        for (; !recordset->Eof(); recordset->MoveNext())
            for (dao::Field* field : fields)
                table.values.push_back(field->Value());
        recordset->Close();
    }
    return tables;
}

void AddRows(dao::Database& database, std::span<const dao::WholeTable> tables) {
    Transaction transaction(database);
    for (const dao::WholeTable& table : tables)
        AddRows(database, table);
    transaction.Commit();
}

std::unique_ptr<dao::Database> InMemory(dao::DBEngine& engine, std::span<const dao::WholeTable> tables,
                                        std::string_view name) {
    if (const std::vector<SchemaGap> gaps = GapsOf(tables); !gaps.empty()) RaiseGaps(gaps, name);
    auto database = engine.CreateDatabase("");
    CreateSchema(*database, SchemaEngine::Private);
    AddRows(*database, tables);
    return database;
}

}  // namespace korvex::repository
