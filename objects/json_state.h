#pragma once

#include "objects/data_object.h"

#include <array>
#include <string_view>

/// What the JSON form of an object holds beside its values.
namespace korvex::objects {

inline constexpr std::string_view StateMember = "$state";
inline constexpr std::string_view ItemsMember = "$items";

/// A state of data objects under its JSON name.
struct State {
    std::string_view name;
    std::int32_t attribute;
    std::int32_t dataType;
};

/// The two states of objects with that definition.
std::array<State, 2> StatesOf(const Definition& definition);
std::int32_t GetState(DataObject& object, const State& state);
/// `value` lies within the state's data type.
void SetState(DataObject& object, const State& state, std::int32_t value);

/// Raises OutOfStackSpace (28): objects and arrays stand too deep in each other's members.
[[noreturn]] void FailTooDeep();

}  // namespace korvex::objects
