#pragma once

#include "platform/ado.h"
#include "scriptgen/migration/definition_diff.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// A database brought from one state of its definition to another.
namespace korvex::scriptgen {

/// Records whose value a changed column does not keep as it is, or a new foreign key does not take.
struct Misfit {
    std::string text;        ///< "tOrder.Notes: varchar(20) does not hold 3 of 17 values"
    bool isRounded = false;  ///< the value is kept, with fewer digits
};

/// Counts the values that the change would not keep, column by column, and records that refer to none where a
/// constraint comes that has it so. Changes nothing.
std::vector<Misfit> CountMisfits(ado::Connection& connection, const EngineDialect& dialect,
                                 const Comparison& comparison);

/// Runs steps in one transaction where the engine takes definitions back, else one by one. A failure raises
/// the engine's error, which says what became of the database; `keepRest`, where given, gets the steps that
/// were not run then, the one that failed first, and says in a sentence where they are.
class DatabaseUpdate {
  public:
    using KeepRest = std::function<std::string(std::span<const AlterStep>)>;

    DatabaseUpdate(std::shared_ptr<ado::Connection> connection, const EngineDialect& dialect,
                   KeepRest keepRest = {});

    void Run(const std::vector<AlterStep>& steps);

  private:
    void RunSteps(std::span<const AlterStep> steps);

    std::shared_ptr<ado::Connection> m_connection;
    const EngineDialect& m_dialect;
    KeepRest m_keepRest;
    std::size_t m_done = 0;
};

}  // namespace korvex::scriptgen
