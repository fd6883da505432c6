#include "hosts/cli/app.h"

#include "automation/error.h"
#include "hosts/cli/commands.h"

#include <cstdint>
#include <exception>
#include <new>
#include <string>
#include <string_view>

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
    AddRelateCommand(app, console);
    CLI::App* repository =
        app.add_subcommand("repository", "Make, fill, show and check definition repositories");
    AddRepositoryNewCommand(*repository, console);
    AddRepositoryImportCommand(*repository, console);
    AddRepositoryShowCommand(*repository, console);
    AddRepositoryCheckCommand(*repository, console);
    RequireSubcommand(*repository);
    CLI::App* database =
        app.add_subcommand("database", "Make, remove and check the tables of a target database");
    AddDatabaseCommands(*database, console);
    RequireSubcommand(*database);
    AddApplyCommand(app, console);
    AddSaveCommand(app, console);
    AddLoadCommand(app, console);
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
