#pragma once

#include "hosts/cli/model/model.h"
#include "repository/catalog.h"

#include <string>
#include <string_view>
#include <vector>

namespace korvex::cli {

struct ExportedModel : StoredModel {
    std::vector<std::string> leftOut;  ///< what refers to rows that do not exist, in words
};

/// The definitions of that storage name with every object beneath them in walk order; with an empty name
/// everything that the repository holds, unused objects and interfaces at the end.
ExportedModel ExportModel(const repository::Catalog& catalog, std::string_view storage);

}  // namespace korvex::cli
