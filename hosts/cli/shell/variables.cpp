#include "hosts/cli/shell/variables.h"

#include <cstdlib>
#include <utility>
#include <vector>

namespace korvex::cli {

std::string ValueOf(const char* variable) {
    const char* value = std::getenv(variable);
    return value == nullptr ? "" : value;
}

void HeedVariablesOfChosenCommand(CLI::App& command) {
    std::vector<std::pair<CLI::Option*, std::string>> variables;
    for (CLI::Option* option : command.get_options()) {
        if (option->get_envname().empty()) continue;
        variables.emplace_back(option, option->get_envname());
        option->envname({});
    }
    command.preparse_callback([variables](std::size_t) {
        for (const auto& [option, variable] : variables)
            option->envname(variable);
    });
    for (CLI::App* nested : command.get_subcommands([](const CLI::App*) { return true; }))
        HeedVariablesOfChosenCommand(*nested);
}

}  // namespace korvex::cli
