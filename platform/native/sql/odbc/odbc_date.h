#pragma once

#include "automation/variant.h"
#include "platform/native/sql/odbc/odbc_api.h"

namespace korvex::native::sql {

/// Automation dates in ODBC's form, to the millisecond.
SQL_TIMESTAMP_STRUCT ToTimestamp(automation::Date date);
automation::Date FromTimestamp(const SQL_TIMESTAMP_STRUCT& timestamp);

}  // namespace korvex::native::sql
