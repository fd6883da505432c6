#include "hosts/cli/korvex_command.h"

#include "hosts/cli/app.h"
#include "platform/platform.h"
#include "support/ordinary_user.h"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <iomanip>
#include <spawn.h>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace korvex::tests {

namespace {

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

}  // namespace

CommandResult RunKorvex(const std::vector<std::string>& arguments,
                        const std::vector<std::string>& environment, const std::string& outputFile,
                        const std::string& inputFile) {
    const TempFolder folder;
    std::vector<std::string> words = {KORVEX_COMMAND};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> settings = environment;
    for (char** setting = environ; *setting != nullptr; ++setting)
        settings.emplace_back(*setting);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    const int flags = O_WRONLY | O_CREAT | O_TRUNC;
    const std::string output = outputFile.empty() ? folder.Path("output") : outputFile;
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, inputFile.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(), flags, 0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, folder.Path("messages").c_str(), flags, 0600);
    pid_t child = 0;
    const int failure = posix_spawn(&child, KORVEX_COMMAND, &actions, nullptr, Pointers(words).data(),
                                    Pointers(settings).data());
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) throw std::runtime_error("the command does not start: " KORVEX_COMMAND);

    int status = 0;
    waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, folder.Read("output"), folder.Read("messages")};
}

CommandResult RunKorvexAsOrdinaryUser(const std::string& closedFolder,
                                      const std::vector<std::string>& arguments) {
    std::vector<std::string> words = {"korvex"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const std::vector<char*> pointers = Pointers(words);
    std::ostringstream results;
    std::ostringstream messages;
    cli::Console console(results, messages);
    const OrdinaryUser user(closedFolder);
    const int exitCode = cli::RunCommandLine(static_cast<int>(words.size()), pointers.data(), console);
    return {exitCode, results.str(), messages.str()};
}

std::vector<std::string> Words(std::string_view line) {
    std::istringstream stream{std::string(line)};
    std::vector<std::string> words;
    for (std::string word; stream >> std::quoted(word, '\'');)
        words.push_back(word);
    return words;
}

void ExpectFailure(const CommandResult& result, std::string_view part, int exitCode) {
    EXPECT_EQ(result.exitCode, exitCode) << part;
    EXPECT_EQ(result.output, "") << part;
    EXPECT_THAT(result.messages, testing::HasSubstr(part));
    if (exitCode == 1) {
        EXPECT_THAT(result.messages, testing::MatchesRegex("korvex: [^\n]*\n"));
    }
}

RepositoryFile::RepositoryFile() {
    const CommandResult made = RunKorvex({"repository", "new", Path()});
    if (made.exitCode != 0) throw std::runtime_error("no repository: " + made.messages);
}

RepositoryFile::RepositoryFile(std::string_view model) : RepositoryFile() {
    const CommandResult imported = Import(model);
    if (imported.exitCode != 0) throw std::runtime_error("not imported: " + imported.messages);
}

CommandResult RepositoryFile::Import(std::string_view model) const {
    return RunKorvex({"repository", "import", Path(), m_folder.Write("model.json", model)});
}

void RepositoryFile::Execute(const std::vector<std::string>& statements) const {
    const auto database = DefaultPlatform().repositoryEngine->OpenDatabase(Path());
    for (const std::string& statement : statements)
        database->Execute(statement);
    database->Close();
}

std::string Replace(std::string text, std::string_view part, std::string_view replacement) {
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at)) {
        text.replace(at, part.size(), replacement);
        at += replacement.size();
    }
    return text;
}

}  // namespace korvex::tests
