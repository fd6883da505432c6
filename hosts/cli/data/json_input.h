#pragma once

#include "automation/error.h"
#include "hosts/cli/text_file.h"

#include <CLI/CLI.hpp>

#include <string>

namespace korvex::cli {

/// The JSON file of a command, standard input unless given.
inline void AddJsonFile(CLI::App& command, std::string& file) {
    command.add_option("FILE", file, "JSON file; - for standard input, which is read unless given");
}

/// Hands the text of a JSON file to `read`, whose errors leave with the file's name in front.
template <class Read>
decltype(auto) WithJsonFile(const std::string& file, Read&& read) {
    const std::string text = ReadTextFile(file);
    try {
        return read(text);
    } catch (const automation::Error& error) {
        const std::string name = file == "-" ? "standard input" : file;
        throw automation::Error(error.Number(), name + ": " + error.Description(), error.Source());
    }
}

}  // namespace korvex::cli
