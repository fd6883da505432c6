#include "hosts/cli/korvex_command.h"
#include "hosts/cli/model/model_export.h"
#include "hosts/cli/model/model_import.h"
#include "hosts/cli/model/model_reader.h"
#include "hosts/cli/model/model_writer.h"
#include "repository/relationship_builder.h"
#include "repository/schema.h"
#include "support/definition_repository.h"
#include "support/text_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <functional>
#include <random>
#include <set>

namespace korvex::tests {
namespace {

using nlohmann::json;

/// Two definitions that share an object.
constexpr std::string_view Shop = R"({
  "definitions": [{"storage":"Shop","root":"Order"},{"storage":"Stock","root":"Shelf"}],
  "interfaces": [{"name":"ITracked","values":[{"name":"Since","type":"date","vid":1}]}],
  "objects": [
    {"name":"Order","guid":"{1}","interfaces":["ITracked"],"values":[
      {"name":"Number","type":"string","maxLength":20,"vid":1},{"name":"Paid","type":"boolean","vid":2},
      {"name":"Item","child":"Item","vid":3},{"name":"Note","child":"Note","vid":4}]},
    {"name":"Note","values":[{"name":"Text","type":"string","vid":1}]},
    {"name":"Item","guid":"{2}","values":[{"name":"Title","type":"string","vid":1}]},
    {"name":"Shelf","interfaces":["ITracked"],"values":[{"name":"Item","child":"Item","vid":1}]}]})";

/// The part of Shop that is the definition of that name.
json Part(const char* storage, std::set<std::string> objects) {
    json part = json::parse(Shop);
    const auto keep = [](json& list, const char* member, const auto& isKept) {
        json kept = json::array();
        std::copy_if(list.begin(), list.end(), std::back_inserter(kept),
                     [&](const json& entry) { return isKept(entry[member]); });
        list = kept;
    };
    keep(part["definitions"], "storage", [&](const std::string& name) { return name == storage; });
    keep(part["objects"], "name", [&](const std::string& name) { return objects.contains(name); });
    return part;
}

TEST(Replace, SaysWhatChangesAndLeavesToOthersWhatTheyUse) {
    const json shop = Part("Shop", {"Order", "Note", "Item"});
    const struct {
        const char* patch;  ///< of the model of the first definition
        std::string lines;
    } cases[] = {
        {"[]", ""},
        {R"([{"op":"replace","path":"/objects/0/values/0/name","value":"Code"},
             {"op":"replace","path":"/objects/0/values/1/name","value":"Number"}])",
         "value Order.Number renamed to Code\nvalue Order.Paid renamed to Number\n"},
        {R"([{"op":"remove","path":"/objects/0/values/0/vid"},{"op":"remove","path":"/objects/0/values/1/vid"},
             {"op":"add","path":"/objects/0/values/0","value":{"name":"First","type":"long"}}])",
         "value Order.First added\n"},
        {R"([{"op":"replace","path":"/objects/0/name","value":"Purchase"},
             {"op":"replace","path":"/definitions/0/root","value":"Purchase"},
             {"op":"replace","path":"/objects/1/name","value":"Remark"},
             {"op":"replace","path":"/objects/0/values/3/child","value":"Remark"}])",
         "object Order renamed to Purchase\nobject Note renamed to Remark\n"},
        {R"([{"op":"replace","path":"/objects/2/values/0/type","value":"long"},
             {"op":"add","path":"/objects/2/values/0/maxLength","value":9},
             {"op":"add","path":"/interfaces/0/values/1","value":{"name":"By","type":"string"}}])",
         "value ITracked.By added; also in Stock\n"
         "value Item.Title changed: type and maxLength; also in Stock\n"},
        {R"([{"op":"remove","path":"/objects/0/values/2"},{"op":"remove","path":"/objects/2"},
             {"op":"remove","path":"/objects/0/interfaces"},{"op":"remove","path":"/interfaces"}])",
         "object Order changed: interfaces\nvalue Order.Item removed\n"},
        {R"([{"op":"remove","path":"/objects/0/values/3"},{"op":"remove","path":"/objects/1"},
             {"op":"add","path":"/objects/0/guid","value":"{9}"},{"op":"add","path":"/objects/2",
             "value":{"name":"Extra"}},{"op":"add","path":"/objects/1/element","value":"Extra"}])",
         "object Note removed\nobject Order changed: guid\nobject Item changed: element; also in Stock\n"
         "object Extra added\nvalue Order.Note removed\n"},
        {R"([{"op":"replace","path":"/definitions/0/storage","value":"Other"},
             {"op":"remove","path":"/objects/0/guid"}])",
         "definition Other added\nobject Order added\nobject Note added\n"},
        {R"([{"op":"move","from":"/objects/0/values/3","path":"/objects/0/values/0"}])",
         "interface Order changed: the order of its values\n"},
        {R"([{"op":"replace","path":"/definitions/0/root","value":"Note"}])",
         "definition Shop has another root: object Note\n"},
    };
    for (const auto& [patch, lines] : cases) {
        SCOPED_TRACE(patch);
        const RepositoryFile repository(Shop);
        const std::string before = DumpRepository(DefaultPlatform(), repository.Path());
        const std::string model =
            repository.Folder().Write("new.json", shop.patch(json::parse(patch)).dump());
        std::vector<std::string> words = {"repository", "import",    repository.Path(),
                                          model,        "--replace", "--dry-run"};
        CommandResult result = RunKorvex(words);
        EXPECT_EQ(result.messages + result.output, lines);
        EXPECT_EQ(DumpRepository(DefaultPlatform(), repository.Path()), before);
        words.pop_back();
        result = RunKorvex(words);
        EXPECT_EQ(result.messages + result.output, lines);
        EXPECT_EQ(RunKorvex(words).output, "") << "it is the model's state now";
        EXPECT_EQ(RunKorvex({"repository", "check", repository.Path()}).exitCode, 0);
    }
}

TEST(Replace, RemovesADefinitionWithWhatNoOtherUses) {
    const RepositoryFile repository(Shop);
    ASSERT_EQ(RunKorvex({"relate", repository.Path()}).messages, "");
    const CommandResult removed = RunKorvex({"repository", "remove", repository.Path(), "--storage", "Shop"});
    EXPECT_EQ(removed.output, "definition Shop removed\nobject Order removed\nobject Note removed\n");
    const auto show = [](const std::string& place) {
        return RunKorvex({"repository", "show", place, "--format", "json"}).output;
    };
    // The shared object keeps no key to the order; a run only names its table anew.
    const std::string left = show(repository.Path());
    EXPECT_THAT(left, testing::Not(testing::HasSubstr("OrderID")));
    EXPECT_THAT(left, testing::HasSubstr("FK_ShelfID"));
    EXPECT_EQ(RunKorvex({"relate", repository.Path()}).messages, "");
    EXPECT_EQ(show(repository.Path()), Replace(left, "tItem2", "tItem"));

    // Nor does the removal of the last leave anything.
    ASSERT_EQ(RunKorvex({"repository", "remove", repository.Path(), "--storage", "Stock"}).exitCode, 0);
    EXPECT_EQ(DumpRepository(DefaultPlatform(), repository.Path()),
              DumpRepository(DefaultPlatform(), RepositoryFile().Path()));
}

TEST(Replace, RefusalsAndFailuresLeaveTheRepositoryAsItWas) {
    const RepositoryFile repository(Shop);
    repository.Execute({"update tObjects set Guid = '{2}' where Name = 'Shelf'"});
    const std::string before = DumpRepository(DefaultPlatform(), repository.Path());
    const auto import = [&](const json& model) {
        return RunKorvex({"repository", "import", repository.Path(),
                          repository.Folder().Write("new.json", model.dump()), "--replace"});
    };
    const std::string path = repository.Path();
    ExpectFailure(RunKorvex({"repository", "remove", path, "--storage", "Shp"}), "Shop and Stock");
    ExpectFailure(RunKorvex({"repository", "remove", path}), "--storage is required", 2);
    ExpectFailure(RunKorvex({"repository", "import", path, "x.json", "--dry-run"}), "--replace", 2);
    ExpectFailure(import(json::parse(R"({"definitions":[{"storage":"Shop","root":"Order"}],
                                        "objects":[{"name":"Order","guid":"{2}"}]})")),
                  "new.json: objects[0].guid: the repository's object \"Item\" already has the guid {2}");
    repository.Execute(
        {"create trigger no_more before delete on tValues begin select raise(abort, 'No'); end"});
    json less = Part("Shop", {"Order", "Note", "Item"});
    less["objects"][0]["values"].erase(1);
    less["objects"][0]["name"] = "Renamed";
    less["definitions"][0]["root"] = "Renamed";
    ExpectFailure(import(less), "No");
    EXPECT_EQ(DumpRepository(DefaultPlatform(), repository.Path()), before);
}

/// A model as a JSON document, edited at random.
class Edits {
  public:
    Edits(json document, unsigned seed, bool addsFirst)
        : m_document(std::move(document)), m_random(seed), m_addsFirst(addsFirst) {}

    json Take() { return std::move(m_document); }

    void Edit() {
        json& object = Any(m_document["objects"]);
        switch (Below(6)) {
            case 0:
                return Rename(object);
            case 1:
                if (json* value = AnyPlain(object)) (*value)["name"] = NewName();
                return;
            case 2:
                if (json* value = AnyPlain(object)) Erase(object, *value);
                return;
            case 3:
                if (json* value = AnyPlain(object)) (*value)["caption"] = NewName();
                return;
            case 4:
                return Add(object, {{"name", NewName()}, {"type", "long"}});
            default:
                AddObject(object);
        }
    }

  private:
    std::size_t Below(std::size_t count) { return m_random() % count; }
    json& Any(json& list) { return list[Below(list.size())]; }
    std::string NewName() { return "New" + std::to_string(++m_names); }

    /// A value of the object's own interface that is no child; nullptr when it has none.
    json* AnyPlain(json& object) {
        std::vector<json*> plain;
        if (object.contains("values"))
            for (json& value : object["values"])
                if (!value.contains("child")) plain.push_back(&value);
        return plain.empty() ? nullptr : plain[Below(plain.size())];
    }
    static void Erase(json& object, const json& value) {
        json& values = object["values"];
        values.erase(std::find(values.begin(), values.end(), value));
    }
    void Add(json& object, json value) {
        json& values = object["values"];
        int last = 0;
        for (const json& other : values)
            last = std::max(last, other["vid"].get<int>());
        value["vid"] = last + 1;
        values.push_back(value);
        if (m_addsFirst) std::rotate(values.begin(), values.end() - 1, values.end());
    }
    void Rename(json& object) {
        const std::string old = object.value("id", object["name"].get<std::string>());
        const std::string name = NewName();
        ForEach(m_document, [&](const std::string& member, json& text) {
            if (text == old &&
                (member == "root" || member == "child" || member == "element" || member == "object"))
                text = name;
        });
        object["name"] = name;
        object.erase("id");
    }
    void AddObject(json& parent) {
        const std::string name = NewName();
        Add(parent, {{"name", NewName()}, {"child", name}});
        m_document["objects"].push_back(
            {{"name", name}, {"values", {{{"name", "V"}, {"type", "long"}, {"vid", 1}}}}});
    }
    static void ForEach(json& node, const std::function<void(const std::string&, json&)>& visit) {
        for (auto& item : node.items()) {
            if (item.value().is_string() && node.is_object()) visit(item.key(), item.value());
            if (item.value().is_structured()) ForEach(item.value(), visit);
        }
    }

    json m_document;
    std::minstd_rand m_random;
    bool m_addsFirst;  ///< values stand before those that are there
    int m_names = 0;
};

cli::Model ReadBack(dao::Database& database) {
    return cli::ExportModel(repository::Catalog::Read(database), "");
}

std::set<repository::ValueId> ValueIDs(const cli::Model& exported) {
    std::set<repository::ValueId> all;
    for (const cli::ModelInterface& interface : exported.interfaces)
        for (const cli::ModelValue& value : interface.values)
            all.insert(value.ValueID);
    return all;
}

/// What a new repository makes of a model.
std::string Imported(const cli::Model& model) {
    const auto fresh = DefaultPlatform().repositoryEngine->CreateDatabase("");
    repository::CreateSchema(*fresh);
    cli::ImportModel(model, *fresh);
    return cli::ModelText(ReadBack(*fresh));
}

TEST(Replace, AnyModelComesBackAndIdentifiersStay) {
    const TempFolder folder;
    const cli::Model start = cli::ReadModel(KORVEX_TEST_DATA "/orders.json");
    for (unsigned seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE(seed);
        repository::Repository repository = repository::Repository(DefaultPlatform()).NewPrivate();
        repository::CreateSchema(repository.Open());
        cli::ImportModel(start, repository.Open());
        if (seed % 2 == 0) repository::CreateRelationship(repository, "Orders", "FK_");
        const cli::Model before = ReadBack(repository.Open());
        const bool addsFirst = seed % 3 == 0;
        Edits edits(json::parse(cli::ModelText(before)), seed, addsFirst);
        for (unsigned i = 0; i < 1 + seed % 7; ++i)
            edits.Edit();
        const cli::Model edited = cli::ReadModel(folder.Write("edited.json", edits.Take().dump()));
        cli::ReplaceDefinitions(edited, {}, repository.Open(), false);

        const cli::Model after = ReadBack(repository.Open());
        ExpectSameText("model", cli::ModelText(after), Imported(edited));
        std::size_t added = 0;
        std::size_t removed = 0;
        const std::set<repository::ValueId> old = ValueIDs(before);
        const std::set<repository::ValueId> now = ValueIDs(after);
        for (const repository::ValueId id : now)
            added += old.contains(id) ? 0 : 1;
        for (const repository::ValueId id : old)
            removed += now.contains(id) ? 0 : 1;
        const auto count = [](const cli::Model& model) {
            std::size_t values = 0;
            for (const cli::ModelInterface& interface : model.interfaces)
                values += interface.values.size();
            return values;
        };
        EXPECT_EQ(added - removed, count(edited) - count(before));
        EXPECT_TRUE(addsFirst || added <= std::size_t{2} * (1 + seed % 7))
            << "what stays is not written anew";
        EXPECT_EQ(cli::ReplaceDefinitions(edited, {}, repository.Open(), true), std::vector<std::string>());
        EXPECT_EQ(after.leftOut, std::vector<std::string>());
    }
}

}  // namespace
}  // namespace korvex::tests
