#pragma once

#include "scriptgen/migration/match_tables.h"

#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace korvex::scriptgen {

using TableMap = std::unordered_map<const DescribedTable*, const DescribedTable*>;

/// The column of that name, in any case; nullptr for none.
const Column* FindColumn(const DescribedTable& table, std::string_view name);
/// The reference of a column; nullptr for none.
const ForeignKey* FindForeignKey(const DescribedTable& table, std::string_view column);

/// Pairs the columns of tables that belong together.
class ColumnMatcher {
  public:
    /// `nowOf`: the pairs of tables. All of it must outlive the matcher.
    ColumnMatcher(std::span<const DescribedTable> before, std::span<const DescribedTable> now,
                  const TableMap& nowOf, bool foldsTableNames);

    /// `given`: pairs that are settled.
    std::vector<ColumnPair> Match(const TablePair& pair, std::vector<ColumnPair> given) const;

    /// The table that a reference leads to; nullptr for one that is not among those compared.
    const DescribedTable* TargetBefore(const ForeignKey& key) const { return m_before.Of(key); }
    const DescribedTable* TargetNow(const ForeignKey& key) const { return m_now.Of(key); }

  private:
    class Targets {
      public:
        Targets(std::span<const DescribedTable> tables, bool folds);
        const DescribedTable* Of(const ForeignKey& key) const;

      private:
        std::unordered_map<std::int32_t, const DescribedTable*> m_byID;
        std::unordered_map<std::string, const DescribedTable*> m_byName;
        bool m_folds;
    };

    bool ReferToOne(const TablePair& pair, const Column& before, const Column& now) const;

    Targets m_before;
    Targets m_now;
    const TableMap& m_nowOf;
};

}  // namespace korvex::scriptgen
