#pragma once

#include "scriptgen/run_state.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace korvex::scriptgen {

/// What is fixed for a target dialect.
struct ScriptTypeInfo {
    ScriptType type = ScriptType::None;
    std::int32_t stringNumber = 0;  ///< number of the dialect's name at a language service
    std::string_view number;        ///< the same as text: the identifier without a language service
    std::string_view displayName;   ///< when the language service has no name of its own
    std::int16_t maxCharLen = 0;    ///< longest variable-length character column
    std::array<std::string_view, 5> fileNames;  ///< in the order of the script buffers
};

/// The three dialects in the order in which hosts are offered them.
std::span<const ScriptTypeInfo> AllScriptTypes() noexcept;

/// The row of a dialect; nullptr for None.
const ScriptTypeInfo* FindScriptType(ScriptType type) noexcept;

}  // namespace korvex::scriptgen
