#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/session.h"
#include "repository/schema.h"

#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

namespace korvex::cli {

namespace {

void RunNew(const std::string& file, Console& console) {
    if (automation::ContainsIgnoreCase(file, "DSN=")) {
        throw automation::Error(automation::InvalidProcedureCall,
                                "A new repository is a file; a name with DSN= would be opened through ODBC.");
    }
    const Session session(console);
    std::unique_ptr<dao::Database> database = session.platform.repositoryEngine->CreateDatabase(file);
    try {
        const bool inTransaction = database->BeginTrans();
        repository::CreateSchema(*database);
        if (inTransaction) database->CommitTrans();
        database->Close();
    } catch (...) {
        // The file is this command's own; without its tables it would only be in the way of the next try.
        database.reset();
        std::error_code ignored;
        std::filesystem::remove(file, ignored);
        throw;
    }
}

}  // namespace

void AddRepositoryNewCommand(CLI::App& parent, Console& console) {
    const auto file = std::make_shared<std::string>();
    CLI::App* command = parent.add_subcommand("new", "Make an empty repository");
    command->add_option("FILE", *file, "File to create; it must not exist yet")->required();
    command->callback([file, &console] { RunNew(*file, console); });
}

}  // namespace korvex::cli
