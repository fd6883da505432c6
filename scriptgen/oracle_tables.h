#pragma once

#include "scriptgen/dialect.h"

#include <string>
#include <string_view>

namespace korvex::scriptgen {

/// Oracle: a table's counter column is filled by a sequence and a trigger.
class OracleDialect final : public Dialect {
  public:
    /// Nothing: types are written with the table, and procedures refer to its columns for them.
    std::string ColumnTypeText(const RunState& run, Column& column) const override;
    std::string_view ConstraintTerminator() const noexcept override { return "; \r\n"; }
    void AddStoredProcedures(RunState& run) const override;
    /// Sets the run's warning when the table gets more than one long column by their declared lengths.
    void AddTable(RunState& run, std::string& createText) const override;
};

/// Type text of a column of the table in hand; marks one that becomes a long one.
std::string OracleTypeText(const RunState& run, Column& column);
/// The trigger that numbers the rows of a table, without its terminator.
std::string OracleTriggerText(std::string_view table, std::string_view counter);

}  // namespace korvex::scriptgen
