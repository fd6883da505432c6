#include "scriptgen/migration/table_rebuild.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "scriptgen/migration/live_tables.h"
#include "scriptgen/script_text.h"

#include <algorithm>
#include <vector>

namespace korvex::scriptgen {

using automation::Error;

ReferencesOff::ReferencesOff(ado::Connection& connection)
    : m_connection(connection), m_wereOn(ReadTexts(connection, "PRAGMA foreign_keys").front() != "0") {
    m_connection.Execute("PRAGMA foreign_keys = OFF");
}

ReferencesOff::~ReferencesOff() {
    try {
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

void RebuildTable(ado::Connection& connection, const DescribedTable& table, const std::string& statement) {
    const std::string name = QuoteText(table.Name) + " collate nocase";
    const std::vector<std::string> dependents =
        ReadTexts(connection,
                  "select sql from sqlite_master where type in ('index', 'trigger') and sql is not "
                  "null and tbl_name = " +
                      name + " order by rowid");
    // The counter may be past the records that are left.
    const std::vector<std::string> counter =
        ReadTexts(connection, "select name from sqlite_master where name = 'sqlite_sequence'").empty()
            ? std::vector<std::string>()
            : ReadTexts(connection, "select seq from sqlite_sequence where name = " + name);
    JoinedText columns(", ");
    JoinedText values(", ");
    for (const Column& column : table.Columns) {
        const std::string quoted = QuoteName(column.FieldName);
        columns.Add(quoted);
        const bool refers = std::ranges::find(table.ForeignKeys, column.FieldName, &ForeignKey::FieldName) !=
                            table.ForeignKeys.end();
        values.Add(refers ? "nullif(" : "", quoted, refers ? ", 0)" : "");
    }
    connection.Execute("CREATE TEMP TABLE korvex_records AS SELECT * FROM " + QuoteName(table.Name));
    connection.Execute("DROP TABLE main." + QuoteName(table.Name));
    connection.Execute(statement);
    connection.Execute("INSERT INTO " + QuoteName(table.Name) + " (" + columns.Text() + ") SELECT " +
                       values.Text() + " FROM temp.korvex_records");
    connection.Execute("DROP TABLE temp.korvex_records");
    for (const std::string& dependent : dependents)
        connection.Execute(dependent);
    if (counter.empty()) return;
    connection.Execute("DELETE FROM sqlite_sequence WHERE name = " + name);
    connection.Execute("INSERT INTO sqlite_sequence (name, seq) VALUES (" + QuoteText(table.Name) + ", " +
                       counter.front() + ")");
}

}  // namespace korvex::scriptgen
