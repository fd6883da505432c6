#pragma once

#include "persistence/crud_state.h"
#include "persistence/statements.h"

#include <memory>
#include <optional>
#include <string>

/// The checks that stand at the beginning of every member that works on one record. Each failing check leaves
/// its code in LastResult.
namespace korvex::persistence {

using RecordsetRef = std::shared_ptr<ado::Recordset>;

/// Where the record of a data object stands.
struct RecordPlace {
    std::string ownKey;     ///< the object's own key column; "" when it has none
    std::string keyColumn;  ///< the column that selects the record
    std::string table;
};

bool CheckConnected(CrudState& session);                             ///< dbNotConnected
bool CheckKey(CrudState& session, const automation::Variant& lKey);  ///< Empty, Null: dbPrimaryKeyMissing

/// Key columns of a definition: `sKeyFieldName` selects the record, or the own key column when it is "".
/// dbPrimaryKeyFieldNameMissing when both are "".
std::optional<RecordPlace> FindKeyColumn(CrudState& session, const QORObject::Ref& definition,
                                         const std::string& sKeyFieldName = {});
/// Adds the table; dbTableNameMissing when there is none.
bool FindTable(CrudState& session, const QORObject::Ref& definition, RecordPlace& place);
/// Both of the above.
std::optional<RecordPlace> FindPlace(CrudState& session, const QORObject::Ref& definition,
                                     const std::string& sKeyFieldName = {});

/// The same place for the steps beneath a root, which leave out what is not stored: nothing, and no code of
/// its own, when there is no key column or no table.
std::optional<RecordPlace> FindStoredPlace(CrudState& session, const QORObject::Ref& definition);

/// Opens a statement through the public member; nullptr and dbCannotOpenRecordset when it did not open.
RecordsetRef OpenRecords(CrudState& session, const std::string& sSQL);
/// As OpenRecords; nullptr and dbNoMatchingRecord, the recordset closed, when it has no record.
RecordsetRef OpenExisting(CrudState& session, const std::string& sSQL);
/// The statement that selects the records of `place` with that key.
std::string SelectRecord(const RecordPlace& place, const automation::Variant& lKey);

/// The element records that belong to an owner, in the database's order.
struct ElementRecords {
    RecordsetRef records;   ///< nullptr where the elements have no table, or it did not open
    std::string keyColumn;  ///< "" where they have none
};
ElementRecords OpenElements(CrudState& session, const QORObject::Ref& elementDef, const std::string& ownKey,
                            std::int32_t lPK);

/// Value of a column of the current record, as a key.
std::int32_t KeyOfRecord(ado::Recordset& records, const std::string& column);

}  // namespace korvex::persistence
