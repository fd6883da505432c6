#pragma once

#include "hosts/cli/console.h"

#include <CLI/CLI.hpp>

#include <string>

/// Options that several commands have.
namespace korvex::cli {

/// What they say.
struct CommonOptions {
    std::string repository;
    std::string storage;
    std::string connection;
    std::string fkPrefix = "FK_";
};

/// --repository, which is required; R stands for it where the command has no other words.
void AddRepositoryOption(CLI::App& command, CommonOptions& options, bool isPositional = true);

/// --storage; `rest` goes on with what its help says.
CLI::Option* AddStorageOption(CLI::App& command, CommonOptions& options, const std::string& rest = {});

/// --connection, which is required.
void AddConnectionOption(CLI::App& command, CommonOptions& options);

/// --fk-prefix; `rest` as above.
void AddFKPrefixOption(CLI::App& command, CommonOptions& options,
                       const std::string& rest = " (FK_ unless given)");

/// --format of commands that also speak to machines: with "json", console.Document() is there when they run.
void AddFormatOption(CLI::App& command, Console& console);

}  // namespace korvex::cli
