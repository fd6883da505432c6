#pragma once

#include "automation/error.h"
#include "platform/native/sql/engine_error.h"

#include <string_view>
#include <type_traits>

namespace korvex::native {

/// An engine's failure as ADO or DAO reports it: with their own number, described by sql::DescribeFailure.
automation::Error AdoError(const sql::EngineError& error, std::string_view context);
automation::Error DaoError(const sql::EngineError& error, std::string_view context);

/// Runs `work`; its engine errors leave as `portError` (AdoError, DaoError) has them. `context` is a text, or
/// a function that gives one.
template <auto portError, class Context = std::string_view, class Work>
decltype(auto) WithErrors(const Context& context, Work&& work) {
    try {
        return work();
    } catch (const sql::EngineError& error) {
        if constexpr (std::is_invocable_v<Context>)
            throw portError(error, context());
        else
            throw portError(error, context);
    }
}

}  // namespace korvex::native
