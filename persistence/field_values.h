#pragma once

#include "persistence/definition_reading.h"
#include "persistence/qor_object.h"
#include "platform/ado.h"

#include <string>

/// Moving single values between a data object and the current record. What is not stored is passed over.
namespace korvex::persistence {

/// Where a record stands in its parent: the column that links it, and the parent's key.
struct ParentLink {
    std::string column = {};  ///< "" for a record without a parent
    /// Missing when it is not known.
    automation::Variant value = automation::Variant::Missing();
};

/// Whether storing `value` over `stored` would change nothing: both blank, or equal once `value` is converted
/// to the stored type. A blank value equals a stored zero, as blanks are stored in columns that hold numbers.
bool SameAsStored(const automation::Variant& stored, const automation::Variant& value);

/// Copies one column of the record into the data object.
void LoadFieldValue(QORObject& coData, const PlainValue& value, ado::Recordset& records);

/// Copies one value of the data object into the record. The link column takes the parent's key while it is
/// Empty; columns that the database fills are left alone, and so are optional links without a key; blanks are
/// written as "", or as 0 where the column refuses that; text is cut to the column.
void WriteFieldValue(const PlainValue& value, QORObject& coData, ado::Recordset& records,
                     const ParentLink& parent);

/// Writes one value of the data object into an existing record when it differs from what is stored there;
/// True when it did. The own key column never changes; the link column only to a parent's key that is known.
bool UpdateFieldValue(const PlainValue& value, QORObject& coData, ado::Recordset& records,
                      const std::string& ownKey, const ParentLink& parent);

}  // namespace korvex::persistence
