#pragma once

#include "persistence/db_results.h"

#include <string_view>

namespace korvex::cli {

/// What a result code says, and what to do about it.
struct ResultText {
    dbResults code;
    std::string_view meaning;
    std::string_view remedy;  ///< empty for none
};

const ResultText& TextOf(dbResults code) noexcept;

}  // namespace korvex::cli
