#include "scriptgen/procedures.h"

#include "scriptgen/column_lists.h"
#include "scriptgen/script_names.h"
#include "scriptgen/script_text.h"

namespace korvex::scriptgen {

/// Parameters and condition that pick rows by some of the columns.
struct Procedures::RowChoice {
    JoinedText parameters;
    JoinedText condition{" AND "};

    explicit RowChoice(std::string_view separator) : parameters(separator) {}
};

void Procedures::Add(RunState& run) const {
    AddStatement(run, ProcedureName(run.m_sCurrentTable, "AR"), nullptr, "SELECT * ", "", false);
    AddStatement(run, ProcedureName(run.m_sCurrentTable, "AD"), nullptr, "DELETE ", "", true);
    AddByPrimaryKey(run);
    for (const repository::ObjectId target : GetForeignKeyTargets(run.m_colFields))
        AddByForeignKey(run, target);
    AddInsert(run);
    AddUpdate(run);
}

void Procedures::AddStatement(RunState& run, std::string_view procedure, const std::string* parameters,
                              std::string_view verb, std::string_view condition, bool isChange) const {
    Start(run, procedure, parameters);
    std::string& text = run.Text(ScriptKind::Procedures);
    Append(text, "\t", verb, " FROM ", run.m_sCurrentTable);
    if (parameters != nullptr) Append(text, " WHERE ", condition);
    Append(text, StatementEnd(), isChange ? AfterChange() : "", End());
}

void Procedures::AddParameter(JoinedText& parameters, std::string_view table, const Column& column) const {
    parameters.Add(ParameterMark(), column.FieldName, "\t", ParameterType(table, column));
}

void Procedures::Pick(RowChoice& rows, std::string_view table, const Column& column) const {
    AddParameter(rows.parameters, table, column);
    rows.condition.Add(column.FieldName, " = ", ParameterMark(), column.FieldName);
}

/// `base` is what the procedures are named after.
void Procedures::AddReadAndDelete(RunState& run, std::string_view base, const RowChoice& rows) const {
    if (rows.condition.Empty()) return;
    const std::string& parameters = rows.parameters.Text();
    AddStatement(run, ProcedureName(base, "R"), &parameters, "SELECT * ", rows.condition.Text(), false);
    AddStatement(run, ProcedureName(base, "D"), &parameters, "DELETE ", rows.condition.Text(), true);
}

void Procedures::AddByPrimaryKey(RunState& run) const {
    RowChoice rows(KeyParameterSeparator());
    for (const Column& column : run.m_colFields)
        if (column.IsPrimaryKey) Pick(rows, run.m_sCurrentTable, column);
    AddReadAndDelete(run, run.m_sCurrentTable, rows);
}

/// The group of the columns that reference one object; its procedures are named after the first of them.
void Procedures::AddByForeignKey(RunState& run, repository::ObjectId target) const {
    RowChoice rows(", \r\n");
    std::string base;
    for (const Column& column : run.m_colFields) {
        if (column.FKObjectID != target) continue;
        if (base.empty()) base = GroupBase(run.m_sCurrentTable, column.FieldName);
        Pick(rows, run.m_sCurrentTable, column);
    }
    AddReadAndDelete(run, base, rows);
}

/// The new key is read back as the largest one of the table; it leaves through the last parameter.
void Procedures::AddInsert(RunState& run) const {
    const std::string& table = run.m_sCurrentTable;
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
        values.Add(ParameterMark(), column.FieldName);
    }
    std::string parameterText = parameters.Text();
    // The separator stands before the output parameter even when there is no other one.
    if (counter) {
        Append(parameterText, ",\r\n");
        AppendKeyOutput(parameterText, table, *counter);
    }
    Start(run, ProcedureName(table, "C"), &parameterText);
    AppendInsert(run.Text(ScriptKind::Procedures), table, names.Text(), values.Text(), counter);
}

/// Only for tables with a key and with something beside it to assign.
void Procedures::AddUpdate(RunState& run) const {
    JoinedText parameters(",\r\n");
    JoinedText assignments(",\r\n\t\t");
    JoinedText condition(" AND ");
    for (const Column& column : run.m_colFields) {
        AddParameter(parameters, run.m_sCurrentTable, column);
        JoinedText& list = column.IsPrimaryKey ? condition : assignments;
        list.Add(column.FieldName, "=", ParameterMark(), column.FieldName);
    }
    if (assignments.Empty() || condition.Empty()) return;
    Start(run, ProcedureName(run.m_sCurrentTable, "U"), &parameters.Text());
    AppendUpdate(run.Text(ScriptKind::Procedures), run.m_sCurrentTable, assignments.Text(), condition.Text());
}

}  // namespace korvex::scriptgen
