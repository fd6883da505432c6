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
    LiveReader(ado::Connection& connection, const EngineDialect& dialect)
        : m_connection(connection), m_dialect(dialect) {}

    std::vector<DescribedTable> Read() {
        const CatalogueQueries& queries = m_dialect.Facts().catalogue;
        ForEach(queries.columns, [this](DescribedTable& table, ado::Recordset& row) {
            Column& column = table.Columns.emplace_back();
            column.FieldName = Text(row, 1);
            column.TypeSize = m_dialect.TypeAsWritten(Text(row, 2));
            column.IsAutoNumber = automation::ToLong(row.Fields(3)->Value()) != 0;
            column.IsPrimaryKey = automation::ToLong(row.Fields(4)->Value()) != 0;
            column.DefaultVal = Text(row, 5);
            column.DefaultText = m_dialect.DefaultAsWritten(column.DefaultVal);
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
            if (areTables && m_positions.try_emplace(name, m_tables.size()).second) AddTable(name);
            if (DescribedTable* table = Find(name)) take(*table, *rows);
        }
        rows->Close();
    }

    void AddTable(const std::string& name) {
        if (m_dialect.FoldsTableNames()) m_folded.try_emplace(FoldedName(name, true), m_tables.size());
        m_tables.emplace_back().Name = name;
    }

    /// Engines tell the name as the statement of a trigger or a reference spells it.
    DescribedTable* Find(const std::string& name) {
        auto position = m_positions.find(name);
        if (position != m_positions.end()) return &m_tables[position->second];
        position = m_folded.find(FoldedName(name, true));
        return position == m_folded.end() ? nullptr : &m_tables[position->second];
    }

    void NameKeysReferredTo(DescribedTable& table) {
        for (ForeignKey& key : table.ForeignKeys) {
            if (!key.KeyField.empty()) continue;
            const DescribedTable* target = Find(key.Table);
            if (target != nullptr && target->PrimaryKey.size() == 1)
                key.KeyField = target->PrimaryKey.front();
        }
    }

    ado::Connection& m_connection;
    const EngineDialect& m_dialect;
    std::vector<DescribedTable> m_tables;
    std::unordered_map<std::string, std::size_t> m_positions;  ///< of the tables, by name
    std::unordered_map<std::string, std::size_t> m_folded;     ///< the same where names are equal in any case
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
    return LiveReader(connection, dialect).Read();
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
