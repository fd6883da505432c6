#include "persistence/record_lookup.h"

#include "automation/convert.h"
#include "persistence/definition_walk.h"

namespace korvex::persistence {

using automation::Variant;

bool CheckConnected(CrudState& session) { return session.IsConnected() || session.Fail(dbNotConnected); }

bool CheckKey(CrudState& session, const Variant& lKey) {
    return !IsEmptyOrNull(lKey) || session.Fail(dbPrimaryKeyMissing);
}

std::optional<RecordPlace> FindKeyColumn(CrudState& session, const QORObject::Ref& definition,
                                         const std::string& sKeyFieldName) {
    std::optional<RecordPlace> place(std::in_place);
    place->ownKey = session.Members().GetPrimaryKeyFieldName(definition);
    place->keyColumn = sKeyFieldName.empty() ? place->ownKey : sKeyFieldName;
    if (!place->keyColumn.empty()) return place;
    session.Fail(dbPrimaryKeyFieldNameMissing);
    return std::nullopt;
}

bool FindTable(CrudState& session, const QORObject::Ref& definition, RecordPlace& place) {
    place.table = session.Members().GetTableName(definition);
    return !place.table.empty() || session.Fail(dbTableNameMissing);
}

std::optional<RecordPlace> FindPlace(CrudState& session, const QORObject::Ref& definition,
                                     const std::string& sKeyFieldName) {
    auto place = FindKeyColumn(session, definition, sKeyFieldName);
    if (place && !FindTable(session, definition, *place)) place.reset();
    return place;
}

std::optional<RecordPlace> FindStoredPlace(CrudState& session, const QORObject::Ref& definition) {
    RecordPlace place;
    place.ownKey = session.Members().GetPrimaryKeyFieldName(definition);
    if (place.ownKey.empty()) return std::nullopt;
    place.keyColumn = place.ownKey;
    place.table = session.Members().GetTableName(definition);
    if (place.table.empty()) return std::nullopt;
    return place;
}

RecordsetRef OpenRecords(CrudState& session, const std::string& sSQL) {
    auto records = session.Members().OpenRecordset(sSQL);
    if (records == nullptr) session.Fail(dbCannotOpenRecordset);
    return records;
}

RecordsetRef OpenExisting(CrudState& session, const std::string& sSQL) {
    auto records = OpenRecords(session, sSQL);
    if (records == nullptr || !records->Eof()) return records;
    records->Close();
    session.Fail(dbNoMatchingRecord);
    return nullptr;
}

std::string SelectRecord(const RecordPlace& place, const Variant& lKey) {
    return SelectWhere(place.table, place.keyColumn, lKey);
}

std::int32_t KeyOfRecord(ado::Recordset& records, const std::string& column) {
    return automation::ToLong(records.FieldValue(column));
}

}  // namespace korvex::persistence
