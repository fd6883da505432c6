#include "hosts/cli/app.h"

#include "automation/error.h"
#include "automation/nearest_name.h"
#include "automation/text.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/schema_command.h"

#include <cstdint>
#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#ifndef KORVEX_VERSION
#error "the build passes KORVEX_VERSION"
#endif

namespace korvex::cli {

namespace {

constexpr std::int32_t InternalError = 51;

/// Asks for a subcommand only after words that are none were complained about.
void RequireSubcommand(CLI::App& app) {
    app.callback([&app] {
        if (app.get_subcommands().empty()) throw CLI::RequiredError::Subcommand(1);
    });
}

void AddCommands(CLI::App& app, Console& console) {
    AddScriptCommand(app, console);
    AddDiffCommand(app, console);
    AddRelateCommand(app, console);
    CLI::App* repository =
        app.add_subcommand("repository", "Make, fill, show and check definition repositories");
    AddRepositoryNewCommand(*repository, console);
    AddRepositoryImportCommand(*repository, console);
    AddRepositoryPullCommand(*repository, console);
    AddRepositoryShowCommand(*repository, console);
    AddRepositoryRemoveCommand(*repository, console);
    AddRepositoryCheckCommand(*repository, console);
    RequireSubcommand(*repository);
    CLI::App* database =
        app.add_subcommand("database", "Make, change, remove and check the tables of a target database");
    AddDatabaseCommands(*database, console);
    RequireSubcommand(*database);
    AddApplyCommand(app, console);
    AddSchemaCommand(app, console);
    AddSaveCommand(app, console);
    AddLoadCommand(app, console);
    AddListCommand(app, console);
    AddUpdateCommand(app, console);
    AddDeleteCommand(app, console);
    AddExistsCommand(app, console);

    CLI::App* field = app.add_subcommand("field", "Read or write one column of one record");
    AddFieldGetCommand(*field, console);
    AddFieldSetCommand(*field, console);
    RequireSubcommand(*field);

    RequireSubcommand(app);
}

/// --version on every level, as --help is.
void AddVersion(CLI::App& app) {
    app.set_version_flag("--version", "korvex " KORVEX_VERSION, "Print the version and exit");
    for (CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
        AddVersion(*command);
    }
}

std::vector<const CLI::App*> CommandsOf(const CLI::App& app) {
    return app.get_subcommands([](const CLI::App*) { return true; });
}

/// The command that `word` was probably meant to be: one that it begins, one spelt much like it, or one of
/// another level.
std::string NearCommand(const CLI::App& level, const std::string& word) {
    std::vector<std::string> names;
    std::vector<std::string_view> spellings;
    for (const CLI::App* command : CommandsOf(level))
        names.push_back(command->get_name());
    for (const std::string& name : names) {
        if (name.starts_with(word)) return "; did you mean " + automation::Quoted(name) + "?";
        spellings.emplace_back(name);
    }
    if (std::string near = automation::DidYouMean(word, spellings); !near.empty()) return near;
    for (const CLI::App* command : CommandsOf(level)) {
        for (const CLI::App* nested : CommandsOf(*command)) {
            if (nested->get_name() != word) continue;
            return "; did you mean " + automation::Quoted(command->get_name() + " " + word) + "?";
        }
    }
    return {};
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
        return "There is no command " + automation::Quoted(words.front()) +
               NearCommand(*level, words.front());
    }
    return (words.size() == 1 ? "This argument was not expected: " : "These arguments were not expected: ") +
           automation::Readable(CLI::detail::join(words, " "), longest);
}

int Fail(Console& console, std::int32_t number, std::string_view description) {
    console.Message("error " + std::to_string(number) + ": " + std::string(description));
    return ExitFailed;
}

}  // namespace

int RunCommandLine(int argc, const char* const* argv, Console& console) {
    CLI::App app(
        "Turns definition repositories into SQL scripts, and keeps objects in the databases that these make.",
        "korvex");
    AddCommands(app, console);
    AddVersion(app);
    try {
        app.parse(argc, argv);
        console.Finish();
        return ExitDone;
    } catch (const CLI::RuntimeError& error) {
        // A command that has said itself what is wrong.
        return error.get_exit_code();
    } catch (const CLI::ExtrasError&) {
        console.Text(DescribeExtras(app) + "\nRun with --help for more information.");
        return ExitUsage;
    } catch (const CLI::ParseError& error) {
        return app.exit(error, console.Results()) == 0 ? ExitDone : ExitUsage;
    } catch (const automation::Error& error) {
        return Fail(console, error.Number(), error.Description());
    } catch (const std::bad_alloc&) {
        return Fail(console, automation::OutOfMemory, automation::StandardErrorText(automation::OutOfMemory));
    } catch (const std::exception& error) {
        return Fail(console, InternalError, error.what());
    }
}

}  // namespace korvex::cli
