// Script generation against the bare engine: a whole run, and the relationship builder alone, over the same
// statements as a careful programmer would send them through the SQLite C interface, with parameters and
// prepared once; how many tables a run writes in a second; how the time grows with the definition; what
// memory a run takes. And the tables of a large definition in a new database, against their bare statements;
// what differs between two states of it, against the two script runs that this stands on.

#include "repository/repository.h"
#include "support/measure.h"
#include "support/repository_generator.h"
#include "support/sqlite_handle.h"
#include "support/statement_recorder.h"
#include "surface/cls_create_db.h"
#include "surface/definition_changes.h"
#include "surface/target_tables.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace korvex::bench {
namespace {

namespace fs = std::filesystem;

/// Reports of opened files are not what is measured.
class SilentDesktop : public platform::Desktop {
  public:
    void ShowMessage(std::string_view text, std::int32_t, std::string_view) override {
        std::fprintf(stderr, "unexpected message: %.*s\n", static_cast<int>(text.size()), text.data());
        std::exit(1);
    }
    void OpenEditor(std::string_view) override {}
};

Platform BenchPlatform() {
    Platform platform = DefaultPlatform();
    platform.desktop = std::make_shared<SilentDesktop>();
    return platform;
}

void RemoveDatabase(const std::string& file) {
    for (const char* tail : {"", "-wal", "-shm", "-journal"})
        fs::remove(file + tail);
}

/// The statements that made what a database holds, in their order.
std::vector<std::string> StatementsOf(const std::string& file) {
    const SqliteConnection connection = OpenSqlite(file);
    const SqliteStatement rows = PrepareSqlite(
        connection.get(), "select sql from sqlite_master where name not like 'sqlite_%' order by rowid");
    std::vector<std::string> statements;
    while (sqlite3_step(rows.get()) == SQLITE_ROW)
        statements.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(rows.get(), 0)));
    return statements;
}

/// Runs statements on a new file, in one transaction.
void RunBare(const std::string& file, const std::vector<std::string>& statements) {
    const SqliteConnection connection = OpenSqlite(file);
    const auto run = [&](const std::string& text) {
        RequireSqlite(sqlite3_exec(connection.get(), text.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK,
                      connection.get());
    };
    run("pragma journal_mode = wal");
    run("begin");
    for (const std::string& statement : statements)
        run(statement);
    run("commit");
}

/// One generated repository; every round works on a fresh copy of it.
class Scenario {
  public:
    Scenario(const fs::path& folder, std::int64_t objects, const std::string& name = {})
        : m_original((folder / ("repository" + std::to_string(objects) + name + ".db")).string()),
          m_copy((folder / ("copy" + std::to_string(objects) + name + ".db")).string()),
          m_scripts((folder / "scripts").string()) {
        fs::create_directory(m_scripts);
        RunApart([&] { GenerateRepository(m_original, objects); });
    }

    void Script() const {
        clsCreateDb generator(BenchPlatform());
        generator.ScriptFilePath(m_scripts);
        generator.DoMSsqlDb(m_copy, "Bench");
    }

    void ScriptTables() const {
        clsCreateDb generator(BenchPlatform());
        generator.ScriptFilePath(m_scripts);
        generator.DoEngineDb("sqlite", m_copy, "Bench");
    }

    repository::Catalog ReadCatalog() const {
        repository::Repository repository(BenchPlatform());
        repository.OpenRepository(m_copy);
        return repository::Catalog::Read(repository.Open());
    }

    /// Objects and values under other names, longer texts, values that are gone.
    void Edit() const {
        const SqliteConnection connection = OpenSqlite(m_copy);
        for (const char* statement :
             {"update tObjects set Name = Name || 'X' where ObjectID % 10 = 3",
              "update tValues set Name = Name || 'Y' where ValueID % 20 = 4 and ChildObjectID = 0",
              "update tValues set MaxLength = '200' where ValueID % 7 = 0 and DataType = 8",
              "delete from tValues where ValueID % 50 = 9 and ChildObjectID = 0"})
            RequireSqlite(sqlite3_exec(connection.get(), statement, nullptr, nullptr, nullptr) == SQLITE_OK,
                          connection.get());
    }

    void Relate() const {
        clsCreateDb generator(BenchPlatform());
        generator.OpenRepository(m_copy);
        generator.CreateRelationship("Bench");
        generator.CloseRepository();
    }

    void CreateTables(const std::string& target) const {
        const Platform platform = BenchPlatform();
        const std::shared_ptr<ado::Connection> connection = platform.targetProvider->CreateConnection();
        connection->Open("Provider=SQLite;Mode=Create;Data Source=" + target);
        TargetTables(platform, m_copy, "Bench").Create(connection);
        connection->Close();
    }

    void Refresh() const {
        RemoveDatabase(m_copy);
        fs::copy_file(m_original, m_copy);
    }

    std::uintmax_t OutputSize() const {
        std::uintmax_t size = 0;
        for (const auto& file : fs::directory_iterator(m_scripts))
            size += file.file_size();
        return size;
    }

    using Work = void (Scenario::*)() const;

    Comparison Compare(Work work, int rounds) const {
        const Recording recording = Record(work);
        return CompareTimed(
            rounds, [&] { return Time(work); },
            [&] {
                Refresh();
                return Seconds([&] { Replay(recording, m_copy); });
            });
    }

    double Time(Work work, double (*clock)(const std::function<void()>&) = Seconds) const {
        Refresh();
        return clock([&] { (this->*work)(); });
    }

  private:
    Recording Record(Work work) const {
        Refresh();
        const StatementRecorder recorder;
        (this->*work)();
        return recorder.Statements();
    }

    std::string m_original;
    std::string m_copy;
    std::string m_scripts;
};

double PeakMemoryOverOutput(const Scenario& scenario) {
    scenario.Refresh();
    const std::size_t start = ResidentMemory();
    ResetPeakMemory();
    scenario.Script();
    return static_cast<double>(PeakMemory() - start) / static_cast<double>(scenario.OutputSize());
}

Comparison CompareCreate(const Scenario& scenario, const std::string& target, int rounds) {
    scenario.Refresh();
    const auto timed = [&](const auto& work) {
        RemoveDatabase(target);
        return Seconds(work);
    };
    const auto create = [&] { scenario.CreateTables(target); };
    timed(create);
    const std::vector<std::string> statements = StatementsOf(target);
    return CompareTimed(
        rounds, [&] { return timed(create); }, [&] { return timed([&] { RunBare(target, statements); }); });
}

Comparison CompareDiff(const Scenario& before, const Scenario& now, int rounds) {
    before.Refresh();
    now.Refresh();
    now.Edit();
    return CompareTimed(
        rounds,
        [&] {
            return Seconds([&] {
                const DefinitionChanges changes("sqlite", before.ReadCatalog(), now.ReadCatalog(), "Bench");
                if (changes.Script().empty()) throw std::runtime_error("nothing differs");
            });
        },
        [&] {
            return Seconds([&] {
                before.ScriptTables();
                now.ScriptTables();
            });
        });
}

/// Short rounds, for the ratios: what disturbs a machine spoils few of them.
constexpr std::int64_t FewObjects = 500;
/// What a large definition has, and a quarter of it.
constexpr std::int64_t ManyObjects = 8000;
/// The engine itself takes more time for a table the more there are.
constexpr std::int64_t ManyTables = 4000;

void Run(int rounds) {
    const TemporaryFolder folder;
    const Scenario few(folder.Path(), FewObjects);
    const Scenario quarter(folder.Path(), ManyObjects / 4);
    const Scenario many(folder.Path(), ManyObjects);

    // How long the disk takes for files of different size is not what a run does with its objects; and memory
    // that a larger run left behind makes the smaller one behind it faster than it is by itself.
    const Comparison growth = CompareTimed(
        std::max(rounds * 3 / 5, 1), [&] { return many.Time(&Scenario::Script, ProcessorSecondsApart); },
        [&] { return quarter.Time(&Scenario::Script, ProcessorSecondsApart); });
    Report("8,000 over 2,000 objects", growth);

    const double memory = PeakMemoryOverOutput(many);  // before all that leaves freed memory behind
    std::printf("output of 8,000 objects      %9.2f MB\n", static_cast<double>(many.OutputSize()) / 1e6);

    const Comparison script = few.Compare(&Scenario::Script, rounds);
    Report("script run, 500 objects", script);
    const Comparison relate = few.Compare(&Scenario::Relate, rounds);
    Report("relate, 500 objects", relate);

    const Scenario tables(folder.Path(), ManyTables);
    const Comparison create =
        CompareCreate(tables, (folder.Path() / "target.db").string(), std::max(rounds / 20, 1));
    Report("database create, 4,000 tables", create);
    const Comparison diff =
        CompareDiff(tables, Scenario(folder.Path(), ManyTables, "edited"), std::max(rounds / 8, 1));
    Report("diff, 4,000 tables", diff);

    PrintRatio("script_run_vs_floor", script.ratio);
    PrintRatio("relate_vs_floor", relate.ratio);
    PrintRatio("script_run_growth_4x", growth.ratio);
    PrintRatio("peak_memory_vs_output", memory);
    PrintRatio("database_create_vs_floor", create.ratio);
    PrintRatio("diff_vs_two_script_runs", diff.ratio);
    PrintRatio("tables_per_second", static_cast<double>(FewObjects) / script.seconds);
}

}  // namespace
}  // namespace korvex::bench

int main(int argc, char** argv) {
    return korvex::bench::RunBenchmark("scripts", argc, argv, 25, korvex::bench::Run);
}
