#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/check/check.h"
#include "hosts/cli/check/reserved_words.h"
#include "hosts/cli/model/data_types.h"
#include "repository/names.h"
#include "scriptgen/script_types.h"

#include <algorithm>
#include <map>
#include <optional>

namespace korvex::cli {

namespace {

using repository::ValueRow;

/// Longest variable-length text column with Oracle.
double OracleMaxCharLen() { return scriptgen::FindScriptType(scriptgen::ScriptType::Oracle)->maxCharLen; }

std::string Place(const PlannedTable& table) { return ObjectText(*table.object); }

std::optional<double> Number(const std::string& text) {
    try {
        return automation::ParseNumber(text);
    } catch (const automation::Error&) {
        return std::nullopt;
    }
}

/// Maximum length as the scripts read it: 0 for an empty text, nothing for text that is no number.
std::optional<double> MaxLength(const ValueRow& value) {
    const std::string text(automation::Trim(value.MaxLength));
    return text.empty() ? 0 : Number(text);
}

/// Names of columns go into the scripts as they stand, those of keys into every statement about a record.
void CheckColumnName(const PlannedTable& table, const PlannedColumn& column, Findings& findings) {
    if (column.name.empty() && column.value != nullptr) return findings.Error(NamelessText(*column.value));
    CheckIdentifier(Place(table) + ": column ", column.name, column.value == nullptr, findings);
    if (const std::string dialects = ReservedBy(column.name); !dialects.empty()) {
        findings.Warning(Place(table) + ": column " + column.name + " is a reserved word (" + dialects + ")");
    }
}

void CheckColumnNames(const PlannedTable& table, Findings& findings) {
    std::map<std::string, const PlannedColumn*> columns;
    for (const PlannedColumn& column : table.columns) {
        const auto [entry, isNew] = columns.emplace(automation::ToUpperAscii(column.name), &column);
        if (!isNew) {
            findings.Danger(Place(table) + ": " + entry->second->origin + " and " + column.origin +
                            " both become column " + column.name);
        }
        CheckColumnName(table, column, findings);
    }
}

void CheckType(const PlannedTable& table, const ValueRow& value, Findings& findings) {
    const std::string place = Place(table) + ": value " + value.Name;
    if (DataTypeText(value.DataType).empty()) {
        findings.Warning(place + ": unknown data type " + std::to_string(value.DataType) +
                         "; it becomes a text column");
    }
    if (!MaxLength(value)) {
        const std::string text = place + ": MaxLength \"" + value.MaxLength + "\" is no number";
        if (HasLength(value.DataType, true)) {
            findings.Error(text);
        } else {
            findings.Warning(text);
        }
    }
}

void CheckNumericDefault(const std::string& place, const std::string& text, Findings& findings) {
    if (!text.empty() && !Number(text)) {
        findings.Warning(place + ": the default " + text + " is no number");
    }
}

/// Defaults go into the scripts as they stand; what a server will not read is told here.
void CheckDefault(const PlannedTable& table, const ValueRow& value, Findings& findings) {
    const std::string place = Place(table) + ": value " + value.Name;
    if (repository::HasControlCharacter(value.DefaultVal))
        findings.Error(place + ": the default holds a control character, which ends a line of the scripts");
    if (value.IsAutoNumber) return;
    const std::string text(automation::Trim(value.DefaultVal));
    switch (value.DataType) {
        case TypeInteger:
        case TypeLong:
        case 4:
        case 5:
        case 6:
        case TypeBoolean:
            CheckNumericDefault(place, text, findings);
            break;
        case TypeDate:
            break;
        case TypeString: {
            if (text.find('\'') != std::string::npos) {
                findings.Warning(place + ": the default holds a single quote, which ends the text early");
            }
            const double length = MaxLength(value).value_or(0);
            if (length > 0 && static_cast<double>(automation::Length(text)) > length) {
                findings.Warning(place + ": the default is longer than MaxLength");
            }
            break;
        }
        default: {
            const bool isNullable =
                value.DataType == TypeNull || value.DataType == TypeObject || value.DataType == TypeVariant;
            if (!isNullable || !text.empty()) {
                findings.Warning(place +
                                 ": a column of this data type gets an empty default clause, which "
                                 "servers refuse");
            }
        }
    }
}

void CheckLongColumns(const PlannedTable& table, Findings& findings) {
    int longColumns = 0;
    for (const PlannedColumn& column : table.columns) {
        if (column.value == nullptr) continue;
        const std::int32_t type = column.value->DataType;
        const bool isLong = type == TypeObject || (HasLength(type, true) &&
                                                   MaxLength(*column.value).value_or(0) > OracleMaxCharLen());
        if (isLong) ++longColumns;
    }
    if (longColumns > 1) {
        findings.Warning(Place(table) + " has " + std::to_string(longColumns) +
                         " LONG or LONG RAW columns in Oracle, which takes one in a table");
    }
}

void CheckAutoNumbers(const PlannedTable& table, Findings& findings) {
    for (const PlannedColumn& column : table.columns) {
        if (column.value == nullptr || !column.value->IsAutoNumber) continue;
        findings.Warning(Place(table) + ": value " + column.value->Name +
                         " is numbered automatically beside the own key; MS SQL and Sybase take one such "
                         "column in a table");
    }
}

}  // namespace

void CheckColumns(const PlannedTable& table, Findings& findings) {
    CheckColumnNames(table, findings);
    for (const PlannedColumn& column : table.columns) {
        if (column.value == nullptr) continue;
        CheckType(table, *column.value, findings);
        CheckDefault(table, *column.value, findings);
    }
    CheckLongColumns(table, findings);
    CheckAutoNumbers(table, findings);
}

}  // namespace korvex::cli
