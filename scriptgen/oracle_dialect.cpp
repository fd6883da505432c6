#include "automation/convert.h"
#include "scriptgen/dialect.h"
#include "scriptgen/script_names.h"
#include "scriptgen/script_text.h"

#include <algorithm>

namespace korvex::scriptgen {

namespace {

constexpr TypeNames Types = {.integer16 = "NUMBER(5)",
                             .integer32 = "NUMBER(11)",
                             .single = "NUMBER(12,2)",
                             .real = "NUMBER(38,2)",
                             .currency = "NUMBER(15, 2)",
                             .date = "DATE",
                             .boolean = "NUMBER(1)",
                             .object = "LONG RAW",
                             .variant = "RAW",
                             .text = "VARCHAR2",
                             .longText = "LONG"};

constexpr TableWords Table = {
    .owner = "", .keyKind = "PRIMARY KEY ", .end = "; \r\n", .constraintEnd = "; \r\n"};

/// A procedure replaces earlier ones. The one of an update alone ends with one more line break; that of an
/// insert without a counter has its closing terminator on a line of its own.
constexpr ProcedureWords Procedure = {.create = "CREATE OR REPLACE PROCEDURE ",
                                      .begin = "AS\r\nBEGIN\r\n",
                                      .mark = "p_",
                                      .keySeparator = ",\r\n",
                                      .statementEnd = "; \r\n",
                                      .afterChange = "\tCommit; \r\n",
                                      .end = "END; \r\n/\r\n\r\n",
                                      .writeBegin = "",
                                      .insertEnd = "; \r\nEND; \r\n/\r\n\r\n",
                                      .updateEnd = "END; \r\n/\r\n\r\n\r\n"};

/// A table's counter column is filled by a sequence and a trigger.
class Oracle final : public Dialect {
  public:
    Oracle() : Dialect(ScriptType::Oracle, Types, Table, Procedure) {}

    void AppendTableDrop(std::string& drop, const DescribedTable& table) const override {
        if (CounterOf(table) != nullptr)
            Append(drop, "DROP SEQUENCE ", SequenceName(table.Name), "; \r\n\r\n");
        Append(drop, "DROP TABLE ", table.Name, "; \r\n\r\n");
    }
    /// Sets the run's warning when the table gets more than one long column by their declared lengths.
    void AppendCreate(std::string& text, RunState& run, const DescribedTable& table) const override {
        const Column* counter = CounterOf(table);
        if (LongColumns(table) > 1) run.m_bLongWarning = true;
        Append(text, "\r\n");
        Append(text, "rem  ***** Creating table ", table.Name, "\r\n\r\n");
        if (counter != nullptr)
            Append(text, "create sequence ", SequenceName(table.Name), " increment by 1 start with 1; \r\n");
        Append(text, "\r\n\r\n");
        AppendTable(text, table);
        if (counter != nullptr)
            Append(text, "\r\n\r\n/\r\n", OracleTriggerText(table.Name, counter->FieldName), "; \r\n/\r\n");
    }

    bool NumbersByTrigger() const noexcept override { return true; }
    bool ProceduresNameTypes() const noexcept override { return false; }
    std::string ParameterType(std::string_view table, const Column& column) const override {
        return std::string(table).append(".").append(column.FieldName).append("%TYPE");
    }
    void AppendProcedureDrop(std::string&, std::string_view) const override {}
    void AppendKeyOutput(std::string& parameters, std::string_view table,
                         const Column& counter) const override {
        Append(parameters, "p_", counter.FieldName, "\tOUT \t", ParameterType(table, counter));
    }
    void AppendKeyReading(std::string& text, std::string_view table, std::string_view key) const override {
        Append(text, "\tSELECT max(", key, ") into p_", key, " FROM ", table, "; \r\n");
        Append(text, "\r\n\tRETURN");
    }

  private:
    /// Those that are long for their declared length, not by their type.
    static std::int16_t LongColumns(const DescribedTable& table) {
        return automation::ToInteger(std::ranges::count_if(table.Columns, [](const Column& column) {
            const bool isLongRaw = column.TypeSize == Types.object;
            return column.IsLongFld ||
                   (isLongRaw && column.DataType == TypeCode(automation::VarType::Variant));
        }));
    }
};

}  // namespace

const Dialect& OracleDialect() noexcept {
    static const Oracle dialect;
    return dialect;
}

/// It fires before inserts only; the branch for updates is part of its text all the same.
std::string OracleTriggerText(std::string_view table, std::string_view counter) {
    std::string text;
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
    return text;
}

}  // namespace korvex::scriptgen
