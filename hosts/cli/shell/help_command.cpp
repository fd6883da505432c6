#include "hosts/cli/commands.h"
#include "hosts/cli/shell/command_tree.h"
#include "hosts/cli/shell/shell_commands.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace korvex::cli {

void AddHelpCommand(CLI::App& root, Console& console) {
    const auto words = std::make_shared<std::vector<std::string>>();
    CLI::App* command = root.add_subcommand("help", "Print the help of a command");
    command->add_option("COMMAND", *words, "Words of the command; without them all commands are listed")
        ->expected(0, -1)
        ->type_name("COMMAND");
    command->callback([words, &console] {
        const std::unique_ptr<CLI::App> tree = MakeApp(console);
        const CLI::App* level = tree.get();
        for (const std::string& word : *words) {
            const auto commands = CommandsOf(*level);
            const auto named = std::ranges::find(commands, word, &CLI::App::get_name);
            if (named == commands.end())
                throw CLI::ParseError(UnknownCommand(*level, word), CLI::ExitCodes::InvalidError);
            level = *named;
        }
        console.Results() << HelpOf(*level);
    });
    AddExample(*command, "korvex help repository show");
}

}  // namespace korvex::cli
