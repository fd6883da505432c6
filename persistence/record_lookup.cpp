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
    place.ownKey = place.keyColumn = session.Members().GetPrimaryKeyFieldName(definition);
    if (!place.ownKey.empty()) place.table = session.Members().GetTableName(definition);
    return place.table.empty() ? std::nullopt : std::optional(std::move(place));
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

ElementRecords OpenElements(CrudState& session, const QORObject::Ref& elementDef, const std::string& ownKey,
                            std::int32_t lPK) {
    ElementRecords elements;
    const std::string table = session.Members().GetTableName(elementDef);
    if (table.empty()) return elements;
    elements.records =
        session.Members().OpenRecordset(SelectWhere(table, session.ForeignKeyColumn(ownKey), lPK));
    if (elements.records != nullptr)
        elements.keyColumn = session.Members().GetPrimaryKeyFieldName(elementDef);
    return elements;
}

std::int32_t KeyOfRecord(ado::Recordset& records, const std::string& column) {
    return automation::ToLong(records.FieldValue(column));
}

}  // namespace korvex::persistence
