#include "objects/json_state.h"

#include "automation/error.h"

namespace korvex::objects {

using automation::VarType;

namespace {

constexpr auto LongCode = static_cast<std::int32_t>(VarType::Long);
constexpr auto IntegerCode = static_cast<std::int32_t>(VarType::Integer);

}  // namespace

std::array<State, 2> StatesOf(const Definition& definition) {
    if (definition.ElementDefinition() != nullptr)
        return {{{"SelectedItem", attSelectedItem, LongCode}, {"CounterHolder", attCounterHolder, LongCode}}};
    return {{{"SelectState", attSelectState, IntegerCode}, {"Counter", attCounter, LongCode}}};
}

std::int32_t GetState(DataObject& object, const State& state) {
    if (state.dataType == IntegerCode) return object.IntegerAttribute(state.attribute);
    return object.LongAttribute(state.attribute);
}

void SetState(DataObject& object, const State& state, std::int32_t value) {
    if (state.dataType == IntegerCode)
        object.IntegerAttribute(state.attribute, static_cast<std::int16_t>(value));
    else
        object.LongAttribute(state.attribute, value);
}

void FailTooDeep() {
    throw automation::Error(automation::OutOfStackSpace, "The objects are nested too deeply.");
}

}  // namespace korvex::objects
