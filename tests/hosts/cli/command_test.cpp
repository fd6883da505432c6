#include "hosts/cli/korvex_command.h"
#include "hosts/cli/session.h"
#include "hosts/cli/shell/progress.h"
#include "platform/platform.h"
#include "support/error_of.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <sstream>

namespace korvex::tests {
namespace {

constexpr std::string_view SmallModel = R"({
  "definitions": [ { "storage": "Shop", "root": "Shop" }, { "storage": "Depot", "root": "Depot" } ],
  "objects": [
    { "name": "Shop", "values": [ { "name": "City", "type": "string", "maxLength": 30 },
                                  { "name": "Till", "child": "Till" } ] },
    { "name": "Till", "values": [ { "name": "Opened", "type": "date" } ] },
    { "name": "Depot", "values": [ { "name": "Doors", "type": "integer" } ] }
  ]
})";

TEST(CommandLine, WrongUsageEndsWithTwoAndSaysWhatIsWrong) {
    const std::pair<const char*, const char*> cases[] = {
        {"help scirpt", "There is no command \"scirpt\"; did you mean \"script\"?\n"},
        {"help repository shw", "There is no command \"shw\"; did you mean \"show\"?\n"},
        {"scirpt --dialect all --repository x", "There is no command \"scirpt\"; did you mean \"script\"?\n"},
        {"repo", "There is no command \"repo\"; did you mean \"repository\"?\n"},
        {"repository shw x", "There is no command \"shw\"; did you mean \"show\"?\n"},
        {"check x", "There is no command \"check\"; did you mean \"repository check\"?\n"},
        {"repository show one two three", "These arguments were not expected: two three\n"},
        {"script --repository x", "--dialect is required"},
        {"script --repository x --dialect db2",
         "db2 not in {mssql,oracle,sybase,sqlite,mariadb,postgresql,all,all-engines}"},
        {"script --dialect all --repository x --colour", "--colour"},
        {"relate", "--repository is required"},
        {"repository new", "--repository is required"},
        {"repository import x", "MODEL is required"},
        {"repository show x --format xml", "xml not in {tree,json,mermaid,dot,svg,html}"},
    };
    for (const auto& [line, message] : cases)
        ExpectFailure(RunKorvex(Words(line)), message, 2);
}

TEST(CommandLine, HelpAndVersionWorkOnEveryLevel) {
    for (const char* level : {"", "script", "relate", "repository", "repository new", "repository import",
                              "repository show", "repository check"}) {
        SCOPED_TRACE(level);
        const CommandResult help = RunKorvex(Words(std::string(level) + " --help"));
        EXPECT_EQ(help.exitCode, 0);
        EXPECT_NE(help.output.find("--version"), std::string::npos);
        EXPECT_EQ(RunKorvex(Words("help " + std::string(level))).output, help.output);
        const CommandResult version = RunKorvex(Words(std::string(level) + " -V"));
        EXPECT_EQ(version.exitCode, 0);
        EXPECT_TRUE(version.output.starts_with("korvex ")) << version.output;
        EXPECT_EQ(help.messages + version.messages, "");
    }
    for (const char* group : {"", "repository"})
        EXPECT_EQ(RunKorvex(Words(group)).output, RunKorvex(Words(std::string(group) + " --help")).output);
}

/// Every command that reads a repository meets a bad one in the same way.
TEST(CommandLine, UnusableRepositoryIsOneMessage) {
    const TempFolder folder;
    folder.Write("text.txt", "no database at all, just some text");
    folder.Write("empty.db", "");
    folder.Write("access.mdb", std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(4096, '\0'));
    std::filesystem::create_directory(folder.Path("folder"));
    const std::pair<const char*, const char*> cases[] = {
        {"missing.db", "korvex: error 3024: "},
        {"text.txt", "korvex: error 3343: "},
        {"empty.db", "korvex: error 3343: "},
        {"folder", "korvex: error 3051: "},
    };
    folder.Write("model.json", SmallModel);
    for (const auto& [name, start] : cases) {
        const std::string path = folder.Path(name);
        const std::vector<std::vector<std::string>> commands = {
            {"script", "--dialect", "all", "--repository", path, "--out", folder.Path("out")},
            {"relate", "--repository", path},
            {"repository", "import", path, folder.Path("model.json")},
            {"repository", "show", path},
            {"repository", "check", path},
        };
        for (const std::vector<std::string>& command : commands) {
            SCOPED_TRACE(testing::PrintToString(command));
            const CommandResult result = RunKorvex(command);
            ExpectFailure(result, start);
            ExpectFailure(result, path);
        }
    }
    EXPECT_FALSE(std::filesystem::exists(folder.Path("out")));
    const RepositoryFile good;
    ExpectFailure(RunKorvex({"repository", "import", good.Path(), folder.Path("access.mdb")}),
                  "file of the desktop database engine");
}

TEST(CommandLine, RepositoryThatLacksSomethingIsToldByTableAndColumn) {
    const std::pair<const char*, const char*> cases[] = {
        {"drop table tForeignKeys",
         "error 3078: This is no complete repository, table tForeignKeys is missing: "},
        {"alter table tValues rename column VIDTag2 to Tag2",
         "error 3265: This is no complete repository, column tValues.VIDTag2 is missing: "},
    };
    for (const auto& [statement, message] : cases) {
        const RepositoryFile repository(SmallModel);
        repository.Execute({statement});
        const CommandResult result = RunKorvex({"script", "--repository", repository.Path(), "--dialect",
                                                "all", "--out", repository.Folder().Path("out")});
        ExpectFailure(result, "korvex: " + std::string(message) + repository.Path() + "\n");
        EXPECT_FALSE(std::filesystem::exists(repository.Folder().Path("out")));
    }
}

TEST(CommandLine, ValueThatDoesNotConvertIsToldByTableRowAndColumn) {
    const std::pair<const char*, const char*> cases[] = {
        {"update tObjects set ObjectID = 99999999999 where Name = 'Till'",
         "error 6: ObjectID of the tObjects row with ObjectID = 99999999999, Name = \"Till\": Overflow\n"},
        {"update tValues set DataType = 'x' where Name = 'City'",
         "error 13: DataType of the tValues row with InterfaceID = 1, ValueID = 1, Name = \"City\": Type "
         "mismatch: "
         "\"x\" is not a number\n"},
        {"update tDataDefs set RootObjectID = 'x' where Storage = 'Depot'",
         "error 13: RootObjectID of the tDataDefs row with Storage = \"Depot\": Type mismatch: \"x\" is not "
         "a "
         "number\n"},
    };
    for (const auto& [statement, message] : cases) {
        const RepositoryFile repository(SmallModel);
        repository.Execute({statement});
        ExpectFailure(RunKorvex({"repository", "show", repository.Path()}), message);
    }
}

TEST(CommandLine, StorageNameThatIsNotThereListsThoseThatAre) {
    const RepositoryFile repository(SmallModel);
    const std::pair<const char*, const char*> cases[] = {
        {"shop", "korvex: error 5: No definition has the storage name \"shop\"; there are Depot and Shop.\n"},
        {"O'Hara",
         "korvex: error 5: The storage name \"O'Hara\" holds a single quote; storage names must not.\n"},
    };
    for (const auto& [storage, message] : cases) {
        const std::vector<std::vector<std::string>> commands = {
            {"script", "--repository", repository.Path(), "--dialect", "oracle", "--out",
             repository.Folder().Path("out"), "--storage", storage},
            {"relate", "--repository", repository.Path(), "--storage", storage},
            {"repository", "show", repository.Path(), "--storage", storage},
        };
        for (const std::vector<std::string>& command : commands) {
            SCOPED_TRACE(testing::PrintToString(command));
            ExpectFailure(RunKorvex(command), message);
        }
    }
    EXPECT_FALSE(std::filesystem::exists(repository.Folder().Path("out")));

    const RepositoryFile empty;
    ExpectFailure(RunKorvex({"relate", "--repository", empty.Path()}),
                  "korvex: error 5: The repository holds no definition.\n");
}

TEST(CommandLine, NewRepositoryLeavesAnExistingFileAlone) {
    const TempFolder folder;
    const RepositoryFile repository(SmallModel);
    const std::pair<std::string, std::string> cases[] = {
        {folder.Write("notes.txt", "mine"), "error 75: "},
        {repository.Path(), "error 75: "},
        {folder.Path("no/where.db"), "error 75: "},
        {":memory:", "error 75: "},
        {folder.Path("x.MDB"), "error 5: "},
    };
    for (const auto& [path, message] : cases) {
        const CommandResult result = RunKorvex({"repository", "new", path});
        ExpectFailure(result, message);
        ExpectFailure(result, path);
    }
    EXPECT_EQ(folder.Read("notes.txt"), "mine");
    EXPECT_EQ(RunKorvex({"repository", "show", repository.Path()}).exitCode, 0);
    EXPECT_FALSE(std::filesystem::exists(":memory:") || std::filesystem::exists(folder.Path("x.MDB")));
}

/// A killed one leaves an empty file, or a database without tables.
TEST(CommandLine, NewRepositoryTakesWhatAKilledOneLeft) {
    const TempFolder folder;
    DefaultPlatform().repositoryEngine->CreateDatabase(folder.Path("bare.db"))->Close();
    for (const std::string& path : {folder.Write("empty.db", ""), folder.Path("bare.db")}) {
        EXPECT_EQ(RunKorvex({"repository", "new", path}).messages, "");
        EXPECT_EQ(RunKorvex({"repository", "import", path, folder.Write("m.json", SmallModel)}).exitCode, 0);
    }
}

TEST(CommandLine, AWriteAheadLogInAClosedFolderIsExplained) {
    const RepositoryFile repository(SmallModel);
    for (const char* command : {"show", "check"}) {
        const CommandResult result =
            RunKorvexAsOrdinaryUser(repository.Folder().Path(), {"repository", command, repository.Path()});
        ExpectFailure(result, "korvex: error 3051: The file keeps a write-ahead log");
        ExpectFailure(result, "PRAGMA journal_mode = DELETE");
        ExpectFailure(result, repository.Path());
    }
    repository.Execute({"PRAGMA journal_mode = DELETE"});
    EXPECT_EQ(RunKorvexAsOrdinaryUser(repository.Folder().Path(), {"repository", "show", repository.Path()})
                  .exitCode,
              0);
}

TEST(CommandLine, ResultsThatCannotBeWrittenAreAFailure) {
    const RepositoryFile repository(SmallModel);
    ExpectFailure(RunKorvex({"repository", "show", repository.Path()}, {}, "/dev/full"),
                  "korvex: error 57: The results cannot be written.\n");
}

TEST(Relate, TouchesOnlyTheDefinitionNamedAndTakesThePrefix) {
    const RepositoryFile repository(SmallModel);
    const CommandResult result =
        RunKorvex({"relate", "--repository", repository.Path(), "--storage", "Shop", "--fk-prefix", "Ref"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output + result.messages, "");
    EXPECT_EQ(RunKorvex({"repository", "show", repository.Path()}).output,
              "definition Shop: Shop in tShop\n"
              "  City: string(30)\n"
              "  Till: Till in tTill\n"
              "    Opened: date\n"
              "    TillID: long, auto number, primary key\n"
              "    RefShopID: long, refers to Shop\n"
              "  ShopID: long, auto number, primary key\n"
              "\n"
              "definition Depot: Depot\n"
              "  Doors: integer\n");
}

TEST(Console, ProgressIsCountedRatedAndForeseen) {
    using Seconds = std::chrono::duration<double>;
    const auto text = [](std::size_t done, std::size_t total, double seconds) {
        return cli::ProgressText("objects", done, total, Seconds(seconds));
    };
    EXPECT_EQ(text(0, 0, 2), "0 objects");
    EXPECT_EQ(text(0, 5, 2), "0 of 5 objects");
    EXPECT_EQ(text(1200, 5000, 3), "1200 of 5000 objects, 400/s, 10 s left");
    EXPECT_EQ(text(1, 5, 60), "1 of 5 objects, 1/min, 4 min left");
    EXPECT_EQ(text(5, 5, 2), "5 of 5 objects, 3/s, 0 s left");
    EXPECT_EQ(text(6, 5, 2), "6 objects, 3/s");
}

TEST(Session, FailedQueriesAreReportedAndFailTheCommand) {
    std::ostringstream results;
    std::ostringstream messages;
    cli::Console console(results, messages);
    const cli::Session session(console);
    session.platform.desktop->ShowMessage("a warning\r\nof two lines", platform::StyleExclamation, "Title");
    EXPECT_EQ(messages.str(), "korvex: Title\na warning\r\nof two lines\n");
    session.ExpectNoFailedQuery("nothing was made");

    messages.str("");
    session.platform.desktop->ShowMessage("no such\r\ncolumn", platform::StyleOkOnly, "");
    EXPECT_EQ(messages.str(), "korvex: A query failed: no such column\n");
    const Raised raised = ErrorOf([&] { session.ExpectNoFailedQuery("nothing was made"); });
    EXPECT_EQ(raised, dao::QueryFailed);
    EXPECT_EQ(raised.description, "1 query failed (see above): nothing was made.");
}

}  // namespace
}  // namespace korvex::tests
