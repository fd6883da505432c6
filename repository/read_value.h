#pragma once

#include "automation/convert.h"
#include "automation/error.h"
#include "repository/repository.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

namespace korvex::repository {

/// The current record of one of the repository's tables, by what tells it from the others: "the tValues row
/// with ValueID = 7, Name = "City"".
std::string DescribeRow(std::string_view table, dao::Recordset& rows);

/// A column value of the repository through one of the automation conversions. The error of a value that
/// does not convert names the repository's column and `what` the row describes: a text, or what gives one.
template <class Convert, class What>
auto ReadValue(dao::Field& field, Convert convert, const What& what) {
    const automation::Variant value = Repository::FieldValue(field);
    try {
        return convert(value);
    } catch (const automation::Error& error) {
        std::string row;
        if constexpr (std::is_invocable_v<What>) {
            row = what();
        } else {
            row = what;
        }
        throw automation::Error(error.Number(),
                                std::string(field.Name()) + " of " + row + ": " + error.Description());
    }
}

/// Calls `take` with the recordset at every row; false when the query failed.
template <class Take>
bool ForEachRow(const std::unique_ptr<dao::Recordset>& rows, Take take) {
    if (!rows) return false;
    for (; !rows->Eof(); rows->MoveNext())
        take(*rows);
    rows->Close();
    return true;
}

/// A value as an identifier; errors as those of ToLong.
template <RowId Id>
Id ToId(const automation::Variant& value) {
    return Id(automation::ToLong(value));
}

/// The number that the database gave the row just added through `rows`. InvalidUseOfNull (94) when it gave
/// none.
template <RowId Id>
Id ReadNewNumber(dao::Recordset& rows, std::string_view column, std::string_view what) {
    rows.MoveLast();
    const Id id = ReadValue(rows.Fields(column), ToId<Id>, what);
    if (id != Id()) return id;
    throw automation::Error(automation::InvalidUseOfNull,
                            std::string(column) + " of " + std::string(what) +
                                ": the repository does not number its new rows; the column must be an "
                                "automatic number.");
}

}  // namespace korvex::repository
