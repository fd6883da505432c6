#pragma once

#include "persistence/crud_state.h"

#include <string>

/// Bringing stored object trees up to date.
namespace korvex::persistence {

/// Writes what differs between the tree and its records: columns of objects that read Modified True (or that
/// carry the key of another record), new children and elements, and deletes stored elements that a changed
/// list lacks. Records beneath the root are found through their parents, so none outside the stored tree is
/// ever touched. Answers the record's key, also with dbObjectNotModified; 0 on failure, which includes
/// changed elements whose records are gone (dbNoMatchingRecord, everything else is written).
std::int32_t DbUpdateData(CrudState& session, const QORObject::Ref& coData, const automation::Variant& lKey,
                          const std::string& sKeyFieldName);

/// Gives the root's record the object's values under its old key, deletes what is stored beneath it and saves
/// the tree's children and elements anew. Answers the key, 0 on failure.
std::int32_t DbUpdateDataRetainRoot(CrudState& session, const QORObject::Ref& coData,
                                    const automation::Variant& lKey);

}  // namespace korvex::persistence
