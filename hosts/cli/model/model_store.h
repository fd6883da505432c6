#pragma once

#include "hosts/cli/model/model.h"
#include "platform/dao.h"

namespace korvex::cli {

/// Writes into a repository what `after` has and `before`, which it holds, has not, and deletes what is not
/// in `after`. Rows that do not differ are left alone. Fills in the identifiers that new rows get. What fails
/// is told with the place in the model.
void StoreModel(const Model& before, Model& after, dao::Database& database);

}  // namespace korvex::cli
