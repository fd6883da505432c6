#pragma once

#include "platform/ado.h"
#include "scriptgen/migration/live_tables.h"

#include <optional>
#include <string>
#include <string_view>

/// What the embedded engine knows of its tables.
namespace korvex::cli {

using scriptgen::IsEmbedded;
using scriptgen::QuoteText;
using scriptgen::ReadTexts;

/// A table as it was made.
struct StoredTable {
    std::string name;  ///< as the engine spells it
    std::string text;  ///< its CREATE TABLE statement
};

/// In any case; nothing when it is not there.
std::optional<StoredTable> FindTable(ado::Connection& connection, std::string_view name);

}  // namespace korvex::cli
