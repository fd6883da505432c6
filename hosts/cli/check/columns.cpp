#include "automation/text.h"
#include "hosts/cli/check/check.h"
#include "hosts/cli/model/data_types.h"
#include "repository/key_values.h"
#include "repository/names.h"
#include "scriptgen/script_types.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

namespace korvex::cli {

namespace {

using repository::ValueRow;

/// Longest variable-length text column with Oracle.
double OracleMaxCharLen() { return scriptgen::FindScriptType(scriptgen::ScriptType::Oracle)->maxCharLen; }

/// A column of a table with what the checks need of it.
struct CheckedColumn {
    const scriptgen::Column& column;
    const ValueRow* value = nullptr;   ///< nothing for keys and added columns
    std::vector<std::string> origins;  ///< in words: "value Street (ValueID 7)", "the own key"
};

struct CheckedTable {
    std::string place;
    std::vector<CheckedColumn> columns;
};

/// None for a key that no parent of the table is behind.
std::vector<std::string> KeyOrigins(const repository::RelatedCatalog& rows,
                                    const scriptgen::DescribedTable& table, const scriptgen::Column& column) {
    std::vector<std::string> origins;
    if (column.IsPrimaryKey) origins.emplace_back("the own key");
    if (!column.IsForeignKey) return origins;
    std::set<repository::ObjectId> targets;
    for (const repository::ForeignKeyRow* key : rows.ForeignKeysOf(table.ObjectID))
        if (key->ValueID == column.ValueID) targets.insert(key->FKObjectID);
    for (const repository::ObjectId parent : table.Parents)
        if (targets.contains(parent))
            origins.push_back("the key of " + rows.FindObject(parent)->Name + " (ObjectID " +
                              std::to_string(Number(parent)) + ")");
    return origins;
}

bool IsKey(const repository::RelatedCatalog& rows, const ValueRow& value, const scriptgen::Column& column) {
    const repository::InterfaceRow* interface = rows.FindInterface(value.InterfaceID);
    return column.IsPrimaryKey || (column.IsForeignKey && interface != nullptr &&
                                   repository::IsKeyValue(value.VID, interface->Name));
}

CheckedTable Checked(const repository::RelatedCatalog& rows, const scriptgen::DescribedTable& table) {
    CheckedTable checked{ObjectText(*rows.FindObject(table.ObjectID)), {}};
    for (const scriptgen::Column& column : table.Columns) {
        CheckedColumn& entry = checked.columns.emplace_back(CheckedColumn{column, nullptr, {}});
        const ValueRow* value =
            column.ValueID == repository::ValueId() ? nullptr : rows.FindValue(column.ValueID);
        if (value == nullptr) {
            entry.origins = {"an added column"};
            continue;
        }
        if (IsKey(rows, *value, column)) entry.origins = KeyOrigins(rows, table, column);
        if (!entry.origins.empty()) continue;
        entry.value = value;
        entry.origins = {ValueText(*value)};
    }
    return checked;
}

/// Maximum length as the scripts read it: 0 for an empty text, nothing for text that is no number.
std::optional<double> MaxLength(const ValueRow& value) {
    const std::string text(automation::Trim(value.MaxLength));
    return text.empty() ? 0 : NumberIn(text);
}

/// Names of columns go into the scripts as they stand, those of keys into every statement about a record.
void CheckColumnName(const CheckedTable& table, const CheckedColumn& column, Findings& findings) {
    const std::string& name = column.column.FieldName;
    if (name.empty() && column.value != nullptr) return findings.Error(NamelessText(*column.value));
    CheckIdentifier(table.place + ": column ", name, column.value == nullptr, findings);
    if (const std::string dialects(ReservedBy(name)); !dialects.empty())
        findings.Warning(table.place + ": column " + name + " is a reserved word (" + dialects + ")");
}

void CheckColumnNames(const CheckedTable& table, Findings& findings) {
    std::map<std::string, std::string> origins;  // by name
    for (const CheckedColumn& column : table.columns) {
        for (const std::string& origin : column.origins) {
            const auto [entry, isNew] =
                origins.emplace(automation::ToUpperAscii(column.column.FieldName), origin);
            if (!isNew) {
                findings.Danger(table.place + ": " + entry->second + " and " + origin +
                                " both become column " + column.column.FieldName);
            }
        }
        CheckColumnName(table, column, findings);
    }
}

void CheckType(const CheckedTable& table, const ValueRow& value, Findings& findings) {
    const std::string place = table.place + ": value " + value.Name;
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

/// Defaults go into the scripts as they stand; what a server will not read is told here.
void CheckDefault(const CheckedTable& table, const ValueRow& value, Findings& findings) {
    const std::string place = table.place + ": value " + value.Name;
    if (repository::HasControlCharacter(value.DefaultVal))
        findings.Error(place + ": the default holds a control character, which ends a line of the scripts");
    if (value.IsAutoNumber) return;
    const std::string text(automation::Trim(value.DefaultVal));
    if (IsNumeric(value.DataType)) {
        if (!text.empty() && !NumberIn(text))
            findings.Warning(place + ": the default " + text + " is no number");
    } else if (value.DataType == TypeString) {
        if (text.find('\'') != std::string::npos)
            findings.Warning(place + ": the default holds a single quote, which ends the text early");
        const double length = MaxLength(value).value_or(0);
        if (length > 0 && static_cast<double>(automation::Length(text)) > length)
            findings.Warning(place + ": the default is longer than MaxLength");
    } else if (value.DataType != TypeDate) {
        const bool isNullable =
            value.DataType == TypeNull || value.DataType == TypeObject || value.DataType == TypeVariant;
        if (!isNullable || !text.empty())
            findings.Warning(place +
                             ": a column of this data type gets an empty default clause, which "
                             "servers refuse");
    }
}

void CheckLongColumns(const CheckedTable& table, Findings& findings) {
    int longColumns = 0;
    for (const CheckedColumn& column : table.columns) {
        if (column.value == nullptr) continue;
        const std::int32_t type = column.value->DataType;
        const bool isLong = type == TypeObject || (HasLength(type, true) &&
                                                   MaxLength(*column.value).value_or(0) > OracleMaxCharLen());
        if (isLong) ++longColumns;
    }
    if (longColumns > 1) {
        findings.Warning(table.place + " has " + std::to_string(longColumns) +
                         " LONG or LONG RAW columns in Oracle, which takes one in a table");
    }
}

void CheckAutoNumbers(const CheckedTable& table, Findings& findings) {
    for (const CheckedColumn& column : table.columns) {
        if (column.value == nullptr || !column.value->IsAutoNumber) continue;
        findings.Warning(table.place + ": value " + column.value->Name +
                         " is numbered automatically beside the own key; MS SQL and Sybase take one such "
                         "column in a table");
    }
}

}  // namespace

void CheckColumns(const CheckedDefinition& definition, Findings& findings) {
    for (const scriptgen::DescribedTable& described : definition.tables) {
        const Findings::About about(findings, {described.ObjectID});
        const CheckedTable table = Checked(definition.rows, described);
        CheckColumnNames(table, findings);
        for (const CheckedColumn& column : table.columns) {
            if (column.value == nullptr) continue;
            CheckType(table, *column.value, findings);
            CheckDefault(table, *column.value, findings);
        }
        CheckLongColumns(table, findings);
        CheckAutoNumbers(table, findings);
    }
}

}  // namespace korvex::cli
