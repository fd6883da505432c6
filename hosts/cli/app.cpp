#include "hosts/cli/app.h"

#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/shell/command_tree.h"
#include "hosts/cli/shell/variables.h"

#include <cstdint>
#include <exception>
#include <initializer_list>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex::cli {

namespace {

constexpr std::int32_t InternalError = 51;

void Add(CLI::App& parent, Console& console,
         std::initializer_list<void (*)(CLI::App& parent, Console& console)> commands) {
    for (const auto add : commands)
        add(parent, console);
}

void AddCommands(CLI::App& app, Console& console) {
    Add(app, console, {AddScriptCommand, AddDiffCommand, AddRelateCommand});
    Add(AddGroup(app, console, "repository", "Make, fill, show and check definition repositories"), console,
        {AddRepositoryNewCommand, AddRepositoryImportCommand, AddRepositoryPullCommand,
         AddRepositoryShowCommand, AddRepositoryRemoveCommand, AddRepositoryCheckCommand});
    Add(AddGroup(app, console, "database", "Make, change, remove and check the tables of a target database"),
        console, {AddDatabaseCommands, AddDatabaseUpdateCommand});
    Add(app, console,
        {AddApplyCommand, AddSchemaCommand, AddSaveCommand, AddLoadCommand, AddListCommand, AddUpdateCommand,
         AddDeleteCommand, AddExistsCommand});
    Add(AddGroup(app, console, "field", "Read or write one column of one record"), console,
        {AddFieldGetCommand, AddFieldSetCommand});
    Add(app, console, {AddHelpCommand, AddCompletionCommands, AddManCommand});
    ListWhenAlone(app, console);
}

/// --version on every level, as --help is.
void AddVersion(CLI::App& app) {
    app.set_version_flag("-V,--version", "korvex " KORVEX_VERSION, "Print the version and exit");
    for (CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
        AddVersion(*command);
    }
}

/// Says which words of the command line nobody takes, in their order.
std::string DescribeExtras(const CLI::App& app) {
    const CLI::App* level = &app;
    while (level->remaining().empty() && !level->get_subcommands().empty())
        level = level->get_subcommands().front();
    const std::vector<std::string> words = level->remaining();
    if (words.empty()) return "There are words too many.";
    constexpr std::size_t longest = 200;
    if (!words.front().starts_with('-') && !CommandsOf(*level).empty() && level->get_subcommands().empty()) {
        return UnknownCommand(*level, words.front());
    }
    return (words.size() == 1 ? "This argument was not expected: " : "These arguments were not expected: ") +
           automation::Readable(CLI::detail::join(words, " "), longest);
}

}  // namespace

std::unique_ptr<CLI::App> MakeApp(Console& console) {
    auto app = std::make_unique<CLI::App>(
        "Turns definition repositories into SQL scripts, and keeps objects in the databases that these make.",
        "korvex");
    AddCommands(*app, console);
    AddVersion(*app);
    AddExample(*app, "korvex repository show orders.json");
    return app;
}

void ListWhenAlone(CLI::App& group, Console& console) {
    // Behind the first command, its name is a word like any other: a file may be called so.
    group.require_subcommand(0, 1);
    group.callback([&] {
        if (group.get_subcommands().empty()) console.Results() << HelpOf(group);
    });
}

CLI::App& AddGroup(CLI::App& parent, Console& console, const std::string& name, const std::string& text) {
    CLI::App& group = *parent.add_subcommand(name, text);
    ListWhenAlone(group, console);
    return group;
}

namespace {

/// The exit code; every failure has been said.
int Run(CLI::App& app, int argc, const char* const* argv, Console& console) {
    try {
        app.parse(argc, argv);
        return ExitDone;
    } catch (const CLI::RuntimeError& error) {
        // A command that has said itself what is wrong.
        return error.get_exit_code();
    } catch (const automation::Error& error) {
        console.Error(error.Number(), error.Description());
    } catch (const std::bad_alloc&) {
        console.Error(automation::OutOfMemory, automation::StandardErrorText(automation::OutOfMemory));
    } catch (const CLI::ParseError&) {
        throw;
    } catch (const std::exception& error) {
        console.Error(InternalError, error.what());
    }
    return ExitFailed;
}

int WrongUsage(std::string_view what, Console& console) {
    std::string variable;
    for (const auto& [option, name] :
         {std::pair("--repository", RepositoryVariable), std::pair("--storage", StorageVariable),
          std::pair("--connection", ConnectionVariable)})
        if (what == std::string(option) + " is required") variable = " (or " + std::string(name) + ")";
    console.Text(std::string(what) + variable + "\nRun with --help for more information.");
    return ExitUsage;
}

}  // namespace

int RunCommandLine(int argc, const char* const* argv, Console& console) {
    const std::unique_ptr<CLI::App> app = MakeApp(console);
    HeedVariablesOfChosenCommand(*app);
    try {
        const int exitCode = Run(*app, argc, argv, console);
        console.Finish();
        return exitCode;
    } catch (const CLI::Success& wish) {
        // For help, or the version.
        app->exit(wish, console.Results());
        return ExitDone;
    } catch (const CLI::ExtrasError&) {
        return WrongUsage(DescribeExtras(*app), console);
    } catch (const CLI::ParseError& error) {
        return WrongUsage(error.what(), console);
    } catch (const automation::Error& error) {
        console.Error(error.Number(), error.Description());
        return ExitFailed;
    }
}

}  // namespace korvex::cli
