#pragma once

#include "persistence/field_values.h"
#include "persistence/record_lookup.h"
#include "persistence/session.h"

#include <string>

/// The steps of an update, from one record down.
namespace korvex::persistence {

/// The key that a data object carries in a column; 0 for none.
std::int32_t OwnKey(QORObject& coData, const std::string& column);

/// The object, or anything beneath it, reads Modified True.
bool TreeModified(Session& session, const QORObject::Ref& coData);
void ClearModified(Session& session, const QORObject::Ref& coData);

/// An object whose record is up to date.
struct UpdatedObject {
    std::string ownKey;
    std::int32_t key = 0;
    /// The object carried that key before: what reads Modified False beneath it stands as it is in the
    /// database.
    bool isItsOwn = false;
};

enum class Columns { Modified, All };

/// Brings the current record up to date and closes the recordset. An object that reads Modified False is left
/// alone, unless it carries the key of another record or `columns` asks for all. The object takes the
/// record's key.
UpdatedObject UpdateRecord(Session& session, const QORObject::Ref& coData, const RecordsetRef& records,
                           const std::string& ownKey, const ParentLink& parent, Columns columns);

/// Updates the stored children and elements, saves new ones and deletes stored elements that left their
/// collection. Passes over what does not open.
void UpdateBeneath(Session& session, const QORObject::Ref& coData, const UpdatedObject& stored);

}  // namespace korvex::persistence
