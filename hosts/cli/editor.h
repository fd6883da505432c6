#pragma once

#include <string>
#include <vector>

namespace korvex::cli {

/// Opens text files in $VISUAL, else $EDITOR (all files at once; blanks in the variable separate the program
/// from its arguments), else one by one through xdg-open. An editor that was named is waited for when this
/// program runs on a terminal, as it may need the terminal for itself. Raises CannotCreateObject (429) when
/// the program does not start or ends with a failure.
void OpenInEditor(const std::vector<std::string>& paths);

}  // namespace korvex::cli
