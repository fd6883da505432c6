#include "hosts/cli/shell/completion.h"
#include "hosts/cli/wording.h"

#include <string_view>

namespace korvex::cli {

namespace {

constexpr std::string_view Head = R"zsh(#compdef korvex
# zsh completion of korvex, written by "korvex completion zsh"
compdef _korvex korvex

# Storage names of the repository on the line: of the option, else of its place, if it has one, else of the variable.
_korvex_storages() {
    local repository=${(Q)opt_args[--repository]}
    [[ -n $repository || $argv[-1] != place ]] || repository=${(Q)line[1]}
    repository=${repository:-$KORVEX_REPOSITORY}
    [[ -n $repository ]] || return 1
    local -a names expl
    names=("${(@f)$(${~korvex} completion storages -- ${~repository} 2>/dev/null </dev/null)}")
    names=("${(@)names:#}")
    _wanted storages expl 'storage name' compadd -a names
}
)zsh";

constexpr std::string_view Tail = R"zsh(
# The file may be sourced, or found as a function.
[[ $funcstack[1] != _korvex ]] || _korvex "$@"
)zsh";

/// Inside single quotes; brackets and colons would divide what _arguments and _describe read.
std::string Escaped(std::string_view text) {
    return cli::Escaped(text, {{'\'', "'\\''"}, {'[', "\\["}, {']', "\\]"}, {':', "\\:"}, {'\\', "\\\\"}});
}

/// "NAME:(mssql oracle)": what stands behind an option, or at a place.
std::string ValueText(const OptionDescription& option, bool hasPlacedRepository) {
    const std::string label = Escaped(option.label);
    switch (option.kind) {
        case ValueKind::Choice:
            return label + ":(" + CLI::detail::join(option.choices, " ") + ")";
        case ValueKind::File:
            return label + ":_files";
        case ValueKind::Folder:
            return label + ":_files -/";
        case ValueKind::Storage:
            return label + ":_korvex_storages" + (hasPlacedRepository ? " place" : "");
        case ValueKind::Text:
            return label + ": ";
        case ValueKind::None:
            break;
    }
    return {};
}

/// The specifications of an option, one for each of its names.
std::string OptionSpecs(const OptionDescription& option, const std::string& place, bool hasPlacedRepository) {
    std::string others = CLI::detail::join(option.excludes, " ") + place;
    if (!option.isRepeated && option.names.size() > 1) others += " " + CLI::detail::join(option.names, " ");
    if (option.EndsLine()) others = "- : *";
    std::string specs;
    for (const std::string& name : option.names) {
        specs +=
            " \\\n        '" + (others.empty() ? "" : "(" + others + ")") + (option.isRepeated ? "*" : "");
        specs += name;
        if (option.kind != ValueKind::None) specs += name.starts_with("--") ? "=" : "+";
        specs += "[" + Escaped(option.text) + "]";
        if (option.kind != ValueKind::None) specs += ":" + ValueText(option, hasPlacedRepository);
        specs += "'";
    }
    return specs;
}

std::string Specs(const CommandDescription& command) {
    std::string specs;
    int places = 0;
    const bool hasPlacedRepository = std::ranges::any_of(command.options, [](const auto& option) {
        return option.isPlaced && option.IsNamed("--repository");
    });
    for (const OptionDescription& option : command.options) {
        std::string place;
        if (option.isPlaced) {
            place = option.isRepeated ? "*" : std::to_string(++places);
            const std::string others = option.names.empty() ? "" : "(" + option.names.back() + ")";
            specs += " \\\n        '" + others + place + ":" + ValueText(option, hasPlacedRepository) + "'";
        }
        specs += OptionSpecs(option, place, hasPlacedRepository);
    }
    return specs;
}

std::string FunctionName(const CommandDescription& command) {
    std::string name = "_" + command.path;
    std::ranges::replace(name, ' ', '_');
    return name;
}

/// The function of a command, behind those of the commands beneath it.
std::string Functions(const CommandDescription& command, bool isRoot) {
    std::string text;
    for (const CommandDescription& nested : command.commands)
        text += Functions(nested, false);
    text += "\n" + FunctionName(command) + "() {\n";
    if (isRoot) text += "    local korvex=${(Q)words[1]}\n";
    text += "    local curcontext=$curcontext state line\n    local -A opt_args\n    _arguments -C -S" +
            Specs(command);
    if (command.commands.empty()) return text + "\n}\n";
    text +=
        " \\\n        '1: :->command' \\\n        '*:: :->words' && return\n    case $state in\n"
        "        command)\n            local -a commands=(";
    for (const CommandDescription& nested : command.commands)
        text += "\n                '" + nested.Name() + ":" + Escaped(nested.text) + "'";
    text += ")\n            _describe command commands ;;\n        words)\n            case $line[1] in\n";
    for (const CommandDescription& nested : command.commands)
        text += "                " + nested.Name() + ") " + FunctionName(nested) + " ;;\n";
    return text + "            esac ;;\n    esac\n}\n";
}

}  // namespace

std::string ZshCompletion(const CommandDescription& root) {
    return std::string(Head) + Functions(root, true) + std::string(Tail);
}

}  // namespace korvex::cli
