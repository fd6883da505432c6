#pragma once

#include "repository/schema.h"

#include <cstdint>
#include <string>

namespace korvex::bench {

/// Makes a repository file with one definition, "Bench", of `objects` objects with ten values each: a tree in
/// which every object holds four others, each fifth object being an element of a collection. No keys yet: a
/// first run adds them.
void GenerateRepository(const std::string& file, std::int64_t objects);
/// The same in an empty database.
void GenerateRepository(dao::Database& database, std::int64_t objects, repository::SchemaEngine engine);

}  // namespace korvex::bench
