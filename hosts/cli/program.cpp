#include "hosts/cli/program.h"

#include "automation/error.h"
#include "hosts/cli/shell/variables.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <iterator>
#include <memory>
#include <poll.h>
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

/// A file without a name that holds the text; whoever reads it starts at the beginning. No program that
/// stops reading can block or end this one, as it could behind a pipe.
class TextInput {
  public:
    explicit TextInput(const std::string& text) : m_file(std::tmpfile()) {
        const bool isWritten = m_file &&
                               std::fwrite(text.data(), 1, text.size(), m_file.get()) == text.size() &&
                               std::fflush(m_file.get()) == 0;
        if (!isWritten)
            throw Error(automation::DeviceIoError, "No temporary file can be written: " + Reason(errno));
        std::rewind(m_file.get());
    }
    int Handle() const { return fileno(m_file.get()); }

  private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Close> m_file;
};

/// The writing and the reading end of what a program writes.
class Pipe {
  public:
    Pipe() {
        if (pipe2(m_ends.data(), O_CLOEXEC) != 0)
            throw Error(automation::DeviceIoError, "No pipe can be made: " + Reason(errno));
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe() {
        CloseWriter();
        close(m_ends[0]);
    }
    int Reader() const { return m_ends[0]; }
    int Writer() const { return m_ends[1]; }
    void CloseWriter() {
        if (m_ends[1] >= 0) close(m_ends[1]);
        m_ends[1] = -1;
    }

  private:
    std::array<int, 2> m_ends{};
};

using Clock = std::chrono::steady_clock;

/// Reads both pipes to their ends. False when that is not so at `deadline`.
bool ReadAll(std::span<pollfd> pipes, std::span<std::string> texts, Clock::time_point deadline) {
    while (std::ranges::any_of(pipes, [](const pollfd& pipe) { return pipe.fd >= 0; })) {
        const auto rest = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
        if (rest <= 0) return false;
        if (poll(pipes.data(), pipes.size(), static_cast<int>(rest)) < 0 && errno != EINTR) return false;
        for (std::size_t i = 0; i < pipes.size(); ++i) {
            if (pipes[i].fd < 0 || pipes[i].revents == 0) continue;
            std::array<char, 65536> buffer{};
            const ssize_t count = read(pipes[i].fd, buffer.data(), buffer.size());
            if (count > 0) texts[i].append(buffer.data(), static_cast<std::size_t>(count));
            if (count == 0 || (count < 0 && errno != EINTR)) pipes[i].fd = -1;
        }
    }
    return true;
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
    const Clock::time_point deadline = Clock::now() + limit;
    const TextInput file(input);
    Pipe output;
    Pipe messages;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, file.Handle(), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output.Writer(), STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, messages.Writer(), STDERR_FILENO);
    pid_t child = 0;
    const int failure = Start(words, &actions, child);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) return {{}, words.front() + " does not start: " + Reason(failure)};

    output.CloseWriter();
    messages.CloseWriter();
    std::array<pollfd, 2> pipes{pollfd{output.Reader(), POLLIN, 0}, pollfd{messages.Reader(), POLLIN, 0}};
    std::array<std::string, 2> texts;
    const bool isWhole = ReadAll(pipes, texts, deadline);
    if (!isWhole) kill(child, SIGKILL);
    const bool isWell = Wait(child);
    if (!isWhole) {
        return {{},
                words.front() + " took longer than " +
                    std::to_string(std::chrono::duration_cast<std::chrono::seconds>(limit).count()) + " s"};
    }
    if (isWell) return {std::move(texts[0]), {}};
    const std::string said = texts[1].substr(0, texts[1].find('\n'));
    return {{}, words.front() + " ended with a failure" + (said.empty() ? "" : ": " + said)};
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
