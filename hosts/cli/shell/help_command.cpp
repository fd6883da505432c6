#include "hosts/cli/commands.h"
#include "hosts/cli/options.h"
#include "hosts/cli/shell/command_tree.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace korvex::cli {

namespace {

using Words = std::vector<std::string>;

void PrintHelp(const Words& words, Console& console) {
    const std::unique_ptr<CLI::App> tree = MakeApp(console);
    const CLI::App* level = tree.get();
    for (const std::string& word : words) {
        const auto commands = CommandsOf(*level);
        const auto named = std::ranges::find(commands, word, &CLI::App::get_name);
        if (named == commands.end())
            throw CLI::ParseError(UnknownCommand(*level, word), CLI::ExitCodes::InvalidError);
        level = *named;
    }
    console.Results() << HelpOf(*level);
}

}  // namespace

void AddHelpCommand(CLI::App& root, Console& console) {
    const auto [command, words] = AddCommand(root, console, "help", "Print the help of a command",
                                             "korvex help repository show", PrintHelp);
    AddOption(command, "COMMAND", "COMMAND", words,
              "Words of the command; without them all commands are listed")
        ->expected(0, -1);
}

}  // namespace korvex::cli
