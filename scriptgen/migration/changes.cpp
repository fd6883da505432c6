#include "scriptgen/migration/changes.h"

#include "automation/text.h"
#include "scriptgen/script_text.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <utility>

namespace korvex::scriptgen {

using automation::EqualsIgnoreCase;

namespace {

const ColumnPlan* FindPlan(const TablePlan& plan, std::string_view name, const Column* ColumnPlan::*side) {
    const auto found = std::ranges::find_if(plan.columns, [&](const ColumnPlan& column) {
        return column.*side != nullptr && EqualsIgnoreCase((column.*side)->FieldName, name);
    });
    return found == plan.columns.end() ? nullptr : &*found;
}

std::string Reference(const ForeignKey& key) { return key.Table + " (" + key.KeyField + ")"; }

std::string Shown(const std::string& literal) { return literal.empty() ? "Null" : literal; }

/// Engines tell numbers in other forms than scripts write them, and points in time with fractions.
bool IsSameLiteral(std::string_view a, std::string_view b) {
    if (a == b) return true;
    const auto bare = [](std::string_view text) {
        if (text.size() > 1 && text.front() == '\'') text = text.substr(1, text.size() - 2);
        if (text.ends_with(".000") && text.find(':') != std::string_view::npos) text.remove_suffix(4);
        return text;
    };
    if (bare(a) == bare(b)) return !a.empty() && !b.empty();
    const auto number = [&](std::string_view text) {
        const std::string_view digits = bare(text);
        double value = 0;
        const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
        const bool isNumber = failure == std::errc() && end == digits.data() + digits.size();
        return isNumber ? std::optional(value) : std::nullopt;
    };
    const std::optional<double> value = number(a);
    return value && value == number(b);
}

/// The columns of an index by their names on the other side; empty when one is not there.
std::vector<std::string> Translated(const TablePlan& plan, const std::vector<std::string>& columns,
                                    const Column* ColumnPlan::*from, const Column* ColumnPlan::*to) {
    std::vector<std::string> names;
    for (const std::string& name : columns) {
        const ColumnPlan* column = FindPlan(plan, name, from);
        if (column == nullptr || column->*to == nullptr) return {};
        names.push_back((column->*to)->FieldName);
    }
    return names;
}

}  // namespace

const ColumnPlan* ColumnBefore(const TablePlan& plan, std::string_view name) {
    return FindPlan(plan, name, &ColumnPlan::before);
}
const ColumnPlan* ColumnNow(const TablePlan& plan, std::string_view name) {
    return FindPlan(plan, name, &ColumnPlan::now);
}

std::string ChangeText(const TableChange& change) {
    constexpr std::string_view Nouns[] = {"", "", "the primary key", "the foreign key", "the index"};
    std::string text = change.table;
    if (!change.column.empty()) Append(text, ".", change.column);
    const std::string_view noun = Nouns[static_cast<std::size_t>(change.thing)];
    Append(text, noun.empty() ? "" : ": ", noun);
    switch (change.kind) {
        case ChangeKind::Added:
            Append(text, " is added");
            if (!change.now.empty()) Append(text, ", ", change.now);
            break;
        case ChangeKind::Renamed:
            Append(text, " is renamed from ", change.before);
            break;
        case ChangeKind::Changed:
            Append(text, ": ", change.now, " in place of ", change.before);
            if (!change.reason.empty()) Append(text, " (", change.reason, ")");
            return text;
        case ChangeKind::Dropped:
            Append(text, " is dropped");
            break;
    }
    if (!change.reason.empty()) Append(text, ": ", change.reason);
    return text;
}

Comparison::Comparison(std::span<const DescribedTable> before, std::span<const DescribedTable> now,
                       const EngineTraits& traits, const DiffOptions& options)
    : m_traits(traits) {
    for (TablePlan& plan : MatchTables(before, now, options.renames, traits.foldsTableNames)) {
        if (plan.now == nullptr && (plan.before->ObjectID == repository::NoObject ||
                                    options.kept.contains(automation::ToUpperAscii(plan.before->Name))))
            continue;
        Mark(plan);
        m_tables.push_back(std::move(plan));
    }
    for (std::size_t i = 0; i < m_tables.size(); ++i) {
        if (m_tables[i].before != nullptr)
            m_before.emplace(FoldedName(m_tables[i].before->Name, traits.foldsTableNames), i);
        if (m_tables[i].now != nullptr)
            m_now.emplace(FoldedName(m_tables[i].now->Name, traits.foldsTableNames), i);
    }
    MarkMovedValues();
    for (const TablePlan& plan : m_tables)
        List(plan);
}

bool Comparison::Has(ChangeClass cls) const {
    return std::ranges::find(m_changes, cls, &TableChange::cls) != m_changes.end();
}

std::vector<std::string> Comparison::Losses(const TablePlan& table, const ColumnPlan& column) const {
    const std::string& name = (column.now != nullptr ? column.now : column.before)->FieldName;
    std::vector<std::string> texts;
    for (const TableChange& change : m_changes)
        if (change.cls != ChangeClass::Safe && change.table == table.now->Name && change.column == name)
            texts.push_back(ChangeText(change));
    return texts;
}

const TablePlan* Comparison::Find(const Index& index, const std::string& name) const {
    const auto found = index.find(FoldedName(name, m_traits.foldsTableNames));
    return found == index.end() ? nullptr : &m_tables[found->second];
}

void Comparison::Mark(TablePlan& plan) const {
    if (!plan.Stays()) return;
    const bool folds = m_traits.foldsTableNames;
    plan.isRenamed = FoldedName(plan.before->Name, folds) != FoldedName(plan.now->Name, folds);
    for (ColumnPlan& column : plan.columns) {
        if (column.before == nullptr || column.now == nullptr) continue;
        const Column& before = *column.before;
        const Column& now = *column.now;
        column.isRenamed = !EqualsIgnoreCase(before.FieldName, now.FieldName);
        column.isRetyped = !EqualsIgnoreCase(before.TypeSize, now.TypeSize);
        column.isNumberedAnew = before.IsAutoNumber != now.IsAutoNumber;
        column.isDefaulted = !IsSameLiteral(before.DefaultText, now.DefaultText);
        if (column.isRetyped) column.conversion = ConversionOf(before, now);
        if (column.isNumberedAnew && !m_traits.numbersAnew)
            column.conversion = {ChangeClass::Blocked, "the engine numbers a new column only"};
        plan.hasRenamedColumns = plan.hasRenamedColumns || column.isRenamed;
    }
}

Conversion Comparison::ConversionOf(const Column& before, const Column& now) const {
    Conversion conversion = ConversionBetween(ColumnTypeOf(before.TypeSize, m_traits.floatIsSingle),
                                              ColumnTypeOf(now.TypeSize, m_traits.floatIsSingle));
    if (conversion.isPossible && !m_traits.fixedTypes.empty() &&
        before.TypeSize.starts_with(m_traits.fixedTypes))
        return {ChangeClass::Blocked, "the engine turns no " + before.TypeSize + " into anything else"};
    return conversion;
}

bool Comparison::IsSameKey(const TablePlan& table, const ForeignKey& before, const ForeignKey& now) const {
    if (!table.Stays() || !before.IsInRun || !now.IsInRun) return false;
    const ColumnPlan* column = ColumnBefore(table, before.FieldName);
    const TablePlan* target = TargetBefore(before);
    if (column == nullptr || column->now == nullptr || column->isRetyped || target == nullptr ||
        target != TargetNow(now) || !EqualsIgnoreCase(column->now->FieldName, now.FieldName))
        return false;
    const ColumnPlan* key = ColumnBefore(*target, before.KeyField);
    return key != nullptr && key->now != nullptr && !key->isRetyped && !key->isNumberedAnew &&
           EqualsIgnoreCase(key->now->FieldName, now.KeyField);
}

const ForeignKey* Comparison::SameKeyNow(const TablePlan& table, const ForeignKey& before) const {
    if (!table.Stays()) return nullptr;
    const auto found = std::ranges::find_if(
        table.now->ForeignKeys, [&](const ForeignKey& now) { return IsSameKey(table, before, now); });
    return found == table.now->ForeignKeys.end() ? nullptr : &*found;
}

const ForeignKey* Comparison::SameKeyBefore(const TablePlan& table, const ForeignKey& now) const {
    if (!table.Stays()) return nullptr;
    const auto found = std::ranges::find_if(
        table.before->ForeignKeys, [&](const ForeignKey& before) { return IsSameKey(table, before, now); });
    return found == table.before->ForeignKeys.end() ? nullptr : &*found;
}

/// A value is itself within its interface; an interface may have changed its object.
void Comparison::MarkMovedValues() {
    const auto nameOf = [](const Column& column) {
        return std::pair(column.Interface, automation::ToUpperAscii(column.FieldName));
    };
    std::map<std::pair<std::string, std::string>, const TablePlan*> added;
    for (const TablePlan& plan : m_tables) {
        if (plan.now == nullptr) continue;
        for (const Column& column : plan.now->Columns) {
            const ColumnPlan* place = ColumnNow(plan, column.FieldName);
            const bool isNew = place == nullptr || place->before == nullptr;
            if (isNew && !column.Interface.empty()) added.emplace(nameOf(column), &plan);
        }
    }
    for (TablePlan& plan : m_tables) {
        for (ColumnPlan& column : plan.columns) {
            if (column.now != nullptr || column.before == nullptr) continue;
            column.conversion = {ChangeClass::Destructive, "its values are lost", false};
            const auto found = added.find(nameOf(*column.before));
            if (found == added.end() || found->second == &plan) continue;
            column.conversion = {ChangeClass::Blocked,
                                 "it moves to " + found->second->now->Name +
                                     ", which takes no values along: carry them over first",
                                 false};
        }
    }
}

void Comparison::List(const TablePlan& plan) {
    if (plan.before == nullptr) {
        m_changes.push_back({.kind = ChangeKind::Added, .table = plan.now->Name});
        return;
    }
    if (plan.now == nullptr) {
        m_changes.push_back({.kind = ChangeKind::Dropped,
                             .cls = ChangeClass::Destructive,
                             .table = plan.before->Name,
                             .reason = "its records are lost"});
        return;
    }
    if (plan.isRenamed)
        m_changes.push_back(
            {.kind = ChangeKind::Renamed, .table = plan.now->Name, .before = plan.before->Name});
    for (const ColumnPlan& column : plan.columns)
        ListColumn(plan, column);
    ListKeys(plan);
    ListIndexes(plan);
}

void Comparison::ListColumn(const TablePlan& plan, const ColumnPlan& column) {
    const Column* named = column.now != nullptr ? column.now : column.before;
    const auto add = [&](ChangeKind kind, const std::string& before, const std::string& now,
                         ChangeClass cls = ChangeClass::Safe, const std::string& reason = {}) {
        m_changes.push_back(
            {kind, ChangedThing::Column, cls, plan.now->Name, named->FieldName, before, now, reason});
    };
    if (column.before == nullptr) {
        const ForeignKey* key = FindForeignKey(*plan.now, column.now->FieldName);
        return add(ChangeKind::Added, "",
                   column.now->TypeSize + (key != nullptr ? " referring to " + key->Table : ""));
    }
    if (column.now == nullptr)
        return add(ChangeKind::Dropped, "", "", column.conversion.cls, column.conversion.reason);
    if (column.isRenamed) add(ChangeKind::Renamed, column.before->FieldName, column.now->FieldName);
    if (column.isRetyped)
        add(ChangeKind::Changed, column.before->TypeSize, column.now->TypeSize, column.conversion.cls,
            column.conversion.reason);
    if (column.isDefaulted)
        add(ChangeKind::Changed, "default " + Shown(column.before->DefaultText),
            "default " + Shown(column.now->DefaultText));
    if (column.isNumberedAnew)
        add(ChangeKind::Changed, column.before->IsAutoNumber ? "numbered" : "not numbered",
            column.now->IsAutoNumber ? "numbered" : "not numbered", column.conversion.cls,
            column.conversion.reason);
}

void Comparison::ListKeys(const TablePlan& plan) {
    const auto add = [&](ChangeKind kind, ChangedThing thing, const std::string& column,
                         const std::string& before, const std::string& now) {
        m_changes.push_back({kind, thing, ChangeClass::Safe, plan.now->Name, column, before, now, ""});
    };
    if (const std::vector<std::string> key =
            Translated(plan, plan.before->PrimaryKey, &ColumnPlan::before, &ColumnPlan::now);
        !std::ranges::equal(key, plan.now->PrimaryKey, EqualsIgnoreCase))
        add(ChangeKind::Changed, ChangedThing::Key, "", "(" + Joined(plan.before->PrimaryKey) + ")",
            "(" + Joined(plan.now->PrimaryKey) + ")");
    for (const ForeignKey& key : plan.before->ForeignKeys) {
        const ColumnPlan* column = ColumnBefore(plan, key.FieldName);
        if (!key.IsInRun || column == nullptr || column->now == nullptr || SameKeyNow(plan, key) != nullptr)
            continue;
        const ForeignKey* now = FindForeignKey(*plan.now, column->now->FieldName);
        const bool stays = now != nullptr && now->IsInRun;
        // One that is made anew for a change of its column is no change of its own.
        if (stays && TargetBefore(key) == TargetNow(*now)) continue;
        add(stays ? ChangeKind::Changed : ChangeKind::Dropped, ChangedThing::ForeignKey,
            column->now->FieldName, Reference(key), stays ? Reference(*now) : "");
    }
    for (const ForeignKey& key : plan.now->ForeignKeys) {
        const ColumnPlan* column = ColumnNow(plan, key.FieldName);
        if (!key.IsInRun || column == nullptr || column->before == nullptr) continue;
        const ForeignKey* before = FindForeignKey(*plan.before, column->before->FieldName);
        if (before == nullptr || !before->IsInRun)
            add(ChangeKind::Added, ChangedThing::ForeignKey, key.FieldName, "", Reference(key));
    }
}

/// Those of new columns come with them, those of dropped ones go.
void Comparison::ListIndexes(const TablePlan& plan) {
    for (const TableIndex& index : plan.now->Indexes) {
        const auto columns = Translated(plan, index.Columns, &ColumnPlan::now, &ColumnPlan::before);
        const bool isThere = std::ranges::any_of(plan.before->Indexes, [&](const TableIndex& before) {
            return std::ranges::equal(before.Columns, columns, EqualsIgnoreCase);
        });
        if (!columns.empty() && !isThere)
            m_changes.push_back({.thing = ChangedThing::Index,
                                 .table = plan.now->Name,
                                 .column = Joined(index.Columns),
                                 .now = index.Name});
    }
}

}  // namespace korvex::scriptgen
