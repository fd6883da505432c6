#pragma once

#include "automation/variant.h"
#include "platform/native/sql/column.h"

#include <cstdint>

/// How a column looks through an ADO field.
namespace korvex::native::ado_engine {

/// ado::DataType, as the OLE DB providers of the servers map declared types; dates are adDBTimeStamp there.
std::int32_t FieldType(const sql::ColumnInfo& column) noexcept;

/// Characters of a text column, bytes otherwise; the largest number there is for a column without a limit.
std::int32_t FieldDefinedSize(const sql::ColumnInfo& column) noexcept;

/// adFld... bits. `isUpdatable`: the recordset takes changes.
std::int32_t FieldAttributes(const sql::ColumnInfo& column, bool isUpdatable) noexcept;

/// The size of `value` in that column: characters of a text, bytes otherwise, 0 for Null and Empty.
std::int32_t FieldActualSize(const automation::Variant& value, const sql::ColumnInfo& column) noexcept;

}  // namespace korvex::native::ado_engine
