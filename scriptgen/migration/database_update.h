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

/// Does `work`, which changes tables: in one transaction where the engine takes definitions back, with
/// references off where it makes tables anew. A failure raises the engine's error, which says what became of
/// the database; `kept` says so where nothing goes back.
void ChangeTables(const std::shared_ptr<ado::Connection>& connection, const EngineDialect& dialect,
                  bool makesAnew, const std::function<void()>& work,
                  const std::function<std::string()>& kept);

/// Runs steps as ChangeTables does. `keepRest`, where given, gets those that were not run in the end where
/// nothing goes back, the one that failed first, and says in a sentence where they are.
void UpdateDatabase(const std::shared_ptr<ado::Connection>& connection, const EngineDialect& dialect,
                    std::span<const AlterStep> steps,
                    const std::function<std::string(std::span<const AlterStep>)>& keepRest = {});

}  // namespace korvex::scriptgen
