#include "platform/native/sql/column_value.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "platform/native/sql/engine_error.h"

#include <cmath>
#include <limits>
#include <utility>

namespace korvex::native::sql {
namespace {

using automation::Date;
using automation::Variant;

constexpr double MillisecondsPerDay = 86400000.0;
/// Day 0 of Julian days and of Unix time, counted as automation dates are.
constexpr double JulianDayZero = -2415018.5;
constexpr double UnixEpoch = 25569.0;
/// Numbers in date columns below this are Julian days, others seconds since 1970, as the embedded engine
/// reads them.
constexpr double JulianDayLimit = 5373484.5;
constexpr double WholeNumberLimit = 9.2e18;
constexpr double CurrencyLimit = 9.2e14;
/// Below it a double tells every whole number from the next.
constexpr double ExactWholeLimit = 9007199254740992.0;

Date FromDays(double days) { return Date{std::round(days * MillisecondsPerDay) / MillisecondsPerDay}; }

Variant DecimalValue(double value) {
    if (value == std::floor(value) && std::abs(value) < WholeNumberLimit) {
        return WholeNumber(static_cast<std::int64_t>(value));
    }
    return value;
}

bool IsWhole(const Variant& value) {
    return value.Holds<std::uint8_t>() || value.Holds<std::int16_t>() || value.Holds<std::int32_t>() ||
           value.Holds<std::int64_t>();
}

/// In the narrow type when it fits: an engine without real column types may hold more.
template <class Narrow>
Variant NarrowNumber(std::int64_t stored) {
    return std::in_range<Narrow>(stored) ? Variant(static_cast<Narrow>(stored)) : WholeNumber(stored);
}

Variant NarrowReal(double stored) {
    if (std::abs(stored) > std::numeric_limits<float>::max()) return stored;
    return static_cast<float>(stored);
}

[[noreturn]] void RaiseTooLong(std::size_t length, std::string_view units, const ColumnInfo& column) {
    throw automation::Error(automation::Overflow, "it has " + std::to_string(length) + " " +
                                                      std::string(units) + ", the column takes " +
                                                      std::to_string(column.size));
}

std::string FitText(const Variant& value, const ColumnInfo& column) {
    std::string text = automation::ToString(value);
    // No text has more characters than bytes.
    if (column.size == 0 || text.size() <= column.size) return text;
    if (const std::size_t length = automation::Length(text); length > column.size) {
        RaiseTooLong(length, "characters", column);
    }
    return text;
}

Variant FitBytes(const Variant& value, const ColumnInfo& column) {
    const auto* bytes = value.If<automation::Bytes>();
    if (bytes == nullptr) {
        throw automation::Error(automation::TypeMismatch, "it is no array of bytes");
    }
    if (column.size != 0 && bytes->size() > column.size) RaiseTooLong(bytes->size(), "bytes", column);
    return value;
}

/// Rounded to the column's places as the servers round, half away from zero.
Variant FitDecimal(const Variant& value, const ColumnInfo& column) {
    const double number = automation::ToDouble(value);
    const bool isExact = std::abs(number) < ExactWholeLimit;
    if (column.size == 0) {
        return IsWhole(value) ? WholeNumber(automation::ToLongLong(value)) : DecimalValue(number);
    }
    const double places = std::pow(10.0, column.scale);
    const double rounded = isExact ? std::round(number * places) / places : number;
    const double limit = std::pow(10.0, static_cast<double>(column.size) - column.scale);
    if (std::abs(rounded) >= limit) throw automation::Error(automation::Overflow);
    if (column.scale != 0) return rounded;
    if (!isExact && std::abs(number) < WholeNumberLimit) return WholeNumber(automation::ToLongLong(value));
    return DecimalValue(rounded);
}

Variant Convert(const Variant& value, const ColumnInfo& column) {
    switch (column.type) {
        case ColumnType::Unknown:
            if (value.IsMissing() || value.IsObject()) throw automation::Error(automation::TypeMismatch);
            return value;
        case ColumnType::Boolean:
            return automation::ToBoolean(value);
        case ColumnType::TinyInt:
            return automation::ToByte(value);
        case ColumnType::SmallInt:
            return automation::ToInteger(value);
        case ColumnType::Integer:
            return automation::ToLong(value);
        case ColumnType::BigInt:
            return WholeNumber(automation::ToLongLong(value));
        case ColumnType::Single:
            return automation::ToSingle(value);
        case ColumnType::Double:
            return automation::ToDouble(value);
        case ColumnType::Currency:
            return automation::ToCurrency(value);
        case ColumnType::Decimal:
            return FitDecimal(value, column);
        case ColumnType::Date:
            return automation::ToMilliseconds(automation::ToDate(value));  // as it is stored
        case ColumnType::Char:
        case ColumnType::VarChar:
        case ColumnType::LongText:
            return FitText(value, column);
        case ColumnType::Binary:
        case ColumnType::LongBinary:
            return FitBytes(value, column);
    }
    return value;
}

}  // namespace

Variant ForColumn(const Variant& value, const ColumnInfo& column) {
    if (value.IsNull() || value.IsEmpty()) return Variant::Null();
    try {
        return Convert(value, column);
    } catch (const automation::Error& error) {
        const bool tooLarge = error.Number() == automation::Overflow;
        throw EngineError(tooLarge ? ErrorKind::ValueTooLarge : ErrorKind::WrongType,
                          "The value does not fit the column " + column.Place() + ": " + error.Description());
    }
}

Variant FromCell(const Cell& cell, const ColumnInfo& column) {
    switch (cell.kind) {
        case Cell::Kind::Integer:
            return FromInteger(cell.integer, column);
        case Cell::Kind::Real:
            return FromReal(cell.real, column);
        case Cell::Kind::Null:
            return Variant::Null();
        default:
            break;
    }
    if (IsBinary(column.type) || (cell.kind == Cell::Kind::Bytes && !IsText(column.type)))
        return automation::Bytes(cell.Data().begin(), cell.Data().end());
    if (IsText(column.type)) return cell.Data();
    return FromText(cell.Data(), column);
}

Variant FromInteger(std::int64_t stored, const ColumnInfo& column) {
    switch (column.type) {
        case ColumnType::Boolean:
            return stored != 0;
        case ColumnType::TinyInt:
            return NarrowNumber<std::uint8_t>(stored);
        case ColumnType::SmallInt:
            return NarrowNumber<std::int16_t>(stored);
        case ColumnType::Single:
            return static_cast<float>(stored);
        case ColumnType::Double:
            return static_cast<double>(stored);
        case ColumnType::Currency:
        case ColumnType::Date:
            return FromReal(static_cast<double>(stored), column);
        case ColumnType::Decimal:
            return column.scale == 0 ? WholeNumber(stored) : Variant(static_cast<double>(stored));
        case ColumnType::Char:
        case ColumnType::VarChar:
        case ColumnType::LongText:
            return std::to_string(stored);
        default:
            return WholeNumber(stored);
    }
}

Variant FromReal(double stored, const ColumnInfo& column) {
    switch (column.type) {
        case ColumnType::Boolean:
            return stored != 0;
        case ColumnType::Single:
            return NarrowReal(stored);
        case ColumnType::Currency:
            if (!(std::abs(stored) < CurrencyLimit)) return stored;
            return automation::ToCurrency(stored);
        case ColumnType::Decimal:
            return column.scale == 0 ? DecimalValue(stored) : Variant(stored);
        case ColumnType::Date:
            return stored >= 0 && stored < JulianDayLimit ? FromDays(stored + JulianDayZero)
                                                          : FromDays(stored / 86400.0 + UnixEpoch);
        case ColumnType::Char:
        case ColumnType::VarChar:
        case ColumnType::LongText:
            return automation::ToString(stored);
        default:
            return stored;
    }
}

Variant FromText(std::string_view stored, const ColumnInfo& column) {
    if (column.type != ColumnType::Date) return stored;
    try {
        return automation::ToDate(stored);
    } catch (const automation::Error&) {
        return stored;
    }
}

std::string DateText(Date date) {
    std::string text = automation::FormatIsoDate(date);
    if (const std::size_t separator = text.find('T'); separator != std::string::npos) text[separator] = ' ';
    return text;
}

}  // namespace korvex::native::sql
