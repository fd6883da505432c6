#pragma once

#include "automation/dispatch.h"

#include <memory>

/// ADODB.Connection and ADODB.Recordset on ODBC drivers.
namespace korvex::test {

std::shared_ptr<automation::TableObject> CreateAdoConnection();
std::shared_ptr<automation::TableObject> CreateAdoRecordset();

}  // namespace korvex::test
