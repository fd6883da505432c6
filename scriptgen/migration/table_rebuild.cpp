#include "scriptgen/migration/table_rebuild.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "scriptgen/engine_dialect.h"
#include "scriptgen/migration/live_tables.h"
#include "scriptgen/script_text.h"

#include <algorithm>
#include <utility>

namespace korvex::scriptgen {

using automation::Error;

ReferencesOff::ReferencesOff(ado::Connection& connection)
    : m_connection(connection), m_wereOn(ReadTexts(connection, "PRAGMA foreign_keys").front() != "0") {
    m_connection.Execute("PRAGMA foreign_keys = OFF");
}

ReferencesOff::~ReferencesOff() {
    try {
        m_connection.Execute("PRAGMA legacy_alter_table = OFF");
        if (m_wereOn) m_connection.Execute("PRAGMA foreign_keys = ON");
    } catch (const Error&) {
        // The connection is gone, and the switch with it.
    }
}

void ReferencesOff::CheckReferences() {
    const auto rows = m_connection.Execute("PRAGMA foreign_key_check");
    if (rows->Eof()) return;
    const std::string table = automation::ToString(rows->Fields(0)->Value());
    const std::string parent = automation::ToString(rows->Fields(2)->Value());
    rows->Close();
    throw Error(ado::DbEConstraint,
                "Records of " + table + " refer to records of " + parent + " that are not there.");
}

std::vector<std::string> RebuildStatements(const DescribedTable& table, std::string_view columns,
                                           std::string_view values) {
    std::string text = SqliteDialect().TableText(table);
    constexpr std::string_view Making = "CREATE TABLE ";
    text.replace(Making.size(), table.Name.size(), "korvex_new");
    std::vector<std::string> statements = {"PRAGMA legacy_alter_table=ON", std::move(text)};
    const auto add = [&](const auto&... pieces) { Append(statements.emplace_back(), pieces...); };
    add("INSERT INTO korvex_new (", columns, ") SELECT ", values, " FROM ", table.Name);
    if (std::ranges::any_of(table.Columns, &Column::IsAutoNumber)) {
        add("DELETE FROM sqlite_sequence WHERE name = 'korvex_new'");
        add("INSERT INTO sqlite_sequence (name, seq) SELECT 'korvex_new', seq FROM sqlite_sequence WHERE name = ",
            TextLiteral(table.Name), " COLLATE NOCASE");
    }
    add("DROP TABLE ", table.Name);
    add("ALTER TABLE korvex_new RENAME TO ", table.Name);
    add("PRAGMA legacy_alter_table=OFF");
    return statements;
}

void RebuildTable(ado::Connection& connection, const DescribedTable& table) {
    JoinedText columns(", ");
    JoinedText values(", ");
    for (const Column& column : table.Columns) {
        columns.Add(column.FieldName);
        const bool refers = FindForeignKey(table, column.FieldName) != nullptr;
        values.Add(refers ? "nullif(" : "", column.FieldName, refers ? ", 0)" : "");
    }
    for (const std::string& text : RebuildStatements(table, columns.Text(), values.Text()))
        connection.Execute(text);
    for (const TableDependent& dependent : table.Dependents)
        connection.Execute(dependent.Text);
}

}  // namespace korvex::scriptgen
