#include "persistence/save.h"

#include "automation/convert.h"
#include "automation/text.h"
#include "persistence/definition_walk.h"
#include "persistence/record_lookup.h"
#include "persistence/record_members.h"
#include "persistence/special_state.h"
#include "persistence/update_tree.h"

#include <unordered_set>

namespace korvex::persistence {

using automation::Variant;

namespace {

/// Adds the record and answers its key: the one that the database gave it, or the one written.
std::int32_t InsertRecord(CrudState& session, ado::Recordset& records, QORObject& coData,
                          const QORObject::Ref& definition, const std::string& ownKey,
                          const ParentLink& parent) {
    const auto reading = session.Read(definition);
    const bool isCollection = IsCollection(*definition);
    records.AddNew();
    for (const auto& value : reading->values)
        WriteFieldValue(value, coData, records, parent);
    SaveState(coData, records, isCollection);
    records.Update();
    ++session.Counts().writes;
    const std::int32_t newKey = KeyOfRecord(records, ownKey);
    records.Close();
    return newKey;
}

/// Key column of the parent that a foreign-key column refers to. The prefix counts as standing at the start,
/// wherever it was found.
std::optional<std::string> ParentKeyColumn(const std::string& fkColumn, const std::string& prefix) {
    if (fkColumn.find(prefix) == std::string::npos) return std::nullopt;
    const auto rest = automation::Right(fkColumn, automation::Length(fkColumn) - automation::Length(prefix));
    return std::string(rest);
}

/// The key that a root's record is to carry in its foreign-key column: its own when it has one, else its
/// parent's. Nothing, and a code, when the parent is not stored.
std::optional<std::int32_t> FindParentKey(CrudState& session, QORObject& coData,
                                          const std::string& fkColumn) {
    const Variant own = ColumnValue(coData, fkColumn);
    if (!IsEmptyOrNull(own)) {
        const std::int32_t key = automation::ToLong(own);
        if (key > 0) return key;
    }
    const auto parentKeyColumn = ParentKeyColumn(fkColumn, session.FKPrefix());
    if (!parentKeyColumn) {
        session.Fail(dbParentNotInDatabase);
        return std::nullopt;
    }
    const auto parent = Need(coData.Parent(), "parent of the data object");
    const std::int32_t parentKey = automation::ToLong(ColumnValue(*parent, *parentKeyColumn));
    if (parentKey > 0) return parentKey;
    session.Fail(dbPrimaryKeyMissing);
    return std::nullopt;
}

/// An update stores no element twice that its collection, being loaded twice, holds twice. Elements without a
/// key are new ones. The key is the one that the element has before it is saved.
bool IsFirstOfItsKey(CrudState& session, QORObject& element, std::unordered_set<std::int32_t>& seen) {
    const std::string ownKey = session.Members().GetPrimaryKeyFieldName(element.DataDef());
    const std::int32_t key = ownKey.empty() ? 0 : ToKey(ColumnValue(element, ownKey));
    return key < 1 || seen.insert(key).second;
}

}  // namespace

std::int32_t SaveRecord(CrudState& session, const QORObject::Ref& coData, const ParentLink& parent) {
    const Descent descent(session);
    const auto definition = DefinitionOf(coData);
    const auto place = FindStoredPlace(session, definition);
    if (!place) return 0;
    auto records = session.Members().OpenRecordset(SelectAll(place->table));
    if (records == nullptr) return 0;

    const std::int32_t newKey = InsertRecord(session, *records, *coData, definition, place->ownKey, parent);
    records.reset();
    TakeKeys(*coData, place->ownKey, newKey, parent);
    coData->Modified(false);
    SaveBeneath(session, *coData, definition, newKey, place->ownKey);
    return newKey;
}

void TakeKeys(QORObject& coData, const std::string& ownKey, std::int32_t key, const ParentLink& parent) {
    coData.Value(coData.ValueIndex(ownKey), key);
    if (!parent.column.empty() && !parent.value.IsMissing())
        coData.Value(coData.ValueIndex(parent.column), parent.value);
}

void SaveBeneath(CrudState& session, QORObject& coData, const QORObject::Ref& definition, std::int32_t key,
                 const std::string& ownKey) {
    const ParentLink link{session.ForeignKeyColumn(ownKey), key};
    const auto save = [&](const QORObject::Ref& object) { SaveRecord(session, object, link); };
    ForEachChild(coData, session.Read(definition)->childNames, save);
    if (!IsCollection(*definition)) return;
    std::unordered_set<std::int32_t> seen;
    ForEach(&coData, [&](const QORObject::Ref& element) {
        if (!session.IsUpdating() || IsFirstOfItsKey(session, *element, seen))
            save(element);
        else if (TreeModified(session, element))
            ++session.Counts().passedOver;
    });
}

std::int32_t DbSaveData(CrudState& session, const QORObject::Ref& coData) {
    session.ResetLastResult();
    if (!CheckConnected(session)) return 0;
    ParentLink parent{session.Members().GetForeignKeyFieldName(DefinitionOf(coData))};
    if (!parent.column.empty()) {
        const auto parentKey = FindParentKey(session, *coData, parent.column);
        if (!parentKey) return 0;
        parent.value = *parentKey;
    }
    return SaveRecord(session, coData, parent);
}

}  // namespace korvex::persistence
