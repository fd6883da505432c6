#include "hosts/cli/new_database.h"

#include "automation/convert.h"
#include "hosts/cli/target_options.h"
#include "platform/platform.h"

#include <exception>
#include <filesystem>

namespace korvex::cli {

namespace {

std::string ReadText(ado::Connection& connection, const std::string& query) {
    const auto rows = connection.Execute(query);
    std::string text = automation::ToString(rows->Fields(0)->Value());
    rows->Close();
    return text;
}

}  // namespace

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
