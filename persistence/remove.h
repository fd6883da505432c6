#pragma once

#include "persistence/crud_state.h"

#include <string>
#include <vector>

/// Deleting object trees: what stands beneath a record goes first. A delete that fails stays partial.
namespace korvex::persistence {

/// Deletes the records of all children and elements of the object whose record has the key `lPK` in its
/// column `ownKey`.
void DeleteBeneath(CrudState& session, const QORObject::Ref& coData, const std::string& ownKey,
                   std::int32_t lPK);

/// Keys of the element records that belong to an owner, in the database's order. Nothing when the elements
/// have no table, their statement did not open (dbCannotOpenRecordset) or they have no key column
/// (dbPrimaryKeyFieldNameMissing).
std::optional<std::vector<automation::Variant>> ElementKeys(CrudState& session,
                                                            const QORObject::Ref& elementDef,
                                                            const std::string& ownKey, std::int32_t lPK);

/// Deletes elements by their own keys, each with everything beneath it.
void DeleteElements(CrudState& session, const QORObject::Ref& elementDef,
                    const std::vector<automation::Variant>& keys);

}  // namespace korvex::persistence
