#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvex::cli {

enum class Deed : std::uint8_t { Create, Drop, Other };

/// What scripts make, in the order in which it is told, and drop, the other way round.
enum class Thing : std::uint8_t { Sequence, Table, View, Index, Trigger, Procedure, Function, Constraint };
inline constexpr std::size_t ThingCount = static_cast<std::size_t>(Thing::Constraint) + 1;

/// What a statement of a script does.
struct StatementSubject {
    Deed deed = Deed::Other;
    Thing thing = Thing::Table;  ///< that is made or dropped
    std::string name;            ///< of the thing, without owner; of the table for a constraint
};

/// Reads the beginning of a statement.
StatementSubject SubjectOf(std::string_view statement);

/// "table"
std::string_view NounOf(Thing thing) noexcept;

}  // namespace korvex::cli
