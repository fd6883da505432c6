#include "scriptgen/migration/match_tables.h"

#include "automation/error.h"
#include "automation/text.h"
#include "scriptgen/migration/identity.h"

#include <algorithm>
#include <set>
#include <unordered_map>

namespace korvex::scriptgen {

using automation::EqualsIgnoreCase;
using automation::Error;
using automation::ToUpperAscii;

namespace {

using Tables = std::span<const DescribedTable>;

bool IsKey(const Column& column) { return column.IsPrimaryKey || column.IsForeignKey; }

/// Tables as far as identity goes: one object each, whose values are its columns and what holds children.
class TableIdentity {
  public:
    /// `namesOnly`: nothing but names is to tell them, as of a database that stands.
    TableIdentity(Tables tables, bool namesOnly, bool folds)
        : m_tables(tables), m_namesOnly(namesOnly), m_folds(folds) {
        for (std::size_t i = 0; i < tables.size(); ++i) {
            m_byName.emplace(Folded(tables[i].Name), i);
            if (tables[i].ObjectID != repository::NoObject) m_byID.emplace(tables[i].ObjectID, i);
            m_result.objects.push_back(
                {.name = namesOnly ? Folded(tables[i].Name) : ToUpperAscii(tables[i].ObjectName),
                 .guid = namesOnly ? "" : ToUpperAscii(tables[i].Guid)});
        }
        for (std::size_t i = 0; i < tables.size(); ++i)
            AddColumns(i);
        for (std::size_t i = 0; i < tables.size() && !namesOnly; ++i)
            for (const TablePlace& place : tables[i].Places)
                AddPlace(i, place);
    }

    const DefinitionIdentity& Result() const noexcept { return m_result; }
    /// Of a value; nullptr for one that holds a child.
    const Column* ColumnOf(std::size_t value) const { return m_columns[value]; }
    std::size_t PositionOf(const Column& column) const { return m_positions.at(&column); }
    std::size_t PositionOf(const DescribedTable& table) const {
        return static_cast<std::size_t>(&table - m_tables.data());
    }
    Tables All() const noexcept { return m_tables; }

  private:
    std::string Folded(const std::string& name) const { return FoldedName(name, m_folds); }

    std::optional<std::size_t> TargetOf(const DescribedTable& table, const Column& column) const {
        const ForeignKey* key = FindForeignKey(table, column.FieldName);
        if (key == nullptr) return std::nullopt;
        if (key->FKObjectID != repository::NoObject) {
            const auto found = m_byID.find(key->FKObjectID);
            return found == m_byID.end() ? std::nullopt : std::optional(found->second);
        }
        const auto found = m_byName.find(Folded(key->Table));
        return found == m_byName.end() ? std::nullopt : std::optional(found->second);
    }

    void AddColumns(std::size_t table) {
        for (const Column& column : m_tables[table].Columns) {
            const std::size_t position = m_result.values.size();
            m_positions.emplace(&column, position);
            const std::optional<std::size_t> target = TargetOf(m_tables[table], column);
            if (column.IsPrimaryKey)
                m_result.objects[table].keys.push_back(position);
            else if (target)
                m_result.objects[table].references.emplace_back(position, *target);
            const bool isNumbered = !m_namesOnly && !IsKey(column);
            InterfaceIdentity& interface_ = Interface(table, column.Interface);
            interface_.countsOnly = interface_.countsOnly || column.VIDIsPlace;
            AddValue(interface_, &column,
                     {.name = ToUpperAscii(column.FieldName),
                      .number = isNumbered ? column.VID : 0,
                      .isGiven = column.VIDIsGiven,
                      .isKey = !m_namesOnly && (column.IsPrimaryKey || target)});
        }
    }

    void AddPlace(std::size_t table, const TablePlace& place) {
        if (place.ParentID == repository::NoObject)
            m_result.roots.emplace_back(ToUpperAscii(place.Value), table);
        const auto parent = m_byID.find(place.ParentID);
        if (parent == m_byID.end()) return;
        if (place.Value.empty())
            m_result.objects[parent->second].element = table;
        else  // named so that no column bears its name
            AddValue(Interface(parent->second, place.Interface), nullptr,
                     {.name = "> " + ToUpperAscii(place.Value),
                      .number = place.VID,
                      .isGiven = place.VIDIsGiven,
                      .child = table});
    }

    /// Of that name of the table's object, the only one where names alone count.
    InterfaceIdentity& Interface(std::size_t table, const std::string& name) {
        ObjectIdentity& object = m_result.objects[table];
        const std::string folded = m_namesOnly ? object.name : ToUpperAscii(name);
        for (const std::size_t position : object.interfaces)
            if (m_result.interfaces[position].name == folded) return m_result.interfaces[position];
        object.interfaces.push_back(m_result.interfaces.size());
        return m_result.interfaces.emplace_back(InterfaceIdentity{.name = folded});
    }

    void AddValue(InterfaceIdentity& interface_, const Column* column, ValueIdentity value) {
        interface_.values.push_back(m_result.values.size());
        m_result.values.push_back(std::move(value));
        m_columns.push_back(column);
    }

    Tables m_tables;
    bool m_namesOnly, m_folds;
    std::unordered_map<std::string, std::size_t> m_byName;
    std::unordered_map<repository::ObjectId, std::size_t> m_byID;
    std::unordered_map<const Column*, std::size_t> m_positions;
    std::vector<const Column*> m_columns;
    DefinitionIdentity m_result;
};

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
        : m_namesOnly(!before.empty() &&
                      std::ranges::all_of(
                          before, [](const auto& table) { return table.ObjectID == repository::NoObject; })),
          m_before(before, m_namesOnly, folds),
          m_now(now, m_namesOnly, folds) {
        m_match.objects.resize(now.size());
        m_match.values.resize(m_now.Result().values.size());
        for (const NamedRename& rename : renames)
            Settle(rename);
        m_match = MatchDefinitions(m_before.Result(), m_now.Result(), m_match);
        for (const NamedRename& rename : renames)
            ExpectOneTable(rename);
    }

    std::vector<TablePlan> Plans() const {
        std::vector<TablePlan> plans;
        std::set<std::size_t> found;
        for (const DescribedTable& now : m_now.All()) {
            TablePlan& plan = plans.emplace_back();
            plan.now = &now;
            const std::optional<std::size_t> same = m_match.objects[m_now.PositionOf(now)];
            if (!same) continue;
            found.insert(*same);
            plan.before = &m_before.All()[*same];
            plan.columns = Columns(*plan.before, now);
        }
        for (const DescribedTable& before : m_before.All())
            if (!found.contains(m_before.PositionOf(before))) plans.emplace_back().before = &before;
        return plans;
    }

  private:
    /// The table that a person means: by its name, else by that of its object.
    static const DescribedTable& Named(Tables tables, const std::string& name, const NamedRename& rename,
                                       std::string_view when) {
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
        RefuseRename(rename,
                     std::string("there is no table ") + automation::Quoted(name) + std::string(when));
    }
    std::pair<const DescribedTable*, const DescribedTable*> TablesOf(const NamedRename& rename) const {
        return {&Named(m_before.All(), NamePair(rename.before).table, rename, " before"),
                &Named(m_now.All(), NamePair(rename.now).table, rename, " in the new definition")};
    }

    /// Takes down what a person said is the same.
    void Settle(const NamedRename& rename) {
        const std::string from = NamePair(rename.before).column;
        const std::string to = NamePair(rename.now).column;
        if (from.empty() != to.empty() || rename.before.empty() || rename.now.empty())
            RefuseRename(rename, "it takes Old=New for a table and Old.Column=New.Column for a column");
        const auto [old, recent] = TablesOf(rename);
        if (from.empty())
            return Add(m_match.objects, m_before.PositionOf(*old), m_now.PositionOf(*recent), rename,
                       "table");
        const auto find = [&](const DescribedTable& table, const std::string& name) -> const Column& {
            const Column* column = FindColumn(table, name);
            if (column == nullptr)
                RefuseRename(rename, table.Name + " has no column " + automation::Quoted(name));
            return *column;
        };
        Add(m_match.values, m_before.PositionOf(find(*old, from)), m_now.PositionOf(find(*recent, to)),
            rename, "column");
    }
    static void Add(IdentityMatch::Positions& pairs, std::size_t before, std::size_t now,
                    const NamedRename& rename, const std::string& noun) {
        if (pairs[now] || std::ranges::find(pairs, before) != pairs.end())
            RefuseRename(rename, "a " + noun + " cannot be renamed twice, nor two " + noun + "s to one");
        pairs[now] = before;
    }
    void ExpectOneTable(const NamedRename& rename) const {
        const auto [old, recent] = TablesOf(rename);
        if (m_match.objects[m_now.PositionOf(*recent)] != m_before.PositionOf(*old))
            RefuseRename(rename, "no value moves from one table to another");
    }

    std::vector<ColumnPlan> Columns(const DescribedTable& before, const DescribedTable& now) const {
        std::vector<ColumnPlan> result;
        std::set<const Column*> gone;
        for (const Column& column : before.Columns)
            gone.insert(&column);
        for (const Column& column : now.Columns) {
            const std::optional<std::size_t> same = m_match.values[m_now.PositionOf(column)];
            ColumnPlan& plan = result.emplace_back();
            plan.now = &column;
            if (same) plan.before = m_before.ColumnOf(*same);
            gone.erase(plan.before);
        }
        // A value that went to another interface of its object stays in its column.
        for (ColumnPlan& plan : result) {
            if (plan.before != nullptr || IsKey(*plan.now)) continue;
            const Column* same = FindColumn(before, plan.now->FieldName);
            if (same != nullptr && !IsKey(*same) && gone.erase(same) == 1) plan.before = same;
        }
        for (const Column& column : before.Columns)
            if (gone.contains(&column)) result.emplace_back().before = &column;
        return result;
    }

    bool m_namesOnly;
    TableIdentity m_before, m_now;
    IdentityMatch m_match;
};

}  // namespace

std::vector<TablePlan> MatchTables(Tables before, Tables now, std::span<const NamedRename> renames,
                                   bool foldsTableNames) {
    return Matcher(before, now, renames, foldsTableNames).Plans();
}

}  // namespace korvex::scriptgen
