#include "hosts/cli/korvex_command.h"
#include "hosts/cli/model/model_export.h"
#include "hosts/cli/model/model_import.h"
#include "hosts/cli/model/model_reader.h"
#include "hosts/cli/model/model_writer.h"
#include "platform/native/native_platform.h"
#include "repository/schema.h"
#include "support/test_seam.h"
#include "support/text_files.h"

#include <gtest/gtest.h>

#include <memory>

namespace korvex::tests {
namespace {

std::string ObjectWith(std::string_view members) {
    return R"({"definitions":[{"storage":"S","root":"A"}],"objects":[{"name":"A",)" + std::string(members) +
           "}]}";
}

std::string ValueWith(std::string_view members) {
    return ObjectWith(R"("values":[{"name":"V",)" + std::string(members) + "}]");
}

TEST(Model, MistakesAreToldWithTheirPlace) {
    const struct {
        std::string model;
        const char* message;
    } cases[] = {
        {"{\n  \"objects\": [ }\n",
         "line 2, column 16: syntax error while parsing value - unexpected '}'; "
         "expected '[', '{', or a literal"},
        {"",
         "line 1, column 1: syntax error while parsing value - unexpected end of input; expected '[', "
         "'{', or a literal"},
        {"[]", "the document: must be an object, not an array"},
        {"{}", "the document: holds no objects"},
        {R"({"version":2})", "version: must be from 1 to 1"},
        {R"({"objects":[{"name":"A","values":[]},{"name":"B","name":"C"}]})",
         "objects[1].name: stands twice in the same object"},
        {R"({"objects":[{"values":[]}]})", "objects[0]: lacks the member \"name\""},
        {R"({"objects":[{"name":""}]})", "objects[0].name: must not be empty"},
        {R"({"objects":[{"name":"O'Hara"}]})", "objects[0].name: must not hold a single quote"},
        {R"({"objects":[{"name":7}]})", "objects[0].name: must be a text, not a number"},
        {R"({"objects":{}})", "objects: must be an array, not an object"},
        {ObjectWith(R"("Elements":"A")"),
         "objects[0]: unknown member \"Elements\"; did you mean \"element\"?"},
        {ObjectWith(R"("colour":1)"), "objects[0]: unknown member \"colour\""},
        {ValueWith(R"("typ":"long")"),
         "objects[0].values[0]: unknown member \"typ\"; did you mean \"type\"?"},
        {ValueWith(R"("caption":"x")"), "objects[0].values[0]: lacks the member \"type\" or \"child\""},
        {ValueWith(R"("type":"String")"),
         "objects[0].values[0].type: unknown data type \"String\"; did you mean \"string\"?"},
        {ValueWith(R"("type":"uuid")"),
         "objects[0].values[0].type: unknown data type \"uuid\"; known are null, integer, long, single, "
         "double, currency, date, string, object, boolean, variant, unknown and byte"},
        {ValueWith(R"("type":-8)"), "objects[0].values[0].type: must be from 0 to 32767"},
        {ValueWith(R"("type":8.5)"), "objects[0].values[0].type: must be a whole number, not a number"},
        {ValueWith(R"("type":"string","maxLength":"forty")"),
         "objects[0].values[0].maxLength: \"forty\" is no number"},
        {ValueWith(R"("type":"string","maxLength":99999999999999999999)"),
         "objects[0].values[0].maxLength: must be a whole number, not a number"},
        {ValueWith(R"("type":"string","maxLength":18446744073709551615)"),
         "objects[0].values[0].maxLength: must be from 0 to 2147483647"},
        {ValueWith(R"("type":"string","default":null)"),
         "objects[0].values[0].default: must be a text, a number, true or false, not null"},
        {ValueWith(R"("type":"string","autoNumber":1)"),
         "objects[0].values[0].autoNumber: must be true or false, not a number"},
        {ValueWith(R"("type":"string","tags":["a","b","c","d"])"),
         "objects[0].values[0].tags: holds more than three texts"},
        {ValueWith(R"("type":"long","default":"0)\nGO\nDROP TABLE tA")"),
         "objects[0].values[0].default: must not hold control characters"},
        {ValueWith(R"("type":"long","field":"V\u0085")"),
         "objects[0].values[0].field: must not hold a control character, which SQL takes for more than a "
         "name"},
        {ValueWith(R"("type":"long","field":"V int, W")"),
         "objects[0].values[0].field: \"V int, W\" is no identifier (letters, digits, \"_\", \"$\", \"#\", "
         "no digit first)"},
        {ObjectWith(R"("table":"tA where 1=1 --")"),
         "objects[0].table: must not hold \"=\", which SQL takes for more than a name"},
        {ObjectWith(R"("table":"tA--")"),
         "objects[0].table: must not hold \"--\", which SQL takes for more than a name"},
        {ObjectWith(R"("table":"[tA]")"),
         "objects[0].table: must not hold a bracket, which SQL takes for more than a name"},
        {ObjectWith(R"("table":"1A")"),
         "objects[0].table: \"1A\" is no identifier (letters, digits, \"_\", \"$\", \"#\", no digit first)"},
        {R"({"objects":[{"name":"A\u007f"}]})", "objects[0].name: must not hold control characters"},
        {ValueWith(R"("child":"a")"), "objects[0].values[0].child: no object \"a\"; did you mean \"A\"?"},
        {ValueWith(R"("child":"Elsewhere")"), "objects[0].values[0].child: no object \"Elsewhere\""},
        {ObjectWith(R"("interfaces":["ITracked"])"), "objects[0].interfaces[0]: no interface \"ITracked\""},
        {R"({"objects":[{"name":"A"},{"name":"A"},{"name":"B","element":"A"}]})",
         "objects[2].element: several objects \"A\"; give the one meant an \"id\""},
        {R"({"objects":[{"name":"A","id":"x"},{"name":"B","id":"x"}]})",
         "objects[1].id: \"x\" is the id of objects[0] as well"},
        {R"({"definitions":[{"storage":"S","root":"A"},{"storage":"S","root":"A"}],"objects":[{"name":"A"}]})",
         "definitions[1].storage: \"S\" stands twice"},
        {ObjectWith(R"("primaryKey":[{"value":"ID","seq":1}])"),
         "objects[0].primaryKey[0].value: no such value in A"},
    };
    for (const auto& [model, message] : cases) {
        SCOPED_TRACE(model);
        const RepositoryFile repository;
        const std::string file = repository.Folder().Path("model.json");
        ExpectFailure(repository.Import(model), "korvex: error 5: " + file + ": " + message + "\n");
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
    const int depth = 10000;
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
    EXPECT_NE(RunKorvex({"repository", "show", repository.Path()}).output.find("(9999) element: O9999"),
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
        const cli::ExportedModel exported = cli::ExportModel(repository::Catalog::Read(*database), "S");
        shown.push_back(seam->Executed().size());
        EXPECT_EQ(exported.model.objects.size(), static_cast<std::size_t>(count) + 1);
        EXPECT_EQ(cli::ModelText(cli::ReadModel(folder.Write("model.json", cli::ModelText(exported.model)))),
                  cli::ModelText(model));
    }
    EXPECT_EQ(imported[2] - imported[1], imported[1] - imported[0]);
    EXPECT_LE(imported[2] - imported[1], 50u * 6);
    EXPECT_EQ(shown, std::vector<std::size_t>(3, 7));
}

TEST(Model, ClashesWithTheRepositoryLeaveItAsItWas) {
    const std::string model =
        R"({"definitions":[{"storage":"S","root":"A"}],"objects":[{"name":"A","guid":"{1}"}]})";
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
