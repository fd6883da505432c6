#pragma once

#include "automation/error.h"
#include "hosts/cli/console.h"
#include "hosts/cli/text_file.h"
#include "objects/json.h"

#include <CLI/CLI.hpp>

#include <string>

namespace korvex::cli {

/// The JSON file of a command, standard input unless given.
inline void AddJsonFile(CLI::App& command, std::string& file) {
    command.add_option("FILE", file, "JSON file; - for standard input, which is read unless given")
        ->type_name("FILE");
}

inline std::string JsonFileName(const std::string& file) { return file == "-" ? "standard input" : file; }

/// Hands the text of a JSON file to `read`, with a list for members that are not stored, which are named on
/// the console. Errors leave with the file's name in front.
template <class Read>
auto WithJsonFile(const std::string& file, Console& console, Read&& read) {
    const std::string text = ReadTextFile(file);
    const std::string prefix = JsonFileName(file) + ": ";
    objects::UnstoredMembers unstored;
    try {
        auto result = read(text, unstored);
        for (const std::string& member : unstored)
            console.Message(prefix + member + " is left out: its definition does not have it stored.");
        return result;
    } catch (const automation::Error& error) {
        throw automation::Error(error.Number(), prefix + error.Description(), error.Source());
    }
}

}  // namespace korvex::cli
