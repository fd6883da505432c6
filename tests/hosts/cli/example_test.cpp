#include "hosts/cli/korvex_command.h"
#include "support/definition_repository.h"
#include "support/driver.h"
#include "support/text_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

namespace korvex::tests {
namespace {

/// Every file of a folder by name.
std::map<std::string, std::string> ReadFolder(const std::filesystem::path& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        files[entry.path().filename().string()] = ReadFile(entry.path());
    return files;
}

class Example : public testing::Test {
  protected:
    const std::string m_model = ReadFile(KORVEX_EXAMPLES "/orders.json");
    const RepositoryFile m_repository{m_model};
};

class ExampleScripts : public testing::TestWithParam<Driver> {};

TEST_P(ExampleScripts, AreTheFifteenGoldenFiles) {
    const TempFolder folder;
    Places places(GetParam(), folder);
    const std::string place = places.New("orders.db");
    const std::string connection = places.Connection(place);
    ASSERT_EQ(RunKorvex({"repository", "new", connection}).messages, "");
    EXPECT_THAT(RunKorvex({"repository", "new", connection}).messages,
                testing::StartsWith("korvex: error 75: "));
    ASSERT_EQ(RunKorvex({"repository", "import", connection, KORVEX_EXAMPLES "/orders.json"}).messages, "");
    const std::string out = folder.Path("deep/er");
    const CommandResult result = RunKorvex(
        {"script", "--repository", connection, "--dialect", "all", "--storage", "Orders", "--out", out});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.messages, "");
    std::string paths;
    for (const char* name :
         {"MSCreate", "MSDel", "MSSProc", "MSFKCr", "MSFKdel", "OraCreate", "OraDel", "OraSProc", "OraFKCr",
          "OraFKDel", "SyCreate", "SyDel", "SySProc", "SyFKCr", "SyFKdel"})
        paths += out + "/" + name + ".sql\n";
    EXPECT_EQ(result.output, paths);

    const std::map<std::string, std::string> golden = ReadFolder(KORVEX_EXAMPLES "/scripts");
    const std::map<std::string, std::string> written = ReadFolder(out);
    ASSERT_EQ(golden.size(), 15U);
    EXPECT_EQ(written.size(), 15U);
    for (const auto& [name, text] : golden) {
        ASSERT_TRUE(written.contains(name)) << name;
        ExpectSameText(name, written.at(name), text);
    }
}

INSTANTIATE_TEST_SUITE_P(Drivers, ExampleScripts, AllDrivers(), DriverName);

TEST_F(Example, ChecksWithoutErrorsBeforeAndAfterItsFirstRun) {
    const CommandResult before = RunKorvex({"repository", "check", m_repository.Path()});
    EXPECT_EQ(before.exitCode, 0) << before.output;
    EXPECT_EQ(RunKorvex({"relate", "--repository", m_repository.Path()}).exitCode, 0);
    const CommandResult after = RunKorvex({"repository", "check", m_repository.Path()});
    EXPECT_EQ(after.exitCode, 0);
    EXPECT_EQ(after.output, before.output) << "what a run adds must not be found fault with";
}

TEST_F(Example, CopiesThroughItsJsonForm) {
    for (const bool related : {false, true}) {
        SCOPED_TRACE(related ? "related" : "as imported");
        if (related) {
            ASSERT_EQ(RunKorvex({"relate", "--repository", m_repository.Path()}).exitCode, 0);
        }
        const std::vector<std::string> show = {"repository", "show", m_repository.Path(), "--format", "json"};
        const CommandResult shown = RunKorvex(show);
        ASSERT_EQ(shown.exitCode, 0);
        EXPECT_EQ(shown.messages, "");
        EXPECT_EQ(shown.output.find("FK_CustomerID") != std::string::npos, related);

        const RepositoryFile copy(shown.output);
        const CommandResult copied = RunKorvex({"repository", "show", copy.Path(), "--format", "json"});
        EXPECT_EQ(copied.output, shown.output);
    }
}

}  // namespace
}  // namespace korvex::tests
