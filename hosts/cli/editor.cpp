#include "hosts/cli/editor.h"

#include "automation/error.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <iterator>
#include <spawn.h>
#include <sstream>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace korvex::cli {

namespace {

using automation::Error;

std::vector<std::string> SplitWords(const char* text) {
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    return words;
}

/// The editor that the environment names, with its arguments; empty for none.
std::vector<std::string> NamedEditor() {
    for (const char* variable : {"VISUAL", "EDITOR"}) {
        if (const char* value = std::getenv(variable)) {
            std::vector<std::string> words = SplitWords(value);
            if (!words.empty()) return words;
        }
    }
    return {};
}

/// A path that no program takes for an option or an address.
std::string PlainPath(const std::string& path) {
    return path.starts_with('/') || path.starts_with('.') ? path : "./" + path;
}

/// Starts a program without a shell, so that no character of a path is special.
pid_t Start(std::vector<std::string> words) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    pid_t child = 0;
    const int failure = posix_spawnp(&child, arguments.front(), nullptr, nullptr, arguments.data(), environ);
    if (failure != 0) {
        throw Error(automation::CannotCreateObject, "The editor does not start: " + words.front() + " (" +
                                                        std::generic_category().message(failure) + ")");
    }
    return child;
}

void Wait(pid_t child, const std::string& program) {
    int status = 0;
    while (waitpid(child, &status, 0) == -1) {
        if (errno != EINTR) return;
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return;
    throw Error(automation::CannotCreateObject, "The editor ended with a failure: " + program);
}

}  // namespace

void OpenInEditor(const std::vector<std::string>& paths) {
    std::vector<std::string> words = NamedEditor();
    if (words.empty()) {
        for (const std::string& path : paths) {
            Start({"xdg-open", PlainPath(path)});
        }
        return;
    }
    const std::string program = words.front();
    std::ranges::transform(paths, std::back_inserter(words), PlainPath);
    const pid_t child = Start(std::move(words));
    const bool onTerminal = isatty(STDIN_FILENO) == 1 && isatty(STDOUT_FILENO) == 1;
    if (onTerminal) Wait(child, program);
}

}  // namespace korvex::cli
