#include "hosts/cli/korvex_command.h"
#include "hosts/cli/target_database.h"
#include "support/text_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace korvex::tests {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::StartsWith;

using Lines = std::vector<std::string>;

class Apply : public testing::Test {
  protected:
    /// Runs the command on files given by path.
    CommandResult ApplyFiles(const Lines& files, const Lines& options = {"--create"}) const {
        Lines arguments = {"apply", "--connection", m_target.Connection()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        arguments.insert(arguments.end(), files.begin(), files.end());
        return RunKorvex(arguments);
    }
    CommandResult ApplyText(const std::string& text) const {
        return ApplyFiles({m_target.Folder().Write("a.sql", text)});
    }
    /// Scripts of the example.
    CommandResult ApplyExample(const Lines& names) const {
        Lines files;
        for (const std::string& name : names)
            files.push_back(KORVEX_TEST_DATA "/scripts/" + name + ".sql");
        return ApplyFiles(files);
    }
    void Expect(const CommandResult& result, const std::string& output) const {
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.messages, "");
        EXPECT_EQ(result.output, output);
    }

    TargetDatabase m_target;
};

constexpr std::int32_t ConstraintViolated = ado::DbEConstraint;

const Lines ExampleKeys = {
    "tAddress2.FK_CustomerID tCustomer.CustomerID",
    "tAddress2.FK_OrderID tOrder.OrderID",
    "tContact.FK_ContactsID tContacts.ContactsID",
    "tContacts.FK_CustomerID tCustomer.CustomerID",
    "tCustomer.FK_OrderID tOrder.OrderID",
    "tLineAllocation.FK_LineAllocationsID tLineAllocations.LineAllocationsID",
    "tLineAllocations.FK_OrderLineID tOrderLine.OrderLineID",
    "tOrderLine.FK_OrderLinesID tOrderLines.OrderLinesID",
    "tOrderLines.FK_OrderID tOrder.OrderID",
    "tParcel.FK_ShipmentID tShipment.ShipmentID",
    "tPayment.FK_PaymentsID tPayments.PaymentsID",
    "tPayments.FK_OrderID tOrder.OrderID",
    "tProduct.FK_OrderLineID tOrderLine.OrderLineID",
    "tShipment.FK_ShipmentsID tShipments.ShipmentsID",
    "tShipments.FK_OrderID tOrder.OrderID",
    "trnationalDeliveryInstructions.FK_OrderID tOrder.OrderID",
};

/// What both dialects' scripts come to: the same database, whether the foreign keys come with the tables or
/// later, and in the end nothing.
class ApplyDialect : public Apply, public testing::WithParamInterface<const char*> {
  protected:
    std::string Name(const char* script) const { return std::string(GetParam()) + script; }

    void ExpectWholeDatabase() const {
        EXPECT_EQ(m_target.ForeignKeys(), ExampleKeys);
        EXPECT_THAT(m_target.Query("select type, count(*) from sqlite_master where name not like 'sqlite_%' "
                                   "group by type order by type"),
                    ElementsAre("index 16", "table 16", "trigger 2"));
        EXPECT_THAT(m_target.Query("select count(*) from sqlite_master where sql like '%AUTOINCREMENT%'"),
                    ElementsAre("16"))
            << "every table numbers its records";
        EXPECT_EQ(m_target.Execute("insert into tOrder (OrderNumber) values ('A')"), 0);
        EXPECT_EQ(m_target.Execute("insert into tCustomer (FK_OrderID) values (1)"), 0);
        EXPECT_EQ(m_target.Execute("insert into tCustomer (FK_OrderID) values (99)"), ConstraintViolated);
        EXPECT_EQ(m_target.Execute("delete from tOrder"), ConstraintViolated);
        EXPECT_EQ(m_target.Execute("delete from tCustomer"), 0);
    }
};

TEST_P(ApplyDialect, TablesWithForeignKeys) {
    Expect(ApplyExample({Name("Create"), Name("FKCr"), Name("SProc")}),
           "16 tables, 16 indexes and 16 constraints created\n"
           "128 procedures skipped: the embedded engine has none\n"
           "17 repeated statements skipped\n");
    ExpectWholeDatabase();
    Expect(ApplyExample({Name("FKdel"), Name("Del")}),
           "16 constraints and 16 tables dropped\n"
           "128 procedures skipped: the embedded engine has none\n"
           "14 repeated statements skipped\n");
    EXPECT_THAT(m_target.Objects(), IsEmpty());
}

TEST_P(ApplyDialect, ForeignKeysLater) {
    Expect(ApplyExample({Name("Create")}),
           "16 tables and 16 indexes created\n3 repeated statements skipped\n");
    const Lines withoutKeys = m_target.Objects();
    const std::string added = "16 constraints created\n4 repeated statements skipped\n";
    Expect(ApplyExample({Name("FKCr")}), added);
    ExpectWholeDatabase();
    Expect(ApplyExample({Name("FKCr")}), "20 repeated statements skipped\n");
    Expect(ApplyExample({Name("FKdel")}), "16 constraints dropped\n3 repeated statements skipped\n");
    EXPECT_THAT(m_target.ForeignKeys(), IsEmpty());
    EXPECT_EQ(m_target.Objects(), withoutKeys);
    Expect(ApplyExample({Name("FKCr")}), added);
    ExpectWholeDatabase();
}

INSTANTIATE_TEST_SUITE_P(Scripts, ApplyDialect, testing::Values("MS", "Sy"),
                         [](const auto& info) { return std::string(info.param); });

constexpr const char* Family =
    "CREATE TABLE dbo.A (AID int IDENTITY (1, 1) Not NULL, PRIMARY KEY CLUSTERED (AID))\nGO\n"
    "CREATE TABLE dbo.B (BID int IDENTITY (1, 1) Not NULL, PRIMARY KEY CLUSTERED (BID))\nGO\n"
    "CREATE TABLE dbo.C (CID int IDENTITY (1, 1) Not NULL, FK_AID int default 0, FK_BID int default 0,\n"
    " Data image NULL, CONSTRAINT PK_C PRIMARY KEY CLUSTERED (CID))\nGO\n"
    "CREATE INDEX C1 ON dbo.C(FK_AID)\nGO\n";
constexpr const char* FamilyKeys =
    "ALTER TABLE C\nADD CONSTRAINT FK_C_1 FOREIGN KEY (FK_AID)\n REFERENCES A(AID)\nGO\n"
    "ALTER TABLE C\nADD CONSTRAINT FK_C_1 FOREIGN KEY (FK_BID)\n REFERENCES B(BID)\nGO\n";

TEST_F(Apply, ATableThatGetsForeignKeysKeepsAllElse) {
    ApplyText(Family);
    for (const char* statement :
         {"create table Log (Text)",
          "create trigger CLog after delete on C begin insert into Log values (old.CID); end",
          "create view V as select CID from C", "create unique index CData on C(Data) where Data is not null",
          "insert into A values (1), (2)", "insert into B values (5)",
          "insert into C values (3, 1, 0, x'00FF'), (4, 0, 5, null), (9, 2, 5, null)",
          "delete from C where CID = 9"})
        ASSERT_EQ(m_target.Execute(statement), 0) << statement;

    Expect(ApplyText(FamilyKeys), "2 constraints created\n");
    EXPECT_THAT(m_target.Query("select CID, FK_AID, FK_BID, hex(Data) from C order by CID"),
                ElementsAre("3 1 - 00FF", "4 - 5 "));
    EXPECT_THAT(m_target.Query("select CID from V order by 1"), ElementsAre("3", "4"));
    EXPECT_EQ(m_target.Execute("insert into C (Data) values (x'00FF')"), ConstraintViolated)
        << "the unique index";
    EXPECT_EQ(m_target.Execute("insert into C (FK_AID) values (1)"), 0);
    EXPECT_THAT(m_target.Query("select max(CID) from C"), ElementsAre("10")) << "numbers are not given twice";
    EXPECT_EQ(m_target.Execute("delete from C where CID = 4"), 0);
    EXPECT_THAT(m_target.Query("select Text from Log"), ElementsAre("9", "4"));
}

TEST_F(Apply, ATableWithoutRecordsKeepsItsCounter) {
    ApplyText(Family);
    for (const char* statement : {"insert into C values (41, 0, 0, null)", "delete from C"})
        ASSERT_EQ(m_target.Execute(statement), 0) << statement;
    const Lines objects =
        m_target.Query("select type, name from sqlite_master where type <> 'trigger' order by 1, 2");
    Expect(ApplyText(FamilyKeys), "2 constraints created\n");
    EXPECT_EQ(m_target.Query("select type, name from sqlite_master where type <> 'trigger' order by 1, 2"),
              objects);
    EXPECT_EQ(m_target.Execute("insert into C (Data) values (null)"), 0);
    EXPECT_THAT(m_target.Query("select CID from C"), ElementsAre("42"));
}

// A record beneath one of several parents says 0 for the others.
TEST_F(Apply, NoParentIsNull) {
    ApplyText(std::string(Family) + FamilyKeys);
    ASSERT_EQ(m_target.Execute("insert into A values (1)"), 0);
    ASSERT_EQ(m_target.Execute("insert into B values (1)"), 0);
    EXPECT_EQ(m_target.Execute("insert into C (FK_AID) values (1)"), 0);
    EXPECT_EQ(m_target.Execute("insert into C (FK_AID, FK_BID) values (0, 1)"), 0);
    EXPECT_EQ(m_target.Execute("update C set FK_AID = 1, FK_BID = 0 where CID = 2"), 0);
    EXPECT_THAT(m_target.Query("select * from C"), ElementsAre("1 1 - -", "2 1 - -"));
    EXPECT_EQ(m_target.Execute("insert into C (FK_AID, FK_BID) values (1, 2)"), ConstraintViolated);
    EXPECT_EQ(m_target.Execute("update C set FK_BID = 7"), ConstraintViolated);

    Expect(
        ApplyText("ALTER TABLE C\nDROP CONSTRAINT FK_C_1\nGO\nALTER TABLE C\nDROP CONSTRAINT FK_C_1\nGO\n"),
        "2 constraints dropped\n1 repeated statement skipped\n");
    EXPECT_EQ(m_target.Execute("insert into C (FK_AID) values (0)"), 0);
    EXPECT_THAT(m_target.Query("select FK_AID from C where CID = 3"), ElementsAre("0"));
}

TEST_F(Apply, IndexesOfTwoTablesMayShareAName) {
    Expect(ApplyText("CREATE TABLE T (A int)\nGO\nCREATE TABLE T1 (A int)\nGO\nCREATE TABLE U (A int)\nGO\n"
                     "CREATE INDEX T1 ON T(A)\nGO\nCREATE INDEX X ON U(A)\nGO\nCREATE INDEX X ON T(A)\nGO\n"),
           "3 tables and 3 indexes created\n");
    EXPECT_THAT(m_target.Objects(),
                ElementsAre("index T1_T", "index X", "index X_T", "table T", "table T1", "table U"));
}

// Nothing is rewritten, nothing is left out; a plan is only printed.
TEST_F(Apply, PlainScriptsRunAsTheyStand) {
    const RepositoryFile repository(ReadFile(KORVEX_TEST_DATA "/orders.json"));
    const std::string folder = m_target.Folder().Path("scripts");
    RunKorvex({"script", "--repository", repository.Path(), "--dialect", "sqlite", "--out", folder});
    const std::string create = folder + "/LiteCreate.sql";
    const std::string remove = folder + "/LiteDel.sql";
    const std::string own =
        m_target.Folder().Write("own.sql",
                                "insert into tOrder (State)\n values (1);\ndrop table if exists X;\n"
                                "drop table if exists X;\n");
    const CommandResult plan = ApplyFiles({create, own}, {"--create", "--dry-run"});
    EXPECT_THAT(plan.output, StartsWith(create + ", line 1: create table tOrder\n" + create +
                                        ", line 23: create table tCustomer\n" + create +
                                        ", line 40: create index IX_tCustomer_FK_OrderID\n" + create +
                                        ", line 41: create trigger tCustomer_I\n"));
    EXPECT_THAT(plan.output,
                EndsWith("\n" + own + ", line 1: run insert into tOrder (State) ...\n" + own +
                         ", line 3: drop table X\n" + own + ", line 4: skip the repetition: drop table X\n"));
    EXPECT_FALSE(std::filesystem::exists(m_target.Path()));

    Expect(ApplyFiles({create}), "16 tables, 16 indexes and 30 triggers created\n");
    EXPECT_EQ(m_target.ForeignKeys(), ExampleKeys);
    const std::string script = ReadFile(create);
    for (const std::string& made :
         m_target.Query("select sql from sqlite_master where name not like 'sqlite_%'"))
        EXPECT_THAT(script, HasSubstr(made + ";\r\n"));
    ExpectFailure(ApplyFiles({own, create}), create + ", line 1: Table tOrder already exists (");
    EXPECT_THAT(m_target.Query("select count(*) from tOrder"), ElementsAre("0"));
    EXPECT_EQ(ApplyFiles({remove}, {"--dry-run"}).exitCode, 0);
    Expect(ApplyFiles({own}), "1 table dropped\n1 other statement run\n1 repeated statement skipped\n");
    Expect(ApplyFiles({remove}), "16 tables dropped\n");
    EXPECT_THAT(m_target.Objects(), IsEmpty());
    for (const char* end : {"commit", "end", "begin"})
        ExpectFailure(ApplyText("create table T (A int);\n" + std::string(end) + ";\n"), "line 2: ");
    EXPECT_THAT(m_target.Objects(), IsEmpty());
}

TEST_F(Apply, StatementsOfAnyKindRunInOrder) {
    Expect(
        ApplyText("create table T (A int, B text);\nrem it's a remark\ninsert into T\n values (1, 'a;\nb');\n"
                  "create trigger TR after insert on T\nbegin\n  delete from T where A = 1;\nend;\n/\n"
                  "insert into T values (2, 'c');\n"),
        "1 table and 1 trigger created\n2 other statements run\n");
    EXPECT_THAT(m_target.Query("select * from T"), ElementsAre("2 c"));
    Expect(ApplyText("\r\n"), "nothing to do\n");
    Expect(ApplyFiles({m_target.Folder().Write("b.sql", "delete from T\n")}, {"--style", "go"}),
           "1 other statement run\n");
    EXPECT_THAT(m_target.Query("select * from T"), IsEmpty());
}

struct FailureCase {
    const char* name;
    std::string script;   ///< applied to the family with the record 1 in A and 1 1 0 in C
    std::string message;  ///< a part of it
};

void PrintTo(const FailureCase& test, std::ostream* stream) { *stream << test.name; }

class ApplyFailure : public Apply, public testing::WithParamInterface<FailureCase> {};

TEST_P(ApplyFailure, NamesFileAndLineAndChangesNothing) {
    ApplyText(Family);
    ASSERT_EQ(m_target.Execute("insert into A values (1)"), 0);
    ASSERT_EQ(m_target.Execute("insert into C values (1, 1, 0, null)"), 0);
    const Lines objects = m_target.Objects();
    const CommandResult result =
        ApplyText("create table Before (A int)\nGO\ndelete from C where CID = 2\nGO\n" + GetParam().script);
    ExpectFailure(result, m_target.Folder().Path("a.sql") + ", " + GetParam().message);
    EXPECT_THAT(result.messages, MatchesRegex("korvex: error -?[0-9]+: [^\n]*\n"));
    EXPECT_EQ(m_target.Objects(), objects);
    EXPECT_THAT(m_target.Query("select * from C"), ElementsAre("1 1 0 -"));
    EXPECT_THAT(m_target.ForeignKeys(), IsEmpty());
}

const FailureCase Failures[] = {
    {"Syntax", "\n\nselect *\n frm C\nGO\n", "line 7: Near \"frm\": syntax error"},
    {"TableIsThere", "CREATE TABLE C (A int)\nGO\n", "line 5: "},
    {"SecondStatement", "delete from C; delete from A\nGO\n", "line 5: "},
    {"NeverClosed", "insert into C\n values ('x)\nGO\n",
     "line 6: The quote that begins here is never closed."},
    {"KeyOfNoTable", "ALTER TABLE X\nADD CONSTRAINT F FOREIGN KEY (A) REFERENCES A(AID)\nGO\n",
     "line 5: There is no table X."},
    {"KeyToNoTable", "ALTER TABLE C\nADD CONSTRAINT F FOREIGN KEY (FK_AID) REFERENCES X(AID)\nGO\n",
     "line 5: There is no table X."},
    {"SecondKeyToNoTable",
     "ALTER TABLE C\nADD CONSTRAINT F FOREIGN KEY (FK_AID) REFERENCES A(AID)\nGO\nALTER TABLE C\nADD "
     "CONSTRAINT F FOREIGN KEY (CID) REFERENCES X(AID)\nGO\n",
     "line 8: There is no table X."},
    {"KeyOfNoColumn", "ALTER TABLE C\nADD CONSTRAINT F FOREIGN KEY (X) REFERENCES A(AID)\nGO\n", "line 5: "},
    {"KeyOfNoColumnOfANewTable",
     "CREATE TABLE D (A int)\nGO\nALTER TABLE D\nADD CONSTRAINT F FOREIGN KEY (X) REFERENCES A(AID)\nGO\n",
     "line 7: The table D has no column X."},
    {"KeyToNoKey", "ALTER TABLE C\nADD CONSTRAINT F FOREIGN KEY (FK_AID) REFERENCES B(X)\nGO\n",
     "line 5: Foreign key mismatch"},
    {"KeyThatRecordsViolate", "ALTER TABLE C\nADD CONSTRAINT F FOREIGN KEY (FK_AID) REFERENCES B(BID)\nGO\n",
     "line 5: Record 1 of C refers to a record of B that is not there."},
    {"KeyOfANewTableThatRecordsViolate",
     "CREATE TABLE D (A int)\nGO\ninsert into D values (7)\nGO\nALTER TABLE D\nADD CONSTRAINT F FOREIGN KEY "
     "(A) REFERENCES A(AID)\nGO\n",
     "line 9: Record 1 of D refers to a record of A that is not there."},
    {"EmptyReference", "ALTER TABLE C\nADD CONSTRAINT F FOREIGN KEY (FK_AID)\n REFERENCES ()\nGO\n",
     "line 5: "},
    {"DropOfNoKey", "ALTER TABLE C\nDROP CONSTRAINT F\nGO\n",
     "line 5: The table C has no foreign key of the name F."},
    {"Identity", "CREATE TABLE D (ID int IDENTITY (5, 1))\nGO\n",
     "line 5: Column ID: IDENTITY (5,1) is not possible here"},
    {"DropOfAParent",
     "CREATE TABLE D (A int, CONSTRAINT F FOREIGN KEY (A) REFERENCES A(AID))\nGO\ninsert into D values "
     "(1)\nGO\nDROP TABLE A\nGO\n",
     "line 9: FOREIGN KEY constraint failed"},
    {"Commit", "COMMIT\nGO\n", "line 5: COMMIT cannot stand in a script"},
    {"End", "-- done\n;end transaction\nGO\n", "line 6: END cannot stand"},
    {"Rollback", "rollback\nGO\n", "line 5: ROLLBACK cannot stand"},
    {"Savepoint", "/* a */ savepoint a\nGO\n", "line 5: SAVEPOINT cannot stand"},
    {"Release", "release a\nGO\n", "line 5: RELEASE cannot stand"},
    {"Oracle", "create sequence SEQ_C increment by 1\nGO\n", "line 5: "},
};
INSTANTIATE_TEST_SUITE_P(Scripts, ApplyFailure, testing::ValuesIn(Failures),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(Apply, AFileThatTheRunMadeGoesWhenItFails) {
    const std::string bad = m_target.Folder().Write("b.sql", "create table T (A int)\nGO\nfrm\nGO\n");
    ExpectFailure(ApplyFiles({bad}), "b.sql, line 3: ");
    EXPECT_FALSE(std::filesystem::exists(m_target.Path()));
    m_target.Folder().Write("target.db", "");
    ExpectFailure(ApplyFiles({bad}), "b.sql, line 3: ");
    Expect(ApplyText("create table T (A int)\n"), "1 table created\n");
    ExpectFailure(ApplyFiles({bad}), "b.sql, line 1: ");
    EXPECT_THAT(m_target.Objects(), ElementsAre("table T"));
}

TEST_F(Apply, BadInput) {
    const std::string script = m_target.Folder().Write("a.sql", "create table T (A int)\n");
    const std::string missing = m_target.Folder().Path("missing.sql");
    const struct {
        Lines arguments;
        int exitCode;
        std::string message;
    } cases[] = {
        {{"apply", script}, 2, "--connection is required"},
        {{"apply", "--connection", m_target.Connection()}, 2, "FILE is required"},
        {{"apply", "--connection", m_target.Connection(), script}, 1, "target.db"},
        {{"apply", "--connection", "", script}, 1, "names no provider"},
        {{"apply", "--connection", "Provider", script}, 1, "has no \"=\""},
        {{"apply", "--connection", "Provider=Other", script}, 1, "no provider \"Other\""},
        {{"apply", "--connection", "DSN=x", "--create", script}, 1, "Only a database file can be made"},
        {{"apply", "--connection", m_target.Connection(), "--create", script, missing},
         1,
         "missing.sql: No such file"},
        {{"apply", "--connection", m_target.Connection(), "--style", "other", script}, 2, "--style"},
    };
    for (const auto& test : cases)
        ExpectFailure(RunKorvex(test.arguments), test.message, test.exitCode);
    EXPECT_THAT(m_target.Objects(), IsEmpty());
}

}  // namespace
}  // namespace korvex::tests
