#pragma once

#include "scriptgen/dialect.h"

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

/// A table, and the run that writes its scripts.
struct TableInHand {
    TableInHand(ScriptType type, std::string name, std::vector<Column> columns)
        : dialect(*FindDialect(type)) {
        table.Name = std::move(name);
        table.Columns = std::move(columns);
        dialect.SetTypes(table);
    }

    std::string CreateText() {
        run.Text(ScriptKind::Create).clear();
        dialect.AddTable(run, table);
        const std::string& text = run.Text(ScriptKind::Create);
        return text.substr(0, text.size() - 2);  // without the line between tables
    }

    const Dialect& dialect;
    DescribedTable table;
    RunState run;
};

}  // namespace korvex::scriptgen
