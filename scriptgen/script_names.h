#pragma once

#include "repository/names.h"

#include <string>
#include <string_view>

/// Names of what the published scripts make beside tables and columns.
namespace korvex::scriptgen {

/// Name of a procedure: the base with the suffix of its kind, the base losing its front when both together
/// would be too long. The suffixes: AR and AD read and delete all rows, R and D those of a key, C inserts
/// and U updates a row.
inline std::string ProcedureName(std::string_view base, std::string_view suffix) {
    return repository::LimitNameLength(base, static_cast<std::int16_t>(suffix.size())).append(suffix);
}

/// What the procedures for the rows of a foreign key are named after; `column` is its first column.
inline std::string GroupBase(std::string_view table, std::string_view column) {
    return std::string(table).append("_").append(column);
}

/// The one name that all foreign-key constraints of a table share.
inline std::string ForeignKeyName(std::string_view table) {
    return repository::LimitNameLength("FK_" + std::string(table) + "_", 2) + "1";
}

// The names of these are not cut.
inline std::string PrimaryKeyName(std::string_view table) { return "PK_" + std::string(table); }
inline std::string SequenceName(std::string_view table) { return "SEQ_" + std::string(table); }
inline std::string TriggerName(std::string_view table) { return "TR_" + std::string(table); }
/// `number` counts the indexes of the table from 1.
inline std::string IndexName(std::string_view table, int number) {
    return std::string(table) + std::to_string(number);
}

}  // namespace korvex::scriptgen
