#pragma once

#include "hosts/cli/console.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

/// The subcommands. Each function adds one to `parent`; it runs when the command line names it, and raises an
/// automation::Error when it fails. `console` outlives the parsing.
namespace korvex::cli {

/// All of them. `console` outlives the answer.
std::unique_ptr<CLI::App> MakeApp(Console& console);

/// A command that only holds others lists them when it stands alone.
void ListWhenAlone(CLI::App& group, Console& console);
CLI::App& AddGroup(CLI::App& parent, Console& console, const std::string& name, const std::string& text);

/// Gives the help of a command an example, one line as it is typed. Several stand in their order.
void AddExample(CLI::App& command, const std::string& line);

/// A command and what its options say.
template <class Options>
struct Command {
    CLI::App& app;
    Options& options;
};

/// Adds a command that runs `run` with what its options say; these are added to what is given back.
template <class Options>
Command<Options> AddCommand(CLI::App& parent, Console& console, const std::string& name,
                            const std::string& text, const std::string& example,
                            void (*run)(const Options&, Console&)) {
    const auto options = std::make_shared<Options>();
    CLI::App& command = *parent.add_subcommand(name, text);
    AddExample(command, example);
    command.callback([options, run, &console] { run(*options, console); });
    return {command, *options};
}

void AddScriptCommand(CLI::App& parent, Console& console);
void AddDiffCommand(CLI::App& parent, Console& console);
void AddRelateCommand(CLI::App& parent, Console& console);
void AddRepositoryNewCommand(CLI::App& parent, Console& console);
void AddRepositoryImportCommand(CLI::App& parent, Console& console);
void AddRepositoryPullCommand(CLI::App& parent, Console& console);
void AddRepositoryRemoveCommand(CLI::App& parent, Console& console);
void AddRepositoryShowCommand(CLI::App& parent, Console& console);
void AddRepositoryCheckCommand(CLI::App& parent, Console& console);
/// create, drop and check.
void AddDatabaseCommands(CLI::App& parent, Console& console);
void AddDatabaseUpdateCommand(CLI::App& parent, Console& console);
void AddApplyCommand(CLI::App& parent, Console& console);
void AddSaveCommand(CLI::App& parent, Console& console);
void AddLoadCommand(CLI::App& parent, Console& console);
void AddSchemaCommand(CLI::App& parent, Console& console);
void AddListCommand(CLI::App& parent, Console& console);
void AddUpdateCommand(CLI::App& parent, Console& console);
void AddDeleteCommand(CLI::App& parent, Console& console);
void AddExistsCommand(CLI::App& parent, Console& console);
void AddFieldGetCommand(CLI::App& parent, Console& console);
void AddFieldSetCommand(CLI::App& parent, Console& console);
/// help [COMMAND]...
void AddHelpCommand(CLI::App& root, Console& console);
/// completion bash | zsh | storages R
void AddCompletionCommands(CLI::App& root, Console& console);
/// man FOLDER
void AddManCommand(CLI::App& root, Console& console);

}  // namespace korvex::cli
