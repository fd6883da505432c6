#include "scriptgen/migration/match_tables.h"

#include "automation/error.h"
#include "automation/text.h"
#include "scriptgen/migration/match_columns.h"

#include <algorithm>
#include <map>
#include <unordered_map>

namespace korvex::scriptgen {

using automation::EqualsIgnoreCase;
using automation::Error;
using automation::ToUpperAscii;

namespace {

using Tables = std::span<const DescribedTable>;

[[noreturn]] void RefuseRename(const NamedRename& rename, const std::string& why) {
    throw Error(automation::InvalidProcedureCall,
                "--rename " + rename.before + "=" + rename.now + ": " + why + ".");
}

/// "table.column"; the column is empty for a table alone.
struct NamePair {
    explicit NamePair(const std::string& text)
        : table(text.substr(0, text.find('.'))),
          column(text.find('.') == std::string::npos ? "" : text.substr(text.find('.') + 1)) {}

    std::string table;
    std::string column;
};

class Matcher {
  public:
    Matcher(Tables before, Tables now, std::span<const NamedRename> renames, bool folds)
        : m_before(before), m_now(now), m_renames(renames), m_folds(folds) {}

    std::vector<TablePair> Match() {
        for (const NamedRename& rename : m_renames)
            MatchNamed(rename);
        MatchUnique(&DescribedTable::Guid);
        MatchUnique(&DescribedTable::ObjectName);
        MatchTableNames();
        MatchPlaces();
        std::vector<TablePair> pairs;
        for (const DescribedTable& table : m_now)
            pairs.push_back({m_beforeOf.contains(&table) ? m_beforeOf.at(&table) : nullptr, &table, {}});
        for (const DescribedTable& table : m_before)
            if (!m_nowOf.contains(&table)) pairs.push_back({&table, nullptr, {}});
        const ColumnMatcher columns(m_before, m_now, m_nowOf, m_folds);
        for (TablePair& pair : pairs)
            pair.columns = columns.Match(pair, RenamesOf(pair));
        return pairs;
    }

  private:
    void Pair(const DescribedTable& before, const DescribedTable& now) {
        m_nowOf.emplace(&before, &now);
        m_beforeOf.emplace(&now, &before);
    }

    /// The table that a person means: by its name, else by that of its object.
    const DescribedTable& Named(Tables tables, const std::string& name, const NamedRename& rename) const {
        for (const auto member : {&DescribedTable::Name, &DescribedTable::ObjectName}) {
            const auto isNamed = [&](const DescribedTable& table) {
                return EqualsIgnoreCase(table.*member, name);
            };
            const auto found = std::ranges::find_if(tables, isNamed);
            if (found == tables.end()) continue;
            if (std::ranges::count_if(tables, isNamed) > 1)
                RefuseRename(rename, "several tables are meant by " + automation::Quoted(name));
            return *found;
        }
        RefuseRename(rename, std::string("there is no table ") + automation::Quoted(name) +
                                 (tables.data() == m_before.data() ? " before" : " in the new definition"));
    }

    void MatchNamed(const NamedRename& rename) {
        const NamePair from(rename.before);
        const NamePair to(rename.now);
        if (from.column.empty() != to.column.empty() || from.table.empty() || to.table.empty())
            RefuseRename(rename, "it takes Old=New for a table and Old.Column=New.Column for a column");
        const DescribedTable& before = Named(m_before, from.table, rename);
        const DescribedTable& now = Named(m_now, to.table, rename);
        if (!from.column.empty()) return;
        if (m_nowOf.contains(&before) || m_beforeOf.contains(&now))
            RefuseRename(rename, "a table cannot be renamed twice, nor two tables to one");
        Pair(before, now);
    }

    /// Pairs the tables by a text that one table of each side has.
    void MatchUnique(std::string DescribedTable::*member) {
        const auto index = [&](Tables tables) {
            std::map<std::string, std::vector<const DescribedTable*>> byText;
            for (const DescribedTable& table : tables)
                if (!(table.*member).empty()) byText[ToUpperAscii(table.*member)].push_back(&table);
            return byText;
        };
        const auto before = index(m_before);
        for (const auto& [text, tables] : index(m_now)) {
            const auto found = before.find(text);
            if (found == before.end() || found->second.size() > 1 || tables.size() > 1) continue;
            PairIfFree(*found->second.front(), *tables.front());
        }
    }

    bool PairIfFree(const DescribedTable& before, const DescribedTable& now) {
        if (m_nowOf.contains(&before) || m_beforeOf.contains(&now)) return false;
        Pair(before, now);
        return true;
    }

    /// Of a database that stands, names are all that is known.
    void MatchTableNames() {
        std::unordered_map<std::string, const DescribedTable*> byName;
        const auto folded = [&](const std::string& name) { return m_folds ? ToUpperAscii(name) : name; };
        for (const DescribedTable& table : m_before)
            if (table.ObjectID == 0) byName.emplace(folded(table.Name), &table);
        if (byName.empty()) return;
        for (const DescribedTable& table : m_now)
            if (const auto found = byName.find(folded(table.Name)); found != byName.end())
                PairIfFree(*found->second, table);
    }

    /// From the top down: the place of an object begins with who its parent is.
    void MatchPlaces() {
        std::unordered_map<std::int32_t, const DescribedTable*> beforeByID;
        for (const DescribedTable& table : m_before)
            beforeByID.emplace(table.ObjectID, &table);
        for (bool isNew = true; isNew;) {
            isNew = false;
            std::unordered_map<std::int32_t, std::int32_t> parents = {{0, 0}};
            for (const auto& [before, now] : m_nowOf)
                parents.emplace(before->ObjectID, now->ObjectID);
            for (const DescribedTable& table : m_before) {
                if (m_nowOf.contains(&table)) continue;
                for (const DescribedTable& now : m_now)
                    if (!m_beforeOf.contains(&now) && HaveOnePlace(table, now, parents) &&
                        PairIfFree(table, now)) {
                        isNew = true;
                        break;
                    }
            }
        }
    }

    static bool HaveOnePlace(const DescribedTable& before, const DescribedTable& now,
                             const std::unordered_map<std::int32_t, std::int32_t>& parents) {
        return std::ranges::any_of(before.Places, [&](const TablePlace& old) {
            const auto parent = parents.find(old.ParentID);
            return parent != parents.end() && std::ranges::any_of(now.Places, [&](const TablePlace& place) {
                       return place.ParentID == parent->second && (EqualsIgnoreCase(place.Value, old.Value) ||
                                                                   (place.VID > 0 && place.VID == old.VID));
                   });
        });
    }

    /// Names of columns, before and now, that a person gave for a pair of tables.
    std::vector<ColumnPair> RenamesOf(const TablePair& pair) const {
        std::vector<ColumnPair> columns;
        for (const NamedRename& rename : m_renames) {
            const NamePair from(rename.before);
            const NamePair to(rename.now);
            if (from.column.empty()) continue;
            const DescribedTable* before = &Named(m_before, from.table, rename);
            const DescribedTable* now = &Named(m_now, to.table, rename);
            if (before != pair.before && now != pair.now) continue;
            if (before != pair.before || now != pair.now)
                RefuseRename(rename, "no value moves from one table to another");
            const auto find = [&](const DescribedTable& table, const std::string& name) {
                const auto column = FindColumn(table, name);
                if (column == nullptr)
                    RefuseRename(rename, table.Name + " has no column " + automation::Quoted(name));
                return column;
            };
            columns.push_back({find(*before, from.column), find(*now, to.column)});
            for (std::size_t i = 0; i + 1 < columns.size(); ++i)
                if (columns[i].before == columns.back().before || columns[i].now == columns.back().now)
                    RefuseRename(rename, "a column cannot be renamed twice, nor two columns to one");
        }
        return columns;
    }

    Tables m_before;
    Tables m_now;
    std::span<const NamedRename> m_renames;
    bool m_folds;
    TableMap m_nowOf;
    TableMap m_beforeOf;
};

}  // namespace

std::vector<TablePair> MatchTables(std::span<const DescribedTable> before,
                                   std::span<const DescribedTable> now, std::span<const NamedRename> renames,
                                   bool foldsTableNames) {
    return Matcher(before, now, renames, foldsTableNames).Match();
}

}  // namespace korvex::scriptgen
