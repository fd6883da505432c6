#pragma once

#include "platform/native/sql/column.h"
#include "platform/native/sql/statement_text.h"

#include <cstdint>
#include <string>

namespace korvex::native::sql {

/// How an engine tells the key that it gave to a new row.
enum class NewKeySource : std::uint8_t {
    None,
    LastRowId,  ///< the session knows it (Session::LastRowId)
    Returning,  ///< INSERT ... RETURNING
    Query,      ///< newKeyQuery, sent behind the insert
    SameBatch,  ///< newKeyQuery, in the insert's own batch
    Sequence,   ///< newKeyQuery on the table's sequence, from which a trigger draws the keys
};

/// What an engine can do and how it writes things. Logic asks here, never for an engine's name.
struct EngineTraits {
    std::string quote = "\"";  ///< on both sides of a quoted name
    NewKeySource newKey = NewKeySource::None;
    /// "{sequence}" stands for the sequence of the table: sequencePrefix with the table's name.
    std::string newKeyQuery = {};
    std::string sequencePrefix = {};
    /// The name under which the number given to a new row is a column of every table without a key; empty for
    /// none.
    std::string rowIdName = {};
    /// Behind "INSERT INTO table", for a row of which no column was set.
    std::string emptyInsert = "DEFAULT VALUES";
    /// A transaction goes on after a statement in it has failed.
    bool transactionOutlivesFailure = false;
    /// A text may hold the character NUL. Otherwise the driver would end it there, and it is refused.
    bool textsHoldNul = true;
    /// Long texts and bytes may stand in a comparison.
    bool comparesLongValues = false;
    LexicalRules lexical = {};

    /// `name` as a quoted name.
    std::string Quote(std::string_view name) const;
    /// The same in the catalog and schema of a table.
    std::string QuoteBeside(const TableName& table, std::string_view name) const;
};

}  // namespace korvex::native::sql
