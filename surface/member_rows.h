#pragma once

#include "automation/dispatch.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

/// Rows of the member tables for plain properties, written once for every class.
namespace korvex::surface {

template <class T>
consteval automation::VarType VarTypeOf() {
    using automation::VarType;
    if constexpr (std::is_same_v<T, bool>) return VarType::Boolean;
    if constexpr (std::is_same_v<T, std::int16_t>) return VarType::Integer;
    if constexpr (std::is_same_v<T, std::int32_t>) return VarType::Long;
    if constexpr (std::is_same_v<T, std::string>) return VarType::String;
}

/// How a let member of the C++ class takes a new value of type T.
template <class T>
using LetArgument = std::conditional_t<std::is_same_v<T, std::string>, const std::string&, T>;

/// An argument that arrived converted to its declared type.
template <class T>
const T& Argument(const automation::Variant& value) {
    return *value.If<T>();
}

template <class T, automation::Passing passing>
inline constexpr automation::Parameter NewValue[] = {{"newValue", VarTypeOf<T>(), passing}};

template <class C, class T, T (C::*Get)()>
constexpr automation::Member PropertyGet(std::string_view name, std::string_view description = {}) {
    return {.name = name,
            .kind = automation::InvokeKind::PropertyGet,
            .parameters = {},
            .result = VarTypeOf<std::remove_cvref_t<T>>(),
            .call = [](automation::Object& self, std::span<automation::Variant>) -> automation::Variant {
                return (static_cast<C&>(self).*Get)();
            },
            .description = description,
            .resultTypeName = {}};
}

template <class C, class T, void (C::*Let)(LetArgument<T>), automation::Passing passing>
constexpr automation::Member PropertyLet(std::string_view name, std::string_view description = {}) {
    return {.name = name,
            .kind = automation::InvokeKind::PropertyLet,
            .parameters = NewValue<T, passing>,
            .result = automation::VarType::Void,
            .call = [](automation::Object& self,
                       std::span<automation::Variant> arguments) -> automation::Variant {
                (static_cast<C&>(self).*Let)(Argument<T>(arguments[0]));
                return {};
            },
            .description = description,
            .resultTypeName = {}};
}

}  // namespace korvex::surface
