#pragma once

#include "platform/ado.h"
#include "platform/platform.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace korvex {

/// What was done to a target database, for people.
struct TargetReport {
    std::vector<std::string> Lines;  ///< "16 tables, 16 indexes and 16 foreign keys made"
    std::vector<std::string> Notes;  ///< what is left out, or is not as the definition has it
};

/// The tables of a definition in its target database: makes, removes and checks them, with the dialect of the
/// engine behind the connection. For C++ hosts only. The repository is read when the object is made and left
/// as it is. A parent in another definition of the repository gives column and index too, but no constraint.
class TargetTables {
  public:
    /// `FileName` is the repository as for clsCreateDb; an empty `storageName` means all definitions, as one
    /// run. Errors of the repository and of CreateRelationship reach the caller.
    TargetTables(const Platform& platform, const std::string& FileName, const std::string& storageName = {},
                 const std::string& sFKPrefix = "FK_");
    ~TargetTables();
    TargetTables(const TargetTables&) = delete;
    TargetTables& operator=(const TargetTables&) = delete;

    /// Makes sure that an engine ("sqlite", "mariadb", "postgresql") takes the definition. Create does so for
    /// the engine of its connection; this needs none. InvalidProcedureCall (5) with all that it will not
    /// take.
    void ExpectTakenBy(const std::string& sEngine) const;

    /// Makes what is not there: tables, indexes, triggers, foreign keys. InvalidProcedureCall (5) before the
    /// first statement when the engine will not take the definition, or when a table is there that differs
    /// from it. Where definitions can be rolled back (all but MariaDB) it succeeds or leaves the database as
    /// it was; elsewhere an error says what was made, and another call goes on from there.
    TargetReport Create(const std::shared_ptr<ado::Connection>& connection) const;

    /// The tables that Drop would remove, with all their records.
    std::vector<std::string> TablesToDrop(ado::Connection& connection) const;
    /// Removes the tables of the definition but for those that another definition of the repository uses; one
    /// that has tables of its own, of which none is there, uses none.
    /// All or nothing as with Create.
    TargetReport Drop(const std::shared_ptr<ado::Connection>& connection) const;

    /// Where the tables that are there differ from the definition, a line each; none when they are equal.
    /// The first line is "made by 0.1" when their types are those that version 0.1 gave them.
    std::vector<std::string> Check(ado::Connection& connection) const;

  private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}  // namespace korvex
