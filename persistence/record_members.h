#pragma once

#include "persistence/crud_state.h"

#include <string>

/// The members of clsCRUD that work on records, for the session of an instance.
namespace korvex::persistence {

/// Whether there is a record with that key, or with the key in the object when `lKey` is missing.
bool DbDataExists(CrudState& session, const QORObject::Ref& coData, const automation::Variant& lKey);

/// True when the value was read; an unknown column gives False and no code.
bool DbGetField(CrudState& session, const automation::Variant& lKey, const std::string& sKeyFieldName,
                const std::string& sTableName, const std::string& sFieldName,
                automation::Variant& vntFieldValue);

/// True when the column took the value; a failure of the update that follows is passed over.
bool DbSaveField(CrudState& session, const automation::Variant& lKey, const std::string& sKeyFieldName,
                 const std::string& sTableName, const std::string& sFieldName,
                 const automation::Variant& vntFieldValue);

/// Loads the record, then the child objects and the collection elements through the public DbGetData. What
/// was loaded reads Modified False. Answers the object's own key, 0 when nothing was loaded.
std::int32_t DbGetData(CrudState& session, const QORObject::Ref& coData, const automation::Variant& lKey,
                       const std::string& sKeyFieldName);

/// Inserts a tree, given from any point of a definition's tree. Answers the new key of the topmost record, 0
/// when nothing was written.
std::int32_t DbSaveData(CrudState& session, const QORObject::Ref& coData);

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

/// Deletes the record whose column `sSelKey` (the own key column when it is "") holds `lKey`, and everything
/// beneath it; `coData` only carries the definition. Answers `lKey` once the record was looked up.
std::int32_t DbDeleteData(CrudState& session, const QORObject::Ref& coData, const automation::Variant& lKey,
                          const std::string& sSelKey);

}  // namespace korvex::persistence
