#include "scriptgen/migration/match_columns.h"

#include "automation/text.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <string>

namespace korvex::scriptgen {

using automation::EqualsIgnoreCase;
using automation::ToUpperAscii;

const Column* FindColumn(const DescribedTable& table, std::string_view name) {
    const auto found = std::ranges::find_if(
        table.Columns, [&](const Column& column) { return EqualsIgnoreCase(column.FieldName, name); });
    return found == table.Columns.end() ? nullptr : &*found;
}

const ForeignKey* FindForeignKey(const DescribedTable& table, std::string_view column) {
    const auto found = std::ranges::find_if(
        table.ForeignKeys, [&](const ForeignKey& key) { return EqualsIgnoreCase(key.FieldName, column); });
    return found == table.ForeignKeys.end() ? nullptr : &*found;
}

namespace {

/// The pairs of one table, as they are found.
class TableColumns {
  public:
    using Test = std::function<bool(const Column& before, const Column& now)>;

    TableColumns(const TablePair& pair, std::vector<ColumnPair> given) : m_pair(pair) {
        for (const ColumnPair& columns : given)
            Pair(*columns.before, *columns.now);
    }

    /// Pairs what is left by a test, which one column of each side fulfils at most.
    void PairWhere(const Test& isSame) {
        for (const Column& now : m_pair.now->Columns) {
            if (m_beforeOf.contains(&now)) continue;
            for (const Column& before : m_pair.before->Columns) {
                if (m_paired.contains(&before) || !isSame(before, now)) continue;
                Pair(before, now);
                break;
            }
        }
    }

    bool IsFree(const Column& column) const {
        return !m_beforeOf.contains(&column) && !m_paired.contains(&column);
    }

    std::vector<ColumnPair> Result() const {
        std::vector<ColumnPair> result;
        for (const Column& now : m_pair.now->Columns) {
            const auto found = m_beforeOf.find(&now);
            result.push_back({found == m_beforeOf.end() ? nullptr : found->second, &now});
        }
        for (const Column& before : m_pair.before->Columns)
            if (!m_paired.contains(&before)) result.push_back({&before, nullptr});
        return result;
    }

  private:
    void Pair(const Column& before, const Column& now) {
        m_beforeOf.emplace(&now, &before);
        m_paired.insert(&before);
    }

    const TablePair& m_pair;
    std::unordered_map<const Column*, const Column*> m_beforeOf;
    std::set<const Column*> m_paired;
};

bool IsKey(const Column& column) { return column.IsPrimaryKey || column.IsForeignKey; }

/// The interface of a value, told alike when it goes with the object and bears its name.
std::string InterfaceOf(const DescribedTable& table, const Column& column) {
    return EqualsIgnoreCase(column.Interface, table.ObjectName) ? "." : ToUpperAscii(column.Interface);
}

/// Interfaces of both sides that belong together: by name; where one is left on each side, these.
class InterfacePairs {
  public:
    explicit InterfacePairs(const TablePair& pair) : m_pair(pair) {
        std::set<std::string> before = Names(*pair.before);
        std::set<std::string> now;
        for (const std::string& name : Names(*pair.now))
            if (before.erase(name) == 0) now.insert(name);
        if (before.size() == 1 && now.size() == 1) m_renamed = {*before.begin(), *now.begin()};
        FindTrusted();
    }

    /// Whether both columns hold the value of one number, which says more than a position.
    bool HaveOneNumber(const Column& before, const Column& now) const {
        return AreComparable(before, now) && before.VID == now.VID &&
               !m_untrusted.contains(InterfaceOf(*m_pair.now, now));
    }

  private:
    static std::set<std::string> Names(const DescribedTable& table) {
        std::set<std::string> names;
        for (const Column& column : table.Columns)
            if (!IsKey(column) && !column.Interface.empty()) names.insert(InterfaceOf(table, column));
        return names;
    }

    bool AreComparable(const Column& before, const Column& now) const {
        if (before.VID <= 0 || now.VID <= 0 || IsKey(before) || IsKey(now)) return false;
        const std::string name = InterfaceOf(*m_pair.before, before);
        return (name == m_renamed.first ? m_renamed.second : name) == InterfaceOf(*m_pair.now, now);
    }

    /// Numbers that a definition did not give count its values from 1: a value put before others moves them.
    /// Where names say so, and one side counts, its numbers tell nothing.
    void FindTrusted() {
        for (const Column& now : m_pair.now->Columns) {
            const Column* before = FindColumn(*m_pair.before, now.FieldName);
            if (before == nullptr || !AreComparable(*before, now) || before->VID == now.VID) continue;
            const bool isGiven = before->VIDIsGiven || now.VIDIsGiven;
            if (!isGiven && (before->VIDIsPlace || now.VIDIsPlace))
                m_untrusted.insert(InterfaceOf(*m_pair.now, now));
        }
    }

    const TablePair& m_pair;
    std::pair<std::string, std::string> m_renamed;
    std::set<std::string> m_untrusted;
};

}  // namespace

ColumnMatcher::Targets::Targets(std::span<const DescribedTable> tables, bool folds) : m_folds(folds) {
    for (const DescribedTable& table : tables) {
        if (table.ObjectID != 0) m_byID.emplace(table.ObjectID, &table);
        m_byName.emplace(folds ? ToUpperAscii(table.Name) : table.Name, &table);
    }
}

const DescribedTable* ColumnMatcher::Targets::Of(const ForeignKey& key) const {
    if (key.FKObjectID != 0) {
        const auto found = m_byID.find(key.FKObjectID);
        return found == m_byID.end() ? nullptr : found->second;
    }
    const auto found = m_byName.find(m_folds ? ToUpperAscii(key.Table) : key.Table);
    return found == m_byName.end() ? nullptr : found->second;
}

ColumnMatcher::ColumnMatcher(std::span<const DescribedTable> before, std::span<const DescribedTable> now,
                             const TableMap& nowOf, bool foldsTableNames)
    : m_before(before, foldsTableNames), m_now(now, foldsTableNames), m_nowOf(nowOf) {}

/// Whether two columns refer to one object.
bool ColumnMatcher::ReferToOne(const TablePair& pair, const Column& before, const Column& now) const {
    const ForeignKey* from = FindForeignKey(*pair.before, before.FieldName);
    const ForeignKey* to = FindForeignKey(*pair.now, now.FieldName);
    if (from == nullptr || to == nullptr) return false;
    const DescribedTable* target = TargetBefore(*from);
    if (target == nullptr || TargetNow(*to) == nullptr)
        return target == TargetNow(*to) && EqualsIgnoreCase(before.FieldName, now.FieldName);
    const auto found = m_nowOf.find(target);
    return found != m_nowOf.end() && found->second == TargetNow(*to);
}

std::vector<ColumnPair> ColumnMatcher::Match(const TablePair& pair, std::vector<ColumnPair> given) const {
    if (pair.before == nullptr || pair.now == nullptr) return {};
    TableColumns columns(pair, std::move(given));
    const auto haveOneName = [](const Column& before, const Column& now) {
        return EqualsIgnoreCase(before.FieldName, now.FieldName);
    };
    const bool isNamesOnly = pair.before->ObjectID == 0;
    columns.PairWhere(
        [](const Column& before, const Column& now) { return before.IsPrimaryKey && now.IsPrimaryKey; });
    if (isNamesOnly) columns.PairWhere(haveOneName);
    columns.PairWhere([&](const Column& before, const Column& now) { return ReferToOne(pair, before, now); });
    const InterfacePairs interfaces(pair);
    columns.PairWhere(
        [&](const Column& before, const Column& now) { return interfaces.HaveOneNumber(before, now); });
    columns.PairWhere([&](const Column& before, const Column& now) {
        return !IsKey(before) && !IsKey(now) && haveOneName(before, now);
    });
    return columns.Result();
}

}  // namespace korvex::scriptgen
