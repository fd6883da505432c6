#pragma once

#include <sqlite3.h>

#include <string>

namespace korvex::native::sql {

/// Raises what is wrong with a file that should be a database before it is opened: FileNotFound, CannotOpen
/// (a folder, no permission), NotADatabase (empty, no regular file).
void RequireDatabaseFile(const std::string& path);

/// The same once a connection has it open: NotADatabase for a text, a file of the desktop engine.
void RequireDatabaseHeader(sqlite3* database, const std::string& path);

/// Whether a file is one of the desktop engine, by its first bytes; false for a name that cannot be read.
bool IsDesktopFile(const std::string& path);

/// Whether nothing is known to stand in the way of a new database: no file can be seen, or one without
/// content.
bool IsFileFree(const std::string& path) noexcept;

/// Makes the new, empty file that a database is to be created in; false when there is an empty one already.
/// CannotOpen when the file cannot be made.
bool MakeDatabaseFile(const std::string& path);

}  // namespace korvex::native::sql
