#include "scriptgen/column_text.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "scriptgen/script_text.h"

namespace korvex::scriptgen {

using automation::Error;
using automation::VarType;

namespace {

/// Types for which a column without a default is left to hold NULL.
bool StartsAsNull(const Column& column) {
    switch (column.DataType) {
        case TypeCode(VarType::Null):
        case TypeCode(VarType::Date):
        case TypeCode(VarType::Object):
        case TypeCode(VarType::Variant):
            return true;
        default:
            return column.IsLongFld;
    }
}

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
    switch (dataType) {
        case TypeCode(VarType::Integer):
            return types.integer16;
        case TypeCode(VarType::Long):
            return types.integer32;
        case TypeCode(VarType::Single):
            return types.single;
        case TypeCode(VarType::Double):
            return types.real;
        case TypeCode(VarType::Currency):
            return types.currency;
        case TypeCode(VarType::Date):
            return types.date;
        case TypeCode(VarType::Boolean):
            return types.boolean;
        case TypeCode(VarType::Object):
            return types.object;
        case TypeCode(VarType::Variant):
            return types.variant;
        case TypeCode(VarType::Byte):
            return types.byte.empty() ? types.text : types.byte;
        default:
            return types.text;
    }
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
    if (column.IsPrimaryKey || column.IsAutoNumber) {
        Append(text, " Not NULL");
    } else if (column.DefaultVal.empty() && StartsAsNull(column)) {
        Append(text, " NULL");
    } else {
        Append(text, " default ");
        AppendDefaultLiteral(text, column);
    }
}

}  // namespace korvex::scriptgen
