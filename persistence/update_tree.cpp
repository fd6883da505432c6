#include "persistence/update_tree.h"

#include "automation/convert.h"
#include "persistence/definition_walk.h"
#include "persistence/remove.h"
#include "persistence/save.h"
#include "persistence/special_state.h"

#include <unordered_set>
#include <vector>

namespace korvex::persistence {

using automation::Variant;

namespace {

/// Calls `visit` for the object, its children and its elements, all the way down, until one answers True.
template <class Visit>
bool AnyInTree(CrudState& session, const QORObject::Ref& coData, const Visit& visit) {
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
void WriteDifferences(CrudState& session, QORObject& coData, ado::Recordset& records,
                      const std::string& ownKey, const ParentLink& parent) {
    const auto definition = coData.DataDef();
    const auto reading = session.Read(definition);
    bool changed = false;
    for (const auto& value : reading->values)
        if (UpdateFieldValue(value, coData, records, ownKey, parent)) changed = true;
    if (UpdateState(coData, records, IsCollection(*definition))) changed = true;
    if (!changed) return;
    records.Update();
    ++session.Counts().writes;
}

/// Updates the object from its record, which stands at the recordset, and goes on beneath it.
void UpdateStored(CrudState& session, const QORObject::Ref& object, const RecordsetRef& records,
                  const std::string& ownKey, const ParentLink& link, bool isOfAnother) {
    auto stored = UpdateRecord(session, object, records, ownKey, link, Columns::Modified);
    stored.isOfAnother = isOfAnother;
    UpdateBeneath(session, object, stored);
}

/// The stored record of a child: the one with the child's own key if it belongs to this parent, else the
/// first that does. Nullptr when the table did not open.
RecordsetRef OpenChild(CrudState& session, const RecordPlace& place, std::int32_t key,
                       const ParentLink& link) {
    if (key > 0) {
        auto records = OpenRecords(session, SelectRecord(place, key));
        if (records == nullptr) return nullptr;
        if (!records->Eof() && SameAsStored(records->FieldValue(link.column), link.value)) return records;
        records->Close();
    }
    return OpenRecords(session, SelectWhere(place.table, link.column, link.value));
}

/// A child without a record is saved, as it would have been with its parent.
void UpdateChild(CrudState& session, const QORObject::Ref& child, const ParentLink& link,
                 const UpdatedObject& parent) {
    const auto place = FindStoredPlace(session, DefinitionOf(child));
    if (!place) return;
    const std::int32_t key = ToKey(ColumnValue(*child, place->ownKey));
    if (parent.isItsOwn && key > 0 && !child->Modified())
        return UpdateBeneath(session, child, {.ownKey = place->ownKey, .key = key, .isItsOwn = true});
    auto records = OpenChild(session, *place, key, link);
    if (records == nullptr) return;
    if (!records->Eof())
        return UpdateStored(session, child, records, place->ownKey, link, parent.isOfAnother);
    records->Close();
    SaveRecord(session, child, link);
}

/// The elements of a collection, from a look at the keys of those that are stored.
class ElementUpdate {
  public:
    ElementUpdate(CrudState& session, QORObject& coData, const UpdatedObject& owner)
        : m_session(session),
          m_coData(coData),
          m_isTruth(owner.isListModified || owner.isOfAnother),
          m_link{session.ForeignKeyColumn(owner.ownKey), owner.key} {}

    void Run(const RecordPlace& place, const QORObject::Ref& elementDef, const std::vector<Variant>& stored) {
        m_place = place;
        for (const auto& key : stored)
            m_stored.insert(automation::ToLong(key));
        if (m_isTruth) DeleteOthers(elementDef, stored);
        ForEach(&m_coData, [&](const QORObject::Ref& element) { UpdateOne(element); });
    }

  private:
    std::int32_t KeyOf(QORObject& element) const { return ToKey(ColumnValue(element, m_place.ownKey)); }

    /// They go first, so that what they held in unique columns is free.
    void DeleteOthers(const QORObject::Ref& elementDef, std::vector<Variant> stored) {
        std::unordered_set<std::int32_t> held;
        ForEach(&m_coData, [&](const QORObject::Ref& element) { held.insert(KeyOf(*element)); });
        std::erase_if(stored, [&](const Variant& key) { return held.contains(automation::ToLong(key)); });
        DeleteElements(m_session, elementDef, stored);
    }

    /// A collection that was loaded twice holds its elements twice: none of them becomes another record.
    void UpdateOne(const QORObject::Ref& element) {
        const std::int32_t key = KeyOf(*element);
        const bool isNew = key < 1 || (m_seen.insert(key).second && m_isTruth);
        if (m_stored.contains(key))
            UpdateStoredElement(element, key);
        else if (isNew)
            SaveRecord(m_session, element, m_link);
        else if (TreeModified(m_session, element))
            ++m_session.Counts().passedOver;
    }

    void UpdateStoredElement(const QORObject::Ref& element, std::int32_t key) {
        if (!element->Modified())
            return UpdateBeneath(m_session, element,
                                 {.ownKey = m_place.ownKey, .key = key, .isItsOwn = true});
        auto records = OpenRecords(m_session, SelectRecord(m_place, key));
        if (records == nullptr) return;
        if (!records->Eof()) return UpdateStored(m_session, element, records, m_place.ownKey, m_link, false);
        records->Close();
        ++m_session.Counts().passedOver;  // it went since the look at the keys
    }

    CrudState& m_session;
    QORObject& m_coData;
    bool m_isTruth;  ///< the list says which elements there are to be
    ParentLink m_link;
    RecordPlace m_place;
    std::unordered_set<std::int32_t> m_stored;
    std::unordered_set<std::int32_t> m_seen;
};

void UpdateElements(CrudState& session, const QORObject::Ref& coData, const UpdatedObject& owner) {
    const auto elementDef = ElementDefinitionOf(*DefinitionOf(coData));
    const auto place = FindStoredPlace(session, elementDef);
    if (!place) return;
    const auto stored = ElementKeys(session, elementDef, owner.ownKey, owner.key);
    if (stored) ElementUpdate(session, *coData, owner).Run(*place, elementDef, *stored);
}

}  // namespace

bool TreeModified(CrudState& session, const QORObject::Ref& coData) {
    return AnyInTree(session, coData, [](QORObject& object) { return object.Modified(); });
}

void ClearModified(CrudState& session, const QORObject::Ref& coData) {
    AnyInTree(session, coData, [](QORObject& object) {
        object.Modified(false);
        return false;
    });
}

UpdatedObject UpdateRecord(CrudState& session, const QORObject::Ref& coData, const RecordsetRef& records,
                           const std::string& ownKey, const ParentLink& parent, Columns columns) {
    const std::int32_t key = KeyOfRecord(*records, ownKey);
    const std::int32_t carried = ToKey(ColumnValue(*coData, ownKey));
    const bool isOfAnother = carried > 0 && carried != key;
    const bool isListModified = IsCollection(*DefinitionOf(coData)) && coData->ListModified();
    if (coData->Modified() || isOfAnother || columns == Columns::All)
        WriteDifferences(session, *coData, *records, ownKey, parent);
    records->Close();
    TakeKeys(*coData, ownKey, key, parent);
    return {ownKey, key, carried == key, isOfAnother, isListModified};
}

void UpdateBeneath(CrudState& session, const QORObject::Ref& coData, const UpdatedObject& stored) {
    const Descent descent(session);
    const auto definition = DefinitionOf(coData);
    const ParentLink link{session.ForeignKeyColumn(stored.ownKey), stored.key};
    const auto reading = session.Read(definition);
    ForEachChild(*coData, reading->childNames,
                 [&](const QORObject::Ref& child) { UpdateChild(session, child, link, stored); });
    if (IsCollection(*definition)) UpdateElements(session, coData, stored);
}

}  // namespace korvex::persistence
