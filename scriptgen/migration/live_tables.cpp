#include "scriptgen/migration/live_tables.h"

#include "automation/convert.h"
#include "automation/error.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace korvex::scriptgen {

using automation::Error;

namespace {

/// A question that an engine answers with a text that holds the mark.
struct Sign {
    const char* question;
    std::string_view mark;
    std::string_view engine;
};

constexpr Sign Signs[] = {
    {"select sqlite_version()", "", "sqlite"},         {"select version()", "MariaDB", "mariadb"},
    {"select version()", "PostgreSQL", "postgresql"},  {"select @@version", "SQL Server", "mssql"},
    {"select @@version", "Adaptive Server", "sybase"}, {"select banner from v$version", "Oracle", "oracle"},
};

bool Shows(ado::Connection& connection, const Sign& sign) {
    try {
        const std::vector<std::string> answer = ReadTexts(connection, sign.question);
        return !answer.empty() && answer.front().find(sign.mark) != std::string::npos;
    } catch (const Error&) {
        // Another engine, which does not know the question.
        return false;
    }
}

class LiveReader {
  public:
    explicit LiveReader(ado::Connection& connection) : m_connection(connection) {}

    std::vector<DescribedTable> Read(const EngineDialect& dialect) {
        const CatalogueQueries& queries = dialect.Facts().catalogue;
        ForEach(queries.columns, [&](DescribedTable& table, ado::Recordset& row) {
            Column& column = table.Columns.emplace_back();
            column.FieldName = Text(row, 1);
            column.TypeSize = dialect.TypeAsWritten(Text(row, 2));
            column.IsAutoNumber = automation::ToLong(row.Fields(3)->Value()) != 0;
            column.IsPrimaryKey = automation::ToLong(row.Fields(4)->Value()) != 0;
            column.DefaultVal = Text(row, 5);
            column.DefaultText = dialect.DefaultAsWritten(column.DefaultVal);
            if (column.IsPrimaryKey) table.PrimaryKey.push_back(column.FieldName);
        });
        ForEach(queries.indexes, [](DescribedTable& table, ado::Recordset& row) {
            const std::string name = Text(row, 1);
            if (table.Indexes.empty() || table.Indexes.back().Name != name)
                table.Indexes.push_back({name, {}});
            table.Indexes.back().Columns.push_back(Text(row, 2));
        });
        ForEach(queries.foreignKeys, [](DescribedTable& table, ado::Recordset& row) {
            ForeignKey& key = table.ForeignKeys.emplace_back();
            key.FieldName = Text(row, 1);
            key.Table = Text(row, 2);
            key.KeyField = Text(row, 3);
            key.Name = Text(row, 4);
            key.IsInRun = true;
        });
        ForEach(queries.triggers,
                [](DescribedTable& table, ado::Recordset& row) { table.Triggers.push_back(Text(row, 1)); });
        if (!queries.dependents.empty())
            ForEach(queries.dependents, [](DescribedTable& table, ado::Recordset& row) {
                table.Dependents.push_back({Text(row, 1), Text(row, 2)});
            });
        for (DescribedTable& table : m_tables)
            NameKeysReferredTo(table);
        return std::move(m_tables);
    }

  private:
    static std::string Text(ado::Recordset& row, std::int32_t column) {
        const automation::Variant value = row.Fields(column)->Value();
        return value.IsNull() ? std::string() : automation::ToString(value);
    }

    /// Triggers of views, for one, belong to no table.
    template <class Take>
    void ForEach(std::string_view query, Take take) {
        const bool areTables = m_tables.empty();
        const auto rows = m_connection.Execute(query);
        for (; !rows->Eof(); rows->MoveNext()) {
            const std::string name = Text(*rows, 0);
            const auto [position, isNew] = areTables ? m_positions.try_emplace(name, m_tables.size())
                                                     : std::pair(m_positions.find(name), false);
            if (position == m_positions.end()) continue;
            if (isNew) m_tables.emplace_back().Name = name;
            take(m_tables[position->second], *rows);
        }
        rows->Close();
    }

    void NameKeysReferredTo(DescribedTable& table) {
        for (ForeignKey& key : table.ForeignKeys) {
            const auto target = m_positions.find(key.Table);
            if (!key.KeyField.empty() || target == m_positions.end()) continue;
            const std::vector<std::string>& columns = m_tables[target->second].PrimaryKey;
            if (columns.size() == 1) key.KeyField = columns.front();
        }
    }

    ado::Connection& m_connection;
    std::vector<DescribedTable> m_tables;
    std::unordered_map<std::string, std::size_t> m_positions;  ///< of the tables, by name
};

}  // namespace

bool IsEmbedded(ado::Connection& connection) { return Shows(connection, Signs[0]); }

std::string EngineBehind(ado::Connection& connection) {
    for (const Sign& sign : Signs) {
        if (Shows(connection, sign)) return std::string(sign.engine);
    }
    throw Error(ado::adErrFeatureNotAvailable,
                "There is no dialect for the engine behind the connection: korvex script writes scripts that "
                "can be changed for it.");
}

std::vector<DescribedTable> ReadLiveTables(ado::Connection& connection, const EngineDialect& dialect) {
    return LiveReader(connection).Read(dialect);
}

std::vector<std::string> ReadTexts(ado::Connection& connection, const std::string& query) {
    std::vector<std::string> texts;
    const auto rows = connection.Execute(query);
    for (; !rows->Eof(); rows->MoveNext())
        texts.push_back(automation::ToString(rows->Fields(0)->Value()));
    rows->Close();
    return texts;
}

}  // namespace korvex::scriptgen
