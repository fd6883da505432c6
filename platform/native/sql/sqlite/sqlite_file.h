#pragma once

#include <string>

namespace korvex::native::sql {

/// Raises what is wrong with a file that should be a database: FileNotFound, CannotOpen (a folder, no
/// permission), NotADatabase (empty, a text, a file of the desktop engine).
void RequireDatabaseFile(const std::string& path);

/// Makes the new, empty file that a database is to be created in; CannotOpen when the name is taken or the
/// file cannot be made.
void MakeDatabaseFile(const std::string& path);

}  // namespace korvex::native::sql
