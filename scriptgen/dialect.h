#pragma once

#include "scriptgen/column.h"
#include "scriptgen/run_state.h"

#include <string>
#include <string_view>

namespace korvex::scriptgen {

/// How the scripts of one target database are written. The table in hand is the one of the run: its name and
/// its columns.
class Dialect {
  public:
    virtual ~Dialect() = default;

    /// Type text that a column of the table keeps in TypeSize; marks a column that becomes a long one.
    /// TypeMismatch (13) when a declared length that the type needs is no number.
    virtual std::string ColumnTypeText(const RunState& run, Column& column) const = 0;

    /// The type of a column as it stands in its table, with what numbers it.
    virtual std::string ColumnType(const Column& column) const { return column.TypeSize; }

    /// What ends a constraint statement, before its line break.
    virtual std::string_view ConstraintTerminator() const noexcept = 0;

    /// Appends the table's procedures to the procedure script, and their drops, if any, to the drop script.
    virtual void AddStoredProcedures(RunState& run) const = 0;

    /// Appends the table's drop text to the drop script and its create text to `createText`.
    virtual void AddTable(RunState& run, std::string& createText) const = 0;
};

/// The dialect of a script type; nullptr for None.
const Dialect* FindDialect(ScriptType type) noexcept;

}  // namespace korvex::scriptgen
