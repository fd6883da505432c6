#include "platform/ado.h"
#include "platform/native/ado/target.h"
#include "support/error_of.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace korvex::native::ado_engine {
namespace {

using testing::HasSubstr;

std::string Describe(const Target& target) {
    if (target.odbcString) return "odbc " + *target.odbcString;
    const std::string modes[] = {"read-write", "read", "create", "create new", "memory"};
    return "sqlite " + target.file + ", " + modes[static_cast<std::size_t>(target.mode)] +
           (target.fullSync ? ", full" : ", normal");
}

TEST(AdoConnectionString, SaysWhichEngineAndHow) {
    const struct {
        std::string text;
        std::string target;
    } cases[] = {
        {"Provider=SQLite;Data Source=a.db", "sqlite a.db, read-write, full"},
        {" provider = SQLITE.1 ; data source = my file.db ;; ", "sqlite my file.db, read-write, full"},
        {"Provider=SQLite;Data Source=a.db;Mode=Create;Synchronous=Normal", "sqlite a.db, create, normal"},
        {"Provider=SQLite;Data Source=a.db;mode=READ;synchronous=full", "sqlite a.db, read, full"},
        {"Provider=SQLite;Data Source=\"a;b \"\"c\"\".db\"", "sqlite a;b \"c\".db, read-write, full"},
        {"Provider=SQLite;Data Source='it''s \"x\"';Mode=ReadWrite", "sqlite it's \"x\", read-write, full"},
        {"Provider=SQLite;Data Source=C:\\data\\x=1.db", "sqlite C:\\data\\x=1.db, read-write, full"},
        {"Provider=SQLite;Data Source=first.db;Data Source=last.db", "sqlite last.db, read-write, full"},
        {"Provider=SQLite;Data Source=a.db;User ID=u;Password=p", "sqlite a.db, read-write, full"},
        {"Provider=SQLite;Data Source=:memory:;Mode=Read", "sqlite :memory:, memory, full"},
        {"DSN=Orders", "odbc DSN=Orders"},
        {"dsn=Orders;UID=me;PWD=x", "odbc dsn=Orders;UID=me;PWD=x"},
        {"Driver={SQLite3};Database=/tmp/a.db;", "odbc Driver={SQLite3};Database=/tmp/a.db"},
        {"Provider=MSDASQL;Driver={Strange; }} One};Option=3", "odbc Driver={Strange; }} One};Option=3"},
        {"Provider=MSDASQL.1;Data Source=Orders;User ID=me;Password='a;b';Initial Catalog=shop",
         "odbc DSN=Orders;UID=me;PWD={a;b};DATABASE=shop"},
        {"DSN=x;PWD='{a'", "odbc DSN=x;PWD={{a}"},
        {"Provider=MSDASQL;Extended Properties=\"DSN=x;A=1;\";B=2", "odbc DSN=x;A=1;B=2"},
        {"DSN=x;a==b=c", "odbc DSN=x;a=b=c"},
        {"Driver='{SQLite3}';Database=/tmp/a (1).db", "odbc Driver={SQLite3};Database=/tmp/a (1).db"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(Describe(ReadTarget(c.text)), c.target);
    }
}

TEST(AdoConnectionString, AddsUserAndPasswordUnlessItNamesAUser) {
    EXPECT_EQ(ReadTarget("DSN=x", "me", "a}=;b").odbcString, "DSN=x;UID=me;PWD={a}}=;b}");
    EXPECT_EQ(ReadTarget("DSN=x;UID=you", "me", "secret").odbcString, "DSN=x;UID=you");
    EXPECT_EQ(ReadTarget("DSN=x;User ID=you", "me", "secret").odbcString, "DSN=x;UID=you");
}

TEST(AdoConnectionString, RefusesWhatItCannotFollow) {
    const struct {
        std::string text;
        std::int32_t number;
        std::vector<std::string> says;
    } cases[] = {
        {"", ado::adErrProviderNotFound, {"no provider", "Provider=SQLite", "MSDASQL"}},
        {"Data Source=a.db", ado::adErrProviderNotFound, {"names no provider"}},
        {"Provider=SQLOLEDB;Data Source=srv",
         ado::adErrProviderNotFound,
         {"\"SQLOLEDB\"", "Provider=SQLite"}},
        {"Provider=SQLite", ado::DbEInitString, {"Data Source"}},
        {"Provider=SQLite;Data Source=a;Mode=Creat", ado::DbEInitString, {"Mode=Creat", "Create"}},
        {"Provider=SQLite;Data Source=a;Synchronous=Off", ado::DbEInitString, {"Synchronous=Off", "Normal"}},
        {"Provider=SQLite;Data Source=a;Modus=Create", ado::DbEInitString, {"\"Modus\""}},
        {"Provider=SQLite;a.db", ado::DbEInitString, {"\"a.db\"", "character 17"}},
        {"Provider=SQLite;=a.db", ado::DbEInitString, {"character 17", "no name"}},
        {"Provider=SQLite;Data Source=\"a.db", ado::DbEInitString, {"\"Data Source\"", "closing \""}},
        {"Provider=SQLite;Data Source='a'b;Mode=Read", ado::DbEInitString, {"\"Data Source\"", "goes on"}},
        {"Driver={SQLite3;Database=x", ado::DbEInitString, {"\"Driver\"", "closing }"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const tests::Raised raised = tests::ErrorOf([&] { ReadTarget(c.text); });
        EXPECT_EQ(raised, c.number);
        for (const std::string& part : c.says)
            EXPECT_THAT(raised.description, HasSubstr(part));
    }
}

TEST(AdoConnectionString, KeepsPasswordsOutOfErrors) {
    const tests::Raised raised = tests::ErrorOf([] { ReadTarget("DSN=x;PWD='secret;more"); });
    EXPECT_EQ(raised, ado::DbEInitString);
    EXPECT_THAT(raised.description, testing::Not(HasSubstr("secret")));
}

}  // namespace
}  // namespace korvex::native::ado_engine
