#pragma once

#include "automation/error.h"
#include "platform/native/sql/engine_error.h"

#include <string>
#include <string_view>

namespace korvex::native::ado_engine {

/// An engine's failure as ADO reports it, described by sql::DescribeFailure.
automation::Error AdoError(const sql::EngineError& error, std::string_view context);

/// Runs `action`; its engine errors leave with ADO's numbers and `context()` in the description.
template <class Action, class Context>
decltype(auto) WithAdoErrors(Action&& action, Context&& context) {
    try {
        return action();
    } catch (const sql::EngineError& error) {
        throw AdoError(error, context());
    }
}

}  // namespace korvex::native::ado_engine
