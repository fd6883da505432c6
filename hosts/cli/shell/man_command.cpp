#include "hosts/cli/commands.h"
#include "hosts/cli/session.h"
#include "hosts/cli/shell/command_tree.h"
#include "hosts/cli/shell/variables.h"
#include "hosts/cli/text_file.h"
#include "hosts/cli/wording.h"

#include <cctype>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex::cli {

namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

/// For roff: hyphens, quotes and backslashes stay what they are, and no line begins a request.
std::string Escaped(std::string_view text) {
    const std::string escaped = cli::Escaped(text, {{'\\', "\\e"}, {'-', "\\-"}, {'\'', "\\(aq"}});
    return escaped.starts_with('.') ? "\\&" + escaped : escaped;
}

std::string Bold(std::string_view text) { return "\\fB" + Escaped(text) + "\\fR"; }
std::string Italic(std::string_view text) { return "\\fI" + Escaped(text) + "\\fR"; }
std::string Entry(const std::string& head, std::string_view text) {
    return ".TP\n" + head + "\n" + Escaped(text) + "\n";
}

std::string PageName(const CommandDescription& command) {
    std::string name = command.path;
    std::ranges::replace(name, ' ', '-');
    return name;
}

/// "Write the files" as it stands behind a name: "write the files".
std::string Summary(const CommandDescription& command) {
    std::string text = command.text.substr(0, command.text.find_last_not_of('.') + 1);
    if (!text.empty())
        text.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(text.front())));
    return text;
}

/// What has to stand on the line, what may stand there by its place, and that there is more.
std::string Synopsis(const CommandDescription& command) {
    std::string line = Bold(command.path);
    bool hasMore = false;
    for (const OptionDescription& option : command.options) {
        if (!option.isPlaced && !option.isRequired) {
            hasMore = hasMore || !option.EndsLine();
            continue;
        }
        const std::string word =
            (option.isPlaced ? "" : Bold(option.names.back()) + " ") + Italic(option.label) +
            (option.isRepeated && option.label.find(' ') == std::string::npos ? "..." : "");
        line += option.isRequired ? " " + word : " [" + word + "]";
    }
    if (!command.commands.empty()) line += " " + Italic("COMMAND");
    return line + (hasMore ? " [" + Italic("OPTION") + "]...\n" : "\n");
}

std::string OptionEntry(const OptionDescription& option) {
    std::string head = option.isPlaced ? Italic(option.label) : "";
    for (const std::string& name : option.names)
        head += (head.empty() ? "" : ", ") + Bold(name);
    if (!option.names.empty() && option.kind != ValueKind::None) head += " " + Italic(option.label);
    return Entry(head, option.FullText());
}

/// What every command has is not said again for those of a group.
std::string OptionEntries(const CommandDescription& command, bool isNested = false) {
    std::string text;
    for (const bool isPlaced : {true, false})
        for (const OptionDescription& option : command.options)
            if (option.isPlaced == isPlaced && !(isNested && option.EndsLine())) text += OptionEntry(option);
    return text;
}

std::string Examples(const CommandDescription& command) {
    std::string text;
    for (const std::string& example : command.examples)
        text += ".PP\n.nf\n.RS\n" + Escaped(example) + "\n.RE\n.fi\n";
    return text;
}

void AddVariables(const CommandDescription& command, Pairs& variables) {
    for (const OptionDescription& option : command.options) {
        const std::pair<std::string, std::string> entry(
            option.variable, "Stands in for " + option.Name() + " where the line does not name it.");
        if (!option.variable.empty() && std::ranges::find(variables, entry) == variables.end())
            variables.push_back(entry);
    }
    for (const CommandDescription& nested : command.commands)
        AddVariables(nested, variables);
}

std::string Entries(const Pairs& pairs) {
    std::string text;
    for (const auto& [head, meaning] : pairs)
        text += Entry(Bold(head), meaning);
    return text;
}

std::string Head(const CommandDescription& command, const std::string& version, const std::string& date) {
    std::string title = PageName(command);
    std::ranges::transform(title, title.begin(),
                           [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return ".TH " + Escaped(title) + " 1 \"" + date + "\" \"korvex " + version +
           "\" \"User Commands\"\n.SH NAME\n" + Escaped(PageName(command)) + " \\- " +
           Escaped(Summary(command)) + "\n.SH SYNOPSIS\n";
}

std::string Foot(const CommandDescription& command, const std::string& seeAlso) {
    Pairs variables;
    AddVariables(command, variables);
    variables.insert(variables.end(),
                     {{"NO_COLOR", "When it is not empty, messages on a terminal are not coloured."},
                      {"VISUAL", "The program that shows a file to a person."},
                      {"EDITOR", "The same where VISUAL is not set."}});
    return ".SH ENVIRONMENT\n" + Entries(variables) + ".SH EXIT STATUS\n" +
           Entries(
               {{"0", "Done."},
                {"1", "Failed, or what was checked is not in order. A message on standard error tells why."},
                {"2", "Wrong usage."}}) +
           ".SH SEE ALSO\n" + seeAlso;
}

/// The page of a command; one of a group tells of all beneath it.
std::string Page(const CommandDescription& command) {
    const bool isGroup = !command.commands.empty();
    std::string text = Synopsis(command);
    for (const CommandDescription& nested : command.commands)
        text += ".br\n" + Synopsis(nested);
    if (isGroup) text.erase(0, text.find('\n') + 5);
    text += ".SH DESCRIPTION\n" + Escaped(command.text) + ".\n";
    if (!isGroup)
        return text + ".SH OPTIONS\n" + OptionEntries(command) + ".SH EXAMPLES\n" + Examples(command);
    text += ".SH OPTIONS\n" + OptionEntries(command) + ".SH COMMANDS\n";
    for (const CommandDescription& nested : command.commands)
        text += ".SS " + Escaped(nested.path) + "\n" + Escaped(nested.text) + ".\n" +
                OptionEntries(nested, true) + Examples(nested);
    return text;
}

std::string MainPage(const CommandDescription& root) {
    std::string text = Synopsis(root) + ".SH DESCRIPTION\n" + Escaped(root.text) + "\n.SH COMMANDS\n";
    for (const CommandDescription& command : root.commands)
        text += Entry("\\fB" + Escaped(PageName(command)) + "\\fR(1)", command.text + ".");
    return text + ".SH OPTIONS\n" + OptionEntries(root) + ".SH EXAMPLES\n" + Examples(root);
}

/// The manual pages, by file name: korvex.1, and one for each command beneath it, with all of a group in the
/// group's own. `date` stands in their footers; it may be empty.
std::map<std::string, std::string> ManPages(const CommandDescription& root, const std::string& version,
                                            const std::string& date) {
    std::map<std::string, std::string> pages;
    std::string all;
    for (const CommandDescription& command : root.commands) {
        all += (all.empty() ? ".BR " : " ,\n.BR ") + Escaped(PageName(command)) + " (1)";
        pages[PageName(command) + ".1"] =
            Head(command, version, date) + Page(command) + Foot(command, ".BR korvex (1)\n");
    }
    pages["korvex.1"] = Head(root, version, date) + MainPage(root) + Foot(root, all + "\n");
    return pages;
}

/// The day that a build which can be repeated says is its own; none else, so that pages never differ.
std::string BuildDate() {
    const std::string epoch = ValueOf("SOURCE_DATE_EPOCH");
    if (epoch.empty()) return {};
    const std::time_t seconds = std::strtoll(epoch.c_str(), nullptr, 10);
    std::tm day{};
    char text[sizeof "2000-01-01 and more"];
    if (gmtime_r(&seconds, &day) == nullptr || std::strftime(text, sizeof text, "%Y-%m-%d", &day) == 0)
        return {};
    return text;
}

void WriteManPages(const std::string& folder, Console& console) {
    const Session session(console);
    CreateFolder(folder);
    for (const auto& [name, text] :
         ManPages(DescribeCommand(*MakeApp(console)), KORVEX_VERSION, BuildDate())) {
        const std::string path = (std::filesystem::path(folder) / name).string();
        session.platform.files->WriteText(path, text, "");
        console.Results() << path << '\n';
    }
}

}  // namespace

void AddManCommand(CLI::App& root, Console& console) {
    const auto [command, folder] =
        AddCommand(root, console, "man", "Write the manual pages of korvex into a folder", "korvex man man1",
                   WriteManPages);
    AddOption(command, "FOLDER", "FOLDER", folder, "Folder of the pages, created when missing")->required();
}

}  // namespace korvex::cli
