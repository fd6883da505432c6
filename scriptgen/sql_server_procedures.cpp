#include "scriptgen/sql_server_procedures.h"

#include "scriptgen/column_lists.h"
#include "scriptgen/script_names.h"
#include "scriptgen/script_text.h"

namespace korvex::scriptgen {

namespace {

/// Parameters and condition that pick rows by some of the columns.
struct RowChoice {
    JoinedText parameters{", \r\n"};
    JoinedText condition{" AND "};

    void Add(const Column& column) {
        parameters.Add("@", column.FieldName, "\t", column.TypeSize);
        condition.Add(column.FieldName, " = @", column.FieldName);
    }
};

void StartProcedure(RunState& run, std::string_view procedure) {
    AddDropProcedure(run, procedure);
    Append(run.m_sStoredProcSQL, "CREATE PROCEDURE ", procedure, "\r\n");
}

void StartProcedure(RunState& run, std::string_view procedure, std::string_view parameters) {
    StartProcedure(run, procedure);
    Append(run.m_sStoredProcSQL, "(", parameters, ")\r\n");
}

void AddReadAll(RunState& run, std::string_view table) {
    std::string& text = run.m_sStoredProcSQL;
    StartProcedure(run, ProcedureName(table, "AR"));
    Append(text, "AS\r\n");
    Append(text, "\tSELECT *  FROM ", table, "\r\n");
    Append(text, "GO\r\n\r\n");
}

void AddDeleteAll(RunState& run, std::string_view table) {
    std::string& text = run.m_sStoredProcSQL;
    StartProcedure(run, ProcedureName(table, "AD"));
    Append(text, "AS\r\n");
    Append(text, "\tDELETE  FROM ", table, "\r\n");
    Append(text, "GO\r\n\r\n");
}

/// Read and delete of chosen rows; `base` is what the procedures are named after.
void AddReadAndDelete(RunState& run, std::string_view table, std::string_view base, const RowChoice& rows) {
    std::string& text = run.m_sStoredProcSQL;
    StartProcedure(run, ProcedureName(base, "R"), rows.parameters.Text());
    Append(text, "AS\r\n");
    Append(text, "\tSELECT *  FROM ", table, " WHERE ", rows.condition.Text(), "\r\n");
    Append(text, "GO\r\n\r\n");

    StartProcedure(run, ProcedureName(base, "D"), rows.parameters.Text());
    Append(text, "AS\r\n");
    Append(text, "\tDELETE  FROM ", table, " WHERE ", rows.condition.Text(), "\r\n");
    Append(text, "GO\r\n\r\n");
}

void AddByPrimaryKey(RunState& run, std::string_view table) {
    RowChoice rows;
    for (const Column& column : run.m_colFields) {
        if (column.IsPrimaryKey) rows.Add(column);
    }
    if (!rows.condition.Empty()) AddReadAndDelete(run, table, table, rows);
}

/// The group of the columns that reference one object; its procedures are named after the first of them.
void AddByForeignKey(RunState& run, std::string_view table, std::int32_t target) {
    RowChoice rows;
    std::string base;
    for (const Column& column : run.m_colFields) {
        if (column.FKObjectID != target) continue;
        if (base.empty()) base = GroupBase(table, column.FieldName);
        rows.Add(column);
    }
    if (!rows.condition.Empty()) AddReadAndDelete(run, table, base, rows);
}

/// The new key is read back as the largest one of the table; it leaves through the last parameter.
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
        parameters.Add("@", column.FieldName, "\t", column.TypeSize);
        names.Add(column.FieldName);
        values.Add("@", column.FieldName);
    }
    std::string parameterText = parameters.Text();
    // The separator stands before the output parameter even when there is no other one.
    if (counter) Append(parameterText, ",\r\n@", counter->FieldName, "\t", counter->TypeSize, " OUTPUT");

    std::string& text = run.m_sStoredProcSQL;
    StartProcedure(run, ProcedureName(table, "C"), parameterText);
    Append(text, "AS\r\n");
    Append(text, "BEGIN\r\n");
    Append(text, "\tINSERT INTO ", table, "\r\n");
    Append(text, "\t(", names.Text(), ")\r\n");
    Append(text, "\tVALUES \r\n");
    Append(text, "\t(", values.Text(), ")\r\n");
    if (counter) {
        const std::string& key = counter->FieldName;
        Append(text, "\r\n\tSELECT @", key, "=max(", key, ") FROM ", table);
    }
    Append(text, "\r\nEND\r\n");
    Append(text, "GO\r\n\r\n");
}

/// Only for tables with a key and with something beside it to assign.
void AddUpdate(RunState& run, std::string_view table) {
    JoinedText parameters(",\r\n");
    JoinedText assignments(",\r\n\t\t");
    JoinedText condition(" AND ");
    for (const Column& column : run.m_colFields) {
        parameters.Add("@", column.FieldName, "\t", column.TypeSize);
        JoinedText& list = column.IsPrimaryKey ? condition : assignments;
        list.Add(column.FieldName, "=@", column.FieldName);
    }
    if (assignments.Empty() || condition.Empty()) return;

    std::string& text = run.m_sStoredProcSQL;
    StartProcedure(run, ProcedureName(table, "U"), parameters.Text());
    Append(text, "AS\r\n");
    Append(text, "BEGIN\r\n");
    Append(text, "\tUPDATE ", table, " SET\r\n");
    Append(text, "\t\t", assignments.Text(), "\r\n");
    Append(text, "\t WHERE ", condition.Text(), "\r\n");
    Append(text, "END\r\n");
    Append(text, "GO\r\n\r\n");
}

}  // namespace

void AddStoredProcedures(RunState& run, std::string_view table) {
    AddReadAll(run, table);
    AddDeleteAll(run, table);
    AddByPrimaryKey(run, table);
    for (const std::int32_t target : GetForeignKeyTargets(run.m_colFields))
        AddByForeignKey(run, table, target);
    AddInsert(run, table);
    AddUpdate(run, table);
}

void AddDropProcedure(RunState& run, std::string_view procedure) {
    std::string& drop = run.m_sDropSQL;
    Append(drop, "if exists(select * from sysobjects where id = object_id('dbo.", procedure,
           "') and sysstat & 0xf = 4)\r\n");
    Append(drop, "\tDROP PROCEDURE dbo.", procedure, "\r\n");
    Append(drop, "GO\r\n\r\n");
}

}  // namespace korvex::scriptgen
