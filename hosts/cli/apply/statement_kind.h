#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace korvex::cli {

/// What a statement of a script does.
enum class StatementKind : std::uint8_t {
    CreateTable,
    CreateIndex,
    CreateProcedure,
    CreateFunction,
    CreateTrigger,
    CreateSequence,
    AddConstraint,
    DropTable,
    DropIndex,
    DropProcedure,
    DropFunction,
    DropTrigger,
    DropSequence,
    DropConstraint,
    Other,
};
inline constexpr std::size_t StatementKindCount = static_cast<std::size_t>(StatementKind::Other) + 1;

struct StatementSubject {
    StatementKind kind = StatementKind::Other;
    /// The table, index, procedure ... without owner; the table of a constraint.
    std::string name;
    /// The drop stands behind "if exists(...)".
    bool isGuarded = false;
};

/// Reads the beginning of a statement.
StatementSubject SubjectOf(std::string_view statement);

/// Whether the statement makes or drops something, so that its exact repetition can have no further effect.
bool Makes(StatementKind kind) noexcept;
bool Drops(StatementKind kind) noexcept;

}  // namespace korvex::cli
