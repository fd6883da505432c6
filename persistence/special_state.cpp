#include "persistence/special_state.h"

#include "automation/convert.h"
#include "persistence/definition_walk.h"
#include "persistence/stored_value.h"
#include "repository/names.h"

#include <array>

namespace korvex::persistence {

using automation::Variant;

namespace {

/// One attribute of a data object and its column.
struct StateColumn {
    std::int32_t attribute;
    std::string_view column;
    bool is16Bit = false;
};

using StatePair = std::array<StateColumn, 2>;

constexpr StatePair CollectionItemState = {StateColumn{attSelectedItem, repository::SelectedItemColumn},
                                           StateColumn{attCounterHolder, repository::CounterHolderColumn}};
constexpr StatePair ObjectState = {StateColumn{attSelectState, repository::SelectStateColumn, true},
                                   StateColumn{attCounter, repository::CounterColumn}};

Variant Attribute(QORObject& coData, const StateColumn& state) {
    if (state.is16Bit) return coData.IntegerAttribute(state.attribute);
    return coData.LongAttribute(state.attribute);
}

void Load(QORObject& coData, ado::Recordset& records, const StatePair& pair) {
    for (const auto& state : pair) {
        const Variant value = records.FieldValue(state.column);
        if (IsEmptyOrNull(value)) continue;
        if (state.is16Bit)
            coData.IntegerAttribute(state.attribute, automation::ToInteger(value));
        else
            coData.LongAttribute(state.attribute, automation::ToLong(value));
    }
}

void Save(QORObject& coData, ado::Recordset& records, const StatePair& pair) {
    for (const auto& state : pair)
        records.Fields(state.column)->Value(Attribute(coData, state));
}

}  // namespace

void LoadCollectionItemState(QORObject& coData, ado::Recordset& records) {
    Load(coData, records, CollectionItemState);
}

void LoadObjectState(QORObject& coData, ado::Recordset& records) { Load(coData, records, ObjectState); }

void SaveCollectionItemState(QORObject& coData, ado::Recordset& records) {
    Save(coData, records, CollectionItemState);
}

void SaveObjectState(QORObject& coData, ado::Recordset& records) { Save(coData, records, ObjectState); }

bool UpdateState(QORObject& coData, ado::Recordset& records, bool isCollection) {
    bool changed = false;
    for (const auto& state : isCollection ? CollectionItemState : ObjectState) {
        const auto field = records.Fields(state.column);
        const Variant value = Attribute(coData, state);
        if (SameAsStored(field->Value(), value)) continue;
        field->Value(value);
        changed = true;
    }
    return changed;
}

}  // namespace korvex::persistence
