#pragma once

#include "automation/dispatch.h"
#include "platform/dao.h"

#include <memory>

namespace korvex::test {

/// A DAO Recordset, with its Fields collection and Field objects behind it. `database` is kept alive.
std::shared_ptr<automation::TableObject> WrapRecordset(std::unique_ptr<dao::Recordset> rows,
                                                       automation::ObjectRef database);

}  // namespace korvex::test
