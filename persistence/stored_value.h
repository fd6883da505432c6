#pragma once

#include "automation/variant.h"
#include "platform/ado.h"

/// Values of the current record: read, and compared with what a data object holds.
namespace korvex::persistence {

/// The field's value; a long value that is not empty comes in one chunk.
automation::Variant ReadField(ado::Field& field);

/// Whether storing `value` over `stored` would change nothing: both blank, or equal once `value` is converted
/// to the stored type. A blank value equals a stored zero, as blanks are stored in columns that hold numbers.
bool SameAsStored(const automation::Variant& stored, const automation::Variant& value);

}  // namespace korvex::persistence
