#include "scriptgen/oracle_tables.h"

#include "automation/convert.h"
#include "scriptgen/column_text.h"
#include "scriptgen/procedures.h"
#include "scriptgen/script_names.h"
#include "scriptgen/script_text.h"
#include "scriptgen/table_parts.h"

#include <algorithm>

namespace korvex::scriptgen {

using automation::VarType;

namespace {

constexpr std::string_view Varchar = "VARCHAR2";
constexpr std::string_view Raw = "RAW";

std::string_view TypeName(std::int32_t dataType) {
    switch (dataType) {
        case TypeCode(VarType::Integer):
            return "NUMBER(5)";
        case TypeCode(VarType::Long):
            return "NUMBER(11)";
        case TypeCode(VarType::Single):
            return "NUMBER(12,2)";
        case TypeCode(VarType::Double):
            return "NUMBER(38,2)";
        case TypeCode(VarType::Currency):
            return "NUMBER(15, 2)";
        case TypeCode(VarType::Date):
            return "DATE";
        case TypeCode(VarType::Object):
            return "LONG RAW";
        case TypeCode(VarType::Boolean):
            return "NUMBER(1)";
        case TypeCode(VarType::Variant):
            return Raw;
        default:
            return Varchar;
    }
}

/// Type text of a column. One that is too long for its type becomes a long column and is counted; only a
/// character column is marked as long, too.
std::string TypeText(const RunState& run, Column& column, std::int16_t& longColumns) {
    const std::string_view typeName = TypeName(column.DataType);
    if (typeName != Varchar && typeName != Raw) return std::string(typeName);

    const double length = DeclaredLength(run.m_sCurrentTable, column);
    if (length <= run.m_nMaxCharLen) return SizedTypeText(typeName, column, length);

    longColumns = automation::ToInteger(longColumns + 1);
    if (typeName == Raw) return "LONG RAW";
    column.IsLongFld = true;
    return "LONG";
}

/// Appends CREATE TABLE without its terminator.
void AppendTable(std::string& text, RunState& run) {
    Append(text, "CREATE TABLE ", run.m_sCurrentTable, "\r\n");
    Append(text, "( \r\n");
    std::int16_t longColumns = 0;
    std::string_view before = "\t";
    for (Column& column : run.m_colFields) {
        Append(text, before, column.FieldName, " ", TypeText(run, column, longColumns));
        AppendNullOrDefault(text, column);
        before = ",\r\n\t";
    }
    if (longColumns > 1) run.m_bLongWarning = true;
    AppendPrimaryKey(text, run, "PRIMARY KEY ");
    Append(text, ")");
}

/// Appends the trigger that numbers the rows, without its terminator. It fires before inserts only; the
/// branch for updates is part of its text all the same.
void AppendTrigger(std::string& text, std::string_view table, std::string_view counter) {
    Append(text, "CREATE TRIGGER ", TriggerName(table), " BEFORE INSERT ON ", table, " FOR EACH ROW \r\n");
    Append(text, "DECLARE\r\n");
    Append(text, "\tiCounter ", table, ".", counter, "%TYPE; \r\n");
    Append(text, "\tcannot_change_counter EXCEPTION; \r\n");
    Append(text, "BEGIN\r\n");
    Append(text, "\tIf INSERTING Then\r\n");
    Append(text, "\t\tSelect ", SequenceName(table), ".NEXTVAL INTO iCounter FROM Dual; \r\n");
    Append(text, "\t\t:new.", counter, " := iCounter; \r\n");
    Append(text, "\tEND IF; \r\n");
    Append(text, "\tIf UPDATING Then\r\n");
    Append(text, "\t\tIF NOT (:new.", counter, " = :old.", counter, ") THEN\r\n");
    Append(text, "\t\t\tRAISE cannot_change_counter; \r\n");
    Append(text, "\t\tEND IF; \r\n");
    Append(text, "\tEND IF; \r\n");
    Append(text, "EXCEPTION\r\n");
    Append(text, "\tWHEN cannot_change_counter THEN\r\n");
    Append(text, "\traise_application_error(-20000, 'Cannot Change Counter Value'); \r\n");
    Append(text, "End");
}

}  // namespace

std::string OracleTypeText(const RunState& run, Column& column) {
    std::int16_t longColumns = 0;
    return TypeText(run, column, longColumns);
}

std::string OracleTriggerText(std::string_view table, std::string_view counter) {
    std::string text;
    AppendTrigger(text, table, counter);
    return text;
}

std::string OracleDialect::ColumnTypeText(const RunState&, Column&) const { return {}; }

void OracleDialect::AddStoredProcedures(RunState& run) const { OracleProcedures().Add(run); }

void OracleDialect::AddTable(RunState& run, std::string& createText) const {
    const std::string& table = run.m_sCurrentTable;
    const auto counter = std::ranges::find_if(run.m_colFields, &Column::IsAutoNumber);
    const bool hasCounter = counter != run.m_colFields.end();

    if (hasCounter) Append(run.Text(ScriptKind::Drop), "DROP SEQUENCE ", SequenceName(table), "; \r\n\r\n");
    Append(run.Text(ScriptKind::Drop), "DROP TABLE ", table, "; \r\n\r\n");

    Append(createText, "\r\n");
    Append(createText, "rem  ***** Creating table ", table, "\r\n\r\n");
    if (hasCounter)
        Append(createText, "create sequence ", SequenceName(table), " increment by 1 start with 1; \r\n");
    Append(createText, "\r\n\r\n");
    AppendTable(createText, run);
    Append(createText, "; \r\n");
    AppendForeignKeyIndexes(createText, run, "", "; \r\n");
    if (hasCounter) {
        Append(createText, "\r\n\r\n/\r\n");
        AppendTrigger(createText, table, counter->FieldName);
        Append(createText, "; \r\n/\r\n");
    }
}

}  // namespace korvex::scriptgen
