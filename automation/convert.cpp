#include "automation/convert.h"

#include "automation/date_text.h"
#include "automation/dispatch.h"
#include "automation/error.h"
#include "automation/number_text.h"
#include "automation/text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <concepts>
#include <limits>
#include <string>

namespace korvex::automation {

namespace {

constexpr std::int64_t UnitsPerOne = 10'000;  ///< Currency units in 1
constexpr int CurrencyPlaces = 4;

std::string_view TypeName(VarType type) noexcept {
    switch (type) {
        case VarType::Empty:
            return "Empty";
        case VarType::Null:
            return "Null";
        case VarType::Integer:
            return "Integer";
        case VarType::Long:
            return "Long";
        case VarType::Single:
            return "Single";
        case VarType::Double:
            return "Double";
        case VarType::Currency:
            return "Currency";
        case VarType::Date:
            return "Date";
        case VarType::String:
            return "String";
        case VarType::Object:
            return "an object";
        case VarType::Missing:
            return "a missing argument";
        case VarType::Boolean:
            return "Boolean";
        case VarType::Variant:
            return "Variant";
        case VarType::Byte:
            return "Byte";
        case VarType::LongLong:
            return "LongLong";
        case VarType::Void:
            return "nothing";
        case VarType::Bytes:
            return "an array of bytes";
    }
    return "an unknown type";
}

/// For the types that no conversion takes.
[[noreturn]] void RaiseNotConvertible(const Variant& value, VarType target) {
    if (value.IsNull()) throw Error(InvalidUseOfNull);
    std::string description = "Type mismatch: ";
    description.append(TypeName(value.Type())).append(" does not convert to ").append(TypeName(target));
    throw Error(TypeMismatch, std::move(description));
}

template <std::integral T>
constexpr VarType typeOf = std::same_as<T, std::uint8_t>   ? VarType::Byte
                           : std::same_as<T, std::int16_t> ? VarType::Integer
                           : std::same_as<T, std::int32_t> ? VarType::Long
                                                           : VarType::LongLong;

template <std::integral T>
T Narrow(std::int64_t value) {
    if (value < std::numeric_limits<T>::min() || value > std::numeric_limits<T>::max()) throw Error(Overflow);
    return static_cast<T>(value);
}

/// Rounds half to even. The bounds are compared as doubles, where the largest 64-bit number is not exact but
/// the number after it is; NaN fails both.
template <std::integral T>
T RoundToWhole(double value) {
    const double rounded = std::nearbyint(value);
    constexpr auto lowest = static_cast<double>(std::numeric_limits<T>::min());
    const double beyond = std::ldexp(1.0, std::numeric_limits<T>::digits);
    if (!(rounded >= lowest && rounded < beyond)) throw Error(Overflow);
    return static_cast<T>(rounded);
}

std::int64_t RoundCurrency(Currency value) noexcept {
    const std::int64_t whole = value.units / UnitsPerOne;
    const std::int64_t rest = std::abs(value.units % UnitsPerOne);
    const bool awayFromZero = rest * 2 > UnitsPerOne || (rest * 2 == UnitsPerOne && whole % 2 != 0);
    if (!awayFromZero) return whole;
    return value.units < 0 ? whole - 1 : whole + 1;
}

template <std::integral T>
T ParseWhole(const std::string& text) {
    // Most texts are nothing but digits.
    T plain = 0;
    const char* const end = text.data() + text.size();
    if (const auto [stop, error] = std::from_chars(text.data(), end, plain);
        error == std::errc() && stop == end) {
        return plain;
    }
    const NumberText number = ReadNumber(text);
    if (!number.isBitPattern) return Narrow<T>(ScaledWhole(number, 0));
    if (number.bits > std::numeric_limits<std::make_unsigned_t<T>>::max()) throw Error(Overflow);
    return static_cast<T>(number.bits);
}

template <std::integral T>
T ToWhole(const Variant& value) {
    switch (value.Type()) {
        case VarType::Empty:
            return 0;
        case VarType::Boolean:
            return *value.If<bool>() ? static_cast<T>(-1) : T{0};
        case VarType::Byte:
            return Narrow<T>(*value.If<std::uint8_t>());
        case VarType::Integer:
            return Narrow<T>(*value.If<std::int16_t>());
        case VarType::Long:
            return Narrow<T>(*value.If<std::int32_t>());
        case VarType::LongLong:
            return Narrow<T>(*value.If<std::int64_t>());
        case VarType::Currency:
            return Narrow<T>(RoundCurrency(*value.If<Currency>()));
        case VarType::Single:
            return RoundToWhole<T>(static_cast<double>(*value.If<float>()));
        case VarType::Double:
            return RoundToWhole<T>(*value.If<double>());
        case VarType::Date:
            return RoundToWhole<T>(value.If<Date>()->days);
        case VarType::String:
            return ParseWhole<T>(*value.If<std::string>());
        default:
            RaiseNotConvertible(value, typeOf<T>);
    }
}

/// The value as a double, whatever number type it has.
double ToReal(const Variant& value, VarType target) {
    switch (value.Type()) {
        case VarType::Empty:
            return 0;
        case VarType::Boolean:
            return *value.If<bool>() ? -1 : 0;
        case VarType::Byte:
            return *value.If<std::uint8_t>();
        case VarType::Integer:
            return *value.If<std::int16_t>();
        case VarType::Long:
            return *value.If<std::int32_t>();
        case VarType::LongLong:
            return static_cast<double>(*value.If<std::int64_t>());
        case VarType::Currency:
            return static_cast<double>(value.If<Currency>()->units) / UnitsPerOne;
        case VarType::Single:
            return static_cast<double>(*value.If<float>());
        case VarType::Double:
            return *value.If<double>();
        case VarType::Date:
            return value.If<Date>()->days;
        case VarType::String:
            return ParseNumber(*value.If<std::string>());
        default:
            RaiseNotConvertible(value, target);
    }
}

Currency WholeCurrency(std::int64_t value) {
    constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max() / UnitsPerOne;
    if (value < -largest || value > largest) throw Error(Overflow);
    return {value * UnitsPerOne};
}

Currency ParseCurrency(const std::string& text) {
    const NumberText number = ReadNumber(text);
    if (number.isBitPattern) return WholeCurrency(Narrow<std::int64_t>(ParseWhole<std::int64_t>(text)));
    return {ScaledWhole(number, CurrencyPlaces)};
}

bool ParseBoolean(const std::string& text) {
    if (EqualsIgnoreCase(text, "True")) return true;
    if (EqualsIgnoreCase(text, "False")) return false;
    return ParseNumber(text) != 0;
}

template <std::integral T>
std::string FormatWhole(T value) {
    std::array<char, 24> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), written.ptr};
}

Variant ToObjectOrNothing(const Variant& value) {
    if (value.IsObject()) return value;
    RaiseNotConvertible(value, VarType::Object);
}

}  // namespace

bool ToBoolean(const Variant& value) {
    switch (value.Type()) {
        case VarType::Boolean:
            return *value.If<bool>();
        case VarType::LongLong:
            return *value.If<std::int64_t>() != 0;
        case VarType::Currency:
            return value.If<Currency>()->units != 0;
        case VarType::String:
            return ParseBoolean(*value.If<std::string>());
        default:
            return ToReal(value, VarType::Boolean) != 0;
    }
}

std::uint8_t ToByte(const Variant& value) { return ToWhole<std::uint8_t>(value); }

std::int16_t ToInteger(const Variant& value) { return ToWhole<std::int16_t>(value); }

std::int32_t ToLong(const Variant& value) {
    if (const auto* number = value.If<std::int32_t>()) return *number;
    return ToWhole<std::int32_t>(value);
}

std::int64_t ToLongLong(const Variant& value) { return ToWhole<std::int64_t>(value); }

float ToSingle(const Variant& value) {
    if (const auto* number = value.If<float>()) return *number;
    const double number = ToReal(value, VarType::Single);
    const auto narrowed = static_cast<float>(number);
    if (std::isinf(narrowed)) throw Error(Overflow);
    return narrowed;
}

double ToDouble(const Variant& value) { return ToReal(value, VarType::Double); }

Currency ToCurrency(const Variant& value) {
    switch (value.Type()) {
        case VarType::Currency:
            return *value.If<Currency>();
        case VarType::LongLong:
            return WholeCurrency(*value.If<std::int64_t>());
        case VarType::String:
            return ParseCurrency(*value.If<std::string>());
        default:
            return {RoundToWhole<std::int64_t>(ToReal(value, VarType::Currency) * UnitsPerOne)};
    }
}

std::string ToString(const Variant& value) {
    constexpr int singleDigits = 7;
    constexpr int doubleDigits = 15;
    switch (value.Type()) {
        case VarType::String:
            return *value.If<std::string>();
        case VarType::Long:
            return FormatWhole(*value.If<std::int32_t>());
        case VarType::Empty:
            return {};
        case VarType::Boolean:
            return *value.If<bool>() ? "True" : "False";
        case VarType::Byte:
            return FormatWhole(*value.If<std::uint8_t>());
        case VarType::Integer:
            return FormatWhole(*value.If<std::int16_t>());
        case VarType::LongLong:
            return FormatWhole(*value.If<std::int64_t>());
        case VarType::Single:
            return FormatReal(static_cast<double>(*value.If<float>()), singleDigits);
        case VarType::Double:
            return FormatReal(*value.If<double>(), doubleDigits);
        case VarType::Currency:
            return FormatTenThousandths(value.If<Currency>()->units);
        case VarType::Date:
            return FormatDate(*value.If<Date>());
        default:
            RaiseNotConvertible(value, VarType::String);
    }
}

Date ToDate(const Variant& value) {
    if (const auto* date = value.If<Date>()) return *date;
    if (const auto* text = value.If<std::string>()) return ParseDate(*text);
    const Date date{ToReal(value, VarType::Date)};
    if (!IsDateInRange(date)) throw Error(Overflow);
    return date;
}

ObjectRef ToObject(const Variant& value) {
    const auto* object = value.If<ObjectRef>();
    if (object == nullptr) throw Error(ObjectRequired);
    if (*object == nullptr) throw Error(ObjectVariableNotSet);
    return *object;
}

Variant ChangeType(const Variant& value, VarType type) {
    if (type == VarType::Variant || type == value.Type()) {
        if (value.IsMissing() && type != VarType::Variant) RaiseNotConvertible(value, type);
        return value;
    }
    switch (type) {
        case VarType::Boolean:
            return ToBoolean(value);
        case VarType::Byte:
            return ToByte(value);
        case VarType::Integer:
            return ToInteger(value);
        case VarType::Long:
            return ToLong(value);
        case VarType::LongLong:
            return ToLongLong(value);
        case VarType::Single:
            return ToSingle(value);
        case VarType::Double:
            return ToDouble(value);
        case VarType::Currency:
            return ToCurrency(value);
        case VarType::Date:
            return ToDate(value);
        case VarType::String:
            return ToString(value);
        case VarType::Object:
            return ToObjectOrNothing(value);
        case VarType::Empty:
        case VarType::Void:
            return {};
        case VarType::Null:
            return Variant::Null();
        default:
            RaiseNotConvertible(value, type);
    }
}

double ParseNumber(std::string_view text) {
    // The plain form first. A letter at its start would be a name for infinity or NaN, which are no numbers.
    const char* const end = text.data() + text.size();
    double plain = 0;
    if (const auto [stop, error] = std::from_chars(text.data(), end, plain);
        error == std::errc() && stop == end && std::isfinite(plain)) {
        return plain;
    }
    return NearestDouble(ReadNumber(text));
}

}  // namespace korvex::automation
