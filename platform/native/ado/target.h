#pragma once

#include "platform/native/sql/sqlite/sqlite_session.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace korvex::native::ado_engine {

/// What a connection string asks for.
struct Target {
    std::string file;  ///< of the embedded engine; ":memory:" for a private database without a file
    sql::SqliteMode mode = sql::SqliteMode::ReadWrite;
    bool fullSync = true;
    /// As the driver manager takes it; nothing for the embedded engine.
    std::optional<std::string> odbcString = std::nullopt;
};

/// Reads a connection string:
/// - "Provider=SQLite;Data Source=FILE[;Mode=ReadWrite|Read|Create][;Synchronous=Full|Normal]"
/// - "[Provider=MSDASQL;]DSN=...;..." or "Driver={...};...": everything but ADO's own words goes to the
/// driver. `user` and `password` are added to an ODBC string that names none. adErrProviderNotFound for
/// another provider or none, DbEInitString for a malformed string or an unknown word.
Target ReadTarget(std::string_view connectionString, std::string_view user = {},
                  std::string_view password = {});

/// Connects; EngineErrors come back as automation::Errors with ADO's numbers that name the file or the
/// driver.
std::unique_ptr<sql::Session> OpenSession(const Target& target, std::shared_ptr<sql::Seam> seam);

}  // namespace korvex::native::ado_engine
