#include "platform/native/native_platform.h"
#include "repository/repository.h"
#include "repository/schema.h"
#include "repository/stored_rows.h"
#include "scriptgen/generator.h"
#include "support/error_of.h"
#include "support/instrumented.h"
#include "support/recording_parts.h"
#include "support/temp_folder.h"
#include "support/test_seam.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

namespace korvex::scriptgen {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A repository on the embedded engine, filled row by row.
class TableWalk : public testing::Test {
  public:
    TableWalk() {
        m_database = m_platform.repositoryEngine->CreateDatabase(m_folder.Path("walk.db"));
        repository::CreateSchema(*m_database);
        m_repository.OpenRepository(m_folder.Path("walk.db"));
    }

  protected:
    void Run(const std::string& sql) { m_database->Execute(sql); }
    void Definition(const std::string& storage, int root) {
        Run("INSERT INTO tDataDefs VALUES ('" + storage + "', " + std::to_string(root) + ")");
    }
    /// `columns`: TableName, CollectionObjectID, IsIncluded.
    void Object(int id, const std::string& columns) {
        Run("INSERT INTO tObjects (ObjectID, Name, TableName, CollectionObjectID, IsIncluded) VALUES (" +
            std::to_string(id) + ", 'Name', " + columns + ")");
    }
    void Interface(int objectID, int interfaceID) {
        Run("INSERT INTO tObjectInterfaces (ObjectID, InterfaceID) VALUES (" + std::to_string(objectID) +
            ", " + std::to_string(interfaceID) + ")");
    }
    void Child(int interfaceID, int objectID) {
        Run("INSERT INTO tValues (InterfaceID, ChildObjectID, DataType, IsIncluded) VALUES (" +
            std::to_string(interfaceID) + ", " + std::to_string(objectID) + ", 9, 1)");
    }
    /// `columns`: FieldName, DataType, MaxLength, IsAutoNumber, DefaultVal, IsIncluded, ChildObjectID.
    void Value(int valueID, int interfaceID, const std::string& columns) {
        Run("INSERT INTO tValues (ValueID, InterfaceID, FieldName, DataType, MaxLength, IsAutoNumber, "
            "DefaultVal, IsIncluded, ChildObjectID) VALUES (" +
            std::to_string(valueID) + ", " + std::to_string(interfaceID) + ", " + columns + ")");
    }

    void Generate(ScriptType type, const std::string& storage) {
        m_run.m_nScriptType = type;
        repository::StoredRows rows(m_repository);
        GenerateForStorage(m_run, rows, storage);
    }

    std::vector<std::string> Tables() const {
        static const std::regex Header("CREATE TABLE ([^\r]*)\r\n");
        const std::string& script = m_run.Text(ScriptKind::Create);
        std::vector<std::string> names;
        for (std::sregex_iterator match(script.begin(), script.end(), Header), end; match != end; ++match) {
            names.push_back((*match)[1]);
        }
        return names;
    }

    tests::TempFolder m_folder;
    tests::Journal m_messages = std::make_shared<std::vector<std::string>>();
    std::shared_ptr<tests::TestSeam> m_seam = std::make_shared<tests::TestSeam>();
    Platform m_platform = MakePlatform();
    std::unique_ptr<dao::Database> m_database;
    repository::Repository m_repository{m_platform};
    RunState m_run;

  private:
    Platform MakePlatform() const {
        Platform platform = native::NativePlatform({.seam = m_seam});
        platform.desktop = std::make_shared<tests::RecordingDesktop>(m_messages);
        return platform;
    }
};

TEST_F(TableWalk, OwnTableThenElementsThenChildrenOncePerPath) {
    Definition("Shop", 1);
    Object(1, "'tOrder', 2, 1");
    Object(2, "'tLine', 0, 1");
    Object(3, "'tSite', 0, 1");
    Object(4, "'tHidden', 6, 0");
    Object(5, "'tNote', 0, 1");
    Object(6, "'tBelowHidden', 0, 1");
    Object(7, "NULL, 6, 1");
    Interface(1, 11);
    Interface(1, 10);
    Interface(5, 50);
    Interface(4, 40);
    Child(10, 4);
    Child(10, 7);
    Child(10, 5);
    Child(10, 99);
    Child(11, 3);
    Child(40, 6);
    Child(50, 3);
    Child(50, 3);

    Generate(ScriptType::Sybase, "Shop");
    EXPECT_THAT(Tables(), ElementsAre("tOrder", "tLine", "tSite", "tNote", "tSite", "tSite"));
    EXPECT_THAT(*m_messages, IsEmpty());
}

TEST_F(TableWalk, SendsEachStatementOnce) {
    Definition("Shop", 1);
    Object(1, "'tOrder', 0, 1");
    Object(9, "'tCustomer', 0, 1");
    Interface(1, 10);
    Value(100, 10, "'FK_CustomerID', 3, '0', 0, NULL, 1, 0");
    Value(900, 90, "'CustomerID', 3, '0', 1, NULL, 1, 0");
    Run("INSERT INTO tForeignKeys VALUES (1, 100, 9, 900, '')");

    m_seam->Record();
    Generate(ScriptType::SqlServer, "Shop");
    EXPECT_THAT(
        m_seam->Executed(),
        ElementsAre(
            "select * from tDataDefs where Storage='Shop'",
            "SELECT CollectionObjectID, TableName from tObjects where IsIncluded <> 0and TableName is not "
            "null "
            "and ObjectID = 1",
            "select InterfaceID from tObjectInterfaces where ObjectID= 1",
            "SELECT ValueID, MaxLength, DataType, FieldName, IsAutoNumber, DefaultVal FROM tValues where "
            "ChildObjectID = 0 and FieldName is not null and IsIncluded <> 0  and DataType <> 13  and "
            "InterfaceID = 10",
            "SELECT ValueID, Seq from tPrimaryKeys where ObjectID = 1",
            "SELECT tValues.FieldName, tForeignKeys.FKObjectID, tForeignKeys.FKValueID FROM tObjects INNER "
            "JOIN "
            "(tForeignKeys INNER JOIN tValues ON tForeignKeys.ValueID = tValues.ValueID) ON "
            "tObjects.ObjectID = "
            "tForeignKeys.ObjectID where tObjects.ObjectID =1",
            "SELECT Name from tObjects where CollectionObjectID = 0  and IsIncluded <> 0 and TableName  is "
            "not "
            "null and ObjectID =1",
            "SELECT Name from tObjects where CollectionObjectID <> 0  and IsIncluded <> 0 and TableName  is "
            "not "
            "null and ObjectID =1",
            "select TableName from tObjects where ObjectID= 9",
            "select FieldName from tValues where ValueID= 900",
            "select InterfaceID from tObjectInterfaces where ObjectID= 1",
            "SELECT ChildObjectID FROM tValues WHERE ChildObjectID > 0 and InterfaceID = 10"));
    EXPECT_EQ(m_run.Text(ScriptKind::CreateForeignKeys),
              "ALTER TABLE tOrder\r\nADD CONSTRAINT FK_tOrder_1 FOREIGN KEY (FK_CustomerID)\r\n"
              " REFERENCES tCustomer(CustomerID)\r\nGO\r\n\r\n");
}

TEST_F(TableWalk, ColumnsOfATable) {
    Definition("Shop", 1);
    Object(1, "'tOrder', 2, 1");
    Object(2, "'tLine', 0, 1");
    Object(3, "'tOther', NULL, 1");
    Interface(1, 11);
    Interface(1, 10);
    Interface(2, 20);
    Value(100, 10, "' Name ', 8, NULL, 0, ' abc ', 1, 0");
    Value(101, 10, "'NotAColumn', 13, '0', 0, NULL, 1, 0");
    Value(102, 10, "NULL, 3, '0', 0, NULL, 1, 0");
    Value(103, 10, "'NotIncluded', 3, '0', 0, NULL, 0, 0");
    Value(104, 10, "'HoldsAChild', 9, '0', 0, NULL, 1, 3");
    Value(105, 10, "'Serial', 3, '', 1, NULL, -1, 0");
    Value(110, 11, "'OrderNo', 3, '0', 0, NULL, 1, 0");
    Value(111, 11, "'Year', 2, '0', 0, NULL, 1, 0");
    Value(120, 20, "'Remark', 8, ' 300 ', 0, NULL, 1, 0");
    Value(121, 20, "'FK_OrderNo', 3, '0', 0, NULL, 1, 0");
    Value(122, 20, "'FK_orderno', 3, '0', 0, NULL, 1, 0");
    Run("INSERT INTO tPrimaryKeys VALUES (1, 110, 1), (1, 111, 0), (2, 110, 0)");
    Run("INSERT INTO tForeignKeys VALUES (2, 121, 1, 110, '')");

    Generate(ScriptType::SqlServer, "Shop");
    EXPECT_EQ(m_run.Text(ScriptKind::Create),
              "CREATE TABLE dbo.tOrder\r\n"
              "( \r\n"
              "\tOrderNo int Not NULL,\r\n"
              "\tYear smallint Not NULL,\r\n"
              "\tName varchar(50) default 'abc',\r\n"
              "\tSerial int IDENTITY (1, 1) Not NULL,\r\n"
              "\tQORSelectedItem int default 0,\r\n"
              "\tQORCounterHolder int default 0,\r\n"
              "\tCONSTRAINT PK_tOrder PRIMARY KEY CLUSTERED\r\n"
              "\t(\r\n"
              "\t\tYear, OrderNo\r\n"
              "\t)\r\n"
              ")\r\n"
              "GO\r\n"
              "\r\n"
              "CREATE TABLE dbo.tLine\r\n"
              "( \r\n"
              "\tRemark text NULL,\r\n"
              "\tFK_OrderNo int default 0,\r\n"
              "\tFK_orderno int default 0,\r\n"
              "\tQORSelectState int default 0,\r\n"
              "\tQORCounter int default 0\r\n"
              ")\r\n"
              "GO\r\n"
              "\r\n"
              "CREATE INDEX tLine1 ON dbo.tLine(FK_OrderNo)\r\n"
              "GO\r\n"
              "\r\n"
              "CREATE TABLE dbo.tOther\r\n"
              "( \r\n"
              "\r\n"
              ")\r\n"
              "GO\r\n"
              "\r\n");
}

TEST_F(TableWalk, ObjectThatIsItsOwnAncestorIsReported) {
    Definition("Shop", 1);
    Object(1, "'tOne', 0, 1");
    Object(2, "'tTwo', 3, 1");
    Object(3, "'tThree', 0, 1");
    Interface(1, 10);
    Interface(3, 30);
    Child(10, 2);
    Child(30, 2);
    const tests::Raised raised = tests::ErrorOf([&] { Generate(ScriptType::SqlServer, "Shop"); });
    EXPECT_EQ(raised, automation::OutOfStackSpace);
    EXPECT_THAT(raised.description, HasSubstr("Object 2 "));
    EXPECT_THAT(Tables(), ElementsAre("dbo.tOne", "dbo.tTwo", "dbo.tThree"));
}

TEST_F(TableWalk, HundredThousandLevels) {
    const int levels = tests::IsInstrumented ? 20000 : 100000;
    Definition("Deep", 1);
    Run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " + std::to_string(levels) +
        ") INSERT INTO tObjects (ObjectID, TableName, CollectionObjectID, IsIncluded) "
        "SELECT i, 't' || i, i + 1, 1 FROM n");
    Generate(ScriptType::Oracle, "Deep");
    const auto& drops = m_run.Text(ScriptKind::Drop);
    EXPECT_EQ(std::count(drops.begin(), drops.end(), ';'), levels);
    EXPECT_THAT(drops.substr(drops.size() - 30),
                HasSubstr("DROP TABLE t" + std::to_string(levels) + "; \r\n"));
}

TEST_F(TableWalk, FailedQueryIsShownAndTheRunGoesOn) {
    Definition("Shop", 1);
    Object(1, "'tOrder', 2, 1");
    Object(2, "'tLine', 0, 1");
    Interface(1, 10);
    Value(100, 10, "'OrderNo', 3, '0', 0, NULL, 1, 0");
    Run("INSERT INTO tPrimaryKeys VALUES (1, 100, 0)");
    Run("DROP TABLE tPrimaryKeys");

    Generate(ScriptType::Sybase, "Shop");
    EXPECT_THAT(*m_messages, ElementsAre(HasSubstr("tPrimaryKeys"), HasSubstr("tPrimaryKeys")));
    EXPECT_THAT(Tables(), ElementsAre("tOrder", "tLine"));
    EXPECT_THAT(m_run.Text(ScriptKind::Create), HasSubstr("\tOrderNo int default 0,\r\n"));
}

TEST_F(TableWalk, FailedQueryForAnObjectLeavesItOut) {
    Definition("Shop", 1);
    Object(1, "'tOrder', 2, 1");
    Run("DROP TABLE tObjects");
    Generate(ScriptType::Sybase, "Shop");
    EXPECT_THAT(*m_messages, ElementsAre(HasSubstr("tObjects")));
    EXPECT_EQ(m_run.Text(ScriptKind::Create), "");
}

TEST_F(TableWalk, ValueThatDoesNotConvertEndsTheRunAndNamesItsTable) {
    Definition("Shop", 1);
    Object(1, "'tOrder', 2, 1");
    Object(2, "'tLine', 0, 1");
    Interface(2, 20);
    const struct {
        std::string value;
        std::int32_t number;
        std::string named;
    } cases[] = {
        {"'Note', 8, 'long', 0, NULL, 1, 0", automation::TypeMismatch, "tLine.Note"},
        {"'Note', 'text', '0', 0, NULL, 1, 0", automation::TypeMismatch, "DataType of the tValues row with"},
        {"'Note', 4294967296, '0', 0, NULL, 1, 0", automation::Overflow, "DataType of the tValues row with"},
    };
    for (const auto& c : cases) {
        m_run = {};
        Run("DELETE FROM tValues");
        Value(200, 20, c.value);
        const tests::Raised raised = tests::ErrorOf([&] { Generate(ScriptType::SqlServer, "Shop"); });
        EXPECT_EQ(raised, c.number) << c.value;
        EXPECT_THAT(raised.description, HasSubstr(c.named));
        EXPECT_THAT(Tables(), ElementsAre("dbo.tOrder")) << "the text until the error is to stay";
    }
}

}  // namespace
}  // namespace korvex::scriptgen
