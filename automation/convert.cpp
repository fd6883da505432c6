#include "automation/convert.h"

#include "automation/date_text.h"
#include "automation/dispatch.h"
#include "automation/error.h"
#include "automation/number_text.h"
#include "automation/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <concepts>
#include <limits>
#include <string>
#include <utility>

namespace korvex::automation {

namespace {

constexpr std::int64_t UnitsPerOne = 10'000;  ///< Currency units in 1
constexpr int CurrencyPlaces = 4;

constexpr std::pair<VarType, std::string_view> TypeNames[] = {
    {VarType::Empty, "Empty"},
    {VarType::Null, "Null"},
    {VarType::Integer, "Integer"},
    {VarType::Long, "Long"},
    {VarType::Single, "Single"},
    {VarType::Double, "Double"},
    {VarType::Currency, "Currency"},
    {VarType::Date, "Date"},
    {VarType::String, "String"},
    {VarType::Object, "an object"},
    {VarType::Missing, "a missing argument"},
    {VarType::Boolean, "Boolean"},
    {VarType::Byte, "Byte"},
    {VarType::LongLong, "LongLong"},
    {VarType::Bytes, "an array of bytes"},
};

std::string_view TypeName(VarType type) noexcept {
    const auto* const found =
        std::ranges::find(TypeNames, type, &std::pair<VarType, std::string_view>::first);
    return found != std::end(TypeNames) ? found->second : "an unknown type";
}

/// For the types that no conversion takes.
[[noreturn]] void RaiseNotConvertible(const Variant& value, VarType target) {
    if (value.IsNull()) throw Error(InvalidUseOfNull);
    std::string detail(TypeName(value.Type()));
    throw Error::About(TypeMismatch, detail.append(" does not convert to ").append(TypeName(target)));
}

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

/// The held value as a whole number.
template <std::integral T>
struct WholeNumber {
    T operator()(EmptyValue) const { return 0; }
    T operator()(bool value) const { return value ? static_cast<T>(-1) : T{0}; }
    T operator()(const std::integral auto& value) const { return Narrow<T>(value); }
    T operator()(const std::floating_point auto& value) const { return RoundToWhole<T>(value); }
    T operator()(Currency value) const { return Narrow<T>(RoundCurrency(value)); }
    T operator()(Date value) const { return RoundToWhole<T>(value.days); }
    T operator()(const std::string& text) const { return ParseWhole<T>(text); }
    T operator()(const auto& other) const { RaiseNotConvertible(other, Variant(T{}).Type()); }
};

template <std::integral T>
T ToWhole(const Variant& value) {
    return std::visit(WholeNumber<T>(), value.Value());
}

/// The held value as a double, whatever number type it has.
struct RealNumber {
    VarType target;

    double operator()(EmptyValue) const { return 0; }
    double operator()(bool value) const { return value ? -1 : 0; }
    double operator()(const std::integral auto& value) const { return static_cast<double>(value); }
    double operator()(const std::floating_point auto& value) const { return value; }
    double operator()(Currency value) const { return static_cast<double>(value.units) / UnitsPerOne; }
    double operator()(Date value) const { return value.days; }
    double operator()(const std::string& text) const { return ParseNumber(text); }
    double operator()(const auto& other) const { RaiseNotConvertible(other, target); }
};

double ToReal(const Variant& value, VarType target) { return std::visit(RealNumber{target}, value.Value()); }

Currency WholeCurrency(std::int64_t value) {
    constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max() / UnitsPerOne;
    if (value < -largest || value > largest) throw Error(Overflow);
    return {value * UnitsPerOne};
}

Currency ParseCurrency(const std::string& text) {
    const NumberText number = ReadNumber(text);
    if (number.isBitPattern) return WholeCurrency(ParseWhole<std::int64_t>(text));
    return {ScaledWhole(number, CurrencyPlaces)};
}

bool ParseBoolean(const std::string& text) {
    if (EqualsIgnoreCase(text, "True")) return true;
    if (EqualsIgnoreCase(text, "False")) return false;
    return ParseNumber(text) != 0;
}

/// The held value as text.
struct Text {
    std::string operator()(EmptyValue) const { return {}; }
    std::string operator()(bool value) const { return value ? "True" : "False"; }
    std::string operator()(const std::integral auto& value) const { return std::to_string(value); }
    std::string operator()(float value) const { return FormatReal(value, 7); }
    std::string operator()(double value) const { return FormatReal(value, 15); }
    std::string operator()(Currency value) const { return FormatTenThousandths(value.units); }
    std::string operator()(Date value) const { return FormatDate(value); }
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(const auto& other) const { RaiseNotConvertible(other, VarType::String); }
};

Variant ToObjectOrNothing(const Variant& value) {
    if (value.IsObject()) return value;
    RaiseNotConvertible(value, VarType::Object);
}

/// What gives a value of one type.
struct Conversion {
    VarType type;
    Variant (*convert)(const Variant& value);
};

template <auto function>
Variant By(const Variant& value) {
    return function(value);
}

constexpr Conversion Conversions[] = {
    {VarType::String, By<ToString>},
    {VarType::Long, By<ToLong>},
    {VarType::Integer, By<ToInteger>},
    {VarType::Double, By<ToDouble>},
    {VarType::Boolean, By<ToBoolean>},
    {VarType::Date, By<ToDate>},
    {VarType::Currency, By<ToCurrency>},
    {VarType::Byte, By<ToByte>},
    {VarType::LongLong, By<ToLongLong>},
    {VarType::Single, By<ToSingle>},
    {VarType::Object, ToObjectOrNothing},
    {VarType::Empty, [](const Variant&) { return Variant(); }},
    {VarType::Void, [](const Variant&) { return Variant(); }},
    {VarType::Null, [](const Variant&) { return Variant::Null(); }},
};

}  // namespace

bool ToBoolean(const Variant& value) {
    if (const auto* flag = value.If<bool>()) return *flag;
    if (const auto* text = value.If<std::string>()) return ParseBoolean(*text);
    return ToReal(value, VarType::Boolean) != 0;
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
    if (const auto* amount = value.If<Currency>()) return *amount;
    if (const auto* number = value.If<std::int64_t>()) return WholeCurrency(*number);
    if (const auto* text = value.If<std::string>()) return ParseCurrency(*text);
    return {RoundToWhole<std::int64_t>(ToReal(value, VarType::Currency) * UnitsPerOne)};
}

std::string ToString(const Variant& value) { return std::visit(Text(), value.Value()); }

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
    const auto* const conversion = std::ranges::find(Conversions, type, &Conversion::type);
    if (conversion == std::end(Conversions)) RaiseNotConvertible(value, type);
    return conversion->convert(value);
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
