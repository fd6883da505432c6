#include "hosts/cli/apply/embedded_catalog.h"

#include "automation/convert.h"

namespace korvex::cli {

std::optional<StoredTable> FindTable(ado::Connection& connection, std::string_view name) {
    const auto rows = connection.Execute(
        "select name, sql from sqlite_master where type = 'table' and name = " + QuoteText(name) +
        " collate nocase");
    if (rows->Eof()) return std::nullopt;
    StoredTable table{automation::ToString(rows->Fields("name")->Value()),
                      automation::ToString(rows->Fields("sql")->Value())};
    rows->Close();
    return table;
}

}  // namespace korvex::cli
