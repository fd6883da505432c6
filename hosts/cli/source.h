#pragma once

#include "platform/platform.h"
#include "repository/repository.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

/// What the commands take for a repository, and how each kind is opened. Nobody else looks at what such an
/// argument names.
namespace korvex::cli {

enum class SourceKind : std::uint8_t {
    File,   ///< a repository file, also one that is missing
    Odbc,   ///< a connection string with DSN=
    Model,  ///< definitions as JSON
    Text,   ///< a file that is none of these
};

/// By the content of the file; its name decides only where that tells nothing.
SourceKind KindOfSource(std::string_view place);

/// A definition source that was opened.
struct Source {
    repository::Repository repository;
    /// ValueIDs of the values to which a model itself gives a number; nothing for a repository.
    std::optional<std::unordered_set<repository::ValueId>> numbered;
};

/// Opens any kind of source. A model becomes a repository that nobody else sees, gone when it is closed; its
/// errors are those of ReadModel and ImportModel. For a repository, makes sure that it has all tables and
/// columns: TableNotFound (3078) or ItemNotFound (3265), naming what is missing.
Source OpenSource(const Platform& platform, const std::string& place);

/// `engine` with a file that is no repository, but another kind of source, opened in the same way.
std::shared_ptr<dao::DBEngine> EngineForSources(std::shared_ptr<dao::DBEngine> engine);

/// Raises ReadOnlyDatabase (3027) for a source that is only read; says what to do.
void ExpectWritable(const std::string& place);

}  // namespace korvex::cli
