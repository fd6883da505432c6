#pragma once

#include "scriptgen/engine_dialect.h"
#include "scriptgen/migration/alter_text.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What differs between two states of a definition on one engine, and the statements from one to the other.
namespace korvex::scriptgen {

class DefinitionDiff {
  public:
    /// `before` and `now` as DescribeState gives them; `dialect`: that of an engine ("sqlite",
    /// "mariadb", "postgresql") or a published one ("mssql", "oracle"). InvalidProcedureCall (5) for another,
    /// for a default that is no value of its column and for a rename that cannot be. `isLive`: `before` is
    /// what stands in a database of an engine (ReadLiveTables), whose tables and columns are their names.
    DefinitionDiff(std::string_view dialect, std::span<const DescribedTable> before,
                   std::span<const DescribedTable> now, const DiffOptions& options = {}, bool isLive = false);
    DefinitionDiff(const DefinitionDiff&) = delete;
    DefinitionDiff& operator=(const DefinitionDiff&) = delete;

    const Comparison& Compared() const noexcept { return *m_comparison; }
    const std::vector<TableChange>& Changes() const noexcept { return m_comparison->Changes(); }
    /// The models as the engine describes them.
    std::span<const DescribedTable> Before() const noexcept { return m_before; }
    std::span<const DescribedTable> Now() const noexcept { return m_now; }

    std::vector<AlterStep> Steps(bool allowsLoss) const;
    std::string_view FileName() const noexcept { return m_text->FileName(); }
    /// Empty where nothing changes.
    std::string Script(bool allowsLoss) const;
    /// A script of some of the steps alone, for a run that was cut off.
    std::string ScriptOf(std::span<const AlterStep> steps) const;

  private:
    std::vector<DescribedTable> m_before;
    std::vector<DescribedTable> m_now;
    std::unique_ptr<AlterText> m_text;
    std::unique_ptr<Comparison> m_comparison;
};

}  // namespace korvex::scriptgen
