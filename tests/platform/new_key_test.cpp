#include "platform/native/sql/odbc/odbc_dialect.h"
#include "platform/native/sql/write_plan.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace korvex::native::sql {
namespace {

/// How each engine is asked for the key that it gave to a new row, by the name under which its driver reports
/// it.
TEST(NewKey, IsAskedForInTheEnginesOwnWay) {
    const std::string insert = "INSERT INTO \"dbo\".\"Orders\" (\"Note\") VALUES (?)";
    const struct {
        std::string engine;
        std::string insertText;
        std::string query;
    } cases[] = {
        {"SQLite", insert, "SELECT last_insert_rowid()"},
        {"MariaDB", insert + " RETURNING \"OrderID\"", ""},
        {"PostgreSQL", insert + " RETURNING \"OrderID\"", ""},
        {"Microsoft SQL Server", insert + "\nSELECT SCOPE_IDENTITY()", "SELECT SCOPE_IDENTITY()"},
        {"Adaptive Server Enterprise", insert + "\nSELECT @@IDENTITY", "SELECT @@IDENTITY"},
        {"SQL Server", insert + "\nSELECT @@IDENTITY", "SELECT @@IDENTITY"},
        {"Oracle", insert, "SELECT \"dbo\".\"SEQ_Orders\".CURRVAL FROM DUAL"},
        {"Some other engine", insert, ""},
    };
    std::vector<ColumnInfo> columns;
    auto table = std::make_shared<TableInfo>();
    table->name = {.catalog = "", .schema = "dbo", .table = "Orders"};
    for (const char* name : {"OrderID", "Note"}) {
        ColumnInfo column;
        column.name = column.baseColumn = name;
        column.base = table->name;
        columns.push_back(column);
        TableColumn& stored = table->columns.emplace_back();
        stored.name = name;
        stored.key = stored.autoNumber = column.name == "OrderID";
    }
    const auto shape = std::make_shared<RowShape>(std::move(columns));
    for (const auto& c : cases) {
        SCOPED_TRACE(c.engine);
        const OdbcDialect dialect = DialectOf(c.engine);
        const WritePlan plan(dialect.traits, shape, table);
        const std::size_t note[] = {1};
        EXPECT_EQ(plan.InsertText(note), c.insertText);
        EXPECT_EQ(plan.NewKeyQuery(), c.query);
    }
}

}  // namespace
}  // namespace korvex::native::sql
