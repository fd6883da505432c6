#pragma once

#include <chrono>
#include <string>
#include <vector>

/// Other programs, started without a shell, so that no character of a word is special.
namespace korvex::cli {

/// What a program left behind that was run to its end.
struct ProgramResult {
    std::string output;
    std::string failure;  ///< why there is no output, in a few words; empty when the program did its work
};

/// Runs a program, found on PATH, with a text as its standard input. One that takes longer than `limit` is
/// ended.
ProgramResult RunProgram(const std::vector<std::string>& words, const std::string& input,
                         std::chrono::milliseconds limit);

/// Opens text files in $VISUAL, else $EDITOR (all files at once; blanks in the variable separate the program
/// from its arguments), else one by one through xdg-open. An editor that was named is waited for when this
/// program runs on a terminal, as it may need the terminal for itself. Raises CannotCreateObject (429) when
/// the program does not start or ends with a failure.
void OpenInEditor(const std::vector<std::string>& paths);

/// The same for a page, in the browser that $BROWSER names.
void OpenInBrowser(const std::string& path);

}  // namespace korvex::cli
