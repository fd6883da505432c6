#pragma once

#include "automation/dispatch.h"

#include <algorithm>
#include <array>
#include <concepts>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>

/// Rows of member tables, made from the C++ members that they call: how arguments and results travel follows
/// from the member's own type.
///
///     GetRow<&Recordset::State>("State"),
///     MethodRow<&clsCreateDb::DoOracleDb>("DoOracleDb", {.parameters = RunParameters}),
///
/// A row calls a member function, or a free function whose first parameter is the object.
namespace korvex::automation {

/// What a row declares that does not follow from the C++ member.
struct RowFacts {
    std::span<const Parameter> parameters = {};  ///< as many as the C++ member takes, of the same types
    std::string_view description = {};
    std::string_view resultTypeName = {};
};

/// Picks an overload by its parameters: `Taking<>(&clsField::TypeSize)`, `Taking<bool>(&Object::Modified)`.
template <class... A>
struct OverloadTaking {
    template <class C, class R>
    consteval auto operator()(R (C::*member)(A...)) const {
        return member;
    }
    template <class C, class R>
    consteval auto operator()(R (C::*member)(A...) const) const {
        return member;
    }
};
template <class... A>
inline constexpr OverloadTaking<A...> Taking;

namespace rows {

template <class T>
inline constexpr bool isReference = false;
template <std::derived_from<Object> T>
inline constexpr bool isReference<std::shared_ptr<T>> = true;

/// The declared type of what travels as a T; Empty for what cannot travel.
template <class T>
consteval VarType TypeOf() {
    if (std::is_void_v<T>) return VarType::Void;
    if (std::is_same_v<T, bool>) return VarType::Boolean;
    if (std::is_same_v<T, std::int16_t>) return VarType::Integer;
    if (std::is_same_v<T, std::int32_t> || std::is_enum_v<T>) return VarType::Long;
    if (std::is_same_v<T, std::string> || std::is_same_v<T, std::string_view>) return VarType::String;
    if (std::is_same_v<T, Variant>) return VarType::Variant;
    return isReference<T> ? VarType::Object : VarType::Empty;
}

/// An argument, which arrived converted to its declared type, as a C++ member takes it that declares a T.
template <class T>
decltype(auto) Argument(Variant& value) {
    using Plain = std::remove_cvref_t<T>;
    if constexpr (std::is_same_v<T, Variant>) {
        return std::move(value);
    } else if constexpr (std::is_same_v<Plain, Variant>) {
        return static_cast<T>(value);
    } else if constexpr (isReference<Plain>) {
        return ObjectAs<typename Plain::element_type>(value);
    } else if constexpr (std::is_same_v<Plain, std::string_view>) {
        return std::string_view(*value.If<std::string>());
    } else {
        return *std::as_const(value).If<Plain>();
    }
}

template <class C, class R, class... A>
struct Signature {
    static constexpr VarType result = TypeOf<std::remove_cvref_t<R>>();
    static constexpr std::array<VarType, sizeof...(A)> arguments = {TypeOf<std::remove_cvref_t<A>>()...};
    static constexpr std::uint32_t outputs = [] {
        std::uint32_t bits = 0;
        [[maybe_unused]] std::uint32_t bit = 1;
        ((bits |= std::is_same_v<A, Variant&> ? bit : 0, bit <<= 1), ...);
        return bits;
    }();

    template <auto function>
    static Variant Call(Object& self, std::span<Variant> values) {
        return CallWith<function>(static_cast<C&>(self), values, std::index_sequence_for<A...>());
    }

  private:
    template <auto function, std::size_t... places>
    static Variant CallWith(C& self, [[maybe_unused]] std::span<Variant> values,
                            std::index_sequence<places...>) {
        if constexpr (std::is_void_v<R>) {
            std::invoke(function, self, Argument<A>(values[places])...);
            return {};
        } else if constexpr (std::is_enum_v<R>) {
            return static_cast<std::int32_t>(std::invoke(function, self, Argument<A>(values[places])...));
        } else {
            return std::invoke(function, self, Argument<A>(values[places])...);
        }
    }
};

template <class C, class R, class... A>
Signature<C, R, A...> SignatureOf(R (C::*)(A...));
template <class C, class R, class... A>
Signature<C, R, A...> SignatureOf(R (C::*)(A...) const);
template <class C, class R, class... A>
Signature<C, R, A...> SignatureOf(R (*)(C&, A...));

template <auto function>
consteval Member Row(InvokeKind kind, std::string_view name, const RowFacts& facts) {
    using Type = decltype(SignatureOf(function));
    if (Type::result == VarType::Empty) throw "the result cannot travel";
    if (!std::ranges::equal(facts.parameters, Type::arguments, {}, &Parameter::type))
        throw "the parameters are not those of the C++ member";
    return {.name = name,
            .kind = kind,
            .parameters = facts.parameters,
            .result = Type::result,
            .call = Type::template Call<function>,
            .description = facts.description,
            .resultTypeName = facts.resultTypeName,
            .outputs = Type::outputs};
}

template <VarType type, Passing passing>
inline constexpr Parameter NewValue[] = {{"newValue", type, passing}};

}  // namespace rows

template <auto function>
consteval Member MethodRow(std::string_view name, const RowFacts& facts = {}) {
    return rows::Row<function>(InvokeKind::Method, name, facts);
}

template <auto function>
consteval Member GetRow(std::string_view name, const RowFacts& facts = {}) {
    return rows::Row<function>(InvokeKind::PropertyGet, name, facts);
}

/// Without declared parameters it is a plain property, whose new value travels by `passing`.
template <auto function, Passing passing = Passing::ByValue>
consteval Member LetRow(std::string_view name, RowFacts facts = {}) {
    constexpr auto& arguments = decltype(rows::SignatureOf(function))::arguments;
    if (facts.parameters.empty()) facts.parameters = rows::NewValue<arguments.back(), passing>;
    return rows::Row<function>(InvokeKind::PropertyLet, name, facts);
}

template <auto function>
consteval Member SetRow(std::string_view name, const RowFacts& facts) {
    return rows::Row<function>(InvokeKind::PropertySet, name, facts);
}

}  // namespace korvex::automation
