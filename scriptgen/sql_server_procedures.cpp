#include "scriptgen/procedures.h"
#include "scriptgen/script_text.h"

namespace korvex::scriptgen {

namespace {

class Server final : public Procedures {
    std::string_view ParameterMark() const noexcept override { return "@"; }
    std::string ParameterType(std::string_view, const Column& column) const override {
        return column.TypeSize;
    }
    std::string_view KeyParameterSeparator() const noexcept override { return ", \r\n"; }

    /// The owner is dbo in both dialects.
    void Start(RunState& run, std::string_view procedure, const std::string* parameters) const override {
        std::string& drop = run.Text(ScriptKind::Drop);
        Append(drop, "if exists(select * from sysobjects where id = object_id('dbo.", procedure,
               "') and sysstat & 0xf = 4)\r\n");
        Append(drop, "\tDROP PROCEDURE dbo.", procedure, "\r\n");
        Append(drop, "GO\r\n\r\n");

        std::string& text = run.Text(ScriptKind::Procedures);
        Append(text, "CREATE PROCEDURE ", procedure, "\r\n");
        if (parameters != nullptr) Append(text, "(", *parameters, ")\r\n");
        Append(text, "AS\r\n");
    }
    std::string_view StatementEnd() const noexcept override { return "\r\n"; }
    std::string_view AfterChange() const noexcept override { return ""; }
    std::string_view End() const noexcept override { return "GO\r\n\r\n"; }

    void AppendKeyOutput(std::string& parameters, std::string_view, const Column& counter) const override {
        Append(parameters, "@", counter.FieldName, "\t", counter.TypeSize, " OUTPUT");
    }

    void AppendInsert(std::string& text, std::string_view table, std::string_view names,
                      std::string_view values, const Column* counter) const override {
        Append(text, "BEGIN\r\n");
        Append(text, "\tINSERT INTO ", table, "\r\n");
        Append(text, "\t(", names, ")\r\n");
        Append(text, "\tVALUES \r\n");
        Append(text, "\t(", values, ")\r\n");
        if (counter) {
            const std::string& key = counter->FieldName;
            Append(text, "\r\n\tSELECT @", key, "=max(", key, ") FROM ", table);
        }
        Append(text, "\r\nEND\r\n", End());
    }

    void AppendUpdate(std::string& text, std::string_view table, std::string_view assignments,
                      std::string_view condition) const override {
        Append(text, "BEGIN\r\n");
        Append(text, "\tUPDATE ", table, " SET\r\n");
        Append(text, "\t\t", assignments, "\r\n");
        Append(text, "\t WHERE ", condition, "\r\n");
        Append(text, "END\r\n", End());
    }
};

}  // namespace

const Procedures& ServerProcedures() noexcept {
    static const Server procedures;
    return procedures;
}

}  // namespace korvex::scriptgen
