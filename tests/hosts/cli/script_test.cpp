#include "hosts/cli/korvex_command.h"
#include "hosts/cli/program.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

namespace korvex::tests {
namespace {

constexpr std::string_view TwoDefinitions = R"({
  "definitions": [ { "storage": "A", "root": "Alpha" }, { "storage": "B", "root": "Beta" } ],
  "objects": [
    { "name": "Alpha", "values": [ { "name": "One", "type": "long" },
                                   { "name": "Gammas", "child": { "name": "Gammas", "element": "Gamma" } } ] },
    { "name": "Beta", "values": [ { "name": "Two", "type": "string", "maxLength": 20 } ] },
    { "name": "Gamma", "values": [ { "name": "Three", "type": "date" } ] }
  ]
})";

class Script : public testing::Test {
  protected:
    std::string Out() const { return m_repository.Folder().Path("out"); }

    CommandResult Run(std::vector<std::string> options,
                      const std::vector<std::string>& environment = {}) const {
        options.insert(options.begin(), {"script", "--repository", m_repository.Path(), "--out", Out()});
        return RunKorvex(options, environment);
    }
    std::string Written(const std::string& name) const { return m_repository.Folder().Read("out/" + name); }

    const RepositoryFile m_repository{TwoDefinitions};
};

TEST_F(Script, WithoutAStorageNameScriptsAllDefinitions) {
    ASSERT_EQ(Run({"--dialect", "sybase"}).exitCode, 0);
    const std::string all = Written("SyCreate.sql");
    EXPECT_NE(all.find("CREATE TABLE tAlpha"), std::string::npos);
    EXPECT_NE(all.find("CREATE TABLE tBeta"), std::string::npos);
    ASSERT_EQ(Run({"--dialect", "sybase", "--storage", "B"}).exitCode, 0);
    EXPECT_EQ(Written("SyCreate.sql").find("tAlpha"), std::string::npos);
}

TEST_F(Script, EveryDialectOfOneCallStartsAnew) {
    ASSERT_EQ(Run({"--dialect", "all"}).exitCode, 0);
    const std::string together = Written("SyFKCr.sql");
    EXPECT_NE(together, "\r\n");
    ASSERT_EQ(Run({"--dialect", "sybase"}).exitCode, 0);
    EXPECT_EQ(Written("SyFKCr.sql"), together);
}

TEST_F(Script, ForeignKeysTakeThePrefixAlsoAnEmptyOne) {
    for (const std::string prefix : {"FK_", "Ref", ""}) {
        SCOPED_TRACE(prefix);
        const CommandResult result = Run({"--dialect", "mssql", "--storage", "A", "--fk-prefix", prefix});
        EXPECT_EQ(result.messages, "");
        EXPECT_NE(Written("MSFKCr.sql").find("FOREIGN KEY (" + prefix + "GammasID)"), std::string::npos);
    }
}

TEST_F(Script, QuietPrintsNothing) {
    const CommandResult result = Run({"--dialect", "all", "--quiet"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output + result.messages, "");
    EXPECT_NE(Written("OraCreate.sql"), "");
}

TEST_F(Script, EveryFileThatCannotBeWrittenIsNamed) {
    ASSERT_EQ(Run({"--dialect", "mssql"}).exitCode, 0);
    for (const char* taken : {"MSCreate.sql", "MSSProc.sql", "MSFKdel.sql"}) {
        SCOPED_TRACE(taken);
        const std::filesystem::path path = std::filesystem::path(Out()) / taken;
        std::filesystem::remove(path);
        std::filesystem::create_directories(path / "in the way");
        ExpectFailure(Run({"--dialect", "all"}), path.string());
        std::filesystem::remove_all(path);
    }
}

TEST_F(Script, OutputFolderThatCannotBeMadeIsOneMessage) {
    m_repository.Folder().Write("out", "a file");
    ExpectFailure(Run({"--dialect", "mssql"}),
                  "korvex: error 75: The folder cannot be created: " + Out() + " (Not a directory)\n");
    EXPECT_EQ(m_repository.Folder().Read("out"), "a file");

    const std::string longName(300, 'x');
    ExpectFailure(
        RunKorvex({"script", "--repository", m_repository.Path(), "--dialect", "all", "--out", longName}),
        "korvex: error 75: The folder cannot be created: " + longName + " (File name too long)\n");
    const std::string closed = m_repository.Folder().Path("closed");
    std::filesystem::create_directory(closed);
    std::filesystem::permissions(m_repository.Folder().Path(), std::filesystem::perms::all);
    std::filesystem::permissions(m_repository.Path(), std::filesystem::perms::all);
    for (const bool isSearchable : {true, false}) {
        if (!isSearchable) std::filesystem::permissions(closed, std::filesystem::perms::owner_write);
        ExpectFailure(
            RunKorvexAsOrdinaryUser(closed, {"script", "--repository", m_repository.Path(), "--dialect",
                                             "all", "--out", closed + "/deep/er"}),
            "korvex: error 75: The folder cannot be created: " + closed + "/deep/er (Permission denied)\n");
    }
}

TEST_F(Script, GenerationThatFailsKeepsTheFilesOfTheRunBefore) {
    ASSERT_EQ(Run({"--dialect", "all"}).exitCode, 0);
    const std::string before = Written("MSCreate.sql");
    const std::pair<const char*, const char*> cases[] = {
        {"update tValues set MaxLength = 'twenty' where Name = 'Two'", "korvex: error 13: "},
        {"update tObjects set CollectionObjectID = 1 where Name = 'Gamma'", "korvex: error 28: "},
    };
    for (const auto& [statement, message] : cases) {
        const RepositoryFile broken(TwoDefinitions);
        broken.Execute({statement});
        ExpectFailure(
            RunKorvex({"script", "--repository", broken.Path(), "--dialect", "all", "--out", Out()}),
            message);
        EXPECT_EQ(Written("MSCreate.sql"), before);
    }
}

TEST_F(Script, OpensTheFilesInTheEditorOfTheEnvironment) {
    const std::string editor = m_repository.Folder().Write(
        "edit",
        "#!/bin/sh\nfor word; do echo \"$word\"; done > \"$EDITED.part\"; mv \"$EDITED.part\" \"$EDITED\"\n");
    std::filesystem::permissions(editor, std::filesystem::perms::owner_all);
    const std::string edited = m_repository.Folder().Path("edited");
    const CommandResult result = Run({"--dialect", "mssql", "--open"},
                                     {"VISUAL=" + editor + " --wait", "EDITOR=/none", "EDITED=" + edited});
    EXPECT_EQ(result.exitCode, 0) << result.messages;
    // Without a terminal the editor is not waited for.
    for (int i = 0; i < 1000 && !std::filesystem::exists(edited); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(m_repository.Folder().Read("edited"), "--wait\n" + result.output);

    // No path is an option, a command or an address.
    std::filesystem::remove(edited);
    ::setenv("VISUAL", editor.c_str(), 1);
    ::setenv("EDITED", edited.c_str(), 1);
    cli::OpenInEditor({"-c!sh/a.sql", "+1/b.sql", "../c.sql", "/d.sql"});
    ::unsetenv("VISUAL");
    ::unsetenv("EDITED");
    for (int i = 0; i < 1000 && !std::filesystem::exists(edited); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(m_repository.Folder().Read("edited"), "./-c!sh/a.sql\n./+1/b.sql\n../c.sql\n/d.sql\n");

    const CommandResult missing = Run({"--dialect", "mssql", "--open"}, {"VISUAL=", "EDITOR=/no/editor"});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_EQ(missing.output, result.output) << "the files were written all the same";
    EXPECT_EQ(missing.messages,
              "korvex: error 429: The editor does not start: /no/editor (No such file or directory)\n");
}

TEST(OracleWarning, IsShownUnchangedAndTheFilesAreWritten) {
    const RepositoryFile repository(R"({
      "definitions": [ { "storage": "Long", "root": "Letter" } ],
      "objects": [ { "name": "Letter", "values": [
        { "name": "Opening", "type": "string", "maxLength": 4001 },
        { "name": "Body", "type": "string", "maxLength": 9000 } ] } ]
    })");
    const std::string out = repository.Folder().Path("out");
    const CommandResult result =
        RunKorvex({"script", "--repository", repository.Path(), "--dialect", "all", "--out", out, "--quiet"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.messages,
              "korvex: Script Creation Warning\n"
              "The scripts were created with the following warning!\r\n"
              "Some of the tables contain more than one \r\n"
              "LONG or LONG RAW fields.  You will not be able\r\n"
              "to create tables using the scripts.\n");
    EXPECT_TRUE(std::filesystem::exists(out + "/OraFKDel.sql"));
    EXPECT_TRUE(std::filesystem::exists(out + "/SyFKdel.sql"));
}

}  // namespace
}  // namespace korvex::tests
