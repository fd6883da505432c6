#include "scriptgen/dialect.h"
#include "scriptgen/script_text.h"

namespace korvex::scriptgen {

namespace {

constexpr TypeNames Types = {.integer16 = "smallint",
                             .integer32 = "int",
                             .single = "real",
                             .real = "float",
                             .currency = "float",
                             .date = "datetime",
                             .boolean = "bit",
                             .object = "image",
                             .variant = "image",
                             .text = "varchar",
                             .longText = "text"};

constexpr ProcedureWords Procedure = {.create = "CREATE PROCEDURE ",
                                      .begin = "AS\r\n",
                                      .mark = "@",
                                      .keySeparator = ", \r\n",
                                      .statementEnd = "\r\n",
                                      .afterChange = "",
                                      .end = "GO\r\n\r\n",
                                      .writeBegin = "BEGIN\r\n",
                                      .insertEnd = "\r\nEND\r\nGO\r\n\r\n",
                                      .updateEnd = "END\r\nGO\r\n\r\n"};

constexpr TableWords SqlServerTable = {
    .owner = "dbo.", .keyKind = "PRIMARY KEY CLUSTERED", .end = "\r\nGO\r\n", .constraintEnd = "\r\nGO"};
constexpr TableWords SybaseTable = {
    .owner = "", .keyKind = "PRIMARY KEY CLUSTERED", .end = "\r\nGO\r\n", .constraintEnd = ""};

/// SQL Server and Sybase write the same scripts, but for the owner of the tables, the identity columns and
/// the end of a constraint. The owner of procedures is dbo in both.
class ServerDialect : public Dialect {
  public:
    ServerDialect(ScriptType type, const TableWords& words)
        : Dialect(type, Types, words, Procedure), m_owner(words.owner) {}

    void AppendTableDrop(std::string& drop, const DescribedTable& table) const final {
        AppendDrop(drop, "TABLE", m_owner, table.Name, "3");
    }
    void AppendCreate(std::string& text, RunState&, const DescribedTable& table) const final {
        AppendTable(text, table);
    }

    bool ProceduresNameTypes() const noexcept final { return true; }
    std::string ParameterType(std::string_view, const Column& column) const final { return column.TypeSize; }
    void AppendProcedureDrop(std::string& drop, std::string_view procedure) const final {
        AppendDrop(drop, "PROCEDURE", "dbo.", procedure, "4");
    }
    void AppendKeyOutput(std::string& parameters, std::string_view, const Column& counter) const final {
        Append(parameters, "@", counter.FieldName, "\t", counter.TypeSize, " OUTPUT");
    }
    void AppendKeyReading(std::string& text, std::string_view table, std::string_view key) const final {
        Append(text, "\r\n\tSELECT @", key, "=max(", key, ") FROM ", table);
    }

  private:
    /// `kind` is what the server's list of objects says of such a thing.
    static void AppendDrop(std::string& drop, std::string_view thing, std::string_view owner,
                           std::string_view name, std::string_view kind) {
        Append(drop, "if exists(select * from sysobjects where id = object_id('", owner, name,
               "') and sysstat & 0xf = ", kind, ")\r\n");
        Append(drop, "\tDROP ", thing, " ", owner, name, "\r\n");
        Append(drop, "GO\r\n\r\n");
    }

    std::string_view m_owner;
};

class SqlServer final : public ServerDialect {
  public:
    SqlServer() : ServerDialect(ScriptType::SqlServer, SqlServerTable) {}
    std::string ColumnType(const DescribedTable&, const Column& column) const override {
        return column.TypeSize + (column.IsAutoNumber ? " IDENTITY (1, 1)" : "");
    }
};

class Sybase final : public ServerDialect {
  public:
    Sybase() : ServerDialect(ScriptType::Sybase, SybaseTable) {}
    std::string ColumnType(const DescribedTable&, const Column& column) const override {
        return column.IsAutoNumber ? "numeric(18, 0)  identity" : column.TypeSize;
    }
};

}  // namespace

const Dialect& SqlServerDialect() noexcept {
    static const SqlServer dialect;
    return dialect;
}

const Dialect& SybaseDialect() noexcept {
    static const Sybase dialect;
    return dialect;
}

}  // namespace korvex::scriptgen
