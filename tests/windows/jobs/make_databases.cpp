// Makes the databases that the jobs work on, through the engines that hosts get:
//     make_databases repository FILE MODEL           a definition repository from a JSON model
//     make_databases target CONNECTION FILE STORAGE  the tables of a definition whose keys are made, in
//     SQLite

#include "automation/error.h"
#include "hosts/cli/model/model_import.h"
#include "hosts/cli/model/model_reader.h"
#include "platform/platform.h"
#include "repository/repository.h"
#include "repository/schema.h"
#include "repository/stored_rows.h"
#include "scriptgen/engine_dialect.h"

#include <iostream>
#include <memory>
#include <objbase.h>
#include <span>
#include <string>

namespace {

using namespace korvex;

void MakeRepository(const std::string& file, const std::string& modelFile) {
    const cli::Model model = cli::ReadModel(modelFile);
    const auto database = DefaultPlatform().repositoryEngine->CreateDatabase(file);
    repository::CreateSchema(*database);
    cli::ImportModel(model, *database);
    database->Close();
}

void MakeTarget(const std::string& connectionString, const std::string& file, const std::string& storage) {
    const std::shared_ptr<ado::Connection> connection = DefaultPlatform().targetProvider->CreateConnection();
    connection->Open(connectionString);
    repository::Repository repository(DefaultPlatform());
    repository.OpenRepository(file);
    repository::StoredRows rows(repository);
    const auto tables = scriptgen::DescribeTables(rows, storage);
    for (const scriptgen::EngineStatement& statement :
         scriptgen::EngineDialectOf("sqlite").Write(tables).create)
        connection->Execute(statement.text);
    connection->Close();
}

void Run(std::span<char* const> arguments) {
    if (std::string(arguments[1]) == "repository") {
        MakeRepository(arguments[2], arguments[3]);
    } else {
        MakeTarget(arguments[2], arguments[3], arguments[4]);
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
