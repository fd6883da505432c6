#pragma once

#include "hosts/cli/console.h"

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

/// Options that several commands have.
namespace korvex::cli {

/// Adds an option with a value, which the help calls `label`.
template <class Value>
CLI::Option* AddOption(CLI::App& command, const std::string& names, const std::string& label, Value& value,
                       const std::string& text) {
    return command.add_option(names, value, text)->type_name(label);
}
/// The same for one of these words.
CLI::Option* AddChoice(CLI::App& command, const std::string& names, const std::string& label,
                       std::string& value, const std::vector<std::string>& words, const std::string& text);

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
