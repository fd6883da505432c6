#pragma once

#include "hosts/cli/apply/table_text.h"

#include <string>
#include <vector>

namespace korvex::cli {

/// A table whose records hang beneath one of several parents has a foreign key for each, and a record is
/// saved with 0 in all but one: keys begin at 1, 0 is the key of nothing. The embedded engine would look for
/// a record with the key 0, so triggers make it Null on such tables.

/// The columns in which 0 stands for no parent: those of keys of one column.
std::vector<std::string> ParentColumns(const std::vector<ForeignKey>& keys);

/// The statements that make the triggers of a table; none when it has less than two keys.
std::vector<std::string> NoParentTriggers(const std::string& table, const std::vector<ForeignKey>& keys);

/// Whether a trigger is one of these.
bool IsNoParentTrigger(const std::string& name);

}  // namespace korvex::cli
