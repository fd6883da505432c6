#pragma once

#include "automation/variant.h"

#include <sql.h>
#include <sqlext.h>

namespace korvex::native::sql {

/// Automation dates in ODBC's form, to the millisecond.
SQL_TIMESTAMP_STRUCT ToTimestamp(automation::Date date);
automation::Date FromTimestamp(const SQL_TIMESTAMP_STRUCT& timestamp);

}  // namespace korvex::native::sql
