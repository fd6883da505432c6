#pragma once

#include "platform/native/sql/engine_error.h"

#include <string_view>

namespace korvex::native::sql {

/// What a result code (extended or primary) and its message mean. Used for the engine's ODBC driver as well,
/// which reports nothing finer.
ErrorKind ClassifySqliteError(int code, std::string_view message) noexcept;

}  // namespace korvex::native::sql
