#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/database_file.h"
#include "hosts/cli/session.h"
#include "hosts/cli/shell/variables.h"
#include "repository/schema.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

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

/// Whether the database has tables of a repository that are more than the empty beginnings of one.
bool IsInUse(dao::Database& database) {
    std::set<std::string_view> missing;
    const std::vector<repository::SchemaGap> gaps = repository::CheckSchema(database);
    for (const repository::SchemaGap& gap : gaps) {
        if (!gap.column.empty()) return true;
        missing.insert(gap.table);
    }
    return std::ranges::any_of(repository::SchemaTables(), [&](const repository::SchemaTable& table) {
        return !missing.contains(table.name) &&
               !database.OpenRecordset("select * from " + std::string(table.name), dao::dbOpenSnapshot)
                    ->Eof();
    });
}

/// Where making a table ends a transaction, a making that was cut off leaves the first tables: they are gone
/// on from.
void MakeInSource(const Platform& platform, const std::string& connection) {
    const auto workspace = platform.repositoryEngine->CreateWorkspace("", "admin", "", dao::dbUseODBC);
    const std::unique_ptr<dao::Database> database = workspace->OpenConnection("", false, connection);
    const repository::SchemaEngine engine = repository::SchemaEngineOf(*database);
    if (IsInUse(*database)) {
        throw automation::Error(automation::PathFileAccessError,
                                "The database behind the ODBC source has tables of a repository already.");
    }
    MakeTables(*database, engine);
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

void RunNew(const CommonOptions& options, Console& console) {
    const Session session(console);
    const std::string& place = options.repository;
    if (automation::ContainsIgnoreCase(place, "DSN=")) {
        MakeInSource(session.platform, place);
    } else {
        ExpectOwnName(place);
        MakeFile(session.platform, place);
    }
}

}  // namespace

void AddRepositoryNewCommand(CLI::App& parent, Console& console) {
    const auto [command, options] = AddCommand(parent, console, "new", "Make an empty repository",
                                               "korvex repository new new.db", RunNew);
    AddOption(
        command, "R,--repository", "R", options.repository,
        "File to create, which must not hold anything yet, or ODBC string with DSN= of an empty database")
        ->required()
        ->envname(RepositoryVariable);
}

}  // namespace korvex::cli
