#include "hosts/cli/apply/table_rebuild.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/apply/embedded_catalog.h"
#include "hosts/cli/apply/no_parent_triggers.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace korvex::cli {

namespace {

using automation::EqualsIgnoreCase;
using automation::Error;

struct TableInHand {
    std::string name;
    TableText text;
};

TableInHand OpenTable(ado::Connection& connection, const std::string& name) {
    std::optional<StoredTable> stored = FindTable(connection, name);
    if (!stored) throw Error(ado::DbENoTable, "There is no table " + name + ".");
    std::optional<TableText> text = TableText::Read(stored->text);
    if (!text) throw Error(ado::DbEFail, "The definition of the table " + name + " cannot be read.");
    return {std::move(stored->name), *std::move(text)};
}

/// What hangs on a table and goes with it, as statements that make it again; the triggers that follow from
/// the foreign keys apart.
std::vector<std::string> Dependents(ado::Connection& connection, const std::string& table) {
    std::vector<std::string> texts;
    const auto rows = connection.Execute(
        "select type, name, sql from sqlite_master where type in ('index', 'trigger') and sql is not null "
        "and tbl_name = " +
        QuoteText(table) + " order by rowid");
    for (; !rows->Eof(); rows->MoveNext()) {
        if (IsNoParentTrigger(automation::ToString(rows->Fields("name")->Value()))) continue;
        texts.push_back(automation::ToString(rows->Fields("sql")->Value()));
    }
    rows->Close();
    return texts;
}

/// The table's last number, which may be that of a record deleted since; nothing when it counts nothing.
std::vector<std::string> LastNumber(ado::Connection& connection, const std::string& table) {
    if (!FindTable(connection, "sqlite_sequence")) return {};
    return ReadTexts(connection, "select seq from sqlite_sequence where name = " + QuoteText(table));
}

/// A record may have been saved with 0 for no parent, before the key was there.
void CopyRecords(ado::Connection& connection, const TableInHand& table, const std::string& target) {
    const std::vector<std::string> columns = ReadTexts(
        connection, "select name from pragma_table_xinfo(" + QuoteText(table.name) + ") where hidden = 0");
    const std::vector<std::string> parents = ParentColumns(table.text.ForeignKeys());
    std::string values;
    for (const std::string& column : columns) {
        const bool mayBeZero = std::ranges::any_of(
            parents, [&column](const std::string& name) { return EqualsIgnoreCase(name, column); });
        const std::string quoted = QuoteName(column);
        values += (values.empty() ? "" : ", ") + (mayBeZero ? "nullif(" + quoted + ", 0)" : quoted);
    }
    connection.Execute("INSERT INTO " + QuoteName(target) + " (" + JoinColumns(columns) + ") SELECT " +
                       values + " FROM " + QuoteName(table.name));
}

void DropTable(ado::Connection& connection, const std::string& table) {
    connection.Execute("DROP TABLE " + QuoteName(table));
}

/// To rename a table the engine reads the definitions of all tables again, so one without records is simply
/// made anew.
void ReplaceTable(ado::Connection& connection, const TableInHand& table) {
    const bool isEmpty = ReadTexts(connection, "select 1 from " + QuoteName(table.name) + " limit 1").empty();
    if (isEmpty) {
        DropTable(connection, table.name);
        connection.Execute(table.text.Text());
        return;
    }
    const std::string target = "korvex_new_" + table.name;
    TableText text = table.text;
    text.Rename(target);
    connection.Execute(text.Text());
    CopyRecords(connection, table, target);
    DropTable(connection, table.name);
    connection.Execute("ALTER TABLE " + QuoteName(target) + " RENAME TO " + QuoteName(table.name));
}

/// Puts a table of the text in hand in the stored one's place, with all that belongs to it.
void Rebuild(ado::Connection& connection, const TableInHand& table) {
    const std::vector<std::string> dependents = Dependents(connection, table.name);
    const std::vector<std::string> lastNumber = LastNumber(connection, table.name);
    ReplaceTable(connection, table);
    for (const std::string& dependent : dependents)
        connection.Execute(dependent);
    for (const std::string& trigger : NoParentTriggers(table.name, table.text.ForeignKeys()))
        connection.Execute(trigger);
    if (lastNumber.empty()) return;
    const std::string name = QuoteText(table.name);
    connection.Execute("DELETE FROM sqlite_sequence WHERE name = " + name);
    connection.Execute("INSERT INTO sqlite_sequence (name, seq) VALUES (" + name + ", " + lastNumber.front() +
                       ")");
}

/// Raises an error for the rows of a foreign-key check, which are the records without a parent.
void ExpectNone(const std::shared_ptr<ado::Recordset>& rows) {
    if (rows->Eof()) return;
    const auto text = [&rows](std::int32_t column) {
        const automation::Variant value = rows->Fields(column)->Value();
        return value.IsNull() ? std::string("?") : automation::ToString(value);
    };
    const std::string first =
        "Record " + text(1) + " of " + text(0) + " refers to a record of " + text(2) + " that is not there";
    std::size_t others = 0;
    for (rows->MoveNext(); !rows->Eof(); rows->MoveNext())
        ++others;
    rows->Close();
    throw Error(ado::DbEConstraint,
                first + (others == 0 ? "" : ", and so do " + std::to_string(others) + " others") + ".");
}

}  // namespace

bool AddForeignKey(ado::Connection& connection, const std::string& table, const ForeignKey& key) {
    TableInHand stored = OpenTable(connection, table);
    if (HasKey(stored.text, key)) return false;
    stored.text.Add(key);
    Rebuild(connection, stored);
    return true;
}

std::size_t DropForeignKeys(ado::Connection& connection, const std::string& table,
                            const std::string& constraint) {
    TableInHand stored = OpenTable(connection, table);
    const std::size_t removed = stored.text.Remove(constraint);
    if (removed == 0) {
        throw Error(ado::DbEStatement,
                    "The table " + stored.name + " has no foreign key of the name " + constraint + ".");
    }
    Rebuild(connection, stored);
    return removed;
}

void CheckForeignKey(ado::Connection& connection, const std::string& table, const ForeignKey& key) {
    if (!FindTable(connection, key.parent))
        throw Error(ado::DbENoTable, "There is no table " + key.parent + ".");
    ExpectNone(connection.Execute("PRAGMA foreign_key_check(" + QuoteName(table) + ")"));
}

void CheckAllForeignKeys(ado::Connection& connection) {
    ExpectNone(connection.Execute("PRAGMA foreign_key_check"));
}

}  // namespace korvex::cli
