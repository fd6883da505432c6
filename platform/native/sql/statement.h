#pragma once

#include "automation/variant.h"
#include "platform/native/sql/column.h"
#include "platform/native/sql/kept_row.h"

#include <cstdint>
#include <memory>

namespace korvex::native::sql {

/// A prepared statement of one driver. Calls that reach the engine raise EngineError.
class Statement {
  public:
    Statement() = default;
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    virtual ~Statement() = default;

    /// The columns it gives. Executing may bring a new shape, when the tables changed since the statement was
    /// prepared. A server may have to be asked for what it has not executed yet.
    virtual const std::shared_ptr<const RowShape>& Shape() = 0;
    virtual std::size_t ParameterCount() const noexcept = 0;
    virtual bool Writes() = 0;

    /// Binds parameter `index` (zero-based). `value` is in the form that ForColumn gives and stays alive
    /// until the statement was executed; `column` is where it goes, null for a value that is compared.
    virtual void Bind(std::size_t index, const automation::Variant& value, const ColumnInfo* column) = 0;
    /// Runs an action to its end; makes a query ready to give rows.
    virtual void Execute() = 0;
    /// The next row. False behind the last one, where the statement is reset at once.
    virtual bool Fetch() = 0;
    /// A value of the current row.
    virtual automation::Variant Value(std::size_t column) = 0;
    /// The current row, to be read when the statement is somewhere else.
    virtual void Keep(KeptRow& row) { row.Take(CurrentRow()); }
    /// All values of the current row.
    Row CurrentRow() {
        Row values;
        values.reserve(Shape()->columns.size());
        for (std::size_t i = 0; i < Shape()->columns.size(); ++i)
            values.push_back(Value(i));
        return values;
    }
    /// Rows that the last action inserted, changed or removed.
    virtual std::int64_t AffectedRows() const noexcept = 0;
    /// Ends the execution and lets go of everything it held; the statement can be executed again.
    virtual void Reset() noexcept = 0;
};

}  // namespace korvex::native::sql
