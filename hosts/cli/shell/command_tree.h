#pragma once

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The commands of korvex as plain data, for what is written from them: help for shells, and manual pages.
namespace korvex::cli {

/// What an option or a word of the command line may be.
enum class ValueKind : std::uint8_t { None, Text, Choice, File, Folder, Storage };

struct OptionDescription {
    std::vector<std::string> names;  ///< "-h", "--help"; none for a word that stands by its place
    std::string label;               ///< "R", "FOLDER"; empty for a flag
    ValueKind kind = ValueKind::None;
    std::vector<std::string> choices;
    std::string text;
    bool isPlaced = false;  ///< it may stand, or only stands, by its place
    bool isRequired = false;
    bool isRepeated = false;
    std::string variable;               ///< that stands in for it, empty for none
    std::vector<std::string> excludes;  ///< names of options that it does not go with

    /// "--storage"; the label of what only stands by its place.
    const std::string& Name() const { return names.empty() ? label : names.back(); }
    /// The text with what else there is to know about it.
    std::string FullText() const;
    bool IsNamed(std::string_view name) const { return std::ranges::find(names, name) != names.end(); }
    /// --help and --version: nothing else is done.
    bool EndsLine() const { return IsNamed("--help") || IsNamed("--version"); }
};

struct CommandDescription {
    std::string path;  ///< "korvex repository show"
    std::string text;
    std::vector<OptionDescription> options;  ///< in the order of the help, those by place among them
    std::vector<CommandDescription> commands;
    std::vector<std::string> examples;

    /// "show"
    std::string Name() const { return path.substr(path.rfind(' ') + 1); }
};

/// Describes a command with all beneath it; what the help hides is left out.
CommandDescription DescribeCommand(const CLI::App& command, const std::string& path = "korvex");

/// The commands beneath one, groups of options left aside.
std::vector<const CLI::App*> CommandsOf(const CLI::App& command);

/// Its help, with all its words in the usage.
std::string HelpOf(const CLI::App& command);

/// Says that there is no command `word` beneath one, and which was probably meant: one that it begins, one
/// spelt much like it, or one of another level.
std::string UnknownCommand(const CLI::App& command, const std::string& word);

}  // namespace korvex::cli
