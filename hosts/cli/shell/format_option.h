#pragma once

#include "hosts/cli/console.h"

#include <CLI/CLI.hpp>

#include <string>

namespace korvex::cli {

/// --format of commands that also speak to machines: with "json", console.Document() is there when they run.
inline void AddFormatOption(CLI::App& command, Console& console) {
    const auto choose = [&console](const std::string& format) {
        if (format == "json") console.UseDocument();
    };
    command.add_option_function<std::string>("--format", choose, "text (the default) or json")
        ->type_name("FORMAT")
        ->check(CLI::IsMember({"text", "json"}));
}

}  // namespace korvex::cli
