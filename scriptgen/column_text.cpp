#include "scriptgen/column_text.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "scriptgen/script_text.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace korvex::scriptgen {

using automation::Error;
using automation::VarType;

namespace {

/// The data types that have a column type of their own.
constexpr std::pair<VarType, std::string_view TypeNames::*> Named[] = {
    {VarType::Integer, &TypeNames::integer16}, {VarType::Long, &TypeNames::integer32},
    {VarType::Single, &TypeNames::single},     {VarType::Double, &TypeNames::real},
    {VarType::Currency, &TypeNames::currency}, {VarType::Date, &TypeNames::date},
    {VarType::Boolean, &TypeNames::boolean},   {VarType::Object, &TypeNames::object},
    {VarType::Variant, &TypeNames::variant},   {VarType::Byte, &TypeNames::byte}};

/// Types for which a column without a default is left to hold NULL, whatever its length.
constexpr VarType NullTypes[] = {VarType::Null, VarType::Date, VarType::Object, VarType::Variant};

/// Types without a literal of their own give nothing, even when a default is declared.
void AppendDefaultLiteral(std::string& text, const Column& column) {
    const std::string& value = column.DefaultVal;
    switch (column.DataType) {
        case TypeCode(VarType::Integer):
        case TypeCode(VarType::Long):
        case TypeCode(VarType::Single):
        case TypeCode(VarType::Double):
        case TypeCode(VarType::Currency):
        case TypeCode(VarType::Boolean):
            Append(text, value.empty() ? std::string_view("0") : value);
            break;
        case TypeCode(VarType::Date):
            Append(text, value.empty() ? std::string_view("Null") : value);
            break;
        case TypeCode(VarType::String):
            if (!value.empty() || !column.IsLongFld) Append(text, "'", value, "'");
            break;
        default:
            break;
    }
}

}  // namespace

std::string_view TypeName(const TypeNames& types, std::int32_t dataType) {
    for (const auto& [type, name] : Named)
        if (TypeCode(type) == dataType && !(types.*name).empty()) return types.*name;
    return types.text;
}

double DeclaredLength(std::string_view table, const Column& column) {
    try {
        return automation::ParseNumber(column.MaxLength);
    } catch (const Error& error) {
        throw Error(error.Number(), "The MaxLength \"" + column.MaxLength + "\" of column " +
                                        std::string(table) + "." + column.FieldName +
                                        " is no usable number: " + error.Description());
    }
}

void AppendNullOrDefault(std::string& text, const Column& column) {
    const bool startsAsNull =
        column.IsLongFld || std::ranges::find(NullTypes, column.DataType, TypeCode) != std::end(NullTypes);
    if (column.IsPrimaryKey || column.IsAutoNumber) {
        Append(text, " Not NULL");
    } else if (column.DefaultVal.empty() && startsAsNull) {
        Append(text, " NULL");
    } else {
        Append(text, " default ");
        AppendDefaultLiteral(text, column);
    }
}

}  // namespace korvex::scriptgen
