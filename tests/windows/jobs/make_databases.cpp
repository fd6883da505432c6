// Makes the databases that the jobs work on, through the engines that hosts get:
//     make_databases repository FILE MODEL           a definition repository from a JSON model
//     make_databases target CONNECTION SCRIPT...     tables from script files

#include "automation/error.h"
#include "hosts/cli/apply/apply_run.h"
#include "hosts/cli/model/model_import.h"
#include "hosts/cli/model/model_reader.h"
#include "hosts/cli/text_file.h"
#include "platform/platform.h"
#include "repository/schema.h"

#include <iostream>
#include <objbase.h>
#include <span>
#include <string>
#include <vector>

namespace {

using namespace korvex;

void MakeRepository(const std::string& file, const std::string& modelFile) {
    const cli::Model model = cli::ReadModel(modelFile);
    const auto database = DefaultPlatform().repositoryEngine->CreateDatabase(file);
    repository::CreateSchema(*database);
    cli::ImportModel(model, *database);
    database->Close();
}

void MakeTarget(const std::string& connectionString, std::span<char* const> scripts) {
    std::vector<cli::ScriptStatement> statements;
    for (const char* file : scripts) {
        for (auto& statement : cli::ReadScript(file, cli::ReadTextFile(file), cli::ScriptStyle::Batches))
            statements.push_back(std::move(statement));
    }
    const auto connection = DefaultPlatform().targetProvider->CreateConnection();
    connection->Open(connectionString);
    cli::Console console(std::cout, std::cerr, false);
    cli::ApplyReport report;
    cli::RunStatements(*connection, statements, console, report);
    for (const std::string& line : report.Lines())
        std::cout << line << '\n';
    connection->Close();
}

void Run(std::span<char* const> arguments) {
    if (std::string(arguments[1]) == "repository") {
        MakeRepository(arguments[2], arguments[3]);
    } else {
        MakeTarget(arguments[2], arguments.subspan(3));
    }
}

}  // namespace

int main(int count, char** arguments) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    int code = 0;
    try {
        Run({arguments, static_cast<std::size_t>(count)});
    } catch (const automation::Error& error) {
        std::cerr << error.Number() << ": " << error.Description() << '\n';
        code = 1;
    }
    CoUninitialize();
    return code;
}
