#include "persistence/special_state.h"

#include "automation/convert.h"
#include "persistence/definition_walk.h"
#include "persistence/field_values.h"
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

const StatePair& PairOf(bool isCollection) { return isCollection ? CollectionItemState : ObjectState; }

}  // namespace

std::array<std::string_view, 2> StateColumns(bool isCollection) {
    const StatePair& pair = PairOf(isCollection);
    return {pair[0].column, pair[1].column};
}

void LoadState(QORObject& coData, ado::Recordset& records, bool isCollection,
               std::span<const std::int32_t> indexes) {
    const StatePair& pair = PairOf(isCollection);
    for (std::size_t i = 0; i < pair.size(); ++i) {
        const StateColumn& state = pair[i];
        const Variant value =
            indexes.empty() ? records.FieldValue(state.column) : records.FieldValue(indexes[i]);
        if (IsEmptyOrNull(value)) continue;
        if (state.is16Bit)
            coData.IntegerAttribute(state.attribute, automation::ToInteger(value));
        else
            coData.LongAttribute(state.attribute, automation::ToLong(value));
    }
}

void SaveState(QORObject& coData, ado::Recordset& records, bool isCollection) {
    for (const auto& state : PairOf(isCollection))
        records.Fields(state.column)->Value(Attribute(coData, state));
}

bool UpdateState(QORObject& coData, ado::Recordset& records, bool isCollection) {
    bool changed = false;
    for (const auto& state : PairOf(isCollection)) {
        const auto field = records.Fields(state.column);
        const Variant value = Attribute(coData, state);
        if (SameAsStored(field->Value(), value)) continue;
        field->Value(value);
        changed = true;
    }
    return changed;
}

}  // namespace korvex::persistence
