#pragma once

#include "hosts/cli/model/model.h"
#include "repository/catalog.h"

#include <string_view>

namespace korvex::cli {

/// The definitions of that storage name with every object beneath them in walk order; with an empty name
/// everything that the repository holds, unused objects and interfaces at the end. What refers to rows that
/// do not exist is left out.
Model ExportModel(const repository::Catalog& catalog, std::string_view storage);

}  // namespace korvex::cli
