#include "hosts/cli/text_file.h"

#include "automation/error.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <system_error>

namespace korvex::cli {

using automation::Error;

namespace {

std::string ReadAll(std::istream& stream, const std::string& name) {
    std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (stream.bad()) throw Error(automation::PathFileAccessError, name + ": Cannot be read");
    return text;
}

}  // namespace

std::string ReadTextFile(const std::string& path) {
    if (path == "-") return ReadAll(std::cin, "standard input");
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored)) {
        throw Error(automation::PathFileAccessError, path + ": Is a directory");
    }
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        const int reason = errno;
        throw Error(reason == ENOENT ? FileNotFoundError : automation::PathFileAccessError,
                    path + ": " + std::generic_category().message(reason));
    }
    return ReadAll(file, path);
}

void CreateFolder(const std::string& folder) {
    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    // An existing link to a folder counts as a failure above on some systems.
    std::error_code ignored;
    if (!failure || std::filesystem::is_directory(folder, ignored)) return;
    throw automation::Error(automation::PathFileAccessError,
                            "The folder cannot be created: " + folder + " (" + failure.message() + ")");
}

}  // namespace korvex::cli
