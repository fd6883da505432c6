#include "objects/json_value.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "objects/base64.h"

#include <nlohmann/json.hpp>

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace korvex::objects {

using automation::Error;
using automation::Variant;
using automation::VarType;
using Kind = JsonDocument::Kind;
using Value = JsonDocument::Value;

namespace {

template <class T>
std::string WholeNumber() {
    return "a whole number from " + std::to_string(std::numeric_limits<T>::min()) + " to " +
           std::to_string(std::numeric_limits<T>::max());
}

constexpr auto AnAmount = "an amount with at most four decimals";
constexpr auto ADate = "a date as ISO 8601 text";
constexpr auto BinaryData = "binary data as {\"$base64\": \"...\"}";

[[noreturn]] void Mismatch(std::string_view found, std::string_view expected) {
    throw Error(automation::TypeMismatch,
                std::string(found) + " where " + std::string(expected) + " belongs");
}

[[noreturn]] void OutOfRange(std::string_view number, std::string_view expected) {
    throw Error(automation::Overflow,
                std::string(number) + " is out of range: " + std::string(expected) + " belongs here");
}

const std::string& TextOf(const Value& value, Kind kind, std::string_view expected) {
    if (value.kind != kind) Mismatch(KindName(value.kind), expected);
    return value.text;
}

/// The number in `text`, which JSON has checked; nothing when T does not hold it.
template <class T>
std::optional<T> Parse(const std::string& text) {
    T number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

bool HasFractionOrExponent(const std::string& text) { return text.find_first_of(".eE") != std::string::npos; }

/// 1.0 and 1e3 are whole numbers too.
template <class T>
T ReadWhole(const Value& value) {
    const std::string expected = WholeNumber<T>();
    std::string text = TextOf(value, Kind::Number, expected);
    if (HasFractionOrExponent(text)) {
        const double number = Parse<double>(text).value_or(std::numeric_limits<double>::infinity());
        if (number != std::trunc(number)) Mismatch(text, expected);
        if (std::fabs(number) < 0x1p53) text = std::to_string(static_cast<std::int64_t>(number));
    }
    if (const auto number = Parse<T>(text)) return *number;
    OutOfRange(text, expected);
}

template <class T>
T ReadReal(const Value& value) {
    const auto expected = sizeof(T) == sizeof(float) ? "a number of single precision" : "a number";
    const std::string& text = TextOf(value, Kind::Number, expected);
    if (const auto number = Parse<T>(text)) return *number;
    // What is too small to tell from zero is zero; what is too large has no place.
    if (std::fabs(Parse<double>(text).value_or(0)) < 1) return T{};
    OutOfRange(text, expected);
}

automation::Currency ReadCurrency(const Value& value) {
    const std::string& text = TextOf(value, Kind::Number, AnAmount);
    automation::Currency amount;
    try {
        amount = automation::ToCurrency(text);
    } catch (const Error&) {
        OutOfRange(text, "an amount from -922337203685477.5808 to 922337203685477.5807");
    }
    const auto point = text.find('.');
    if (text.find_first_of("eE") != std::string::npos) {
        const double units = Parse<double>(text).value_or(0) * 10'000;
        if (units != std::trunc(units)) Mismatch(text, AnAmount);
    } else if (point != std::string::npos && text.find_last_not_of('0') > point + 4) {
        Mismatch(text, AnAmount);
    }
    return amount;
}

automation::Date ReadDate(const Value& value) {
    const std::string& text = TextOf(value, Kind::Text, ADate);
    try {
        return automation::ParseIsoDate(text);
    } catch (const Error&) {
        Mismatch(automation::Quoted(text), ADate);
    }
}

automation::Bytes ReadBinary(const JsonDocument& document, const Value& value) {
    const bool isBinary =
        value.kind == Kind::Object && value.names.size() == 1 && value.names.front() == Base64Member;
    if (!isBinary) Mismatch(KindName(value.kind), BinaryData);
    auto data = FromBase64(TextOf(document.At(value.children.front()), Kind::Text, "base64 text"));
    if (!data) Mismatch("a text that is not base64", "base64 text");
    return std::move(*data);
}

Variant ReadAny(const JsonDocument& document, const Value& value) {
    switch (value.kind) {
        case Kind::Boolean:
            return value.boolean;
        case Kind::Text:
            return value.text;
        case Kind::Number:
            if (!HasFractionOrExponent(value.text)) {
                if (const auto number = Parse<std::int32_t>(value.text)) return *number;
                if (const auto number = Parse<std::int64_t>(value.text)) return *number;
            }
            return ReadReal<double>(value);
        default:
            return ReadBinary(document, value);
    }
}

void WriteReal(std::string& text, double value, auto digits) {
    if (!std::isfinite(value))
        throw Error(automation::Overflow, "a number that is not finite has no JSON form");
    char buffer[64];
    const auto result = std::to_chars(std::begin(buffer), std::end(buffer), digits);
    text.append(buffer, result.ptr);
}

}  // namespace

Variant ReadValue(const JsonDocument& document, const Value& value, std::int32_t dataType) {
    if (value.kind == Kind::Null) return Variant::Null();
    switch (static_cast<VarType>(dataType)) {
        case VarType::Integer:
            return ReadWhole<std::int16_t>(value);
        case VarType::Long:
            return ReadWhole<std::int32_t>(value);
        case VarType::LongLong:
            return ReadWhole<std::int64_t>(value);
        case VarType::Byte:
            return ReadWhole<std::uint8_t>(value);
        case VarType::Single:
            return ReadReal<float>(value);
        case VarType::Double:
            return ReadReal<double>(value);
        case VarType::Currency:
            return ReadCurrency(value);
        case VarType::Date:
            return ReadDate(value);
        case VarType::Boolean:
            if (value.kind != Kind::Boolean) Mismatch(KindName(value.kind), "true or false");
            return value.boolean;
        case VarType::Object:
            return ReadBinary(document, value);
        case VarType::Variant:
            return ReadAny(document, value);
        default:
            return TextOf(value, Kind::Text, "a text");
    }
}

void WriteText(std::string& text, std::string_view value) {
    using nlohmann::json;
    text += json(value).dump(-1, ' ', false, json::error_handler_t::replace);
}

void WriteValue(std::string& text, const Variant& value) {
    if (const auto* flag = value.If<bool>()) {
        text += *flag ? "true" : "false";
    } else if (value.IsNull()) {
        text += "null";
    } else if (const auto* string = value.If<std::string>()) {
        WriteText(text, *string);
    } else if (const auto* single = value.If<float>()) {
        WriteReal(text, *single, *single);
    } else if (const auto* real = value.If<double>()) {
        WriteReal(text, *real, *real);
    } else if (const auto* date = value.If<automation::Date>()) {
        WriteText(text, automation::FormatIsoDate(*date));
    } else if (const auto* data = value.If<automation::Bytes>()) {
        text += "{\"$base64\": \"" + ToBase64(*data) + "\"}";
    } else if (value.IsObject()) {
        throw Error(automation::TypeMismatch, "an object that is no child object has no JSON form");
    } else {
        text += automation::ToString(value);
    }
}

}  // namespace korvex::objects
