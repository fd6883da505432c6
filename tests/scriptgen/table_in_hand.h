#pragma once

#include "scriptgen/dialect.h"
#include "scriptgen/run_state.h"
#include "scriptgen/script_types.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Tables built by hand, as the column model leaves them for the emitters.
namespace korvex::scriptgen {

inline std::string Lines(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (const std::string_view line : lines)
        text.append(line).append("\r\n");
    return text;
}

inline Column Plain(std::string name, std::int32_t dataType, std::string maxLength = "0",
                    std::string defaultVal = "") {
    Column column;
    column.FieldName = std::move(name);
    column.DataType = dataType;
    column.MaxLength = std::move(maxLength);
    column.DefaultVal = std::move(defaultVal);
    column.FKObjectID = repository::ObjectId{-1};
    column.FKValueID = repository::ValueId{-1};
    return column;
}

inline Column Key(Column column, std::int16_t seq = 0) {
    column.IsPrimaryKey = true;
    column.nPrimaryKeySeq = seq;
    return column;
}

inline Column Counter(Column column) {
    column.IsAutoNumber = true;
    return column;
}

inline Column Reference(std::string name, std::int32_t objectID, std::int32_t valueID = 0) {
    Column column = Plain(std::move(name), 3);
    column.IsForeignKey = true;
    column.FKObjectID = repository::ObjectId{objectID};
    column.FKValueID = repository::ValueId{valueID};
    return column;
}

inline RunState RunWith(ScriptType type, std::string table, std::vector<Column> columns) {
    RunState run;
    run.m_nScriptType = type;
    run.m_nMaxCharLen = FindScriptType(type)->maxCharLen;
    run.m_sCurrentTable = std::move(table);
    run.m_colFields = std::move(columns);
    for (Column& column : run.m_colFields)
        column.TypeSize = FindDialect(type)->ColumnTypeText(run, column);
    return run;
}

inline std::string CreateText(RunState& run) {
    std::string text;
    FindDialect(run.m_nScriptType)->AddTable(run, text);
    return text;
}

inline std::string ProcedureText(RunState& run) {
    FindDialect(run.m_nScriptType)->AddStoredProcedures(run);
    return run.Text(ScriptKind::Procedures);
}

}  // namespace korvex::scriptgen
