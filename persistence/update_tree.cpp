#include "persistence/update_tree.h"

#include "automation/convert.h"
#include "persistence/definition_walk.h"
#include "persistence/remove.h"
#include "persistence/save.h"
#include "persistence/special_state.h"
#include "persistence/stored_value.h"

#include <unordered_map>
#include <utility>
#include <vector>

namespace korvex::persistence {

using automation::Variant;

namespace {

/// Calls `visit` for the object, its children and its elements, all the way down, until one answers True.
template <class Visit>
bool AnyInTree(Session& session, const QORObject::Ref& coData, const Visit& visit) {
    const Descent descent(session);
    if (visit(*coData)) return true;
    const auto definition = DefinitionOf(coData);
    bool found = false;
    const auto descend = [&](const QORObject::Ref& object) {
        found = found || AnyInTree(session, object, visit);
    };
    ForEachChild(*coData, session.Read(definition)->childNames, descend);
    if (!found && IsCollection(*definition)) ForEach(coData.get(), descend);
    return found;
}

/// Sends the columns that differ; nothing when none does.
void WriteDifferences(Session& session, QORObject& coData, ado::Recordset& records, const std::string& ownKey,
                      const ParentLink& parent) {
    const auto definition = coData.DataDef();
    const auto reading = session.Read(definition);
    bool changed = false;
    for (const auto& value : reading->values)
        if (UpdateFieldValue(value, coData, records, ownKey, parent)) changed = true;
    if (UpdateState(coData, records, IsCollection(*definition))) changed = true;
    if (changed) records.Update();
}

/// Updates the object from its record, which stands at the recordset, and goes on beneath it.
void UpdateStored(Session& session, const QORObject::Ref& object, const RecordsetRef& records,
                  const std::string& ownKey, const ParentLink& link) {
    const auto stored = UpdateRecord(session, object, records, ownKey, link, Columns::Modified);
    UpdateBeneath(session, object, stored);
}

/// The stored record of a child: the one with the child's own key if it belongs to this parent, else the
/// first that does. Nullptr when the table did not open.
RecordsetRef OpenChild(Session& session, const RecordPlace& place, std::int32_t key, const ParentLink& link) {
    if (key > 0) {
        auto records = OpenRecords(session, SelectRecord(place, key));
        if (records == nullptr) return nullptr;
        if (!records->Eof() && SameAsStored(records->Fields(link.column)->Value(), link.value))
            return records;
        records->Close();
    }
    return OpenRecords(session, SelectWhere(place.table, link.column, link.value));
}

/// A child without a record is saved, as it would have been with its parent.
void UpdateChild(Session& session, const QORObject::Ref& child, const ParentLink& link, bool parentIsItsOwn) {
    const auto place = FindStoredPlace(session, DefinitionOf(child));
    if (!place) return;
    const std::int32_t key = OwnKey(*child, place->ownKey);
    if (parentIsItsOwn && key > 0 && !child->Modified())
        return UpdateBeneath(session, child, {place->ownKey, key, true});
    auto records = OpenChild(session, *place, key, link);
    if (records == nullptr) return;
    if (!records->Eof()) return UpdateStored(session, child, records, place->ownKey, link);
    records->Close();
    SaveRecord(session, child, link);
}

void UpdateElement(Session& session, const QORObject::Ref& element, const RecordPlace& place,
                   std::int32_t key, const ParentLink& link) {
    if (!element->Modified()) return UpdateBeneath(session, element, {place.ownKey, key, true});
    auto records = OpenRecords(session, SelectRecord(place, key));
    if (records == nullptr) return;
    if (!records->Eof()) return UpdateStored(session, element, records, place.ownKey, link);
    records->Close();
    SaveRecord(session, element, link);
}

/// Takes out of `stored` the keys that elements of the collection carry, and gives them element by element; 0
/// for an element that is not stored under this owner.
std::vector<std::int32_t> MatchElements(QORObject& coData, const std::string& keyColumn,
                                        std::vector<Variant>& stored) {
    std::unordered_map<std::int32_t, std::size_t> positions;
    for (std::size_t i = 0; i < stored.size(); ++i)
        positions.emplace(automation::ToLong(stored[i]), i);
    std::vector<std::int32_t> matched;
    ForEach(&coData, [&](const QORObject::Ref& element) {
        const std::int32_t key = OwnKey(*element, keyColumn);
        const auto position = positions.find(key);
        matched.push_back(position == positions.end() ? 0 : key);
        if (position == positions.end()) return;
        stored[position->second] = Variant();
        positions.erase(position);
    });
    std::erase_if(stored, [](const Variant& key) { return key.IsEmpty(); });
    return matched;
}

/// Elements that left the collection are deleted first, so that what they held in unique columns is free.
void UpdateElements(Session& session, const QORObject::Ref& coData, const UpdatedObject& owner,
                    const ParentLink& link) {
    const auto elementDef =
        Need(DefinitionOf(coData)->ObjectAttribute(attElementDef), "definition of the collection's elements");
    const auto place = FindStoredPlace(session, elementDef);
    if (!place) return;
    auto stored = ElementKeys(session, elementDef, owner.ownKey, owner.key);
    if (!stored) return;
    const auto matched = MatchElements(*coData, place->ownKey, *stored);
    DeleteElements(session, elementDef, *stored);

    auto key = matched.begin();
    ForEach(coData.get(), [&](const QORObject::Ref& element) {
        if (key == matched.end()) return;
        if (*key > 0)
            UpdateElement(session, element, *place, *key, link);
        else
            SaveRecord(session, element, link);
        ++key;
    });
}

}  // namespace

std::int32_t OwnKey(QORObject& coData, const std::string& column) {
    const Variant key = ColumnValue(coData, column);
    return IsBlank(key) ? 0 : automation::ToLong(key);
}

bool TreeModified(Session& session, const QORObject::Ref& coData) {
    return AnyInTree(session, coData, [](QORObject& object) { return object.Modified(); });
}

void ClearModified(Session& session, const QORObject::Ref& coData) {
    AnyInTree(session, coData, [](QORObject& object) {
        object.Modified(false);
        return false;
    });
}

UpdatedObject UpdateRecord(Session& session, const QORObject::Ref& coData, const RecordsetRef& records,
                           const std::string& ownKey, const ParentLink& parent, Columns columns) {
    const std::int32_t key = KeyOfRecord(*records, ownKey);
    const std::int32_t carried = OwnKey(*coData, ownKey);
    const bool isAnothers = carried > 0 && carried != key;
    if (coData->Modified() || isAnothers || columns == Columns::All)
        WriteDifferences(session, *coData, *records, ownKey, parent);
    records->Close();
    TakeKeys(*coData, ownKey, key, parent);
    return {ownKey, key, carried == key};
}

void UpdateBeneath(Session& session, const QORObject::Ref& coData, const UpdatedObject& stored) {
    const Descent descent(session);
    const auto definition = DefinitionOf(coData);
    const ParentLink link{session.ForeignKeyColumn(stored.ownKey), stored.key};
    const auto reading = session.Read(definition);
    ForEachChild(*coData, reading->childNames,
                 [&](const QORObject::Ref& child) { UpdateChild(session, child, link, stored.isItsOwn); });
    if (IsCollection(*definition)) UpdateElements(session, coData, stored, link);
}

}  // namespace korvex::persistence
