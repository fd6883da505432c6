#pragma once

#include "platform/ado.h"
#include "platform/platform.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace korvex {

/// How many things of each kind were made or dropped.
struct TargetCounts {
    std::size_t Tables = 0;       ///< tables
    std::size_t Indexes = 0;      ///< indexes, apart from those of primary keys
    std::size_t Triggers = 0;     ///< triggers, each with its function
    std::size_t ForeignKeys = 0;  ///< foreign keys, also those that stand in the statement of their table
};

/// What was done to a target database.
struct TargetReport {
    std::vector<std::string> Lines;  ///< for people: "16 tables and 16 indexes made (sqlite)"
    std::vector<std::string> Notes;  ///< for people: what is left out, or is not as the definition has it
    std::string Engine;              ///< "sqlite", "mariadb" or "postgresql"
    TargetCounts Counts;             ///< the same as Lines, for programs
};

/// Where a table differs from the definition.
struct TargetDifference {
    std::string Table;   ///< as the definition spells it
    std::string Aspect;  ///< "table", "column", "type", "number", "key", "index", "foreign key" or "trigger"
    std::string Name;    ///< of the column, index or trigger; empty for none
    bool IsMissing = false;  ///< it can be added to what is there, as Create does
    std::string Text;        ///< for people: "tOrder.Total is float, not decimal(19,4)"
};

/// How the tables that are there compare with those of the definition.
struct TargetComparison {
    std::vector<TargetDifference> Differences;  ///< none where they are the same
    bool IsMadeByFirstVersion = false;          ///< their types are those that version 0.1 gave them
};

/// The tables of a definition in its target database: makes, removes and checks them, with the dialect of the
/// engine behind the connection. For C++ hosts only. The repository is read when the object is made and left
/// as it is. A parent in another definition of the repository gives column and index too, but no constraint.
class TargetTables {
  public:
    /// Reads the repository. Its errors, and those of clsCreateDb::CreateRelationship, reach the caller.
    /// @param platform the parts; of these, the repository's engine and the desktop are used
    /// @param FileName the repository: a database file, or an ODBC connection string that holds `DSN=`
    /// @param storageName the definition; "" for all definitions, as one run
    /// @param sFKPrefix the prefix of foreign-key columns
    TargetTables(const Platform& platform, const std::string& FileName, const std::string& storageName = {},
                 const std::string& sFKPrefix = "FK_");
    ~TargetTables();
    TargetTables(const TargetTables&) = delete;
    TargetTables& operator=(const TargetTables&) = delete;

    /// Makes sure that an engine ("sqlite", "mariadb", "postgresql") takes the definition. Create does so for
    /// the engine of its connection; this needs none. InvalidProcedureCall (5) with all that it will not
    /// take.
    /// @param sEngine the name of its dialect
    void ExpectTakenBy(const std::string& sEngine) const;

    /// Makes what is not there: tables, indexes, triggers, foreign keys. InvalidProcedureCall (5) before the
    /// first statement when the engine will not take the definition, or when a table is there that differs
    /// from it. Where definitions can be rolled back (all but MariaDB) it succeeds or leaves the database as
    /// it was; elsewhere an error says what was made, and another call goes on from there.
    /// @param connection an open connection; adErrFeatureNotAvailable for an engine without a dialect
    /// @return what was made, and what is not as the definition has it
    TargetReport Create(const std::shared_ptr<ado::Connection>& connection) const;

    /// The tables that Drop would remove, with all their records.
    /// @param connection as for Create
    /// @return their names
    std::vector<std::string> TablesToDrop(ado::Connection& connection) const;
    /// Removes the tables of the definition but for those that another definition of the repository uses; one
    /// that has tables of its own, of which none is there, uses none.
    /// All or nothing as with Create.
    /// @param connection as for Create
    /// @return what was removed
    TargetReport Drop(const std::shared_ptr<ado::Connection>& connection) const;

    /// Compares the tables that are there with the definition. Nothing is changed.
    /// @param connection as for Create
    /// @return where they differ
    TargetComparison Compare(ado::Connection& connection) const;
    /// The same for people.
    /// @param connection as for Create
    /// @return a line for each difference; none when they are equal. The first line is "made by 0.1" when
    /// their types are those that version 0.1 gave them.
    std::vector<std::string> Check(ado::Connection& connection) const;

  private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}  // namespace korvex
