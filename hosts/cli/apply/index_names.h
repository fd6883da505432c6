#pragma once

#include "hosts/cli/apply/apply_plan.h"

#include <map>
#include <set>
#include <span>
#include <string>

namespace korvex::cli {

/// Names of indexes on the embedded engine, where they are shared with all other indexes and tables: index 1
/// of Order11 and index 11 of Order1 bear the same name on a server, each within its table.
class IndexNames {
  public:
    /// Takes the names of all tables that the steps make.
    explicit IndexNames(std::span<const ApplyStep> steps);

    /// A CREATE INDEX, with the table's name behind the index's where another table has that name already.
    std::string Rename(const StatementSubject& index, const std::string& statement);

  private:
    std::set<std::string> m_tables;
    std::map<std::string, std::string> m_indexes;  ///< table by index
};

}  // namespace korvex::cli
