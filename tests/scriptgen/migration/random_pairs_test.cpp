#include "automation/convert.h"
#include "hosts/cli/source.h"
#include "objects/json.h"
#include "objects/load_definition.h"
#include "random_model.h"
#include "random_tree.h"
#include "scriptgen/migration/database_update.h"
#include "scriptgen/migration/definition_identity.h"
#include "scriptgen/migration/live_tables.h"
#include "scriptgen/script_text.h"
#include "support/driver.h"
#include "support/error_of.h"
#include "support/instrumented.h"
#include "support/json_holds.h"
#include "support/recording_parts.h"
#include "surface/cls_crud.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>

namespace korvex::tests {
namespace {

using scriptgen::AlterStep;
using scriptgen::Column;
using scriptgen::DefinitionDiff;
using scriptgen::DescribedTable;
using testing::IsEmpty;
using Connection = std::shared_ptr<ado::Connection>;
using Tables = std::vector<DescribedTable>;
using objects::DataObject;

/// A definition as tables, and as what objects are made of.
struct Described {
    Tables tables;
    std::shared_ptr<objects::Definition> definition;
};

std::string Text(const automation::Variant& value) {
    if (const auto* bytes = value.If<automation::Bytes>()) return {bytes->begin(), bytes->end()};
    return value.IsNull() ? "-" : automation::ToString(value);
}

std::vector<std::string> Rows(ado::Connection& connection, const std::string& query) {
    std::vector<std::string> lines;
    const auto rows = connection.Execute(query);
    for (; !rows->Eof(); rows->MoveNext()) {
        std::string& line = lines.emplace_back();
        for (std::int32_t i = 0; i < rows->FieldCount(); ++i)
            line += Text(rows->Fields(i)->Value()) + "|";
    }
    return lines;
}

class RandomPairs : public testing::TestWithParam<Driver> {
  protected:
    RandomPairs() { m_crud.ConnectDB("Provider=SQLite;Data Source=:memory:"); }

    /// Of an empty database.
    Connection NewDatabase() {
        const std::string place = m_places.New("db" + std::to_string(++m_databases));
        const bool isFile = GetParam() == Driver::Sqlite;
        auto connection = DefaultPlatform().targetProvider->CreateConnection();
        connection->Open(isFile ? "Provider=SQLite;Mode=Create;Data Source=" + place
                                : m_places.Connection(place));
        if (isFile) connection->Execute("PRAGMA synchronous=OFF");
        return connection;
    }
    Described Describe(const RandomModel& model) {
        const std::string file = m_folder.Write("model.json", model.Json());
        cli::Source source = cli::OpenSource(DefaultPlatform(), file);
        const repository::Catalog catalog = repository::Catalog::Read(source.repository.Open());
        return {scriptgen::DescribeState(catalog, "S", "FK_", &*source.numbered).tables,
                objects::LoadDefinition(catalog, "S")};
    }
    Connection Create(const Tables& tables, bool withKeys = true) {
        Connection connection = NewDatabase();
        const scriptgen::EngineScripts scripts = m_dialect.Write(tables);
        for (const scriptgen::EngineStatement& statement : scripts.create)
            connection->Execute(statement.text);
        for (const scriptgen::EngineStatement& statement : scripts.addKeys)
            if (withKeys) connection->Execute(statement.text);
        return connection;
    }

    /// All that the engine tells of tables, in one order, whatever was made first.
    std::vector<std::string> Catalogue(ado::Connection& connection, const Tables* only = nullptr) {
        std::vector<std::string> lines;
        for (const DescribedTable& table : scriptgen::ReadLiveTables(connection, m_dialect)) {
            if (only != nullptr && std::ranges::none_of(*only, [&](const DescribedTable& other) {
                    return automation::EqualsIgnoreCase(other.Name, table.Name);
                }))
                continue;
            const std::string name = automation::ToUpperAscii(table.Name) + " ";
            for (const Column& column : table.Columns)
                lines.push_back(name + column.FieldName + " " + column.TypeSize + " " + column.DefaultText +
                                (column.IsAutoNumber ? " numbered" : "") +
                                (column.IsPrimaryKey ? " key" : ""));
            for (const scriptgen::TableIndex& index : table.Indexes)
                lines.push_back(name + "index " + index.Name + " " + scriptgen::Joined(index.Columns));
            for (const scriptgen::ForeignKey& key : table.ForeignKeys)
                lines.push_back(name + "refers " + key.Name + " " + key.FieldName + " " + key.Table + "." +
                                key.KeyField);
            for (const std::string& trigger : table.Triggers)
                lines.push_back(name + "trigger " + trigger);
            for (const scriptgen::TableDependent& dependent : table.Dependents)
                lines.push_back(name + dependent.Text);
        }
        std::ranges::sort(lines);
        return lines;
    }

    /// Stores objects through a connection.
    clsCRUD& Crud(const Connection& connection) {
        m_crud.DbConn(connection);
        return m_crud;
    }
    void ExpectDone(const std::string& what) {
        EXPECT_EQ(m_crud.LastResult(), dbNoError) << what;
        EXPECT_THAT(*m_messages, IsEmpty()) << what;
        m_messages->clear();
    }

    /// Columns whose values go into another type, by the names of one side.
    static std::set<std::string> Converted(const DefinitionDiff& diff, bool isAfter) {
        std::set<std::string> names;
        for (const scriptgen::TablePlan& plan : diff.Compared().Tables())
            for (const scriptgen::ColumnPlan& column : plan.columns)
                if (plan.Stays() && IsConverted(column))
                    names.insert(automation::ToUpperAscii((isAfter ? plan.now : plan.before)->Name + "." +
                                                          (isAfter ? column.now : column.before)->FieldName));
        return names;
    }
    static bool IsConverted(const scriptgen::ColumnPlan& column) {
        return column.isRetyped && column.before->DataType != column.now->DataType;
    }

    /// Three objects with all beneath them, the last one deleted again: the counters are past the keys. Notes
    /// how far they are.
    void Save(const Connection& connection, const Described& before, const DefinitionDiff& diff) {
        RandomTree trees(1, Converted(diff, false));
        for (std::int32_t key = 1; key <= 3; ++key) {
            EXPECT_EQ(Crud(connection).DbSaveData(trees.New(before.definition)), key);
            ExpectDone("save");
        }
        m_lastKeys.clear();
        for (const DescribedTable& table : before.tables) {
            const std::string last =
                Rows(*connection, "select max(" + table.PrimaryKey.front() + ") from " + table.Name).front();
            m_lastKeys[table.Name] = last == "-|" ? 0 : std::stoi(last);
        }
        m_crud.DbDeleteData(std::make_shared<DataObject>(before.definition), 3);
        ExpectDone("delete");
    }

    /// Objects that were stored before are loaded, changed and deleted as what they became, new ones are
    /// stored; the first one stays.
    void ExpectObjectsGoOn(const Connection& connection, const Described& now, const DefinitionDiff& diff) {
        RandomTree trees(2, Converted(diff, true));
        const auto read = [&](std::int32_t key) {
            auto object = std::make_shared<DataObject>(now.definition);
            EXPECT_EQ(Crud(connection).DbGetData(object, key), key);
            return object;
        };
        const auto load = [&](std::int32_t key) {
            auto object = read(key);
            ExpectDone("load");
            return object;
        };
        const auto expectStored = [&](std::int32_t key, DataObject& object) {
            const std::string stored = objects::ToJson(*load(key));
            EXPECT_TRUE(Holds(stored, objects::ToJson(object))) << stored << objects::ToJson(object);
        };
        const auto added = trees.New(now.definition);
        const std::int32_t newest = m_crud.DbSaveData(added);
        ExpectDone("save");
        expectStored(newest, *added);
        for (const std::int32_t key : {1, 2, newest}) {
            const auto object = read(key);  // children that are new have no records yet
            trees.Fill(*object);
            EXPECT_EQ(m_crud.DbUpdateData(object, key), key);
            ExpectDone("update");
            expectStored(key, *object);
            if (key == 1) continue;
            EXPECT_EQ(m_crud.DbDeleteData(object, key), key);
            ExpectDone("delete");
            EXPECT_FALSE(m_crud.DbDataExists(object, key));
        }
    }

    /// The values of all columns that stay as they are, by the names that they have before or after.
    std::map<std::string, std::vector<std::string>> Kept(ado::Connection& connection,
                                                         const DefinitionDiff& diff, bool isAfter) {
        std::map<std::string, std::vector<std::string>> values;
        for (const scriptgen::TablePlan& plan : diff.Compared().Tables()) {
            if (!plan.Stays()) continue;
            const DescribedTable& table = isAfter ? *plan.now : *plan.before;
            for (const scriptgen::ColumnPlan& column : plan.columns) {
                if (column.before == nullptr || column.now == nullptr || !column.conversion.isPossible)
                    continue;
                const bool isConverted = IsConverted(column);
                if (isConverted && (column.before->DataType == 7 || column.now->DataType == 7)) continue;
                std::vector<std::string> rows =
                    Rows(connection, "select " + (isAfter ? column.now : column.before)->FieldName +
                                         " from " + table.Name + " order by " + table.PrimaryKey.front());
                if (isConverted) {
                    for (std::string& row : rows)
                        row = row == "-|"
                                  ? row
                                  : std::to_string(row != "0|" && row != "False|" && !row.starts_with("0."));
                }
                values[plan.before->Name + "." + column.before->FieldName] = std::move(rows);
            }
        }
        return values;
    }

    std::unique_ptr<DefinitionDiff> DiffFromLive(ado::Connection& connection, const Tables& now) {
        return std::make_unique<DefinitionDiff>(m_dialect.Name(),
                                                scriptgen::ReadLiveTables(connection, m_dialect), now,
                                                scriptgen::DiffOptions(), true);
    }

    void Run(const Connection& connection, const DefinitionDiff& diff) {
        scriptgen::UpdateDatabase(connection, m_dialect, diff.Steps(true));
    }

    void ExpectLeadsThereAndBack(const Described& before, const Described& now) {
        const DefinitionDiff diff(m_dialect.Name(), before.tables, now.tables);
        EXPECT_THAT(DefinitionDiff(m_dialect.Name(), now.tables, now.tables).Changes(), IsEmpty());
        const Connection old = Create(before.tables);
        const std::vector<std::string> oldCatalogue = Catalogue(*old);
        Save(old, before, diff);
        // A point in time does not fit a short text.
        if (!scriptgen::CountMisfits(*old, m_dialect, diff.Compared()).empty()) {
            ++m_misfits;
            return;
        }
        const auto values = Kept(*old, diff, false);
        Run(old, diff);
        const Connection fresh = Create(now.tables);
        EXPECT_EQ(Catalogue(*old), Catalogue(*fresh)) << diff.Script(true);
        EXPECT_EQ(Kept(*old, diff, true), values) << diff.Script(true);
        EXPECT_THAT(LiveChanges(*old, now.tables), IsEmpty());
        ExpectNumbersGoOn(*old, diff);
        ExpectObjectsGoOn(old, now, diff);
        Run(old, DefinitionDiff(m_dialect.Name(), now.tables, before.tables));
        EXPECT_EQ(Catalogue(*old), oldCatalogue) << diff.Script(true);
    }

    std::vector<std::string> LiveChanges(ado::Connection& connection, const Tables& now) {
        std::vector<std::string> texts;
        const auto diff = DiffFromLive(connection, now);
        for (const scriptgen::TableChange& change : diff->Changes())
            texts.push_back(ChangeText(change));
        return texts;
    }

    /// The key of a new record is one that no record ever had, and 0 is no parent.
    void ExpectNumbersGoOn(ado::Connection& connection, const DefinitionDiff& diff) {
        for (const scriptgen::TablePlan& plan : diff.Compared().Tables()) {
            if (!plan.Stays()) continue;
            const std::string& key = plan.now->PrimaryKey.front();
            std::string column = plan.now->Columns.front().FieldName;
            if (!plan.now->ForeignKeys.empty()) column = plan.now->ForeignKeys.front().FieldName;
            if (column == key) continue;
            const bool isParent = !plan.now->ForeignKeys.empty();
            connection.Execute("insert into " + plan.now->Name + " (" + column + ") values (" +
                               (isParent ? "0" : "null") + ")");
            const std::string newest =
                Rows(connection, "select max(" + key + ") from " + plan.now->Name).front();
            EXPECT_EQ(newest, std::to_string(m_lastKeys.at(plan.before->Name) + 1) + "|") << plan.now->Name;
            if (!isParent) continue;
            EXPECT_EQ(Rows(connection, "select " + column + " from " + plan.now->Name + " where " + key +
                                           " = " + newest.substr(0, newest.size() - 1))
                          .front(),
                      "-|");
        }
    }

    const scriptgen::EngineDialect& m_dialect = scriptgen::EngineDialectOf(
        IsServer(GetParam()) ? ServerName(GetParam()) == "mariadb" ? "mariadb" : "postgresql" : "sqlite");
    TempFolder m_folder;
    Places m_places{GetParam(), m_folder};
    int m_databases = 0;
    unsigned m_misfits = 0;
    Journal m_messages = std::make_shared<std::vector<std::string>>();
    clsCRUD m_crud{[this] {
        Platform platform = DefaultPlatform();
        platform.desktop = std::make_shared<RecordingDesktop>(m_messages);
        return platform;
    }()};
    std::map<std::string, int> m_lastKeys;  ///< the highest one that records ever had, by table
};

/// How many pairs a test tries: those of the environment, or as many as take some seconds.
unsigned PairsToTry(Driver driver) {
    if (const char* wanted = std::getenv("KORVEX_RANDOM_PAIRS"))
        return static_cast<unsigned>(std::atoi(wanted));
    return IsServer(driver) ? 20 : IsInstrumented ? 50 : 200;
}

TEST_P(RandomPairs, OfDefinitionsLeadFromOneToTheOtherAndBack) {
    for (unsigned seed = 1; seed <= PairsToTry(GetParam()); ++seed) {
        RandomModel model(seed);
        const Described before = Describe(model);
        model.Edit();
        SCOPED_TRACE("pair " + std::to_string(seed) + model.Story());
        ASSERT_NO_THROW(ExpectLeadsThereAndBack(before, Describe(model)));
        if (HasFailure()) return;
    }
    EXPECT_LE(m_misfits, PairsToTry(GetParam()) / 10);
}

/// Breaks a run before each of its statements, one after the other.
TEST_P(RandomPairs, AFailureTakesAllBackOrLeavesARestThatLeadsThere) {
    const bool rollsBack = m_dialect.DefinitionsRollBack();
    for (unsigned seed = 1; seed <= (IsServer(GetParam()) ? 1U : 4U); ++seed) {
        RandomModel model(seed);
        const Described before = Describe(model);
        model.Edit();
        const Tables now = Describe(model).tables;
        const DefinitionDiff diff(m_dialect.Name(), before.tables, now);
        const std::vector<AlterStep> steps = diff.Steps(true);
        const std::vector<std::string> wanted = Catalogue(*Create(now));
        for (std::size_t n = 0; n < steps.size(); n += rollsBack ? 1 : 4) {
            const Connection connection = Create(before.tables);
            Save(connection, before, diff);
            const std::vector<std::string> catalogue = Catalogue(*connection);
            const auto values = Kept(*connection, diff, false);
            std::vector<AlterStep> broken = steps;
            broken.insert(broken.begin() + static_cast<std::ptrdiff_t>(n),
                          {.text = "this is no statement", .reason = ""});
            std::vector<AlterStep> rest;
            const Raised raised = ErrorOf([&] {
                scriptgen::UpdateDatabase(connection, m_dialect, broken,
                                          [&](std::span<const AlterStep> left) {
                                              rest.assign(left.begin(), left.end());
                                              return std::string("Here.");
                                          });
            });
            EXPECT_NE(raised.number, 0);
            EXPECT_THAT(raised.description, testing::HasSubstr(rollsBack ? "The database is as it was."
                                                                         : "statements were run. Here."));
            if (rollsBack) {
                EXPECT_EQ(Catalogue(*connection), catalogue) << n;
                EXPECT_EQ(Kept(*connection, diff, false), values) << n;
            } else {
                ASSERT_EQ(rest.size(), steps.size() - n + 1);
                rest.erase(rest.begin());
                scriptgen::UpdateDatabase(connection, m_dialect, rest);
                EXPECT_EQ(Catalogue(*connection), wanted) << n;
                EXPECT_EQ(Kept(*connection, diff, true), values) << n;
            }
        }
    }
}

/// By names alone nothing is known to be renamed; the tables end as they should all the same.
TEST_P(RandomPairs, ADatabaseIsBroughtToItsDefinitionFromAnyState) {
    for (unsigned seed = 300; seed < 300 + PairsToTry(GetParam()) / 4; ++seed) {
        RandomModel model(seed);
        const Connection connection = Create(Describe(model).tables);
        model.Edit();
        SCOPED_TRACE("pair " + std::to_string(seed) + model.Story());
        const Tables now = Describe(model).tables;
        const auto diff = DiffFromLive(*connection, now);
        ASSERT_NO_THROW(Run(connection, *diff)) << diff->Script(true);
        ASSERT_EQ(Catalogue(*connection, &now), Catalogue(*Create(now))) << diff->Script(true);
    }
}

/// What servers would find too late, or round without a word.
TEST_P(RandomPairs, ParentsThatAreMissingAndFractionsThatGoAreCountedBefore) {
    if (!m_dialect.AltersForeignKeys()) GTEST_SKIP() << "Its tables bring their constraints with them.";
    const Tables now = Describe(RandomModel(1)).tables;
    const Connection connection = Create(now, false);
    const DescribedTable& table = now[1];
    const scriptgen::ForeignKey& key = table.ForeignKeys.front();
    for (const char* parent : {"0", "null", "77"})
        connection->Execute("insert into " + table.Name + " (" + key.FieldName + ") values (" + parent + ")");
    std::vector<std::string> wanted = {table.Name + "." + key.FieldName + ": 1 record refers to none of " +
                                       key.Table};
    for (const DescribedTable& dated : now) {
        const auto date = std::ranges::find(dated.Columns, 7, &Column::DataType);
        if (date == dated.Columns.end()) continue;
        const bool isMariaDb = m_dialect.Name() == "mariadb";
        connection->Execute("alter table " + dated.Name + (isMariaDb ? " modify " : " alter ") +
                            date->FieldName + (isMariaDb ? " datetime(6)" : " type timestamp"));
        for (const char* fraction : {"123456", "120000"})
            connection->Execute("insert into " + dated.Name + " (" + date->FieldName +
                                ") values ('2024-02-29 20:30:00." + fraction + "')");
        wanted.push_back(dated.Name + "." + date->FieldName + ": " +
                         (isMariaDb ? "datetime(3)" : "timestamp(3)") + " rounds 1 of 2 values");
    }
    ASSERT_GT(wanted.size(), 1U);
    const auto diff = DiffFromLive(*connection, now);
    std::vector<std::string> found;
    for (const scriptgen::Misfit& misfit : scriptgen::CountMisfits(*connection, m_dialect, diff->Compared()))
        found.push_back(automation::ToUpperAscii(misfit.text));
    for (std::string& text : wanted)
        text = automation::ToUpperAscii(text);
    EXPECT_THAT(found, testing::UnorderedElementsAreArray(wanted));
}

std::vector<Driver> EngineDrivers() {
    std::vector<Driver> drivers = AvailableDrivers();
    std::erase(drivers, Driver::OdbcSqlite);
    return drivers;
}

INSTANTIATE_TEST_SUITE_P(Drivers, RandomPairs, testing::ValuesIn(EngineDrivers()), DriverName);

}  // namespace
}  // namespace korvex::tests
