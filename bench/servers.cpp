// Persistence and script runs over ODBC, on private MariaDB and PostgreSQL servers, against hand-written ODBC
// code that prepares the same statements once and reads the same rows.

#include "automation/convert.h"
#include "objects/data_object.h"
#include "platform/native/native_platform.h"
#include "platform/native/sql/statement_text.h"
#include "support/measure.h"
#include "support/odbc_floor.h"
#include "support/reply_counter.h"
#include "support/repository_generator.h"
#include "surface/cls_create_db.h"
#include "surface/cls_crud.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>

namespace korvex::bench {
namespace {

using objects::DataObject;
using objects::Definition;

constexpr int Elements = 10;

/// Both servers, for as long as the object lives.
class Servers {
  public:
    Servers() {
        Run("start.sh", "");
        setenv("ODBCINI", (m_folder.Path() / "servers/odbc.ini").c_str(), 1);
    }
    Servers(const Servers&) = delete;
    Servers& operator=(const Servers&) = delete;
    ~Servers() { Run("stop.sh", "all"); }

    /// The folder of the servers' sockets.
    std::string Place() const {
        std::string place;
        std::getline(std::ifstream(m_folder.Path() / "servers/place"), place);
        return place;
    }

  private:
    void Run(const std::string& script, const std::string& which) const {
        const std::string command = "sh " KORVEX_SERVER_SCRIPTS "/" + script + " " +
                                    (m_folder.Path() / "servers").string() + " " + which;
        if (std::system(command.c_str()) != 0) std::fprintf(stderr, "failed: %s\n", command.c_str());
    }

    TemporaryFolder m_folder;
};

struct Server {
    std::string name;
    std::string source;  ///< the ODBC string of a data source
    std::string keyType;
    repository::SchemaEngine schema;
    std::string socket;         ///< its name
    std::string socketSetting;  ///< the setting that leads to another one, in front of the folder

    /// The ODBC string of a new database.
    std::string NewDatabase(const std::string& database) const {
        FloorConnection(source).Statement("CREATE DATABASE " + database).Run();
        return source + ";DATABASE=" + database;
    }
};

/// What a run silently does to the desktop and the file system is not measured.
class NoDesktop : public platform::Desktop {
  public:
    void ShowMessage(std::string_view text, std::int32_t, std::string_view) override {
        throw std::runtime_error(std::string(text));
    }
    void OpenEditor(std::string_view) override {}
};
class NoFiles : public platform::Files {
  public:
    void WriteText(std::string_view, std::string_view, std::string_view) override {}
    std::string LibraryFolder() override { return "/"; }
    char Separator() const noexcept override { return '/'; }
};

Platform BenchPlatform(std::shared_ptr<native::sql::Seam> seam = nullptr) {
    Platform platform = native::NativePlatform({.seam = std::move(seam)});
    platform.desktop = std::make_shared<NoDesktop>();
    platform.files = std::make_shared<NoFiles>();
    return platform;
}

// ---- Trees ----

/// An order with a collection of lines.
std::shared_ptr<Definition> OrderDefinition() {
    const auto number = static_cast<std::int32_t>(automation::VarType::Long);
    const auto keyed = [&](const std::string& name, const std::string& parent) {
        auto definition = std::make_shared<Definition>(name, "t" + name);
        definition->AddValue({name + "ID", name + "ID", number, true, true});
        definition->AddPrimaryKey(name + "ID");
        if (!parent.empty()) {
            definition->AddValue({"FK_" + parent + "ID", "FK_" + parent + "ID", number});
            definition->AddForeignKey("FK_" + parent + "ID");
        }
        return definition;
    };
    auto line = keyed("Line", "Lines");
    line->AddValue({"Sku", "Sku"});
    line->AddValue({"Quantity", "Quantity", number});
    auto lines = keyed("Lines", "Order");
    lines->ElementDefinition(line);
    auto order = keyed("Order", "");
    order->AddValue({"Note", "Note"});
    order->AddValue({"Amount", "Amount", number});
    order->AddChild("Lines", lines);
    return order;
}

void CreateOrderTables(FloorConnection& floor, const Server& server) {
    const std::string state = ", QORSelectState integer, QORCounter integer)";
    const auto run = [&](const std::string& text) { floor.Statement(text).Run(); };
    run("create table tOrder (OrderID " + server.keyType + ", Note varchar(80), Amount integer" + state);
    run("create table tLines (LinesID " + server.keyType +
        ", FK_OrderID integer, QORSelectedItem integer, QORCounterHolder integer)");
    run("create table tLine (LineID " + server.keyType +
        ", FK_LinesID integer, Sku varchar(40), Quantity integer" + state);
    run("create index tLines1 on tLines (FK_OrderID)");
    run("create index tLine1 on tLine (FK_LinesID)");
}

std::shared_ptr<DataObject> NewOrder(const std::shared_ptr<Definition>& definition) {
    auto order = std::make_shared<DataObject>(definition);
    order->Set("Note", "a note of some words");
    order->Set("Amount", 17);
    for (int i = 0; i < Elements; ++i) {
        const auto line = order->Child("Lines")->Add();
        line->Set("Sku", "article " + std::to_string(i));
        line->Set("Quantity", i);
    }
    return order;
}

std::int64_t FloorSave(FloorConnection& floor) {
    FloorStatement& order = floor.Statement(
        "INSERT INTO tOrder (Note, Amount, QORSelectState, QORCounter) VALUES (?, ?, ?, ?) RETURNING "
        "OrderID");
    order.Set(0, "a note of some words");
    for (std::size_t i = 1; i < 4; ++i)
        order.Set(i, std::int64_t{17});
    const std::int64_t orderID = order.Run();
    FloorStatement& lines = floor.Statement(
        "INSERT INTO tLines (FK_OrderID, QORSelectedItem, QORCounterHolder) VALUES (?, ?, ?) RETURNING "
        "LinesID");
    for (std::size_t i = 0; i < 3; ++i)
        lines.Set(i, orderID);
    const std::int64_t linesID = lines.Run();
    FloorStatement& line = floor.Statement(
        "INSERT INTO tLine (FK_LinesID, Sku, Quantity, QORSelectState, QORCounter) VALUES (?, ?, ?, ?, ?) "
        "RETURNING LineID");
    for (int i = 0; i < Elements; ++i) {
        line.Set(0, linesID);
        line.Set(1, "article " + std::to_string(i));
        for (std::size_t j = 2; j < 5; ++j)
            line.Set(j, std::int64_t{i});
        line.Run();
    }
    return orderID;
}

/// The order, its collection, the keys of the lines, then each line.
void FloorLoad(FloorConnection& floor, std::int64_t orderID) {
    const auto select = [&](const std::string& table, const std::string& column, std::int64_t key) {
        FloorStatement& statement = floor.Statement("select * from " + table + " where " + column + " = ?");
        statement.Set(0, key);
        return statement.Run();
    };
    select("tOrder", "OrderID", orderID);
    const std::int64_t linesID = select("tLines", "FK_OrderID", orderID);
    const std::int64_t lastLine = select("tLine", "FK_LinesID", linesID);
    for (std::int64_t line = lastLine - Elements + 1; line <= lastLine; ++line)
        select("tLine", "LineID", line);
}

struct TreeRatios {
    Comparison save;
    Comparison load;
};

TreeRatios CompareTrees(const Server& server, int rounds, int trees) {
    const std::string database = server.NewDatabase("bench_trees");
    FloorConnection floor(database);
    CreateOrderTables(floor, server);
    const auto definition = OrderDefinition();
    clsCRUD crud(BenchPlatform());
    if (!crud.ConnectDB(database)) throw std::runtime_error("no connection to " + database);

    std::int32_t key = 0;
    std::int64_t floorKey = 0;
    const auto save = [&] {
        for (int i = 0; i < trees; ++i)
            key = crud.DbSaveData(NewOrder(definition));
    };
    const auto floorSave = [&] {
        for (int i = 0; i < trees; ++i)
            floorKey = FloorSave(floor);
    };
    const auto load = [&] {
        for (int i = 0; i < trees; ++i) {
            if (crud.DbGetData(std::make_shared<DataObject>(definition), key) != key)
                throw std::runtime_error("the tree was not loaded");
        }
    };
    const auto floorLoad = [&] {
        for (int i = 0; i < trees; ++i)
            FloorLoad(floor, floorKey);
    };
    save();
    floorSave();
    load();
    floorLoad();
    return {Compare(rounds, 1, save, floorSave), Compare(rounds, 1, load, floorLoad)};
}

// ---- Script runs ----

/// The engine calls of a run, in order.
class Recorder final : public native::sql::Seam {
  public:
    struct Call {
        native::sql::CallKind kind;
        std::string text;
    };
    void BeforeCall(const native::sql::EngineCall& call) override {
        using native::sql::CallKind;
        if (call.kind == CallKind::Execute || call.kind == CallKind::Begin || call.kind == CallKind::Commit)
            calls.push_back({call.kind, std::string(call.text)});
    }
    std::vector<Call> calls;
};

/// A recorded run as hand-written code would make it.
class FloorRun {
  public:
    FloorRun(const std::vector<Recorder::Call>& calls, bool exactLike, FloorConnection& floor) {
        for (const Recorder::Call& call : calls) {
            Step& step = m_steps.emplace_back();
            step.kind = call.kind;
            if (call.kind != native::sql::CallKind::Execute) continue;
            native::sql::StatementText scan;
            native::sql::ScanStatement(
                call.text, {.bracketNames = false, .exactLike = exactLike, .liftsTexts = true}, scan);
            step.text = scan.text;
            step.values = scan.literals;
            if (call.text.starts_with("delete from tPrimaryKeys"))
                m_object = automation::ToLongLong(step.values.at(0));
            if (scan.literals.empty() && call.text.find('?') != std::string::npos) FillInsert(step, floor);
        }
    }

    void Run(FloorConnection& floor) const {
        using native::sql::CallKind;
        for (const Step& step : m_steps) {
            if (step.kind == CallKind::Begin) {
                floor.Begin();
            } else if (step.kind == CallKind::Commit) {
                floor.Commit();
            } else {
                FloorStatement& statement = floor.Statement(step.text);
                for (std::size_t i = 0; i < step.values.size(); ++i)
                    SetValue(statement, i, step.values[i]);
                statement.Run();
            }
        }
    }

    std::size_t Size() const noexcept { return m_steps.size(); }

  private:
    struct Step {
        native::sql::CallKind kind = native::sql::CallKind::Execute;
        std::string text;
        std::vector<automation::Variant> values;
    };

    static void SetValue(FloorStatement& statement, std::size_t parameter, const automation::Variant& value) {
        if (const auto* text = value.If<std::string>()) {
            statement.Set(parameter, std::string_view(*text));
        } else {
            statement.Set(parameter, automation::ToLongLong(value));
        }
    }

    /// The one statement with values that a run repeats: the primary key that was deleted before it.
    void FillInsert(Step& step, FloorConnection& floor) const {
        if (!step.text.starts_with("INSERT INTO") || step.text.find("rimary") == std::string::npos)
            throw std::runtime_error("a statement whose values are not known: " + step.text);
        FloorStatement& key = floor.Statement("select ValueID from tPrimaryKeys where ObjectID = ?");
        key.Set(0, m_object);
        step.values = {m_object, key.Run(), 1};
    }

    std::vector<Step> m_steps;
    std::int64_t m_object = 0;
};

Comparison CompareScriptRuns(const Server& server, int rounds, std::int64_t objects) {
    const std::string database = server.NewDatabase("bench_repository");
    const Platform platform = BenchPlatform();
    GenerateRepository(*platform.repositoryEngine->CreateWorkspace("", "admin", "", dao::dbUseODBC)
                            ->OpenConnection("", false, database),
                       objects, server.schema);
    const auto run = [&](const Platform& parts) { clsCreateDb(parts).DoMSsqlDb(database, "Bench"); };
    run(platform);  // prepares the relationships: from now on each run does the same
    const auto recorder = std::make_shared<Recorder>();
    run(BenchPlatform(recorder));
    FloorConnection reader(database);
    const FloorRun steps(recorder->calls, server.schema == repository::SchemaEngine::PostgreSql, reader);
    std::printf("%s: %zu engine calls in a run\n", server.name.c_str(), steps.Size());
    return Compare(
        rounds, 1, [&] { run(platform); },
        [&] {
            FloorConnection floor(database);
            steps.Run(floor);
        });
}

// ---- Replies ----

void RunCommand(const std::string& words) {
    const std::string command = KORVEX_COMMAND " " + words + " >/dev/null";
    if (std::system(command.c_str()) != 0) throw std::runtime_error("failed: " + command);
}

/// How many replies of the server each command waits for, with the example's object.
void CountReplies(const Server& server, const std::string& serverFolder) {
    const TemporaryFolder folder;
    const std::string path = folder.Path().string();
    const std::string repository = path + "/orders.db";
    RunCommand("repository new " + repository);
    RunCommand("repository import " + repository + " " KORVEX_TEST_DATA "/orders.json");
    RunCommand("relate --repository " + repository + " --storage Orders");
    const std::string database = server.NewDatabase("bench_replies");
    RunCommand("database create --repository " + repository + " --storage Orders --connection '" + database +
               "'");
    ReplyCounter counter(path + server.socket, serverFolder + server.socket);
    const std::string target = database + server.socketSetting + path +
                               (server.schema == repository::SchemaEngine::MariaDb ? server.socket : "");
    std::ofstream(path + "/unchanged.json") << "{}";
    const std::pair<std::string, std::string> commands[] = {
        {"save", KORVEX_TEST_DATA "/order.json"},
        {"load", "--key 1"},
        {"update", "--key 1 " + path + "/unchanged.json 2>/dev/null"},
        {"delete", "--key 1"},
    };
    for (const auto& [command, words] : commands) {
        RunCommand(command + " --repository " + repository + " --storage Orders --connection '" + target +
                   "' " + words);
        PrintRatio("roundtrips_" + command + "_" + server.name, static_cast<double>(counter.Take()));
    }
}

void Run(int rounds) {
    const Servers running;
    const Server servers[] = {
        {"mariadb", "DSN=korvex_mariadb", "integer auto_increment primary key",
         repository::SchemaEngine::MariaDb, "/mariadb.sock", ";SOCKET="},
        {"postgresql", "DSN=korvex_postgresql", "serial primary key", repository::SchemaEngine::PostgreSql,
         "/.s.PGSQL.5432", ";Servername="},
    };
    std::map<std::string, double> ratios;
    const auto note = [&](const std::string& claim, const Server& server, const Comparison& comparison) {
        Report(claim + "_" + server.name, comparison);
        ratios[claim] = std::max(ratios[claim], comparison.ratio);
    };
    for (const Server& server : servers) {
        CountReplies(server, running.Place());
        const TreeRatios trees = CompareTrees(server, 3 * rounds, 200);
        note("odbc_save_tree_vs_floor", server, trees.save);
        note("odbc_load_tree_vs_floor", server, trees.load);
        note("odbc_script_run_vs_floor", server, CompareScriptRuns(server, rounds, 500));
    }
    // The slower server counts.
    for (const auto& [claim, ratio] : ratios)
        PrintRatio(claim, ratio);
}

}  // namespace
}  // namespace korvex::bench

int main(int argc, char** argv) {
    return korvex::bench::RunBenchmark("servers", argc, argv, 5, korvex::bench::Run);
}
