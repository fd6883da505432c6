#include "automation/convert.h"
#include "hosts/cli/source.h"
#include "random_model.h"
#include "scriptgen/migration/database_update.h"
#include "scriptgen/migration/definition_identity.h"
#include "scriptgen/migration/live_tables.h"
#include "scriptgen/script_text.h"
#include "support/driver.h"
#include "support/error_of.h"

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

std::string Text(const automation::Variant& value) {
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
    Tables Describe(const std::string& json) {
        const std::string file = m_folder.Write("model.json", json);
        cli::Source source = cli::OpenSource(DefaultPlatform(), file);
        return scriptgen::DescribeIdentified(repository::Catalog::Read(source.repository.Open()), "S", "FK_",
                                             &*source.numbered);
    }
    Connection Create(const Tables& tables) {
        Connection connection = NewDatabase();
        const scriptgen::EngineScripts scripts = m_dialect.Write(tables);
        for (const auto* statements : {&scripts.create, &scripts.addKeys})
            for (const scriptgen::EngineStatement& statement : *statements)
                connection->Execute(statement.text);
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

    /// Records in all tables, parents first; values that every type can hold. The counters are past them.
    void Fill(ado::Connection& connection, const Tables& tables) {
        std::set<std::string> filled;
        for (const DescribedTable& table : m_dialect.Tables(tables)) {
            const std::string& key = table.PrimaryKey.front();
            for (int row = 1; row <= 3; ++row) {
                std::vector<std::string> names, values;
                for (const Column& column : table.Columns) {
                    names.push_back(column.FieldName);
                    values.push_back(column.IsPrimaryKey ? std::to_string(row)
                                                         : ValueFor(table, column, row, filled));
                }
                connection.Execute("insert into " + table.Name + " (" + scriptgen::Joined(names) +
                                   ") values (" + scriptgen::Joined(values) + ")");
            }
            filled.insert(table.Name);
            connection.Execute("delete from " + table.Name + " where " + key + " = 3");
            if (GetParam() == Driver::PostgreSql)
                connection.Execute("select setval(pg_get_serial_sequence(lower('" + table.Name +
                                   "'), lower('" + key + "')), 3)");
        }
    }
    std::string ValueFor(const DescribedTable& table, const Column& column, int row,
                         const std::set<std::string>& filled) const {
        const auto key =
            std::ranges::find(table.ForeignKeys, column.FieldName, &scriptgen::ForeignKey::FieldName);
        if (key != table.ForeignKeys.end())
            return row == 3 || !filled.contains(key->Table) ? "null" : std::to_string(row);
        switch (column.DataType) {
            case 7:
                return "'2024-02-29 20:30:0" + std::to_string(row) + "'";
            case 11:
                return GetParam() == Driver::PostgreSql ? (row == 1 ? "true" : "false")
                                                        : std::to_string(row % 2);
            case 12:
                return "null";
            case 8:
                return "'" + std::to_string(row % 2) + "'";
            default:
                return std::to_string(row % 2);
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
                if (column.isRetyped && (column.before->DataType == 7 || column.now->DataType == 7)) continue;
                std::vector<std::string> rows =
                    Rows(connection, "select " + (isAfter ? column.now : column.before)->FieldName +
                                         " from " + table.Name + " order by " + table.PrimaryKey.front());
                if (column.isRetyped) {
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

    void Run(const Connection& connection, const DefinitionDiff& diff) {
        scriptgen::DatabaseUpdate(connection, m_dialect).Run(diff.Steps(true));
    }

    void ExpectLeadsThereAndBack(const Tables& before, const Tables& now) {
        const DefinitionDiff diff(m_dialect.Name(), before, now);
        EXPECT_THAT(DefinitionDiff(m_dialect.Name(), now, now).Changes(), IsEmpty());
        const Connection old = Create(before);
        const std::vector<std::string> oldCatalogue = Catalogue(*old);
        Fill(*old, before);
        // A point in time does not fit a short text.
        if (!scriptgen::CountMisfits(*old, m_dialect, diff.Compared()).empty()) {
            ++m_misfits;
            return;
        }
        const auto values = Kept(*old, diff, false);
        Run(old, diff);
        const Connection fresh = Create(now);
        EXPECT_EQ(Catalogue(*old), Catalogue(*fresh)) << diff.Script(true);
        EXPECT_EQ(Kept(*old, diff, true), values) << diff.Script(true);
        EXPECT_THAT(LiveChanges(*old, now), IsEmpty());
        ExpectNumbersGoOn(*old, diff);
        Run(old, DefinitionDiff(m_dialect.Name(), now, before));
        EXPECT_EQ(Catalogue(*old), oldCatalogue) << diff.Script(true);
    }

    std::vector<std::string> LiveChanges(ado::Connection& connection, const Tables& now) {
        std::vector<std::string> texts;
        const auto diff =
            DefinitionDiff::FromLive(m_dialect, scriptgen::ReadLiveTables(connection, m_dialect), now);
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
            EXPECT_EQ(newest, "4|") << plan.now->Name;
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
};

/// How many pairs a test tries: those of the environment, or as many as take some seconds.
unsigned PairsToTry(Driver driver) {
    if (const char* wanted = std::getenv("KORVEX_RANDOM_PAIRS"))
        return static_cast<unsigned>(std::atoi(wanted));
    return IsServer(driver) ? 20 : 200;
}

TEST_P(RandomPairs, OfDefinitionsLeadFromOneToTheOtherAndBack) {
    for (unsigned seed = 1; seed <= PairsToTry(GetParam()); ++seed) {
        RandomModel model(seed);
        const std::string before = model.Json();
        model.Edit();
        SCOPED_TRACE("pair " + std::to_string(seed) + model.Story());
        ASSERT_NO_THROW(ExpectLeadsThereAndBack(Describe(before), Describe(model.Json())));
        if (HasFailure()) return;
    }
    EXPECT_LE(m_misfits, PairsToTry(GetParam()) / 10);
}

/// Breaks a run before each of its statements, one after the other.
TEST_P(RandomPairs, AFailureTakesAllBackOrLeavesARestThatLeadsThere) {
    const bool rollsBack = m_dialect.DefinitionsRollBack();
    for (unsigned seed = 1; seed <= (IsServer(GetParam()) ? 1U : 4U); ++seed) {
        RandomModel model(seed);
        const Tables before = Describe(model.Json());
        model.Edit();
        const Tables now = Describe(model.Json());
        const DefinitionDiff diff(m_dialect.Name(), before, now);
        const std::vector<AlterStep> steps = diff.Steps(true);
        const std::vector<std::string> wanted = Catalogue(*Create(now));
        for (std::size_t n = 0; n < steps.size(); n += rollsBack ? 1 : 4) {
            const Connection connection = Create(before);
            Fill(*connection, before);
            const std::vector<std::string> catalogue = Catalogue(*connection);
            const auto values = Kept(*connection, diff, false);
            std::vector<AlterStep> broken = steps;
            broken.insert(broken.begin() + static_cast<std::ptrdiff_t>(n),
                          {.text = "this is no statement", .reason = ""});
            std::vector<AlterStep> rest;
            scriptgen::DatabaseUpdate update(connection, m_dialect, [&](std::span<const AlterStep> left) {
                rest.assign(left.begin(), left.end());
                return std::string("Here.");
            });
            const Raised raised = ErrorOf([&] { update.Run(broken); });
            EXPECT_NE(raised.number, 0);
            EXPECT_THAT(raised.description, testing::HasSubstr(rollsBack ? "The database is as it was."
                                                                         : "statements were run. Here."));
            if (rollsBack) {
                EXPECT_EQ(Catalogue(*connection), catalogue) << n;
                EXPECT_EQ(Kept(*connection, diff, false), values) << n;
            } else {
                ASSERT_EQ(rest.size(), steps.size() - n + 1);
                rest.erase(rest.begin());
                update.Run(rest);
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
        const Connection connection = Create(Describe(model.Json()));
        model.Edit();
        SCOPED_TRACE("pair " + std::to_string(seed) + model.Story());
        const Tables now = Describe(model.Json());
        const auto diff =
            DefinitionDiff::FromLive(m_dialect, scriptgen::ReadLiveTables(*connection, m_dialect), now);
        ASSERT_NO_THROW(Run(connection, *diff)) << diff->Script(true);
        ASSERT_EQ(Catalogue(*connection, &now), Catalogue(*Create(now))) << diff->Script(true);
    }
}

std::vector<Driver> EngineDrivers() {
    std::vector<Driver> drivers = AvailableDrivers();
    std::erase(drivers, Driver::OdbcSqlite);
    return drivers;
}

INSTANTIATE_TEST_SUITE_P(Drivers, RandomPairs, testing::ValuesIn(EngineDrivers()), DriverName);

}  // namespace
}  // namespace korvex::tests
