#pragma once

#include "scriptgen/migration/match_tables.h"

#include <cstdint>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// What differs between two table models.
namespace korvex::scriptgen {

enum class ChangeKind : std::uint8_t { Added, Renamed, Changed, Dropped };
enum class ChangedThing : std::uint8_t { Table, Column, Key, ForeignKey, Index };

/// One difference, for people and programs.
struct TableChange {
    ChangeKind kind = ChangeKind::Added;
    ChangedThing thing = ChangedThing::Table;
    ChangeClass cls = ChangeClass::Safe;
    std::string table = {};   ///< as it will be called; as it is called when it goes
    std::string column = {};  ///< "" for the table
    std::string before = {};  ///< name, type, default or column referred to
    std::string now = {};
    std::string reason = {};
};
/// "tOrder.Total: real in place of decimal(19,4) (digits may be rounded)"
std::string ChangeText(const TableChange& change);

/// What the engine whose models these are does not tell by itself.
struct EngineTraits {
    bool foldsTableNames = true;
    bool floatIsSingle = false;
    bool numbersAnew = true;           ///< a column that is there can become numbered
    std::string_view fixedTypes = {};  ///< columns whose type begins so keep it for good
};

struct DiffOptions {
    std::vector<NamedRename> renames = {};
    /// Tables, in capitals, that stay although the definition no longer has them: another one has.
    std::set<std::string> kept = {};
};

/// Two models, compared. Both must live as long as this.
class Comparison {
  public:
    /// Both as one engine describes them. Tables that `before` has beside those of a definition (those of a
    /// database that stands have no ObjectID) are left out. InvalidProcedureCall (5) for a rename that cannot
    /// be.
    Comparison(std::span<const DescribedTable> before, std::span<const DescribedTable> now,
               const EngineTraits& traits, const DiffOptions& options = {});

    /// In their new order, then those that are gone.
    const std::vector<TablePlan>& Tables() const noexcept { return m_tables; }
    const std::vector<TableChange>& Changes() const noexcept { return m_changes; }
    bool Has(ChangeClass cls) const;
    /// The texts of what a column of a table that stays loses.
    std::vector<std::string> Losses(const TablePlan& table, const ColumnPlan& column) const;

    /// The table that a reference of one side leads to; nullptr for none of those compared.
    const TablePlan* TargetBefore(const ForeignKey& key) const { return Find(m_before, key.Table); }
    const TablePlan* TargetNow(const ForeignKey& key) const { return Find(m_now, key.Table); }
    /// The table that will have this name; nullptr for none.
    const TablePlan* NamedNow(const std::string& table) const { return Find(m_now, table); }
    /// Whether a constraint of a table that stays leads from the same column to the same one, both untouched
    /// but for their names.
    bool IsSameKey(const TablePlan& table, const ForeignKey& before, const ForeignKey& now) const;
    /// The constraint that a table had and has; nullptr where it is another now, or none.
    const ForeignKey* SameKeyNow(const TablePlan& table, const ForeignKey& before) const;
    const ForeignKey* SameKeyBefore(const TablePlan& table, const ForeignKey& now) const;

  private:
    using Index = std::unordered_map<std::string, std::size_t>;
    const TablePlan* Find(const Index& index, const std::string& name) const;
    void Mark(TablePlan& plan) const;
    Conversion ConversionOf(const Column& before, const Column& now) const;
    void MarkMovedValues();
    void List(const TablePlan& plan);
    void ListColumn(const TablePlan& plan, const ColumnPlan& column);
    void ListKeys(const TablePlan& plan);
    void ListIndexes(const TablePlan& plan);

    EngineTraits m_traits;
    std::vector<TablePlan> m_tables;
    std::vector<TableChange> m_changes;
    Index m_before, m_now;  ///< by name
};

/// The column of a staying table that has this name before, and now; nullptr for none.
const ColumnPlan* ColumnBefore(const TablePlan& plan, std::string_view name);
const ColumnPlan* ColumnNow(const TablePlan& plan, std::string_view name);

}  // namespace korvex::scriptgen
