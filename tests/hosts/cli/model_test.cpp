#include "hosts/cli/korvex_command.h"
#include "hosts/cli/model/model_export.h"
#include "hosts/cli/model/model_import.h"
#include "hosts/cli/model/model_reader.h"
#include "hosts/cli/model/model_writer.h"
#include "platform/native/native_platform.h"
#include "repository/schema.h"
#include "support/instrumented.h"
#include "support/test_seam.h"
#include "support/text_files.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <memory>

namespace korvex::tests {
namespace {

TEST(Model, MistakesAreToldWithTheirPlace) {
    const auto cases = nlohmann::json::parse(ReadFile(KORVEX_EXPECTED "/refused_models.json"));
    ASSERT_FALSE(cases.empty());
    for (const nlohmann::json& refused : cases) {
        const auto model = refused["model"].get<std::string>();
        SCOPED_TRACE(model);
        const RepositoryFile repository;
        const std::string file = repository.Folder().Path("model.json");
        ExpectFailure(repository.Import(model),
                      "korvex: error 5: " + file + ": " + refused["message"].get<std::string>() + "\n");
        EXPECT_EQ(RunKorvex({"repository", "show", repository.Path()}).output, "");
    }
}

TEST(Model, MissingFileAndEndlessDefinitionHaveTheirOwnNumbers) {
    const RepositoryFile repository;
    ExpectFailure(RunKorvex({"repository", "import", repository.Path(), "/no/model.json"}),
                  "korvex: error 53: /no/model.json: No such file or directory\n");
    ExpectFailure(
        repository.Import(
            R"({"objects":[{"name":"A","element":"B"},{"name":"B","values":[{"name":"V","child":"A"}]}]})"),
        "model.json: objects[0]: an object is its own ancestor: A > B > A\n");
}

TEST(Model, DeepDefinitionsAreListedNotNested) {
    const int depth = IsInstrumented ? 2000 : 10000;
    std::string listed = R"({"definitions":[{"storage":"Deep","root":"O0"}],"objects":[)";
    std::string nested = listed;
    std::string ends;
    for (int i = 0; i < depth; ++i) {
        const std::string name = R"({"name":"O)" + std::to_string(i) + "\"";
        const std::string next = i + 1 < depth ? R"(,"element":"O)" + std::to_string(i + 1) + "\"" : "";
        listed += (i > 0 ? "," : "") + name + next + "}";
        nested += name + (i + 1 < depth ? ",\"element\":" : "");
        ends += "}";
    }
    const RepositoryFile repository;
    ExpectFailure(repository.Import(nested + ends + "]}"), "nested deeper than 200 objects");

    EXPECT_EQ(repository.Import(listed + "]}").messages, "");
    const std::string last = std::to_string(depth - 1);
    EXPECT_NE(
        RunKorvex({"repository", "show", repository.Path()}).output.find("(" + last + ") element: O" + last),
        std::string::npos);
    EXPECT_EQ(RunKorvex({"repository", "check", repository.Path()}).exitCode, 0);
}

/// A root with that many children, each with its keys.
std::string RelatedChildren(int count) {
    std::string values;
    std::string objects;
    for (int i = 0; i < count; ++i) {
        const std::string n = std::to_string(i);
        values += R"({"name":"V)" + n + R"(","child":"C)" + n + R"(","vid":)" + n + "},";
        objects += R"(,{"name":"C)" + n +
                   R"(","values":[{"name":"FK_AID","type":"long","vid":1}],"foreignKeys":[)" +
                   R"({"value":"FK_AID","object":"A","key":"AID"}]})";
    }
    return R"({"definitions":[{"storage":"S","root":"A"}],"objects":[{"name":"A","values":[)" + values +
           R"({"name":"AID","type":"long","vid":10001}],"primaryKey":[{"value":"AID","seq":1}]})" + objects +
           "]}";
}

TEST(Model, ImportTakesTheSameStatementsForEveryChildAndShowTheSameForAll) {
    const auto seam = std::make_shared<TestSeam>();
    const Platform platform = native::NativePlatform({.seam = seam});
    const TempFolder folder;
    std::vector<std::size_t> imported;
    std::vector<std::size_t> shown;
    for (const int count : {0, 50, 100}) {
        const std::string text = RelatedChildren(count);
        const cli::Model model = cli::ReadModel(folder.Write("model.json", text));
        const auto database = platform.repositoryEngine->CreateDatabase(folder.Path(std::to_string(count)));
        repository::CreateSchema(*database);
        seam->Record();
        cli::ImportModel(model, *database);
        imported.push_back(seam->Executed().size());
        seam->Record();
        const cli::Model exported = cli::ExportModel(repository::Catalog::Read(*database), "S");
        shown.push_back(seam->Executed().size());
        EXPECT_EQ(exported.objects.size(), static_cast<std::size_t>(count) + 1);
        EXPECT_EQ(cli::ModelText(cli::ReadModel(folder.Write("model.json", cli::ModelText(exported)))),
                  cli::ModelText(model));
    }
    EXPECT_EQ(imported[2] - imported[1], imported[1] - imported[0]);
    EXPECT_LE(imported[2] - imported[1], 50u * 6);
    EXPECT_EQ(shown, std::vector<std::size_t>(3, 7));
}

TEST(Model, ClashesWithTheRepositoryLeaveItAsItWas) {
    const std::string model = R"({"$schema":"model.schema.json","definitions":[{"storage":"S","root":"A"}],)"
                              R"("objects":[{"name":"A","guid":"{1}"}]})";
    const RepositoryFile repository(model);
    const std::vector<std::string> show = {"repository", "show", repository.Path(), "--format", "json"};
    const std::string before = RunKorvex(show).output;

    ExpectFailure(repository.Import(model),
                  "model.json: definitions[0].storage: the repository already has a definition with the "
                  "storage name \"S\"; nothing was imported.\n");
    const std::string other = Replace(model, "\"S\"", "\"T\"");
    ExpectFailure(repository.Import(other),
                  "model.json: objects[0].guid: the repository's object \"A\" already has the guid {1}; "
                  "nothing was imported.\n");
    // The last table is written last: everything before it has to go again.
    repository.Execute(
        {"create trigger no_more before insert on tDataDefs begin select raise(abort, 'Full'); end"});
    ExpectFailure(repository.Import(Replace(other, "{1}", "{2}")), "model.json: definitions[0]: Full");
    repository.Execute({"drop trigger no_more", "alter table tDataDefs rename column Storage to Old",
                        "alter table tDataDefs add column Storage integer"});
    ExpectFailure(
        repository.Import(Replace(other, "{1}", "{2}")),
        "korvex: error 3421: " + repository.Folder().Path("model.json") + ": definitions[0].storage: ");
    repository.Execute(
        {"alter table tDataDefs drop column Storage", "alter table tDataDefs rename column Old to Storage"});
    EXPECT_EQ(RunKorvex(show).output, before);
}

TEST(Model, EveryMemberReachesTheRepositoryAndComesBack) {
    const std::string model = ReadFile(KORVEX_EXPECTED "/every_member.json");
    const RepositoryFile repository(model);
    const CommandResult result = RunKorvex({"repository", "show", repository.Path(), "--format", "json"});
    EXPECT_EQ(result.output, model);
    EXPECT_EQ(result.messages, "");
}

}  // namespace
}  // namespace korvex::tests
