#include "scriptgen/oracle_procedures.h"

#include "scriptgen/column_lists.h"
#include "scriptgen/script_names.h"
#include "scriptgen/script_text.h"

namespace korvex::scriptgen {

namespace {

/// Adds a parameter that takes a value in. Its type is that of its column.
void AddParameter(JoinedText& parameters, std::string_view table, const Column& column) {
    parameters.Add("p_", column.FieldName, "\t", table, ".", column.FieldName, "%TYPE");
}

/// Parameters and condition that pick rows by some of the columns.
struct RowChoice {
    JoinedText parameters;
    JoinedText condition{" AND "};

    explicit RowChoice(std::string_view parameterSeparator) : parameters(parameterSeparator) {}

    void Add(std::string_view table, const Column& column) {
        AddParameter(parameters, table, column);
        condition.Add(column.FieldName, " = p_", column.FieldName);
    }
};

void StartProcedure(std::string& text, std::string_view procedure) {
    Append(text, "CREATE OR REPLACE PROCEDURE ", procedure, "\r\n");
    Append(text, "AS\r\n");
    Append(text, "BEGIN\r\n");
}

void StartProcedure(std::string& text, std::string_view procedure, std::string_view parameters) {
    Append(text, "CREATE OR REPLACE PROCEDURE ", procedure, "\r\n");
    Append(text, "(", parameters, ")\r\n");
    Append(text, "AS\r\n");
    Append(text, "BEGIN\r\n");
}

void EndProcedure(std::string& text) {
    Append(text, "END; \r\n");
    Append(text, "/\r\n\r\n");
}

void AddReadAll(std::string& text, std::string_view table) {
    StartProcedure(text, ProcedureName(table, "AR"));
    Append(text, "\tSELECT *  FROM ", table, "; \r\n");
    EndProcedure(text);
}

void AddDeleteAll(std::string& text, std::string_view table) {
    StartProcedure(text, ProcedureName(table, "AD"));
    Append(text, "\tDELETE  FROM ", table, "; \r\n");
    Append(text, "\tCommit; \r\n");
    EndProcedure(text);
}

/// Read and delete of chosen rows; `base` is what the procedures are named after.
void AddReadAndDelete(std::string& text, std::string_view table, std::string_view base,
                      const RowChoice& rows) {
    StartProcedure(text, ProcedureName(base, "R"), rows.parameters.Text());
    Append(text, "\tSELECT *  FROM ", table, " WHERE ", rows.condition.Text(), "; \r\n");
    EndProcedure(text);

    StartProcedure(text, ProcedureName(base, "D"), rows.parameters.Text());
    Append(text, "\tDELETE  FROM ", table, " WHERE ", rows.condition.Text(), "; \r\n");
    Append(text, "\tCommit; \r\n");
    EndProcedure(text);
}

void AddByPrimaryKey(RunState& run, std::string_view table) {
    RowChoice rows(",\r\n");
    for (const Column& column : run.m_colFields) {
        if (column.IsPrimaryKey) rows.Add(table, column);
    }
    if (!rows.condition.Empty()) AddReadAndDelete(run.m_sStoredProcSQL, table, table, rows);
}

/// The group of the columns that reference one object; its procedures are named after the first of them.
void AddByForeignKey(RunState& run, std::string_view table, std::int32_t target) {
    RowChoice rows(", \r\n");
    std::string base;
    for (const Column& column : run.m_colFields) {
        if (column.FKObjectID != target) continue;
        if (base.empty()) base = GroupBase(table, column.FieldName);
        rows.Add(table, column);
    }
    if (!rows.condition.Empty()) AddReadAndDelete(run.m_sStoredProcSQL, table, base, rows);
}

/// The new key is read back as the largest one of the table; it leaves through the last parameter. Without a
/// counter column the closing terminator stands on a line of its own.
void AddInsert(RunState& run, std::string_view table) {
    JoinedText parameters(",\r\n");
    JoinedText names(",\r\n\t");
    JoinedText values(",\r\n\t");
    const Column* counter = nullptr;
    for (const Column& column : run.m_colFields) {
        if (column.IsAutoNumber) {
            counter = &column;
            continue;
        }
        AddParameter(parameters, table, column);
        names.Add(column.FieldName);
        values.Add("p_", column.FieldName);
    }
    std::string parameterText = parameters.Text();
    // The separator stands before the output parameter even when there is no other one.
    if (counter) {
        const std::string& key = counter->FieldName;
        Append(parameterText, ",\r\np_", key, "\tOUT \t", table, ".", key, "%TYPE");
    }

    std::string& text = run.m_sStoredProcSQL;
    StartProcedure(text, ProcedureName(table, "C"), parameterText);
    Append(text, "\tINSERT INTO ", table, "\r\n");
    Append(text, "\t(", names.Text(), ")\r\n");
    Append(text, "\tVALUES \r\n");
    Append(text, "\t(", values.Text(), "); \r\n");
    Append(text, "\tCommit; \r\n");
    if (counter) {
        const std::string& key = counter->FieldName;
        Append(text, "\tSELECT max(", key, ") into p_", key, " FROM ", table, "; \r\n");
        Append(text, "\r\n\tRETURN");
    }
    Append(text, "; \r\n");
    EndProcedure(text);
}

/// Only for tables with a key and with something beside it to assign.
void AddUpdate(RunState& run, std::string_view table) {
    JoinedText parameters(",\r\n");
    JoinedText assignments(",\r\n\t\t");
    JoinedText condition(" AND ");
    for (const Column& column : run.m_colFields) {
        AddParameter(parameters, table, column);
        JoinedText& list = column.IsPrimaryKey ? condition : assignments;
        list.Add(column.FieldName, "=p_", column.FieldName);
    }
    if (assignments.Empty() || condition.Empty()) return;

    std::string& text = run.m_sStoredProcSQL;
    StartProcedure(text, ProcedureName(table, "U"), parameters.Text());
    Append(text, "\tUPDATE ", table, " SET\r\n");
    Append(text, "\t\t", assignments.Text(), "\r\n");
    Append(text, "\t WHERE ", condition.Text(), "; \r\n");
    Append(text, "\tCommit; \r\n");
    EndProcedure(text);
    Append(text, "\r\n");  // this procedure alone ends with one more line break
}

}  // namespace

void AddOracleStoredProcedures(RunState& run, std::string_view table) {
    AddReadAll(run.m_sStoredProcSQL, table);
    AddDeleteAll(run.m_sStoredProcSQL, table);
    AddByPrimaryKey(run, table);
    for (const std::int32_t target : GetForeignKeyTargets(run.m_colFields))
        AddByForeignKey(run, table, target);
    AddInsert(run, table);
    AddUpdate(run, table);
}

}  // namespace korvex::scriptgen
