#include "surface/target_tables.h"

#include "automation/error.h"
#include "automation/text.h"
#include "repository/catalog.h"
#include "repository/related_catalog.h"
#include "scriptgen/dialect.h"
#include "scriptgen/migration/compare_tables.h"
#include "scriptgen/migration/database_update.h"
#include "scriptgen/migration/live_tables.h"
#include "scriptgen/migration/table_rebuild.h"
#include "scriptgen/script_text.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <span>
#include <string_view>
#include <tuple>
#include <utility>

namespace korvex {

using automation::Error;
using scriptgen::DescribedTable;
using scriptgen::EngineDialect;
using scriptgen::EngineStatement;
using scriptgen::EngineThing;
using scriptgen::TableAspect;
using scriptgen::TableDifference;

namespace {

using Connection = std::shared_ptr<ado::Connection>;

/// Counts what statements make or remove.
class Tally {
  public:
    void Add(EngineThing thing, std::size_t count = 1) { m_counts[static_cast<std::size_t>(thing)] += count; }

    TargetReport Report(const EngineDialect& dialect, const char* deed,
                        std::vector<std::string> notes) const {
        const std::string engine(dialect.Name());
        return {{Text() + " " + deed + " (" + engine + ")"},
                std::move(notes),
                engine,
                {m_counts[0], m_counts[1], m_counts[2], m_counts[3]}};
    }

    /// "2 tables, 1 index and 3 foreign keys"; "nothing" for none.
    std::string Text() const {
        constexpr std::pair<const char*, const char*> Nouns[] = {{"table", "tables"},
                                                                 {"index", "indexes"},
                                                                 {"trigger", "triggers"},
                                                                 {"foreign key", "foreign keys"}};
        std::vector<std::string> parts;
        for (std::size_t i = 0; i < m_counts.size(); ++i) {
            if (m_counts[i] > 0)
                parts.push_back(std::to_string(m_counts[i]) + " " +
                                (m_counts[i] == 1 ? Nouns[i].first : Nouns[i].second));
        }
        if (parts.empty()) return "nothing";
        const std::string last = parts.back();
        parts.pop_back();
        return parts.empty() ? last : scriptgen::Joined(parts) + " and " + last;
    }

  private:
    std::array<std::size_t, 4> m_counts{};
};

/// What is to be done, in this order.
struct Plan {
    std::vector<DescribedTable> rebuilds;  ///< tables to be made anew, as they will be
    std::vector<const EngineStatement*> statements;
    std::size_t inlineKeys = 0;  ///< foreign keys that come with their tables, or with rebuilds
};

/// Runs a plan; what it made, or dropped.
Tally Run(const Plan& plan, const Connection& connection, const EngineDialect& dialect) {
    Tally done;
    const auto runAll = [&] {
        for (const DescribedTable& table : plan.rebuilds)
            scriptgen::RebuildTable(*connection, table);
        const EngineStatement* previous = nullptr;
        for (const EngineStatement* statement : plan.statements) {
            connection->Execute(statement->text);
            // A trigger and its function are one thing.
            const bool isSame = previous != nullptr && previous->thing == statement->thing &&
                                previous->table == statement->table && previous->name == statement->name;
            if (!isSame) done.Add(statement->thing);
            previous = statement;
        }
    };
    scriptgen::ChangeTables(connection, dialect, !plan.rebuilds.empty(), runAll, [&] {
        return "Done before that, and kept: " + done.Text() + ". The same command goes on from there.";
    });
    done.Add(EngineThing::ForeignKey, plan.inlineKeys);
    return done;
}

/// What is not there, by table, thing and name.
class MissingThings {
  public:
    explicit MissingThings(std::span<const TableDifference> differences) {
        for (const TableDifference& difference : differences) {
            if (!difference.missing) continue;
            const bool isTable = *difference.missing == EngineThing::Table;
            m_things.emplace(difference.table, *difference.missing, isTable ? "" : difference.name);
        }
    }
    bool Holds(const std::string& table, EngineThing thing = EngineThing::Table,
               const std::string& name = {}) const {
        return m_things.contains({table, EngineThing::Table, ""}) || m_things.contains({table, thing, name});
    }

  private:
    std::set<std::tuple<std::string, EngineThing, std::string>> m_things;
};

/// The dialect of the engine behind a connection, which must be one whose catalogue can be read.
const EngineDialect& DialectBehind(ado::Connection& connection) {
    const std::string engine = scriptgen::EngineBehind(connection);
    for (const EngineDialect* dialect : scriptgen::AllEngineDialects())
        if (dialect->Name() == engine) return *dialect;
    throw Error(ado::adErrFeatureNotAvailable,
                "The tables of this server cannot be read: run the scripts of korvex script --dialect " +
                    engine + " there.");
}

std::string Listed(std::span<const TableDifference> differences) {
    std::string text;
    for (const TableDifference& difference : differences)
        if (!difference.missing) text += (text.empty() ? "" : "; ") + difference.text;
    return text;
}

/// The references that a table of the embedded engine shall have: those that it has and those of `table`, but
/// for what `goes`. What depends on the table comes again.
template <class Goes>
DescribedTable RebuildOf(DescribedTable table, const DescribedTable& live, Goes goes) {
    table.Dependents = live.Dependents;
    for (scriptgen::ForeignKey& key : table.ForeignKeys) {
        const scriptgen::ForeignKey* kept = scriptgen::FindForeignKey(live, key.FieldName);
        if (!key.IsInRun && kept != nullptr) {
            key.IsInRun = true;
            key.Table = kept->Table;
            key.KeyField = kept->KeyField;
        }
        if (goes(key)) key.IsInRun = false;
    }
    return table;
}

std::size_t KeysInRun(const DescribedTable& table) {
    return static_cast<std::size_t>(
        std::ranges::count_if(table.ForeignKeys, [](const auto& key) { return key.IsInRun; }));
}

/// Whether the types that are other than wanted are those of version 0.1, which used the script for SQL
/// Server.
bool IsMadeByFirstVersion(std::span<const TableDifference> differences,
                          std::span<const DescribedTable> wanted, std::span<const DescribedTable> live,
                          bool folds) {
    bool hasTypes = false;
    for (const TableDifference& difference : differences) {
        if (difference.aspect != TableAspect::Type) continue;
        const auto columnIn = [&](std::span<const DescribedTable> tables) -> const scriptgen::Column& {
            return *scriptgen::FindColumn(*scriptgen::FindTable(tables, difference.table, folds),
                                          difference.name);
        };
        DescribedTable first;
        first.Name = difference.table;
        first.Columns = {columnIn(wanted)};
        scriptgen::SqlServerDialect().SetTypes(first);
        if (!automation::EqualsIgnoreCase(first.Columns.front().TypeSize, columnIn(live).TypeSize))
            return false;
        hasTypes = true;
    }
    return hasTypes;
}

/// Plans how tables go, with what refers to them.
class DropPlanner {
  public:
    /// `used`: tables that stay, in capitals, each with the definition that uses it.
    DropPlanner(const EngineDialect& dialect, std::span<const DescribedTable> tables,
                std::span<const DescribedTable> live, const std::map<std::string, std::string>& used)
        : m_dialect(dialect),
          m_live(live),
          m_tables(dialect.Tables(tables)),
          m_scripts(dialect.Write(tables)) {
        for (const DescribedTable& table : tables) {
            const auto user = used.find(automation::ToUpperAscii(table.Name));
            if (user == used.end())
                m_going.insert(automation::ToUpperAscii(table.Name));
            else if (Live(table.Name) != nullptr)
                m_notes.push_back(table.Name + " stays: the definition " + user->second + " uses it.");
        }
    }

    /// What it points to lives as long as the planner.
    Plan Make() const {
        Plan plan;
        if (m_dialect.AltersForeignKeys()) {
            for (const EngineStatement& statement : m_scripts.dropKeys)
                if (HasKeyToDrop(statement)) plan.statements.push_back(&statement);
        } else {
            for (const DescribedTable& table : m_tables)
                if (!Goes(table.Name)) AddRebuild(plan, table);
        }
        for (const EngineStatement& statement : m_scripts.drop)
            if (Goes(statement.table) && Live(statement.table) != nullptr)
                plan.statements.push_back(&statement);
        return plan;
    }
    const std::vector<std::string>& Notes() const noexcept { return m_notes; }
    std::vector<std::string> Tables() const {
        std::vector<std::string> names;
        for (const DescribedTable& table : m_tables)
            if (Goes(table.Name) && Live(table.Name) != nullptr) names.push_back(table.Name);
        return names;
    }

  private:
    bool Goes(const std::string& table) const { return m_going.contains(automation::ToUpperAscii(table)); }
    const DescribedTable* Live(const std::string& table) const {
        return scriptgen::FindTable(m_live, table, m_dialect.FoldsTableNames());
    }

    bool HasKeyToDrop(const EngineStatement& statement) const {
        const DescribedTable* live = Live(statement.table);
        if (live == nullptr) return false;
        const scriptgen::ForeignKey* key = scriptgen::FindForeignKey(*live, statement.name);
        return key != nullptr && (Goes(statement.table) || Goes(key->Table));
    }

    /// A table that stays must not refer to one that is gone: the engine would refuse every record of it.
    void AddRebuild(Plan& plan, const DescribedTable& table) const {
        const DescribedTable* live = Live(table.Name);
        const auto goes = [this](const scriptgen::ForeignKey& key) { return Goes(key.Table); };
        if (live == nullptr || std::ranges::none_of(live->ForeignKeys, goes)) return;
        const std::string others = Listed(
            scriptgen::CompareTables(std::span(&table, 1), std::span(live, 1), m_dialect.FoldsTableNames()));
        if (!others.empty()) {
            throw Error(automation::InvalidProcedureCall,
                        table.Name +
                            " stays, refers to tables that would go, and differs from the definition: " +
                            others + ". Nothing was done.");
        }
        plan.rebuilds.push_back(RebuildOf(table, *live, goes));
    }

    const EngineDialect& m_dialect;
    std::span<const DescribedTable> m_live;
    std::vector<DescribedTable> m_tables;
    scriptgen::EngineScripts m_scripts;
    std::set<std::string> m_going;  ///< in capitals
    std::vector<std::string> m_notes;
};

}  // namespace

struct TargetTables::Impl {
    Impl(const Platform& platform, const std::string& FileName, const std::string& storageName,
         const std::string& sFKPrefix)
        : storage(storageName), prefix(sFKPrefix), catalog(ReadCatalog(platform, FileName)) {
        repository::RelatedCatalog related(catalog);
        related.RelateAmongOthers(storage, prefix);
        tables = scriptgen::DescribeTables(related, storage);
    }

    static repository::Catalog ReadCatalog(const Platform& platform, const std::string& FileName) {
        repository::Repository source(platform);
        source.OpenRepository(FileName);
        repository::Catalog rows = repository::Catalog::Read(source.Open());
        source.Close();
        return rows;
    }

    void ExpectTakenBy(const EngineDialect& dialect) const;
    std::map<std::string, std::string> UsedElsewhere(std::span<const DescribedTable> live, bool folds) const;
    Plan PlanCreate(const EngineDialect& dialect, const scriptgen::EngineScripts& scripts,
                    ado::Connection& connection) const;

    std::string storage;
    std::string prefix;
    repository::Catalog catalog;
    std::vector<DescribedTable> tables;
};

void TargetTables::Impl::ExpectTakenBy(const EngineDialect& dialect) const {
    const std::vector<std::string> problems = dialect.Problems(tables);
    if (problems.empty()) return;
    throw Error(automation::InvalidProcedureCall,
                std::string(dialect.Name()) + " does not take the definition: " +
                    scriptgen::Joined(problems, "; ") + ". Nothing was done.");
}

/// Tables of other definitions, each with the storage name of one that uses it. A definition of whose own
/// tables none is there has not been made, or is gone already.
std::map<std::string, std::string> TargetTables::Impl::UsedElsewhere(std::span<const DescribedTable> live,
                                                                     bool folds) const {
    std::map<std::string, std::string> used;
    if (storage.empty()) return used;
    std::set<std::string> seen = {storage};
    for (const repository::DataDefRow& definition : catalog.DataDefs()) {
        if (!seen.insert(definition.Storage).second) continue;
        const std::vector<DescribedTable> others =
            scriptgen::DescribeDefinition(catalog, definition.Storage, prefix);
        std::size_t own = 0;
        std::size_t there = 0;
        for (const DescribedTable& table : others) {
            if (scriptgen::FindTable(tables, table.Name, true) != nullptr) continue;
            ++own;
            if (scriptgen::FindTable(live, table.Name, folds) != nullptr) ++there;
        }
        if (own > 0 && there == 0) continue;
        for (const DescribedTable& table : others)
            used.try_emplace(automation::ToUpperAscii(table.Name), definition.Storage);
    }
    return used;
}

Plan TargetTables::Impl::PlanCreate(const EngineDialect& dialect, const scriptgen::EngineScripts& scripts,
                                    ado::Connection& connection) const {
    const bool folds = dialect.FoldsTableNames();
    const std::vector<DescribedTable> wanted = dialect.Tables(tables);
    const std::vector<DescribedTable> live = scriptgen::ReadLiveTables(connection, dialect);
    const std::vector<TableDifference> differences = scriptgen::CompareTables(wanted, live, folds);
    if (const std::string others = Listed(differences); !others.empty()) {
        throw Error(automation::InvalidProcedureCall,
                    "Tables are there that differ from the definition: " + others + ". Nothing was done.");
    }
    const MissingThings missing(differences);
    Plan plan;
    for (const DescribedTable& table : wanted) {
        if (dialect.AltersForeignKeys()) break;
        if (missing.Holds(table.Name)) plan.inlineKeys += KeysInRun(table);
        const auto added = static_cast<std::size_t>(
            std::ranges::count_if(differences, [&](const TableDifference& difference) {
                return difference.aspect == TableAspect::ForeignKey && difference.table == table.Name;
            }));
        if (added == 0) continue;
        plan.inlineKeys += added;
        plan.rebuilds.push_back(RebuildOf(table, *scriptgen::FindTable(live, table.Name, folds),
                                          [](const auto&) { return false; }));
    }
    for (const auto* statements : {&scripts.create, &scripts.addKeys}) {
        for (const EngineStatement& statement : *statements)
            if (missing.Holds(statement.table, statement.thing, statement.name))
                plan.statements.push_back(&statement);
    }
    return plan;
}

TargetTables::TargetTables(const Platform& platform, const std::string& FileName,
                           const std::string& storageName, const std::string& sFKPrefix)
    : m_impl(std::make_unique<Impl>(platform, FileName, storageName, sFKPrefix)) {}

TargetTables::~TargetTables() = default;

void TargetTables::ExpectTakenBy(const std::string& sEngine) const {
    m_impl->ExpectTakenBy(scriptgen::EngineDialectOf(sEngine));
}

TargetReport TargetTables::Create(const std::shared_ptr<ado::Connection>& connection) const {
    const EngineDialect& dialect = DialectBehind(*connection);
    m_impl->ExpectTakenBy(dialect);
    const scriptgen::EngineScripts scripts = dialect.Write(m_impl->tables);
    const Plan plan = m_impl->PlanCreate(dialect, scripts, *connection);
    const Tally made = Run(plan, connection, dialect);
    return made.Report(dialect, "made", scripts.notes);
}

std::vector<std::string> TargetTables::TablesToDrop(ado::Connection& connection) const {
    const EngineDialect& dialect = DialectBehind(connection);
    const std::vector<DescribedTable> live = scriptgen::ReadLiveTables(connection, dialect);
    const auto used = m_impl->UsedElsewhere(live, dialect.FoldsTableNames());
    return DropPlanner(dialect, m_impl->tables, live, used).Tables();
}

TargetReport TargetTables::Drop(const std::shared_ptr<ado::Connection>& connection) const {
    const EngineDialect& dialect = DialectBehind(*connection);
    const std::vector<DescribedTable> live = scriptgen::ReadLiveTables(*connection, dialect);
    const auto used = m_impl->UsedElsewhere(live, dialect.FoldsTableNames());
    const DropPlanner planner(dialect, m_impl->tables, live, used);
    const Tally dropped = Run(planner.Make(), connection, dialect);
    return dropped.Report(dialect, "dropped", planner.Notes());
}

TargetComparison TargetTables::Compare(ado::Connection& connection) const {
    const EngineDialect& dialect = DialectBehind(connection);
    m_impl->ExpectTakenBy(dialect);
    const bool folds = dialect.FoldsTableNames();
    const std::vector<DescribedTable> wanted = dialect.Tables(m_impl->tables);
    const std::vector<DescribedTable> live = scriptgen::ReadLiveTables(connection, dialect);
    const std::vector<TableDifference> differences = scriptgen::CompareTables(wanted, live, folds);
    constexpr const char* Aspects[] = {"table", "column", "type",        "number",
                                       "key",   "index",  "foreign key", "trigger"};
    TargetComparison comparison{{}, IsMadeByFirstVersion(differences, wanted, live, folds)};
    for (const TableDifference& difference : differences)
        comparison.Differences.push_back({difference.table,
                                          Aspects[static_cast<std::size_t>(difference.aspect)],
                                          difference.name, difference.missing.has_value(), difference.text});
    return comparison;
}

std::vector<std::string> TargetTables::Check(ado::Connection& connection) const {
    const TargetComparison comparison = Compare(connection);
    std::vector<std::string> lines;
    if (comparison.IsMadeByFirstVersion) lines.emplace_back("made by 0.1");
    for (const TargetDifference& difference : comparison.Differences)
        lines.push_back(difference.Text);
    return lines;
}

}  // namespace korvex
