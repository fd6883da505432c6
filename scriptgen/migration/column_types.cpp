#include "scriptgen/migration/column_types.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace korvex::scriptgen {

namespace {

constexpr double Endless = std::numeric_limits<double>::infinity();

ColumnType WholeType(double lowest, double highest, int digits) {
    return {.kind = TypeKind::Whole, .lowest = lowest, .highest = highest, .digits = digits};
}
ColumnType FloatingType(double highest, int digits) {
    return {.kind = TypeKind::Floating, .lowest = -highest, .highest = highest, .digits = digits};
}
ColumnType DecimalType(int digits, int scale) {
    const double highest = std::pow(10.0, digits - scale);
    return {.kind = scale == 0 ? TypeKind::Whole : TypeKind::Decimal,
            .lowest = -highest,
            .highest = highest,
            .digits = digits,
            .scale = scale};
}

/// A type with what stands in its parentheses.
struct TypeWords {
    std::string name;
    std::array<int, 2> sizes{};
    bool hasSizes = false;
};

TypeWords WordsOf(std::string_view text) {
    const std::size_t begin = text.find('(');
    TypeWords words{automation::ToUpperAscii(automation::Trim(text.substr(0, begin)))};
    if (begin == std::string_view::npos) return words;
    words.hasSizes = true;
    std::size_t at = begin + 1;
    for (int& size : words.sizes) {
        while (at < text.size() && text[at] == ' ')
            ++at;
        const auto [end, failure] = std::from_chars(text.data() + at, text.data() + text.size(), size);
        if (failure != std::errc()) break;
        at = static_cast<std::size_t>(end - text.data()) + 1;
    }
    return words;
}

bool BeginsWithOneOf(std::string_view name, std::initializer_list<std::string_view> beginnings) {
    for (const std::string_view beginning : beginnings)
        if (name.starts_with(beginning)) return true;
    return false;
}

/// The longest text that a number of the type needs.
double TextLength(const ColumnType& type) {
    switch (type.kind) {
        case TypeKind::Boolean:
            return 1;
        case TypeKind::Floating:
            return type.digits + 9;  // sign, point, two more digits, exponent
        case TypeKind::Date:
            return std::max(23, 20 + type.scale);
        default:
            return type.digits + 2;
    }
}

bool IsNumber(TypeKind kind) {
    return kind == TypeKind::Boolean || kind == TypeKind::Whole || kind == TypeKind::Floating ||
           kind == TypeKind::Decimal;
}

bool HoldsAllOf(const ColumnType& now, const ColumnType& before) {
    if (now.lowest > before.lowest || now.highest < before.highest) return false;
    if (now.kind == TypeKind::Boolean || before.kind == TypeKind::Floating)
        return now.kind == before.kind && now.digits >= before.digits;
    return now.kind == TypeKind::Floating ? now.digits >= before.digits : now.scale >= before.scale;
}

/// The number that a column of the type keeps of another.
double Kept(double number, const ColumnType& type) {
    if (type.kind == TypeKind::Floating)
        return type.digits > 7 ? number : static_cast<double>(static_cast<float>(number));
    const double unit = std::pow(10.0, type.scale);
    return std::round(number * unit) / unit;
}

/// Whether a value that has more digits than a double is that number all the same.
bool IsExactly(const automation::Variant& value, double number) {
    const auto isNumber = [&](std::int64_t units, long double unit) {
        return std::abs(static_cast<long double>(number) * unit - static_cast<long double>(units)) < 0.5L;
    };
    if (const auto* amount = value.If<automation::Currency>()) return isNumber(amount->units, 10000);
    const auto* whole = value.If<std::int64_t>();
    return whole == nullptr || isNumber(*whole, 1);
}

/// Digits behind the point of a text, but for noughts at its end.
int FractionDigits(std::string_view text) {
    const std::size_t point = text.find('.');
    if (point == std::string_view::npos) return 0;
    text = text.substr(point + 1, text.find_first_not_of("0123456789", point + 1) - point - 1);
    return static_cast<int>(text.find_last_not_of('0') + 1);
}

Fit FitOfNumber(double number, const ColumnType& before, const ColumnType& now) {
    if (now.kind == TypeKind::Boolean)
        return number == 0 || number == 1 || number == -1 ? Fit::Whole : Fit::None;
    if (!(number >= now.lowest && number <= now.highest)) return Fit::None;
    // What can be told apart before.
    const double step = before.kind == TypeKind::Decimal ? std::pow(10.0, -before.scale) / 2 : 0;
    return std::abs(Kept(number, now) - number) <= step * (1 - 1e-9) ? Fit::Whole : Fit::Rounded;
}

/// Engines read plain numbers, and dates that begin with the year.
Fit FitOfText(const std::string& text, const ColumnType& before, const ColumnType& now) {
    if (now.kind == TypeKind::Date) {
        try {
            const std::string date = automation::FormatIsoDate(automation::ToDate(text));
            if (!text.starts_with(date.substr(0, date.find('T')))) return Fit::None;
            return FractionDigits(text) > now.scale ? Fit::Rounded : Fit::Whole;
        } catch (const automation::Error&) {
            return Fit::None;
        }
    }
    if (now.kind == TypeKind::Boolean) return text == "0" || text == "1" ? Fit::Whole : Fit::None;
    const std::string_view digits = automation::Trim(text);
    double number = 0;
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool isNumber = failure == std::errc() && end == digits.data() + digits.size();
    return isNumber ? FitOfNumber(number, before, now) : Fit::None;
}

}  // namespace

ColumnType ColumnTypeOf(std::string_view text, bool floatIsSingle) {
    const TypeWords words = WordsOf(text);
    const std::string_view name = words.name;
    const auto [first, second] = words.sizes;
    const bool isSigned = name.find("UNSIGNED") == std::string_view::npos;
    const auto whole = [&](double highest, int digits) {
        return WholeType(isSigned ? -highest - 1 : 0, isSigned ? highest : 2 * highest + 1, digits);
    };
    const ColumnType boolean = {.kind = TypeKind::Boolean, .lowest = 0, .highest = 1, .digits = 1};
    if (BeginsWithOneOf(name, {"BIT", "BOOL"})) return boolean;
    if (name.starts_with("TINYINT")) return WholeType(0, 255, 3);
    if (name.starts_with("SMALLINT")) return whole(32767, 5);
    if (name.starts_with("BIGINT")) return whole(9.2e18, 19);
    if (name.starts_with("INT")) return whole(2147483647.0, 10);
    if (name == "REAL" || (name == "FLOAT" && floatIsSingle))
        return FloatingType(std::numeric_limits<float>::max(), 7);
    if (BeginsWithOneOf(name, {"DOUBLE", "FLOAT"}))
        return FloatingType(std::numeric_limits<double>::max(), 15);
    if (BeginsWithOneOf(name, {"CURRENCY", "MONEY"})) return DecimalType(19, 4);
    if (BeginsWithOneOf(name, {"DECIMAL", "NUMERIC", "NUMBER"})) {
        if (first == 1 && second == 0) return boolean;
        return DecimalType(first == 0 ? 38 : first, second);
    }
    if (BeginsWithOneOf(name, {"DATE", "TIMESTAMP"})) {
        const int digits = name == "DATE" ? 0 : name.starts_with("DATE") ? 3 : 6;
        return {.kind = TypeKind::Date, .scale = words.hasSizes ? first : digits};
    }
    if (BeginsWithOneOf(name,
                        {"BLOB", "LONGBLOB", "BYTEA", "IMAGE", "RAW", "LONG RAW", "BINARY", "VARBINARY"}))
        return {.kind = TypeKind::Bytes};
    return {.kind = TypeKind::Text, .length = first > 0 ? first : Endless};
}

std::string_view ClassName(ChangeClass value) {
    constexpr std::array<std::string_view, 4> Names = {"safe", "lossy", "destructive", "blocked"};
    return Names[static_cast<std::size_t>(value)];
}

Conversion ConversionBetween(const ColumnType& before, const ColumnType& now) {
    const auto lossy = [](std::string reason) { return Conversion{ChangeClass::Lossy, std::move(reason)}; };
    const bool carries = before.kind == now.kind ? true
                         : before.kind == TypeKind::Bytes || now.kind == TypeKind::Bytes
                             ? false
                             : (before.kind != TypeKind::Date && now.kind != TypeKind::Date) ||
                                   before.kind == TypeKind::Text || now.kind == TypeKind::Text;
    if (!carries)
        return {ChangeClass::Destructive, "its values do not convert: the column is made anew, empty", false};
    if (now.kind == TypeKind::Text) {
        const double needed = before.kind == TypeKind::Text ? before.length : TextLength(before);
        return needed <= now.length ? Conversion{} : lossy("longer texts do not fit");
    }
    if (before.kind == TypeKind::Text)
        return lossy(now.kind == TypeKind::Date ? "texts that are no dates do not convert"
                                                : "texts that are no such numbers do not convert");
    if (now.kind == TypeKind::Date && now.scale < before.scale)
        return lossy("fractions of seconds may be cut");
    if (!IsNumber(now.kind) || HoldsAllOf(now, before)) return {};
    return lossy(now.lowest > before.lowest || now.highest < before.highest
                     ? "larger numbers do not fit, digits may be rounded"
                     : "digits may be rounded");
}

Fit FitOf(const automation::Variant& value, const ColumnType& before, const ColumnType& now) {
    if (value.IsNull() || before.kind == TypeKind::Bytes || now.kind == TypeKind::Bytes) return Fit::Whole;
    if (now.kind == TypeKind::Text) {
        // A point in time is written with its fraction by every engine.
        const double needed = before.kind == TypeKind::Date
                                  ? TextLength(before)
                                  : static_cast<double>(automation::Length(automation::ToString(value)));
        return needed <= now.length ? Fit::Whole : Fit::None;
    }
    if (before.kind == TypeKind::Text) return FitOfText(automation::ToString(value), before, now);
    if (now.kind == TypeKind::Date)
        return FractionDigits(automation::ToString(value)) > now.scale ? Fit::Rounded : Fit::Whole;
    if (!IsNumber(now.kind) || !IsNumber(before.kind)) return Fit::Whole;
    const double number = automation::ToDouble(value);
    const Fit fit = FitOfNumber(number, before, now);
    const bool isCut = now.kind == TypeKind::Floating && !IsExactly(value, number);
    return fit == Fit::Whole && isCut ? Fit::Rounded : fit;
}

}  // namespace korvex::scriptgen
