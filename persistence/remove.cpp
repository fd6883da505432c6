#include "persistence/remove.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "persistence/definition_carrier.h"
#include "persistence/definition_walk.h"
#include "persistence/record_lookup.h"

namespace korvex::persistence {

using automation::Variant;

namespace {

/// Deletes every element record of an owner.
void DeleteCollectionElements(CrudState& session, const QORObject::Ref& coData, const std::string& ownKey,
                              std::int32_t lPK) {
    const auto elementDef =
        Need(DefinitionOf(coData)->ObjectAttribute(attElementDef), "definition of the collection's elements");
    const auto keys = ElementKeys(session, elementDef, ownKey, lPK);
    if (keys) DeleteElements(session, elementDef, *keys);
}

/// A working data object with that definition: one of the host's where it has one that takes it.
QORObject::Ref WorkingObject(CrudState& session, const QORObject::Ref& definition) {
    if (auto object = session.NewDataObject()) {
        try {
            object->DataDef(definition);
            if (object->DataDef() != nullptr) return object;
        } catch (const automation::Error&) {
            // The class of one maker need not take the definitions of another.
        }
    }
    auto carrier = std::make_shared<DefinitionCarrier>();
    carrier->DataDef(definition);
    return carrier;
}

}  // namespace

// The keys are gathered first, so that no recordset is open while the deletes run.
std::optional<std::vector<Variant>> ElementKeys(CrudState& session, const QORObject::Ref& elementDef,
                                                const std::string& ownKey, std::int32_t lPK) {
    const std::string table = session.Members().GetTableName(elementDef);
    if (table.empty()) return std::nullopt;
    const auto records =
        session.Members().OpenRecordset(SelectWhere(table, session.ForeignKeyColumn(ownKey), lPK));
    if (records == nullptr) return std::nullopt;
    const std::string keyColumn = session.Members().GetPrimaryKeyFieldName(elementDef);
    if (keyColumn.empty()) {
        session.Fail(dbPrimaryKeyFieldNameMissing);
        return std::nullopt;
    }
    std::vector<Variant> keys;
    for (; !records->Eof(); records->MoveNext())
        keys.push_back(records->FieldValue(keyColumn));
    records->Close();
    return keys;
}

void DeleteElements(CrudState& session, const QORObject::Ref& elementDef, const std::vector<Variant>& keys) {
    if (keys.empty()) return;
    const auto working = WorkingObject(session, elementDef);
    for (const auto& key : keys)
        session.Members().DbDeleteData(working, key, {});
    working->DataDef(nullptr);
}

void DeleteBeneath(CrudState& session, const QORObject::Ref& coData, const std::string& ownKey,
                   std::int32_t lPK) {
    const auto definition = DefinitionOf(coData);
    const auto reading = session.Read(definition);
    ForEachChild(*coData, reading->childNames, [&](const QORObject::Ref& child) {
        session.Members().DbDeleteData(child, lPK, session.ForeignKeyColumn(ownKey));
    });
    if (IsCollection(*definition)) DeleteCollectionElements(session, coData, ownKey, lPK);
}

std::int32_t DbDeleteData(CrudState& session, const QORObject::Ref& coData, const Variant& lKey,
                          const std::string& sSelKey) {
    session.ResetLastResult();
    if (!CheckConnected(session) || !CheckKey(session, lKey)) return 0;
    const Descent descent(session);
    const auto place = FindPlace(session, DefinitionOf(coData), sSelKey);
    if (!place) return 0;
    auto records = OpenRecords(session, SelectRecord(*place, lKey));
    if (records == nullptr) return 0;
    if (records->Eof()) {
        records->Close();
        session.Fail(dbNoMatchingRecord);
        return automation::ToLong(lKey);
    }
    const std::int32_t lPK = KeyOfRecord(*records, place->ownKey);
    if (lPK < 1) {
        session.Fail(dbPrimaryKeyMissing);
        return 0;
    }
    records->Close();
    records.reset();
    const std::size_t failedOpens = session.FailedOpens();
    DeleteBeneath(session, coData, place->ownKey, lPK);
    if (session.IsUpdating() && session.FailedOpens() != failedOpens) return 0;
    session.Execute(DeleteWhere(place->table, place->keyColumn, lKey));
    return automation::ToLong(lKey);
}

}  // namespace korvex::persistence
