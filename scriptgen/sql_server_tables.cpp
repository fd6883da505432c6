#include "scriptgen/sql_server_tables.h"

#include "scriptgen/column_text.h"
#include "scriptgen/procedures.h"
#include "scriptgen/script_text.h"
#include "scriptgen/table_parts.h"

namespace korvex::scriptgen {

using automation::VarType;

namespace {

constexpr std::string_view Varchar = "varchar";

std::string_view TypeName(std::int32_t dataType) {
    switch (dataType) {
        case TypeCode(VarType::Integer):
            return "smallint";
        case TypeCode(VarType::Long):
            return "int";
        case TypeCode(VarType::Single):
            return "real";
        case TypeCode(VarType::Double):
        case TypeCode(VarType::Currency):
            return "float";
        case TypeCode(VarType::Date):
            return "datetime";
        case TypeCode(VarType::Object):
        case TypeCode(VarType::Variant):
            return "image";
        case TypeCode(VarType::Boolean):
            return "bit";
        default:
            return Varchar;
    }
}

}  // namespace

std::string ServerFamilyDialect::ColumnTypeText(const RunState& run, Column& column) const {
    const std::string_view typeName = TypeName(column.DataType);
    if (typeName != Varchar) return std::string(typeName);

    const double length = DeclaredLength(run.m_sCurrentTable, column);
    if (length > run.m_nMaxCharLen) {
        column.IsLongFld = true;
        return "text";
    }
    return SizedTypeText(typeName, column, length);
}

void ServerFamilyDialect::AddStoredProcedures(RunState& run) const { ServerProcedures().Add(run); }

void ServerFamilyDialect::AddTable(RunState& run, std::string& createText) const {
    const std::string_view owner = TableOwner();
    const std::string& table = run.m_sCurrentTable;

    std::string& drop = run.Text(ScriptKind::Drop);
    Append(drop, "if exists(select * from sysobjects where id = object_id('", owner, table,
           "') and sysstat & 0xf = 3)\r\n");
    Append(drop, "\tDROP TABLE ", owner, table, "\r\n");
    Append(drop, "GO\r\n");
    Append(drop, "\r\n");

    Append(createText, "CREATE TABLE ", owner, table, "\r\n");
    Append(createText, "( \r\n");
    std::string_view before = "\t";
    for (const Column& column : run.m_colFields) {
        Append(createText, before, column.FieldName, " ", ColumnType(column));
        AppendNullOrDefault(createText, column);
        before = ",\r\n\t";
    }
    AppendPrimaryKey(createText, run, "PRIMARY KEY CLUSTERED");
    Append(createText, ")\r\n");
    Append(createText, "GO\r\n");
    AppendForeignKeyIndexes(createText, run, owner, "\r\nGO\r\n");
}

std::string SqlServerDialect::ColumnType(const Column& column) const {
    return column.TypeSize + (column.IsAutoNumber ? " IDENTITY (1, 1)" : "");
}

std::string SybaseDialect::ColumnType(const Column& column) const {
    return column.IsAutoNumber ? "numeric(18, 0)  identity" : column.TypeSize;
}

}  // namespace korvex::scriptgen
