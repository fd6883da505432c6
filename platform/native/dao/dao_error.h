#pragma once

#include "platform/native/sql/engine_error.h"

#include <string>
#include <string_view>
#include <utility>

namespace korvex::native::dao_engine {

/// Raises the automation::Error that DAO raises for an engine's failure. `context` (a statement) ends the
/// description.
[[noreturn]] void RaiseDaoError(const sql::EngineError& error, std::string_view context);

/// Runs `work`; engine failures leave it as DAO errors.
template <class Work>
decltype(auto) Guarded(std::string_view context, Work&& work) {
    try {
        return std::forward<Work>(work)();
    } catch (const sql::EngineError& error) {
        RaiseDaoError(error, context);
    }
}

}  // namespace korvex::native::dao_engine
