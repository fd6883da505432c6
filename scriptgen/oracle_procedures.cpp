#include "scriptgen/procedures.h"
#include "scriptgen/script_text.h"

namespace korvex::scriptgen {

namespace {

class Oracle final : public Procedures {
    std::string_view ParameterMark() const noexcept override { return "p_"; }
    std::string ParameterType(std::string_view table, const Column& column) const override {
        return std::string(table).append(".").append(column.FieldName).append("%TYPE");
    }
    std::string_view KeyParameterSeparator() const noexcept override { return ",\r\n"; }

    void Start(RunState& run, std::string_view procedure, const std::string* parameters) const override {
        std::string& text = run.Text(ScriptKind::Procedures);
        Append(text, "CREATE OR REPLACE PROCEDURE ", procedure, "\r\n");
        if (parameters != nullptr) Append(text, "(", *parameters, ")\r\n");
        Append(text, "AS\r\n");
        Append(text, "BEGIN\r\n");
    }
    std::string_view StatementEnd() const noexcept override { return "; \r\n"; }
    std::string_view AfterChange() const noexcept override { return "\tCommit; \r\n"; }
    std::string_view End() const noexcept override { return "END; \r\n/\r\n\r\n"; }

    void AppendKeyOutput(std::string& parameters, std::string_view table,
                         const Column& counter) const override {
        Append(parameters, "p_", counter.FieldName, "\tOUT \t", ParameterType(table, counter));
    }

    /// Without a counter column the closing terminator stands on a line of its own.
    void AppendInsert(std::string& text, std::string_view table, std::string_view names,
                      std::string_view values, const Column* counter) const override {
        Append(text, "\tINSERT INTO ", table, "\r\n");
        Append(text, "\t(", names, ")\r\n");
        Append(text, "\tVALUES \r\n");
        Append(text, "\t(", values, "); \r\n");
        Append(text, AfterChange());
        if (counter) {
            const std::string& key = counter->FieldName;
            Append(text, "\tSELECT max(", key, ") into p_", key, " FROM ", table, "; \r\n");
            Append(text, "\r\n\tRETURN");
        }
        Append(text, "; \r\n", End());
    }

    /// This procedure alone ends with one more line break.
    void AppendUpdate(std::string& text, std::string_view table, std::string_view assignments,
                      std::string_view condition) const override {
        Append(text, "\tUPDATE ", table, " SET\r\n");
        Append(text, "\t\t", assignments, "\r\n");
        Append(text, "\t WHERE ", condition, "; \r\n");
        Append(text, AfterChange(), End(), "\r\n");
    }
};

}  // namespace

const Procedures& OracleProcedures() noexcept {
    static const Oracle procedures;
    return procedures;
}

}  // namespace korvex::scriptgen
