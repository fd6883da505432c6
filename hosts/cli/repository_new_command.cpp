#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/new_database.h"
#include "hosts/cli/session.h"
#include "repository/schema.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace korvex::cli {

namespace {

void MakeTables(dao::Database& database, repository::SchemaEngine engine) {
    const bool inTransaction = database.BeginTrans();
    repository::CreateSchema(database, engine);
    if (inTransaction) database.CommitTrans();
    database.Close();
}

void MakeFile(const Platform& platform, const std::string& file) {
    if (file.empty()) throw automation::Error(automation::PathFileAccessError, "The file has no name.");
    std::unique_ptr<dao::Database> database = platform.repositoryEngine->CreateDatabase(file);
    try {
        MakeTables(*database, repository::SchemaEngine::Embedded);
    } catch (...) {
        database.reset();
        RemoveUnusedDatabase(file);
        throw;
    }
}

/// Where making a table ends a transaction, what was made before a failure would be in the way of the next
/// try.
void DropTables(dao::Database& database) {
    for (const repository::SchemaTable& table : repository::SchemaTables()) {
        try {
            database.Execute("DROP TABLE " + std::string(table.name));
        } catch (const automation::Error&) {
            // It was not made; the failure that led here is the one to report.
        }
    }
}

void MakeInSource(const Platform& platform, const std::string& connection) {
    const auto workspace = platform.repositoryEngine->CreateWorkspace("", "admin", "", dao::dbUseODBC);
    const std::unique_ptr<dao::Database> database = workspace->OpenConnection("", false, connection);
    const repository::SchemaEngine engine = repository::SchemaEngineOf(*database);
    const auto missing = repository::CheckSchema(*database);
    const auto isTable = [](const repository::SchemaGap& gap) { return gap.column.empty(); };
    if (static_cast<std::size_t>(std::ranges::count_if(missing, isTable)) <
        repository::SchemaTables().size()) {
        throw automation::Error(automation::PathFileAccessError,
                                "The database behind the ODBC source has tables of a repository already.");
    }
    try {
        MakeTables(*database, engine);
    } catch (...) {
        DropTables(*database);
        throw;
    }
}

/// Everybody, other engines included, would take the file for what its name says.
void ExpectOwnName(const std::string& file) {
    const std::string ending = std::filesystem::path(file).extension().string();
    for (const std::string_view taken : {".mdb", ".accdb"}) {
        if (!automation::EqualsIgnoreCase(ending, taken)) continue;
        throw automation::Error(automation::InvalidProcedureCall,
                                "Files of the desktop database engine cannot be made here, and " + file +
                                    " is named like one: choose another ending, such as .db.");
    }
}

void RunNew(const std::string& place, Console& console) {
    const Session session(console);
    if (automation::ContainsIgnoreCase(place, "DSN=")) {
        MakeInSource(session.platform, place);
    } else {
        ExpectOwnName(place);
        MakeFile(session.platform, place);
    }
}

}  // namespace

void AddRepositoryNewCommand(CLI::App& parent, Console& console) {
    const auto place = std::make_shared<std::string>();
    CLI::App* command = parent.add_subcommand("new", "Make an empty repository");
    command
        ->add_option(
            "FILE", *place,
            "File to create, which must not hold anything yet, or ODBC string with DSN= of an empty database")
        ->required();
    command->callback([place, &console] { RunNew(*place, console); });
}

}  // namespace korvex::cli
