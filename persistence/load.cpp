#include "automation/convert.h"
#include "persistence/definition_walk.h"
#include "persistence/field_values.h"
#include "persistence/record_lookup.h"
#include "persistence/record_members.h"
#include "persistence/special_state.h"

#include <algorithm>
#include <span>

namespace korvex::persistence {

using automation::Variant;

namespace {

/// A record that was copied into its data object.
struct LoadedRecord {
    QORObject::Ref definition;
    DefinitionReadings::Reading reading;
    std::string ownKey;
    std::int32_t key = 0;  ///< 0 when the object's key column is not among its values
    bool isCollection = false;
};

std::optional<LoadedRecord> LoadRecord(CrudState& session, const QORObject::Ref& coData, const Variant& lKey,
                                       const std::string& sKeyFieldName) {
    LoadedRecord loaded;
    loaded.definition = DefinitionOf(coData);
    auto place = FindPlace(session, loaded.definition, sKeyFieldName);
    if (!place) return std::nullopt;
    const auto records = OpenExisting(session, SelectRecord(*place, lKey));
    if (records == nullptr) return std::nullopt;

    loaded.ownKey = std::move(place->ownKey);
    loaded.isCollection = IsCollection(*loaded.definition);
    loaded.reading = session.Read(loaded.definition);
    const auto& values = loaded.reading->values;
    const auto& indexes = loaded.reading->indexes.In(*records, values, StateColumns(loaded.isCollection));
    const std::size_t keyPosition = loaded.reading->PositionOf(loaded.ownKey);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const PlainValue& value = values[i];
        if (indexes.empty())
            LoadFieldValue(*coData, value, *records);
        else if (indexes[i] != ColumnIndexes::None)
            coData->MoveValue(value.index, records->FieldValue(indexes[i]));
        if (i == keyPosition) loaded.key = automation::ToLong(coData->Value(value.index));
    }
    LoadState(*coData, *records, loaded.isCollection,
              std::span(indexes).subspan(std::min(values.size(), indexes.size())));
    records->Close();
    return loaded;
}

/// Appends one element per stored record, with nothing but its key. Answers the index of the key in the
/// elements; nothing when there are no records, or no table or key column to look for them.
std::optional<std::int32_t> AddElements(CrudState& session, QORObject& coData, const LoadedRecord& owner) {
    const auto [records, keyColumn] =
        OpenElements(session, ElementDefinitionOf(*owner.definition), owner.ownKey, owner.key);
    if (records == nullptr || keyColumn.empty()) return std::nullopt;
    std::optional<std::int32_t> keyIndex;
    for (; !records->Eof(); records->MoveNext()) {
        const auto item = Need(coData.AddItem(), "new element of the collection");
        keyIndex = item->ValueIndex(keyColumn);
        item->MoveValue(*keyIndex, records->FieldValue(keyColumn));
    }
    records->Close();
    return keyIndex;
}

void LoadElements(CrudState& session, QORObject& coData, const LoadedRecord& owner) {
    const auto keyIndex = AddElements(session, coData, owner);
    if (!keyIndex) return;
    ForEach(&coData, [&](const QORObject::Ref& element) {
        session.Members().DbGetData(element, element->Value(*keyIndex), {});
    });
}

}  // namespace

bool DbDataExists(CrudState& session, const QORObject::Ref& coData, const Variant& lKey) {
    session.ResetLastResult();
    if (!CheckConnected(session)) return false;
    const auto definition = DefinitionOf(coData);
    auto place = FindKeyColumn(session, definition);
    if (!place) return false;
    const Variant key = lKey.IsMissing() ? ColumnValue(*coData, place->keyColumn) : lKey;
    if (!CheckKey(session, key) || !FindTable(session, definition, *place)) return false;
    const auto records = OpenRecords(session, SelectRecord(*place, key));
    if (records == nullptr) return false;
    const bool exists = !records->Eof();
    records->Close();
    return exists;
}

std::int32_t DbGetData(CrudState& session, const QORObject::Ref& coData, const Variant& lKey,
                       const std::string& sKeyFieldName) {
    session.ResetLastResult();
    if (!CheckConnected(session) || !CheckKey(session, lKey)) return 0;
    const Descent descent(session);
    const auto loaded = LoadRecord(session, coData, lKey, sKeyFieldName);
    if (!loaded) return 0;
    ForEachChild(*coData, loaded->reading->childNames, [&](const QORObject::Ref& child) {
        session.Members().DbGetData(child, loaded->key, session.ForeignKeyColumn(loaded->ownKey));
    });
    if (loaded->isCollection) LoadElements(session, *coData, *loaded);
    coData->Modified(false);
    return loaded->key;
}

}  // namespace korvex::persistence
