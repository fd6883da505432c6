#pragma once

#include "platform/native/sql/engine_error.h"
#include "platform/native/sql/odbc/odbc_calls.h"
#include "platform/native/sql/odbc/odbc_handle.h"
#include "platform/native/sql/traits.h"

#include <string>
#include <string_view>

namespace korvex::native::sql {

/// What differs between the engines behind ODBC.
struct OdbcDialect {
    EngineTraits traits = {};
    /// The connection string as messages show it, without its password.
    std::string source = {};
    /// Columns hold values of any type: the declared type's name decides, numbers are read as text first, and
    /// a sole key declared INTEGER is numbered by the engine although the driver does not say so.
    bool dynamicTypes = false;
    /// The driver gives a row's values in any order, bound ones too: what is short is bound, what is long is
    /// read when it is asked for. Otherwise all are read one by one, from left to right. The session finds
    /// out.
    bool bindsColumns = false;
    /// Rows come in any order unless the statement asks for one: they are asked for by key, or in tables
    /// without a key by this hidden column. Empty where they come in the order of the key of themselves.
    std::string rowOrderColumn = {};
    /// Sent once behind the connect, whatever the connection string says; empty for nothing.
    std::string firstStatement = {};
    /// Narrow text passes as UTF-8, which spares the driver much work: texts go so.
    bool narrowTexts = false;
    /// Preparing costs an answer of the server: a text goes with its values when it is used for the first
    /// time and is prepared for the second.
    bool preparesLate = false;
    /// A query for the columns of the primary keys of all tables that are found by their name alone: schema,
    /// table, column (Null for a table without a key), in the order of the columns. Empty: each table is
    /// asked for by the driver's own function.
    std::string keysQuery = {};
    OdbcCalls calls = {};
    /// What the engine's own codes and texts say beyond the standard SQLSTATE; null when they add nothing.
    ErrorKind (*refine)(const OdbcDiagnosis& diagnosis) = nullptr;
};

/// The one place that looks at an engine's name (SQL_DBMS_NAME).
OdbcDialect DialectOf(std::string_view engineName);

/// The failure that `handle` reports.
EngineError OdbcError(const OdbcHandle& handle, const OdbcDialect& dialect);

/// Raises unless the call succeeded.
inline void CheckOdbc(SQLRETURN result, const OdbcHandle& handle, const OdbcDialect& dialect) {
    if (!SQL_SUCCEEDED(result)) throw OdbcError(handle, dialect);
}

}  // namespace korvex::native::sql
