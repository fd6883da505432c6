#include "surface/target_tables.h"

#include "automation/error.h"
#include "automation/text.h"
#include "platform/ado_transaction.h"
#include "repository/catalog.h"
#include "repository/related_catalog.h"
#include "scriptgen/migration/compare_tables.h"
#include "scriptgen/migration/live_tables.h"
#include "scriptgen/migration/match_tables.h"
#include "scriptgen/migration/published_alter.h"
#include "scriptgen/migration/table_rebuild.h"
#include "scriptgen/script_text.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
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

/// A table to be made anew: as it will be, and the statement.
struct Rebuild {
    DescribedTable table;
    std::string statement;
};

/// What is to be done, in this order.
struct Plan {
    std::vector<Rebuild> rebuilds;
    std::vector<const EngineStatement*> statements;
    std::size_t inlineKeys = 0;  ///< foreign keys that come with their tables, or with rebuilds
};

/// Runs a plan, in one transaction where that takes definitions back too.
class PlanRun {
  public:
    PlanRun(Connection connection, const EngineDialect& dialect)
        : m_connection(std::move(connection)), m_rollsBack(dialect.DefinitionsRollBack()) {}

    Tally Run(const Plan& plan) {
        std::optional<scriptgen::ReferencesOff> references;
        if (!plan.rebuilds.empty()) references.emplace(*m_connection);
        std::optional<ado::Transaction> transaction;
        if (m_rollsBack) transaction.emplace(m_connection);
        try {
            RunAll(plan);
            if (references) references->CheckReferences();
            if (transaction) transaction->Commit();
        } catch (const Error& error) {
            throw Error(error.Number(),
                        automation::AddSentence(error.Description(),
                                                transaction ? transaction->TakeBack()
                                                            : "Done before that, and kept: " + m_done.Text() +
                                                                  ". The same command goes on from there."),
                        error.Source());
        }
        m_done.Add(EngineThing::ForeignKey, plan.inlineKeys);
        return m_done;
    }

  private:
    void RunAll(const Plan& plan) {
        for (const Rebuild& rebuild : plan.rebuilds)
            scriptgen::RebuildTable(*m_connection, rebuild.table, rebuild.statement);
        const EngineStatement* previous = nullptr;
        for (const EngineStatement* statement : plan.statements) {
            m_connection->Execute(statement->text);
            // A trigger and its function are one thing.
            const bool isSame = previous != nullptr && previous->thing == statement->thing &&
                                previous->table == statement->table && previous->name == statement->name;
            if (!isSame) m_done.Add(statement->thing);
            previous = statement;
        }
    }

    Connection m_connection;
    bool m_rollsBack;
    Tally m_done;
};

EngineThing ThingOf(TableAspect aspect) {
    switch (aspect) {
        case TableAspect::Index:
            return EngineThing::Index;
        case TableAspect::Trigger:
            return EngineThing::Trigger;
        case TableAspect::ForeignKey:
            return EngineThing::ForeignKey;
        default:
            return EngineThing::Table;
    }
}

/// What is not there, by table, thing and name.
class MissingThings {
  public:
    explicit MissingThings(std::span<const TableDifference> differences) {
        for (const TableDifference& difference : differences) {
            if (!difference.isMissing) continue;
            if (difference.aspect == TableAspect::Table) {
                m_tables.insert(difference.table);
            } else {
                m_things.emplace(difference.table, ThingOf(difference.aspect), difference.name);
            }
        }
    }
    bool Holds(const std::string& table) const { return m_tables.contains(table); }
    bool Holds(const std::string& table, EngineThing thing, const std::string& name) const {
        return Holds(table) || m_things.contains({table, thing, name});
    }

  private:
    std::set<std::string> m_tables;
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
        if (!difference.isMissing) text += (text.empty() ? "" : "; ") + difference.text;
    return text;
}

auto FindKey(const DescribedTable& table, const std::string& column) {
    return std::ranges::find_if(table.ForeignKeys, [&](const scriptgen::ForeignKey& key) {
        return automation::EqualsIgnoreCase(key.FieldName, column);
    });
}

/// The references that a table of the embedded engine shall have: those that it has and those of `table`, but
/// for what `goes`.
template <class Goes>
Rebuild RebuildOf(const EngineDialect& dialect, DescribedTable table, const DescribedTable& live, Goes goes) {
    for (scriptgen::ForeignKey& key : table.ForeignKeys) {
        const auto kept = FindKey(live, key.FieldName);
        if (!key.IsInRun && kept != live.ForeignKeys.end()) {
            key.IsInRun = true;
            key.Table = kept->Table;
            key.KeyField = kept->KeyField;
        }
        if (goes(key)) key.IsInRun = false;
    }
    std::string statement = dialect.TableText(table);
    return {std::move(table), std::move(statement)};
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
    std::vector<DescribedTable> firsts;
    for (const TableDifference& difference : differences) {
        if (difference.aspect != TableAspect::Type) continue;
        if (firsts.empty()) firsts = scriptgen::PublishedTables(scriptgen::SqlServerDialect(), wanted);
        const auto typeIn = [&](std::span<const DescribedTable> tables) -> const std::string& {
            return scriptgen::FindColumn(*scriptgen::FindTable(tables, difference.table, folds),
                                         difference.name)
                ->TypeSize;
        };
        if (!automation::EqualsIgnoreCase(typeIn(firsts), typeIn(live))) return false;
    }
    return !firsts.empty();
}

/// Plans how tables go, with what refers to them.
class DropPlanner {
  public:
    /// `used`: tables that stay, in capitals, each with the definition that uses it.
    DropPlanner(const EngineDialect& dialect, std::span<const DescribedTable> tables,
                std::span<const DescribedTable> live, const std::map<std::string, std::string>& used)
        : m_dialect(dialect), m_live(live), m_tables(dialect.Tables(tables)), m_keys(dialect.Write(tables)) {
        std::vector<DescribedTable> going;
        for (const DescribedTable& table : tables) {
            const auto user = used.find(automation::ToUpperAscii(table.Name));
            if (user == used.end()) {
                going.push_back(table);
                m_going.insert(automation::ToUpperAscii(table.Name));
            } else if (Live(table.Name) != nullptr) {
                m_notes.push_back(table.Name + " stays: the definition " + user->second + " uses it.");
            }
        }
        m_drops = dialect.Write(going);
    }

    /// What it points to lives as long as the planner.
    Plan Make() const {
        Plan plan;
        if (m_dialect.AltersForeignKeys()) {
            for (const EngineStatement& statement : m_keys.dropKeys)
                if (HasKeyToDrop(statement)) plan.statements.push_back(&statement);
        } else {
            for (const DescribedTable& table : m_tables)
                if (!Goes(table.Name)) AddRebuild(plan, table);
        }
        for (const EngineStatement& statement : m_drops.drop)
            if (Live(statement.table) != nullptr) plan.statements.push_back(&statement);
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
        const auto key = FindKey(*live, statement.name);
        return key != live->ForeignKeys.end() && (Goes(statement.table) || Goes(key->Table));
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
        plan.rebuilds.push_back(RebuildOf(m_dialect, table, *live, goes));
    }

    const EngineDialect& m_dialect;
    std::span<const DescribedTable> m_live;
    std::vector<DescribedTable> m_tables;
    scriptgen::EngineScripts m_keys;   ///< of all tables
    scriptgen::EngineScripts m_drops;  ///< of those that go
    std::set<std::string> m_going;     ///< in capitals
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
        plan.rebuilds.push_back(RebuildOf(dialect, table, *scriptgen::FindTable(live, table.Name, folds),
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
    const Tally made = PlanRun(connection, dialect).Run(plan);
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
    const Tally dropped = PlanRun(connection, dialect).Run(planner.Make());
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
                                          difference.name, difference.isMissing, difference.text});
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
