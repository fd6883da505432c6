#include "hosts/cli/apply/embedded_rewrite.h"

#include "automation/error.h"
#include "hosts/cli/apply/apply_plan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

namespace korvex::cli {
namespace {

std::string OnOneLine(const std::string& text) {
    const std::string joined = std::regex_replace(text, std::regex("\\s+"), " ");
    return std::regex_replace(std::regex_replace(joined, std::regex("\\( "), "("), std::regex(" \\)"), ")");
}

/// A statement as the embedded engine gets it, or the error.
std::string Rewritten(const std::string& statement) {
    try {
        return OnOneLine(RewriteForEmbedded(SubjectOf(statement), statement));
    } catch (const automation::Error& error) {
        return std::to_string(error.Number()) + " " + error.Description();
    }
}

struct RewriteCase {
    const char* name;
    std::string statement;
    std::string expected;
};

void PrintTo(const RewriteCase& test, std::ostream* stream) { *stream << test.name; }

class EmbeddedRewrite : public testing::TestWithParam<RewriteCase> {};

TEST_P(EmbeddedRewrite, Statement) { EXPECT_EQ(Rewritten(GetParam().statement), GetParam().expected); }

const RewriteCase Statements[] = {
    {"OwnersGo", "INSERT INTO dbo.T SELECT DBO.a, 'dbo.b' FROM [dbo].U, dboX.V",
     "INSERT INTO T SELECT a, 'dbo.b' FROM U, dboX.V"},
    {"GuardedDrop",
     "if exists(select * from sysobjects where id = object_id('dbo.T') and sysstat & 0xf = 3)\r\n\tDROP "
     "TABLE dbo.T",
     "DROP TABLE IF EXISTS \"T\""},
    {"PlainDrop", "DROP TABLE dbo.T", "DROP TABLE T"},
    {"Index", "CREATE UNIQUE CLUSTERED INDEX T1 ON dbo.T(a, b)", "CREATE UNIQUE INDEX T1 ON T(a, b)"},
    {"OtherTextStays", "update dbo.T set clustered = ' identity' -- dbo.",
     "update T set clustered = ' identity' -- dbo."},
};

const RewriteCase Keys[] = {
    {"IdentityAlone",
     "CREATE TABLE dbo.T\r\n( \r\n\tID int IDENTITY (1, 1) Not NULL,\r\n\tA int default 0,\r\n\tCONSTRAINT "
     "PK_T PRIMARY KEY CLUSTERED\r\n\t(\r\n\t\tID\r\n\t)\r\n)",
     "CREATE TABLE T (ID INTEGER Not NULL, A int default 0, CONSTRAINT PK_T PRIMARY KEY (ID AUTOINCREMENT))"},
    {"SybaseIdentity",
     "CREATE TABLE T\r\n( \r\n\tID numeric(18, 0)  identity Not NULL,\r\n\tCONSTRAINT PK_T PRIMARY KEY "
     "CLUSTERED\r\n\t(\r\n\t\tID\r\n\t)\r\n)",
     "CREATE TABLE T (ID INTEGER Not NULL, CONSTRAINT PK_T PRIMARY KEY (ID AUTOINCREMENT))"},
    {"IdentityInALongerKey",
     "CREATE TABLE T (A int Not NULL, ID int IDENTITY (1, 1) Not NULL, CONSTRAINT PK_T PRIMARY KEY CLUSTERED "
     "(A, ID))",
     "CREATE TABLE T (A int Not NULL, ID INTEGER Not NULL PRIMARY KEY AUTOINCREMENT, CONSTRAINT PK_T UNIQUE "
     "(A, ID))"},
    {"IdentityBesideTheKey",
     "CREATE TABLE T (A int Not NULL, ID int IDENTITY (1, 1) Not NULL, PRIMARY KEY (A))",
     "CREATE TABLE T (A int Not NULL, ID INTEGER Not NULL PRIMARY KEY AUTOINCREMENT, UNIQUE (A))"},
    {"IdentityWithoutAKey", "CREATE TABLE T (ID int identity, B text NULL)",
     "CREATE TABLE T (ID INTEGER PRIMARY KEY AUTOINCREMENT, B text NULL)"},
    {"KeyInTheColumn", "CREATE TABLE T (ID int NOT NULL IDENTITY(1,1) PRIMARY KEY NONCLUSTERED)",
     "CREATE TABLE T (ID INTEGER NOT NULL PRIMARY KEY AUTOINCREMENT)"},
    {"KeyWithoutIdentity",
     "CREATE TABLE dbo.T (A int Not NULL, B int Not NULL, CONSTRAINT PK_T PRIMARY KEY CLUSTERED (A, B), "
     "UNIQUE CLUSTERED (B))",
     "CREATE TABLE T (A int Not NULL, B int Not NULL, CONSTRAINT PK_T PRIMARY KEY (A, B), UNIQUE (B))"},
    {"ColumnNamedIdentity", "CREATE TABLE T (Identity int NULL, [key] int)",
     "CREATE TABLE T (Identity int NULL, [key] int)"},
    {"OtherCounting", "CREATE TABLE T (ID int IDENTITY (100, 1) Not NULL)",
     "5 Column ID: IDENTITY (100,1) is not possible here; the embedded engine counts from 1 by 1."},
    {"TwoIdentities", "CREATE TABLE T (A int IDENTITY (1, 1), B int IDENTITY (1, 1))",
     "5 Column B: a table has one IDENTITY column, and A is it already."},
    {"NoColumns", "CREATE TABLE dbo.T\r\n( \r\n\r\n)", "CREATE TABLE T ()"},
};

const RewriteCase Defaults[] = {
    {"NothingInFrontOfAComma", "CREATE TABLE T (A varchar(50) default ,B int)",
     "CREATE TABLE T (A varchar(50), B int)"},
    {"NothingAtTheEnd", "CREATE TABLE T (A varchar(50) default )", "CREATE TABLE T (A varchar(50))"},
    {"Literals",
     "CREATE TABLE T (A text default 'it''s, (default)', B int default -1, C datetime default Null, D bit "
     "default True, E float default 1E-3)",
     "CREATE TABLE T (A text default 'it''s, (default)', B int default -1, C datetime default Null, D bit "
     "default True, E float default (1E-3))"},
    {"Expressions",
     "CREATE TABLE T (A datetime default 1/1/2000, B int default (1 + 2), C datetime default getdate() NOT "
     "NULL)",
     "CREATE TABLE T (A datetime default (1/1/2000), B int default (1 + 2), C datetime default "
     "CURRENT_TIMESTAMP NOT NULL)"},
    {"ConstraintBehind",
     "CREATE TABLE T (A int default 5 NULL, B int default 0 CHECK (B > 0), C int CONSTRAINT D default 0 "
     "REFERENCES U(X))",
     "CREATE TABLE T (A int default 5 NULL, B int default 0 CHECK (B > 0), C int CONSTRAINT D default 0 "
     "REFERENCES U(X))"},
};

std::string CaseName(const testing::TestParamInfo<RewriteCase>& info) { return info.param.name; }
INSTANTIATE_TEST_SUITE_P(Statements, EmbeddedRewrite, testing::ValuesIn(Statements), CaseName);
INSTANTIATE_TEST_SUITE_P(Keys, EmbeddedRewrite, testing::ValuesIn(Keys), CaseName);
INSTANTIATE_TEST_SUITE_P(Defaults, EmbeddedRewrite, testing::ValuesIn(Defaults), CaseName);

}  // namespace
}  // namespace korvex::cli
