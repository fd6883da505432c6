#pragma once

#include "persistence/crud_state.h"
#include "persistence/field_values.h"

/// Inserting object trees. Records that were written stay written when a later one fails.
namespace korvex::persistence {

/// Inserts a new record with everything beneath it, and gives the objects their new keys. Answers the key of
/// the record; 0 when nothing was saved: the object has no key column or no table, or that did not open.
std::int32_t SaveRecord(CrudState& session, const QORObject::Ref& coData, const ParentLink& parent);

/// Gives an object the key of its record, and its parent's where that is known.
void TakeKeys(QORObject& coData, const std::string& ownKey, std::int32_t key, const ParentLink& parent);

/// Inserts the records of an object's children and elements; `key` and `ownKey` are those of its own record.
void SaveBeneath(CrudState& session, QORObject& coData, const QORObject::Ref& definition, std::int32_t key,
                 const std::string& ownKey);

}  // namespace korvex::persistence
