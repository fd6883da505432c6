#pragma once

#include "scriptgen/run_state.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace korvex::scriptgen {

class JoinedText;

/// The stored procedures of a table: to read and delete all rows, those of its key and those of each object
/// that it refers to, to insert a row and to update one. Each dialect gives the wording.
class Procedures {
  public:
    virtual ~Procedures() = default;

    /// Appends the procedures of the table in hand, and their drops, if any, to the drop script.
    void Add(RunState& run) const;

  protected:
    /// What stands before the name of a column to make it that of a parameter.
    virtual std::string_view ParameterMark() const noexcept = 0;
    /// The type of a parameter for a column.
    virtual std::string ParameterType(std::string_view table, const Column& column) const = 0;
    /// What stands between the parameters that pick rows by the key.
    virtual std::string_view KeyParameterSeparator() const noexcept = 0;
    /// Everything up to the first statement; `parameters` in parentheses unless there are none.
    virtual void Start(RunState& run, std::string_view procedure, const std::string* parameters) const = 0;
    virtual std::string_view StatementEnd() const noexcept = 0;
    /// What follows a statement that changes rows.
    virtual std::string_view AfterChange() const noexcept = 0;
    virtual std::string_view End() const noexcept = 0;
    /// Appends the parameter by which the new key leaves, behind the others.
    virtual void AppendKeyOutput(std::string& parameters, std::string_view table,
                                 const Column& counter) const = 0;
    /// Appends the statements of an insert and the end of its procedure; `counter` is nullptr for a table
    /// without one.
    virtual void AppendInsert(std::string& text, std::string_view table, std::string_view names,
                              std::string_view values, const Column* counter) const = 0;
    virtual void AppendUpdate(std::string& text, std::string_view table, std::string_view assignments,
                              std::string_view condition) const = 0;

  private:
    struct RowChoice;
    void AddStatement(RunState& run, std::string_view procedure, const std::string* parameters,
                      std::string_view verb, std::string_view condition, bool isChange) const;
    void AddParameter(JoinedText& parameters, std::string_view table, const Column& column) const;
    void Pick(RowChoice& rows, std::string_view table, const Column& column) const;
    void AddReadAndDelete(RunState& run, std::string_view base, const RowChoice& rows) const;
    void AddByPrimaryKey(RunState& run) const;
    void AddByForeignKey(RunState& run, repository::ObjectId target) const;
    void AddInsert(RunState& run) const;
    void AddUpdate(RunState& run) const;
};

/// The form that SQL Server and Sybase share, with a guarded drop of each procedure.
const Procedures& ServerProcedures() noexcept;
/// Oracle's form, which replaces earlier ones and so needs no drops.
const Procedures& OracleProcedures() noexcept;

}  // namespace korvex::scriptgen
