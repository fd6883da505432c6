#pragma once

#include "persistence/crud_state.h"
#include "persistence/field_values.h"
#include "persistence/record_lookup.h"

#include <string>

/// The steps of an update, from one record down.
namespace korvex::persistence {

/// The object, or anything beneath it, reads Modified True.
bool TreeModified(CrudState& session, const QORObject::Ref& coData);
void ClearModified(CrudState& session, const QORObject::Ref& coData);

/// An object whose record is up to date.
struct UpdatedObject {
    std::string ownKey;
    std::int32_t key = 0;
    /// The object carried that key before: what reads Modified False beneath it stands as it is in the
    /// database.
    bool isItsOwn = false;
    /// The tree is that of another record, and is to take the place of what is stored beneath this one.
    bool isOfAnother = false;
    bool isListModified = false;  ///< of a collection, before it took the record's key
};

enum class Columns { Modified, All };

/// Brings the current record up to date and closes the recordset. An object that reads Modified False is left
/// alone, unless it carries the key of another record or `columns` asks for all. The object takes the
/// record's key.
UpdatedObject UpdateRecord(CrudState& session, const QORObject::Ref& coData, const RecordsetRef& records,
                           const std::string& ownKey, const ParentLink& parent, Columns columns);

/// Updates the stored children and elements and saves new ones. Where the list of a collection's elements
/// changed, or the tree is of another record, stored elements that the list lacks are deleted, and elements
/// without a record are saved anew; elsewhere others deleted these records, and changed elements of theirs
/// are noted as passed over. Passes over what does not open.
void UpdateBeneath(CrudState& session, const QORObject::Ref& coData, const UpdatedObject& stored);

}  // namespace korvex::persistence
