#include "../scriptgen/migration/random_model.h"
#include "hosts/cli/korvex_command.h"
#include "hosts/cli/source.h"
#include "scriptgen/migration/definition_diff.h"
#include "scriptgen/migration/definition_identity.h"
#include "scriptgen/script_text.h"
#include "servers/oracle_schema.h"
#include "support/text_files.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>

namespace korvex::tests {
namespace {

using scriptgen::DescribedTable;
using Texts = std::vector<std::string>;
using Tables = std::vector<DescribedTable>;

/// A database as the published scripts of a model make it.
class OracleDatabase {
  public:
    explicit OracleDatabase(const RandomModel& model) {
        const std::string file = m_database.Folder().Write("model.json", model.Json());
        cli::Source source = cli::OpenSource(native::NativePlatform(), file);
        m_tables = scriptgen::DescribeState(repository::Catalog::Read(source.repository.Open()), "S", "FK_",
                                            &*source.numbered)
                       .tables;
        const std::string folder = m_database.Folder().Path("scripts");
        const CommandResult result = RunKorvex({"script", file, "--dialect", "oracle", "--out", folder});
        EXPECT_EQ(result.exitCode, 0) << result.messages;
        for (const char* name : {"OraCreate.sql", "OraFKCr.sql", "OraSProc.sql"})
            ApplyOracle(m_database, name, ReadFile(folder + "/" + name));
    }

    const Tables& Model() const noexcept { return m_tables; }
    void Apply(const std::string& name, const std::string& text) { ApplyOracle(m_database, name, text); }
    Texts Rows(const std::string& query) { return RowsOf(*m_connection, query); }

    /// All that the server tells, in one order.
    Texts Catalogue() {
        const std::string here = " = database() ";
        Texts lines;
        for (
            const std::string& query :
            {"select table_name, column_name, column_type, column_default, is_nullable from "
             "information_schema.columns where table_schema" +
                 here,
             "select table_name, index_name, seq_in_index, column_name from information_schema.statistics "
             "where table_schema" +
                 here,
             "select table_name, constraint_name, column_name, referenced_table_name, referenced_column_name "
             "from information_schema.key_column_usage where table_schema" +
                 here,
             "select table_name from information_schema.tables where table_type = 'SEQUENCE' and table_schema" +
                 here,
             "select event_object_table, trigger_name, action_statement from information_schema.triggers "
             "where trigger_schema" +
                 here,
             "select routine_name, routine_definition from information_schema.routines where routine_schema" +
                 here,
             "select specific_name, parameter_name, dtd_identifier from information_schema.parameters where "
             "specific_schema" +
                 here})
            std::ranges::copy(Rows(query), std::back_inserter(lines));
        std::ranges::sort(lines);
        return lines;
    }

    /// Two records in each table, the second one without parents; values that every type can hold.
    void Fill() {
        std::set<std::string> filled;
        for (const DescribedTable& table : m_tables) {
            for (const bool isFirst : {true, false}) {
                Texts names, values;
                for (const scriptgen::Column& column : table.Columns) {
                    if (column.IsPrimaryKey) continue;
                    const auto key = std::ranges::find(table.ForeignKeys, column.FieldName,
                                                       &scriptgen::ForeignKey::FieldName);
                    const bool isNull = key != table.ForeignKeys.end()
                                            ? !isFirst || !filled.contains(key->Table)
                                            : column.DataType == 7 || column.DataType == 12;
                    names.push_back(column.FieldName);
                    values.push_back(isNull ? "null" : "1");
                }
                m_connection->Execute("insert into " + table.Name + " (" + scriptgen::Joined(names) +
                                      ") values (" + scriptgen::Joined(values) + ")");
            }
            filled.insert(table.Name);
        }
    }

  private:
    const ServerDatabase m_database{OracleReader};
    const std::shared_ptr<ado::Connection> m_connection = m_database.Connect(OracleMode);
    Tables m_tables;
};

/// The values of all columns that stay, but for texts that become dates, numbers without their decimals, by
/// the names that they had.
std::map<std::string, Texts> Kept(OracleDatabase& database, const scriptgen::DefinitionDiff& diff,
                                  bool isAfter) {
    std::map<std::string, Texts> values;
    for (const scriptgen::TablePlan& plan : diff.Compared().Tables()) {
        if (!plan.Stays()) continue;
        const DescribedTable& table = isAfter ? *plan.now : *plan.before;
        for (const scriptgen::ColumnPlan& column : plan.columns) {
            if (column.before == nullptr || column.now == nullptr || !column.conversion.isPossible) continue;
            if (column.now->DataType == 7 && column.before->DataType != 7) continue;
            Texts& rows = values[plan.before->Name + "." + column.before->FieldName];
            rows = database.Rows("select " + (isAfter ? column.now : column.before)->FieldName + " from " +
                                 table.Name + " order by " + table.PrimaryKey.front());
            for (std::string& row : rows)
                row = row.substr(0, row.find('.'));
        }
    }
    return values;
}

TEST(OracleAlter, LeadsFromOneDefinitionToTheOther) {
    const char* wanted = std::getenv("KORVEX_RANDOM_PAIRS");
    unsigned left = wanted != nullptr ? static_cast<unsigned>(std::atoi(wanted)) : 20;
    for (unsigned seed = 1; left > 0; ++seed) {
        RandomModel model(seed);
        OracleDatabase old(model);
        model.Edit();
        SCOPED_TRACE("pair " + std::to_string(seed) + model.Story());
        OracleDatabase fresh(model);
        const scriptgen::DefinitionDiff diff("oracle", old.Model(), fresh.Model());
        if (diff.Compared().Has(scriptgen::ChangeClass::Blocked)) continue;
        --left;
        old.Fill();
        const auto values = Kept(old, diff, false);
        old.Apply("OraAlter.sql", diff.Script(true));
        ASSERT_FALSE(testing::Test::HasFailure()) << diff.Script(true);
        ASSERT_EQ(old.Catalogue(), fresh.Catalogue()) << diff.Script(true);
        ASSERT_EQ(Kept(old, diff, true), values) << diff.Script(true);
    }
}

}  // namespace
}  // namespace korvex::tests
