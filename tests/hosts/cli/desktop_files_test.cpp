#include "hosts/cli/korvex_command.h"
#include "platform/platform.h"
#include "support/recording_parts.h"
#include "support/text_files.h"
#include "surface/cls_create_db.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korvex::tests {
namespace {

/// The definition of the tests in files of the desktop engine: as Jet 4 and as ACE keep it, and with the keys
/// that a run leaves behind.
class DesktopFile : public testing::TestWithParam<const char*> {
  protected:
    const std::string m_file = KORVEX_TEST_DATA "/jet/" + std::string(GetParam());
    const std::string m_content = ReadFile(m_file);
    const RepositoryFile m_embedded{ReadFile(KORVEX_TEST_DATA "/orders.json")};
    const TempFolder& m_folder = m_embedded.Folder();
};

TEST_P(DesktopFile, StandsForTheRepositoryThatItHolds) {
    const bool isRelated = m_file.ends_with("-related.mdb");
    const auto golden = ReadFolder(KORVEX_TEST_DATA "/scripts");
    const std::string out = m_folder.Path("out");
    EXPECT_EQ(RunKorvex({"script", m_file, "--dialect", "all", "--out", out}).messages, "");
    EXPECT_EQ(ReadFolder(out), golden);

    EXPECT_EQ(isRelated ? RunKorvex({"relate", m_embedded.Path()}).messages : "", "");
    const auto same = [&](std::vector<std::string> words) {
        words.push_back(m_embedded.Path());
        const CommandResult expected = RunKorvex(words);
        words.back() = m_file;
        const CommandResult result = RunKorvex(words);
        EXPECT_EQ(result.output, expected.output);
        EXPECT_EQ(result.messages, expected.messages);
    };
    same({"repository", "show", "--format", "json", "--repository"});
    same({"repository", "check", "--dialect", "all-engines", "--repository"});
    const std::string target = "Provider=SQLite;Data Source=" + m_folder.Path("target.db");
    EXPECT_EQ(RunKorvex({"database", "create", m_file, "--connection", target}).exitCode, 0);
    same({"database", "check", "--connection", target, "--repository"});

    // A host's run, whose keys go into the copy.
    Platform platform = DefaultPlatform();
    platform.desktop = std::make_shared<RecordingDesktop>(std::make_shared<std::vector<std::string>>());
    const auto scripts = std::make_shared<clsCreateDb>(platform);
    scripts->ScriptFilePath(m_folder.Path("host"));
    std::filesystem::create_directory(m_folder.Path("host"));
    scripts->DoMSsqlDb(m_file, "Orders");
    for (const auto& [name, text] : ReadFolder(m_folder.Path("host")))
        ExpectSameText(name, text, golden.at(name));
    EXPECT_EQ(ReadFolder(m_folder.Path("host")).size(), 5u);
    EXPECT_EQ(ReadFile(m_file), m_content);
}

TEST_P(DesktopFile, IsCopiedAndNeverWritten) {
    const std::string copy = m_folder.Path("copy.db");
    const auto show = [](const std::string& file) {
        return RunKorvex({"repository", "show", file, "--format", "json"}).output;
    };
    EXPECT_EQ(RunKorvex({"repository", "new", copy}).messages, "");
    EXPECT_EQ(RunKorvex({"repository", "import", copy, m_file}).messages, "");
    EXPECT_EQ(show(copy), show(m_file));
    EXPECT_EQ(RunKorvex({"script", copy, "--dialect", "all", "--out", m_folder.Path("out")}).messages, "");
    EXPECT_EQ(ReadFolder(m_folder.Path("out")), ReadFolder(KORVEX_TEST_DATA "/scripts"));

    const RepositoryFile other(
        R"({"version": 1, "objects": [{"name": "A"}], "definitions": [{"storage": "S", "root": "A"}]})");
    EXPECT_EQ(RunKorvex({"repository", "import", other.Path(), m_file}).messages, "");
    EXPECT_EQ(
        RunKorvex({"repository", "show", other.Path(), "--storage", "Orders", "--format", "json"}).output,
        RunKorvex({"repository", "show", m_file, "--storage", "Orders", "--format", "json"}).output);
    ExpectFailure(RunKorvex({"repository", "import", other.Path(), m_file}), "already has a definition");

    const std::string way = "file of the desktop database engine, which is only read: make a repository";
    ExpectFailure(RunKorvex({"relate", m_file}), "korvex: error 3027: " + m_file + " is a " + way);
    ExpectFailure(RunKorvex({"repository", "import", m_file, KORVEX_TEST_DATA "/orders.json"}), way);
    ExpectFailure(
        RunKorvex({"script", m_folder.Write("cut.mdb", m_content.substr(0, 100'000)), "--dialect", "all"}),
        "korvex: error 3049: This file of the desktop database engine cannot be read, it ends within a page");
    EXPECT_EQ(ReadFile(m_file), m_content);
}

INSTANTIATE_TEST_SUITE_P(Formats, DesktopFile,
                         testing::Values("orders-jet4.mdb", "orders-ace14.accdb", "orders-jet4-related.mdb"),
                         [](const auto& format) {
                             std::string name = format.param;
                             std::erase_if(name, [](char c) { return c == '-' || c == '.'; });
                             return name;
                         });

}  // namespace
}  // namespace korvex::tests
