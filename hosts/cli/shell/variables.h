#pragma once

#include <CLI/CLI.hpp>

#include <string>

/// Variables of the environment that stand in for options. One that is empty counts as not set.
namespace korvex::cli {

inline constexpr const char* RepositoryVariable = "KORVEX_REPOSITORY";
inline constexpr const char* StorageVariable = "KORVEX_STORAGE";
inline constexpr const char* ConnectionVariable = "KORVEX_CONNECTION";

/// What the variable says, for commands with a rule of their own; empty when it is not set.
std::string ValueOf(const char* variable);

/// CLI11 reads the variables of every command, also of those that the line does not name, and then misses
/// what else these require. Here only the one that is named reads its own.
void HeedVariablesOfChosenCommand(CLI::App& command);

}  // namespace korvex::cli
