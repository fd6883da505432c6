#pragma once

#include "automation/variant.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::native::sql {

/// Where an engine's reading of quotes departs from the standard.
struct LexicalRules {
    bool bracketNames = true;       ///< [name] is a quoted name
    bool backslashEscapes = false;  ///< a backslash in a text literal takes the next character with it
    bool dollarQuotes = false;      ///< $tag$ ... $tag$ is a text literal, E'...' one with backslashes
    bool likeEscapes = false;       ///< the same in what LIKE matches with
    bool exactLike = false;         ///< LIKE tells capital letters from small ones; ILIKE does not
    /// Text literals of queries are lifted too: what a query compares with reads the same when it is bound.
    bool liftsTexts = false;
    /// Statements mean a backslash as the letter that it is, whatever the engine takes it for.
    bool plainBackslashes = false;
};

enum class StatementVerb : std::uint8_t { Select, Insert, Update, Delete, Definition, Other };

/// A statement as it goes to the engine. Reused from call to call, so that a scan allocates nothing.
struct StatementText {
    /// The engine's text, and the key under which its prepared statement is cached: literals lifted out as
    /// "?", a blank where an integer touched the word behind it ("0and"), ILIKE where LIKE is exact, plain
    /// backslashes doubled as the engine needs it.
    std::string text;
    /// The values of the lifted literals, in order.
    std::vector<automation::Variant> literals;
    /// Values that the caller has to give to `text`, beside the lifted ones.
    std::size_t placeholders = 0;
    StatementVerb kind = StatementVerb::Other;
    /// Another statement stands behind a semicolon (never said of a routine's or trigger's body).
    bool secondStatement = false;
    /// A query of a whole table and nothing more: "select * from T".
    bool wholeTable = false;
    /// A query that says itself in what order its rows come, or whose rows are made of several (DISTINCT,
    /// GROUP BY, UNION ...).
    bool arrangesRows = false;

    /// Whether `composed` is the statement scanned last but for the one number that was lifted from it, or
    /// the same again. Makes it the one scanned last.
    bool Repeats(std::string_view composed);

    /// What stood around the one number that was lifted; said of such statements alone.
    bool isFramed = false;
    std::string before, behind;
};

/// Reads a statement once, outside its quotes and comments. In SELECT (its WHERE clause), UPDATE and DELETE,
/// an integer literal behind a comparison operator is lifted out, and with liftsTexts a text that a query
/// compares or matches with, unless the statement has placeholders of its own.
void ScanStatement(std::string_view composed, const LexicalRules& rules, StatementText& result);

/// The table of a query "select * from T", with a condition or without.
struct SoleTable {
    std::string_view name;  ///< as it stands there; empty for any other statement
    bool isWhole = false;   ///< there is no condition
};
SoleTable SoleTableOf(std::string_view text) noexcept;

/// What kind of statement a text is, by its first word.
StatementVerb VerbOf(std::string_view text) noexcept;

/// Whether `text` holds anything but blanks, comments and semicolons.
bool HoldsStatement(std::string_view text) noexcept;

}  // namespace korvex::native::sql
