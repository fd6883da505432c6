#include "hosts/cli/database_file.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/wording.h"
#include "platform/platform.h"

#include <algorithm>
#include <exception>
#include <filesystem>

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

std::string ReadText(ado::Connection& connection, const std::string& query) {
    const auto rows = connection.Execute(query);
    std::string text = automation::ToString(rows->Fields(0)->Value());
    rows->Close();
    return text;
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

std::string ConnectionToFile(const std::string& file) {
    return "Provider=SQLite;Data Source=" + InQuotes(file, '"');
}

std::string WithCreateMode(const std::string& connection) {
    if (!IsForEmbeddedEngine(connection)) {
        throw automation::Error(automation::InvalidProcedureCall,
                                "Only a database file can be made (Provider=SQLite;Data Source=FILE).");
    }
    return connection + ";Mode=Create";
}

std::string DatabaseFile(ado::Connection& connection) {
    return ReadText(connection, "select file from pragma_database_list where name = 'main'");
}

void RemoveUnusedDatabase(const std::string& file) noexcept {
    try {
        const auto connection = DefaultPlatform().targetProvider->CreateConnection();
        connection->Open(ConnectionToFile(file));
        const bool isEmpty = ReadText(*connection, "select count(*) from sqlite_schema") == "0";
        // Only a connection that is alone takes a database off its write-ahead log.
        const bool isAlone = isEmpty && ReadText(*connection, "PRAGMA journal_mode = delete") == "delete";
        connection->Close();
        if (isAlone) std::filesystem::remove(file);
    } catch (const std::exception&) {
        // It stays: the next try takes an empty database as it takes none.
    }
}

}  // namespace korvex::cli
