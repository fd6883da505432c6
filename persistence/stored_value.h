#pragma once

#include "automation/variant.h"

/// Values of the current record, compared with what a data object holds.
namespace korvex::persistence {

/// Whether storing `value` over `stored` would change nothing: both blank, or equal once `value` is converted
/// to the stored type. A blank value equals a stored zero, as blanks are stored in columns that hold numbers.
bool SameAsStored(const automation::Variant& stored, const automation::Variant& value);

}  // namespace korvex::persistence
