#include "hosts/cli/program.h"

#include "automation/error.h"
#include "hosts/cli/shell/variables.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <iterator>
#include <memory>
#include <span>
#include <spawn.h>
#include <sstream>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace korvex::cli {

namespace {

using automation::Error;

std::string Reason(int error) { return std::generic_category().message(error); }

/// Starts a program found on PATH; 0, or why it does not start. `actions` may be nullptr.
int Start(std::vector<std::string> words, const posix_spawn_file_actions_t* actions, pid_t& child) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    return posix_spawnp(&child, arguments.front(), actions, nullptr, arguments.data(), environ);
}

/// Whether it ended well.
bool Wait(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) == -1) {
        if (errno != EINTR) return true;
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// A file without a name. No program that stops reading or writing it can block or end this one, as it could
/// behind a pipe.
class TemporaryFile {
  public:
    explicit TemporaryFile(std::string_view text = {}) : m_file(std::tmpfile()) {
        const bool isWritten = m_file &&
                               std::fwrite(text.data(), 1, text.size(), m_file.get()) == text.size() &&
                               std::fflush(m_file.get()) == 0;
        if (!isWritten)
            throw Error(automation::DeviceIoError, "No temporary file can be written: " + Reason(errno));
        std::rewind(m_file.get());
    }
    int Handle() const { return fileno(m_file.get()); }
    /// All of it, whoever wrote it.
    std::string Read() const {
        std::rewind(m_file.get());
        std::string text;
        std::array<char, 65536> buffer{};
        while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), m_file.get()))
            text.append(buffer.data(), count);
        return text;
    }

  private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Close> m_file;
};

/// Waits until a program has ended by itself; one that takes longer than `limit` is ended. Whether it was in
/// time.
bool EndsWithin(pid_t child, std::chrono::milliseconds limit) {
    std::promise<void> end;
    auto isOver = std::async(std::launch::async, [child, limit, over = end.get_future()] {
        if (over.wait_for(limit) == std::future_status::ready) return true;
        kill(child, SIGKILL);
        return false;
    });
    // It stays as it ended, so that nobody else gets its number before the other thread is done.
    siginfo_t how{};
    while (waitid(P_PID, static_cast<id_t>(child), &how, WEXITED | WNOWAIT) == -1 && errno == EINTR) {
    }
    end.set_value();
    return isOver.get();
}

/// The program that the first variable with a text names, with its arguments; empty for none.
std::vector<std::string> NamedProgram(std::span<const char* const> variables) {
    for (const char* variable : variables) {
        std::istringstream stream(ValueOf(variable));
        std::vector<std::string> words;
        for (std::string word; stream >> word;)
            words.push_back(word);
        if (!words.empty()) return words;
    }
    return {};
}

/// A path that no program takes for an option or an address.
std::string PlainPath(const std::string& path) {
    return path.starts_with('/') || path.starts_with('.') ? path : "./" + path;
}

pid_t StartViewer(const std::vector<std::string>& words, const std::string& kind) {
    pid_t child = 0;
    if (const int failure = Start(words, nullptr, child); failure != 0) {
        throw Error(automation::CannotCreateObject,
                    "The " + kind + " does not start: " + words.front() + " (" + Reason(failure) + ")");
    }
    return child;
}

void Open(const std::vector<std::string>& paths, std::span<const char* const> variables,
          const std::string& kind) {
    std::vector<std::string> words = NamedProgram(variables);
    if (words.empty()) {
        for (const std::string& path : paths)
            StartViewer({"xdg-open", PlainPath(path)}, kind);
        return;
    }
    std::ranges::transform(paths, std::back_inserter(words), PlainPath);
    const pid_t child = StartViewer(words, kind);
    const bool onTerminal = isatty(STDIN_FILENO) == 1 && isatty(STDOUT_FILENO) == 1;
    if (onTerminal && !Wait(child))
        throw Error(automation::CannotCreateObject,
                    "The " + kind + " ended with a failure: " + words.front());
}

}  // namespace

ProgramResult RunProgram(const std::vector<std::string>& words, const std::string& input,
                         std::chrono::milliseconds limit) {
    const std::array<TemporaryFile, 3> files = {TemporaryFile(input), TemporaryFile(), TemporaryFile()};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (const int handle : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_adddup2(&actions, files.at(static_cast<std::size_t>(handle)).Handle(),
                                         handle);
    pid_t child = 0;
    const int failure = Start(words, &actions, child);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) return {{}, words.front() + " does not start: " + Reason(failure)};

    const bool isInTime = EndsWithin(child, limit);
    const bool isWell = Wait(child);
    if (!isInTime) {
        return {{},
                words.front() + " took longer than " +
                    std::to_string(std::chrono::duration_cast<std::chrono::seconds>(limit).count()) + " s"};
    }
    if (isWell) return {files[STDOUT_FILENO].Read(), {}};
    const std::string said = files[STDERR_FILENO].Read();
    const std::string line = said.substr(0, said.find('\n'));
    return {{}, words.front() + " ended with a failure" + (line.empty() ? "" : ": " + line)};
}

void OpenInEditor(const std::vector<std::string>& paths) {
    constexpr std::array variables = {"VISUAL", "EDITOR"};
    Open(paths, variables, "editor");
}

void OpenInBrowser(const std::string& path) {
    constexpr std::array variables = {"BROWSER"};
    Open({path}, variables, "browser");
}

}  // namespace korvex::cli
