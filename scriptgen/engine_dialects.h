#pragma once

#include "scriptgen/engine_dialect.h"

namespace korvex::scriptgen {

/// SQLite: foreign keys stand in their tables.
class SqliteDialect final : public EngineDialect {
  public:
    std::string_view Name() const noexcept override { return "sqlite"; }
    std::span<const EngineFile> Files() const noexcept override;
    const CatalogueQueries& Catalogue() const noexcept override;
    std::string TypeAsWritten(std::string type) const override;
    bool AltersForeignKeys() const noexcept override { return false; }

  protected:
    const EngineTypes& Types() const noexcept override;
    EngineLimits Limits() const noexcept override { return {.columns = 2000, .indexes = std::string::npos}; }
    std::string_view ReservedWords() const noexcept override;
    std::string NumberedColumn(const DescribedTable& table) const override;
    void AddNoParent(EngineScripts& scripts, const DescribedTable& table,
                     std::span<const std::string> columns) const override;
    void AppendConstraints(std::string& text, const DescribedTable& table) const override;
    void AddForeignKey(EngineScripts&, const DescribedTable&, const ForeignKey&) const override {}
};

/// MariaDB: a row has a limit of length, a table one of indexes.
class MariaDbDialect final : public EngineDialect {
  public:
    std::string_view Name() const noexcept override { return "mariadb"; }
    std::span<const EngineFile> Files() const noexcept override;
    const CatalogueQueries& Catalogue() const noexcept override;
    std::string TypeAsWritten(std::string type) const override;
    std::string DefaultAsWritten(std::string text) const override;
    bool DefinitionsRollBack() const noexcept override { return false; }
    bool FoldsTableNames() const noexcept override { return false; }

  protected:
    const EngineTypes& Types() const noexcept override;
    EngineLimits Limits() const noexcept override { return {.columns = 1017, .indexes = 64}; }
    std::string_view ReservedWords() const noexcept override;
    std::string NumberedColumn(const DescribedTable& table) const override;
    void AddNoParent(EngineScripts& scripts, const DescribedTable& table,
                     std::span<const std::string> columns) const override;
    void AddForeignKey(EngineScripts& scripts, const DescribedTable& table,
                       const ForeignKey& key) const override;
    std::string TextLiteral(std::string_view text) const override;
    std::vector<std::string> ColumnTypes(const DescribedTable& table,
                                         std::vector<std::string>& notes) const override;
    /// Names and texts in any language, and foreign keys, whatever the database is set to.
    std::string_view TableOptions() const noexcept override {
        return " ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4";
    }
};

/// PostgreSQL: triggers call functions, which go by themselves.
class PostgreSqlDialect final : public EngineDialect {
  public:
    std::string_view Name() const noexcept override { return "postgresql"; }
    std::span<const EngineFile> Files() const noexcept override;
    const CatalogueQueries& Catalogue() const noexcept override;
    std::string TypeAsWritten(std::string type) const override;
    std::string DefaultAsWritten(std::string text) const override;

  protected:
    const EngineTypes& Types() const noexcept override;
    EngineLimits Limits() const noexcept override { return {.columns = 1600, .indexes = std::string::npos}; }
    std::string_view ReservedWords() const noexcept override;
    std::string NumberedColumn(const DescribedTable& table) const override;
    void AddNoParent(EngineScripts& scripts, const DescribedTable& table,
                     std::span<const std::string> columns) const override;
    std::vector<std::string> TriggerNames(const DescribedTable& table) const override;
    void AddForeignKey(EngineScripts& scripts, const DescribedTable& table,
                       const ForeignKey& key) const override;
    bool NumbersTheKeyOnly() const noexcept override { return false; }
    std::string BooleanLiteral(bool value) const override { return value ? "true" : "false"; }
    void AddDropTable(EngineScripts& scripts, const DescribedTable& table) const override;
};

}  // namespace korvex::scriptgen
