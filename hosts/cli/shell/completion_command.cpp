#include "automation/convert.h"
#include "automation/error.h"
#include "hosts/cli/app.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/database_file.h"
#include "hosts/cli/session.h"
#include "hosts/cli/shell/completion.h"
#include "hosts/cli/source.h"

#include <csignal>
#include <filesystem>
#include <set>
#include <string>
#include <unistd.h>

namespace korvex::cli {

namespace {

/// A log beside a file of the embedded engine belongs to somebody else: who opens the file only to read it
/// does not take the log into it. Where there is none, such a reader would leave one behind, and others do
/// not.
std::set<std::string> ReadStorageNames(const std::string& place, Console& console) {
    const Platform platform = Session(console).platform;
    if (!std::filesystem::exists(place + "-wal")) {
        Source source = OpenSource(platform, place);
        const std::vector<std::string> names = StorageNames(source.repository);
        return {names.begin(), names.end()};
    }
    const auto connection = platform.targetProvider->CreateConnection();
    connection->Open(ConnectionToFile(place) + ";Mode=Read");
    std::set<std::string> names;
    const auto rows = connection->Execute("select Storage from tDataDefs");
    for (; !rows->Eof(); rows->MoveNext())
        names.insert(automation::ToString(rows->Fields(0)->Value()));
    return names;
}

/// Prints what there is. Whoever presses a key waits, and reads no messages: what fails or takes its time
/// gives nothing.
void PrintStorageNames(const CommonOptions& options, Console& console) {
    constexpr unsigned patience = 3;  // seconds
    std::signal(SIGALRM, [](int) { _exit(ExitFailed); });
    alarm(patience);
    try {
        for (const std::string& name : ReadStorageNames(options.repository, console))
            console.Results() << name << '\n';
    } catch (const automation::Error&) {
        throw CLI::RuntimeError(ExitFailed);
    }
}

}  // namespace

void AddCompletionCommands(CLI::App& root, Console& console) {
    CLI::App& group =
        AddGroup(root, console, "completion", "Print what makes a shell complete the words of korvex");
    const auto add = [&](const char* shell, const char* text, auto write, const char* example) {
        CLI::App* command = group.add_subcommand(shell, text);
        command->callback(
            [&console, write] { console.Results() << write(DescribeCommand(*MakeApp(console))); });
        AddExample(*command, example);
    };
    add("bash", "Print the completion of bash", BashCompletion, "source <(korvex completion bash)");
    add("zsh", "Print the completion of zsh", ZshCompletion, "korvex completion zsh > _korvex");
    const auto [storages, options] = AddCommand(
        group, console, "storages", "Print the storage names of a repository, one a line, and no messages",
        "korvex completion storages orders.db", PrintStorageNames);
    AddRepositoryOption(storages, options);
}

}  // namespace korvex::cli
