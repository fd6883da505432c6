#include "hosts/cli/target_options.h"

#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/shell/variables.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace korvex::cli {

namespace {

/// Whether a part of a connection string says Provider=SQLite, with or without a version behind it.
bool NamesEmbeddedEngine(std::string_view part) {
    const std::size_t sign = part.find('=');
    if (sign == std::string_view::npos) return false;
    const std::string_view value = automation::Trim(part.substr(sign + 1));
    return automation::EqualsIgnoreCase(automation::Trim(part.substr(0, sign)), "Provider") &&
           automation::EqualsIgnoreCase(value.substr(0, value.find('.')), "SQLite");
}

}  // namespace

bool IsForEmbeddedEngine(std::string_view connection) {
    for (std::size_t at = 0; at < connection.size();) {
        const std::size_t end = std::min(connection.find(';', at), connection.size());
        if (NamesEmbeddedEngine(connection.substr(at, end - at))) return true;
        at = end + 1;
    }
    return false;
}

void AddConnectionOption(CLI::App& command, std::string& connection) {
    command
        .add_option(
            "--connection", connection,
            "Target database: \"Provider=SQLite;Data Source=FILE\", or an ODBC string with DSN= or Driver=")
        ->required()
        ->envname(ConnectionVariable)
        ->type_name("C");
}

std::string ConnectionToFile(const std::string& file) {
    std::string connection = "Provider=SQLite;Data Source=\"";
    for (const char c : file)
        connection.append(c == '"' ? 2 : 1, c);
    return connection + '"';
}

std::string WithCreateMode(const std::string& connection) {
    if (!IsForEmbeddedEngine(connection)) {
        throw automation::Error(automation::InvalidProcedureCall,
                                "Only a database file can be made (Provider=SQLite;Data Source=FILE).");
    }
    return connection + ";Mode=Create";
}

}  // namespace korvex::cli
