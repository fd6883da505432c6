#pragma once

#include "platform/native/sql/column.h"
#include "platform/native/sql/odbc/odbc_handle.h"

#include <string>
#include <string_view>

namespace korvex::native::sql {

/// The functions of ODBC that take statements and names or give names, in the form in which the driver knows
/// them.
struct OdbcCalls {
    /// The driver knows narrow statements and names alone, in UTF-8. The driver manager would bring wide ones
    /// to it in Latin-1.
    bool areNarrow = false;

    SQLRETURN Prepare(SQLHSTMT statement, std::string_view text) const;
    SQLRETURN Execute(SQLHSTMT statement, std::string_view text) const;
    SQLRETURN PrimaryKeys(SQLHSTMT query, const TableName& table) const;
    /// A text attribute of a result's column; "" for what the driver does not know.
    std::string Attribute(SQLHSTMT statement, SQLUSMALLINT column, SQLUSMALLINT attribute) const;
};

}  // namespace korvex::native::sql
