#include "hosts/cli/shell/command_tree.h"

#include "automation/nearest_name.h"
#include "automation/text.h"
#include "hosts/cli/commands.h"

#include <algorithm>
#include <sstream>
#include <string_view>

namespace korvex::cli {

namespace {

constexpr std::string_view ExampleIndent = "  ";

/// The words of "NAME:{mssql,oracle}"; CLI11 tells them nowhere else.
std::vector<std::string> ChoicesOf(const std::string& type) {
    const std::size_t begin = type.find('{');
    if (begin == std::string::npos) return {};
    return CLI::detail::split(type.substr(begin + 1, type.find('}') - begin - 1), ',');
}

bool TakesValue(const CLI::Option& option) { return option.get_items_expected_max() > 0; }

ValueKind KindOf(const CLI::Option& option, const std::string& label) {
    constexpr std::string_view files[] = {"FILE", "R", "MODEL", "R MODEL", "OLD", "OLD NEW", "NEW.json"};
    if (!TakesValue(option)) return ValueKind::None;
    if (!ChoicesOf(option.get_type_name()).empty()) return ValueKind::Choice;
    if (label == "FOLDER") return ValueKind::Folder;
    if (option.check_lname("storage")) return ValueKind::Storage;
    return std::ranges::find(files, label) != std::end(files) ? ValueKind::File : ValueKind::Text;
}

OptionDescription Describe(const CLI::Option& option) {
    OptionDescription described;
    for (const std::string& name : option.get_snames())
        described.names.push_back("-" + name);
    for (const std::string& name : option.get_lnames())
        described.names.push_back("--" + name);
    const std::string type = option.get_type_name();
    if (TakesValue(option)) described.label = type.substr(0, type.find(':'));
    described.kind = KindOf(option, described.label);
    described.choices = ChoicesOf(type);
    described.text = option.get_description();
    described.isPlaced = option.get_positional();
    described.isRequired = option.get_required();
    described.isRepeated =
        option.get_expected_max() > 1 || option.get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll;
    described.variable = option.get_envname();
    for (const CLI::Option* other : option.get_excludes())
        described.excludes.push_back(other->get_name());
    return described;
}

void DescribeOptions(const CLI::App& command, std::vector<OptionDescription>& options) {
    for (const CLI::Option* option : command.get_options())
        if (!option->get_group().empty()) options.push_back(Describe(*option));
    for (const CLI::App* group :
         command.get_subcommands([](const CLI::App* app) { return app->get_name().empty(); }))
        DescribeOptions(*group, options);
}

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

}  // namespace

std::string OptionDescription::FullText() const {
    std::string full = text;
    if (isRepeated && !names.empty()) full += "; may stand several times";
    if (!variable.empty()) full += "; " + variable + " stands in for it";
    return full;
}

CommandDescription DescribeCommand(const CLI::App& command, const std::string& path) {
    CommandDescription described{path, command.get_description(), {}, {}, {}};
    DescribeOptions(command, described.options);
    for (const CLI::App* nested : CommandsOf(command))
        if (!nested->get_group().empty())
            described.commands.push_back(DescribeCommand(*nested, path + " " + nested->get_name()));
    std::istringstream footer(command.get_footer());
    for (std::string line; std::getline(footer, line);)
        if (line.starts_with(ExampleIndent)) described.examples.push_back(line.substr(ExampleIndent.size()));
    return described;
}

void AddExample(CLI::App& command, const std::string& line) {
    const std::string footer = command.get_footer();
    command.footer((footer.empty() ? "Example:" : footer) + "\n" + std::string(ExampleIndent) + line);
}

std::vector<const CLI::App*> CommandsOf(const CLI::App& command) {
    return command.get_subcommands([](const CLI::App* app) { return !app->get_name().empty(); });
}

std::string HelpOf(const CLI::App& command) {
    std::string parents;
    for (const CLI::App* parent = command.get_parent(); parent != nullptr; parent = parent->get_parent())
        parents.insert(0, parent->get_name() + (parents.empty() ? "" : " "));
    return command.help(parents);
}

std::string UnknownCommand(const CLI::App& command, const std::string& word) {
    return "There is no command " + automation::Quoted(word) + NearCommand(command, word);
}

}  // namespace korvex::cli
