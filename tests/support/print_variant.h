#pragma once

#include "automation/variant.h"

#include <iomanip>
#include <ostream>
#include <sstream>
#include <string>
#include <type_traits>
#include <variant>

namespace korvex::automation {

/// A value with its type, written without the conversions under test: "Long 12", "Double 0.1", "String <x>".
inline std::string Describe(const Variant& value) {
    std::ostringstream out;
    const auto whole = [&out](const char* type, long long number) { out << type << ' ' << number; };
    out << std::setprecision(17);
    std::visit(
        [&]<class T>(const T& held) {
            if constexpr (std::is_same_v<T, EmptyValue>) out << "Empty";
            if constexpr (std::is_same_v<T, NullValue>) out << "Null";
            if constexpr (std::is_same_v<T, MissingValue>) out << "Missing";
            if constexpr (std::is_same_v<T, bool>) out << (held ? "Boolean True" : "Boolean False");
            if constexpr (std::is_same_v<T, std::uint8_t>) whole("Byte", held);
            if constexpr (std::is_same_v<T, std::int16_t>) whole("Integer", held);
            if constexpr (std::is_same_v<T, std::int32_t>) whole("Long", held);
            if constexpr (std::is_same_v<T, std::int64_t>) whole("LongLong", held);
            if constexpr (std::is_same_v<T, float>) out << "Single " << std::setprecision(9) << held;
            if constexpr (std::is_same_v<T, double>) out << "Double " << held;
            if constexpr (std::is_same_v<T, Currency>) whole("Currency units", held.units);
            if constexpr (std::is_same_v<T, Date>) out << "Date " << held.days;
            if constexpr (std::is_same_v<T, std::string>) out << "String <" << held << '>';
            if constexpr (std::is_same_v<T, Bytes>)
                whole("Bytes, length", static_cast<long long>(held.size()));
            if constexpr (std::is_same_v<T, ObjectRef>) out << (held ? "Object" : "Nothing");
        },
        value.Value());
    return out.str();
}

inline void PrintTo(const Variant& value, std::ostream* out) { *out << Describe(value); }

}  // namespace korvex::automation
