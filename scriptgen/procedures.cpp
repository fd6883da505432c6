#include "scriptgen/column_lists.h"
#include "scriptgen/dialect.h"
#include "scriptgen/script_names.h"
#include "scriptgen/script_text.h"

namespace korvex::scriptgen {

namespace {

/// Parameters and condition that pick rows by some of the columns.
struct RowChoice {
    JoinedText parameters;
    JoinedText condition{" AND "};

    explicit RowChoice(std::string_view separator) : parameters(separator) {}
};

/// Writes the procedures of one table.
class ProcedureWriter {
  public:
    ProcedureWriter(const Dialect& dialect, RunState& run, const DescribedTable& table)
        : m_dialect(dialect),
          m_words(dialect.Procedures()),
          m_table(table),
          m_drop(run.Text(ScriptKind::Drop)),
          m_text(run.Text(ScriptKind::Procedures)) {}

    void Write() {
        AddStatement(ProcedureName(m_table.Name, "AR"), nullptr, "SELECT * ", "", "");
        AddStatement(ProcedureName(m_table.Name, "AD"), nullptr, "DELETE ", "", m_words.afterChange);
        AddByPrimaryKey();
        for (const repository::ObjectId target : GetForeignKeyTargets(m_table.Columns))
            AddByForeignKey(target);
        AddInsert();
        AddUpdate();
    }

  private:
    /// Everything up to the first statement; `parameters` in parentheses unless there are none.
    void Start(std::string_view procedure, const std::string* parameters) {
        m_dialect.AppendProcedureDrop(m_drop, procedure);
        Append(m_text, m_words.create, procedure, "\r\n");
        if (parameters != nullptr) Append(m_text, "(", *parameters, ")\r\n");
        Append(m_text, m_words.begin);
    }

    void AddStatement(std::string_view procedure, const std::string* parameters, std::string_view verb,
                      std::string_view condition, std::string_view afterwards) {
        Start(procedure, parameters);
        Append(m_text, "\t", verb, " FROM ", m_table.Name);
        if (parameters != nullptr) Append(m_text, " WHERE ", condition);
        Append(m_text, m_words.statementEnd, afterwards, m_words.end);
    }

    void AddParameter(JoinedText& parameters, const Column& column) const {
        parameters.Add(m_words.mark, column.FieldName, "\t", m_dialect.ParameterType(m_table.Name, column));
    }

    void Pick(RowChoice& rows, const Column& column) const {
        AddParameter(rows.parameters, column);
        rows.condition.Add(column.FieldName, " = ", m_words.mark, column.FieldName);
    }

    /// `base` is what the procedures are named after.
    void AddReadAndDelete(std::string_view base, const RowChoice& rows) {
        if (rows.condition.Empty()) return;
        const std::string& parameters = rows.parameters.Text();
        const std::string& condition = rows.condition.Text();
        AddStatement(ProcedureName(base, "R"), &parameters, "SELECT * ", condition, "");
        AddStatement(ProcedureName(base, "D"), &parameters, "DELETE ", condition, m_words.afterChange);
    }

    void AddByPrimaryKey() {
        RowChoice rows(m_words.keySeparator);
        for (const Column& column : m_table.Columns)
            if (column.IsPrimaryKey) Pick(rows, column);
        AddReadAndDelete(m_table.Name, rows);
    }

    /// The group of the columns that reference one object; its procedures are named after the first of them.
    void AddByForeignKey(repository::ObjectId target) {
        RowChoice rows(", \r\n");
        std::string base;
        for (const Column& column : m_table.Columns) {
            if (column.FKObjectID != target) continue;
            if (base.empty()) base = GroupBase(m_table.Name, column.FieldName);
            Pick(rows, column);
        }
        AddReadAndDelete(base, rows);
    }

    /// The new key is read back as the largest one of the table; it leaves through the last parameter.
    void AddInsert() {
        JoinedText parameters(",\r\n");
        JoinedText names(",\r\n\t");
        JoinedText values(",\r\n\t");
        const Column* counter = nullptr;
        for (const Column& column : m_table.Columns) {
            if (column.IsAutoNumber) {
                counter = &column;
                continue;
            }
            AddParameter(parameters, column);
            names.Add(column.FieldName);
            values.Add(m_words.mark, column.FieldName);
        }
        std::string parameterText = parameters.Text();
        // The separator stands before the output parameter even when there is no other one.
        if (counter != nullptr) {
            Append(parameterText, ",\r\n");
            m_dialect.AppendKeyOutput(parameterText, m_table.Name, *counter);
        }
        Start(ProcedureName(m_table.Name, "C"), &parameterText);
        Append(m_text, m_words.writeBegin);
        Append(m_text, "\tINSERT INTO ", m_table.Name, "\r\n");
        Append(m_text, "\t(", names.Text(), ")\r\n");
        Append(m_text, "\tVALUES \r\n");
        Append(m_text, "\t(", values.Text(), ")", m_words.statementEnd, m_words.afterChange);
        if (counter != nullptr) m_dialect.AppendKeyReading(m_text, m_table.Name, counter->FieldName);
        Append(m_text, m_words.insertEnd);
    }

    /// Only for tables with a key and with something beside it to assign.
    void AddUpdate() {
        JoinedText parameters(",\r\n");
        JoinedText assignments(",\r\n\t\t");
        JoinedText condition(" AND ");
        for (const Column& column : m_table.Columns) {
            AddParameter(parameters, column);
            JoinedText& list = column.IsPrimaryKey ? condition : assignments;
            list.Add(column.FieldName, "=", m_words.mark, column.FieldName);
        }
        if (assignments.Empty() || condition.Empty()) return;
        Start(ProcedureName(m_table.Name, "U"), &parameters.Text());
        Append(m_text, m_words.writeBegin);
        Append(m_text, "\tUPDATE ", m_table.Name, " SET\r\n");
        Append(m_text, "\t\t", assignments.Text(), "\r\n");
        Append(m_text, "\t WHERE ", condition.Text(), m_words.statementEnd, m_words.afterChange);
        Append(m_text, m_words.updateEnd);
    }

    const Dialect& m_dialect;
    const ProcedureWords& m_words;
    const DescribedTable& m_table;
    std::string& m_drop;
    std::string& m_text;
};

}  // namespace

void Dialect::AddStoredProcedures(RunState& run, const DescribedTable& table) const {
    ProcedureWriter(*this, run, table).Write();
}

}  // namespace korvex::scriptgen
