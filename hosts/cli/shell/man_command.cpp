#include "hosts/cli/commands.h"
#include "hosts/cli/session.h"
#include "hosts/cli/shell/man_pages.h"
#include "hosts/cli/shell/variables.h"
#include "hosts/cli/text_file.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>

namespace korvex::cli {

namespace {

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
    command.add_option("FOLDER", folder, "Folder of the pages, created when missing")
        ->required()
        ->type_name("FOLDER");
}

}  // namespace korvex::cli
