#include "automation/convert.h"
#include "automation/outcome.h"
#include "noting_create_db.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace korvex::surface {
namespace {

using automation::InvokeKind;
using automation::OutcomeOf;
using automation::Variant;

/// A host's language service; notes what it is asked.
class LanguageService : public automation::Object {
  public:
    explicit LanguageService(std::map<std::int32_t, std::string> answers) : m_answers(std::move(answers)) {}

    Variant Invoke(std::string_view name, InvokeKind kind, std::span<Variant> arguments) override {
        std::string call(name);
        call += kind == InvokeKind::Method ? "" : " (no method call)";
        for (const Variant& argument : arguments) {
            call += ", " + automation::Describe(argument);
        }
        asked.push_back(call);
        Variant answer = m_answers[automation::ToLong(arguments[2])];
        arguments[2] = std::int32_t{0};  // by reference: the callee may change it
        return answer;
    }

    std::vector<std::string> asked;

  private:
    std::map<std::int32_t, std::string> m_answers;
};

std::vector<std::string> Texts(const automation::Collection& collection) {
    std::vector<std::string> texts;
    for (std::int32_t i = 1; i <= collection.Count(); ++i) {
        texts.push_back(automation::ToString(collection.Item(i)));
    }
    return texts;
}

using Names = std::vector<std::string>;

TEST(ScriptTypesTest, AreNumbersOrTheServicesNames) {
    clsCreateDb scripts(NotingParts(std::make_shared<Names>()));
    EXPECT_EQ(Texts(*scripts.ScriptTypes()), (Names{"90", "92", "94"}));
    EXPECT_EQ(Texts(*scripts.ScriptTypes(automation::ObjectRef())), (Names{"90", "92", "94"}));

    auto service = std::make_shared<LanguageService>(std::map<std::int32_t, std::string>{{94, "Sybase 11"}});
    EXPECT_EQ(Texts(*scripts.ScriptTypes(service)), (Names{"MS SQL", "Oracle", "Sybase 11"}));
    EXPECT_EQ(service->asked, (Names{"GetString, Integer 410, Integer 13, Long 90",
                                     "GetString, Integer 410, Integer 13, Long 92",
                                     "GetString, Integer 410, Integer 13, Long 94"}));
    EXPECT_EQ(OutcomeOf([&] { return scripts.ScriptTypes("no object"); }), "error 424");
}

TEST(DoScriptTest, RunsTheDialectThatIsNamedExactly) {
    const std::string given = "(String <f.db>, String <S>, String <F_>)";
    struct Case {
        const char* identifier;
        bool withService;
        std::string call;
    };
    const Case cases[] = {
        {"90", false, "DoMSsqlDb" + given},
        {"92", false, "DoOracleDb" + given},
        {"94", false, "DoSybaseDb" + given},
        {"MS SQL", false, ""},
        {"Oracle", false, ""},
        {"", false, ""},
        {"90 ", false, ""},
        {"91", false, ""},

        {"Server", true, "DoMSsqlDb" + given},
        {"Oracle", true, "DoOracleDb" + given},
        {"Sybase", true, "DoSybaseDb" + given},
        {"MS SQL", true, ""},
        {"oracle", true, ""},
        {"Oracle ", true, ""},
        {"92", true, ""},
    };
    for (const Case& test : cases) {
        NotingCreateDb scripts;
        Variant service = Variant::Missing();
        if (test.withService) {
            service = std::make_shared<LanguageService>(
                std::map<std::int32_t, std::string>{{90, "Server"}, {92, ""}, {94, "Sybase"}});
        }
        scripts.clsCreateDb::DoScript(test.identifier, "f.db", "S", "F_", service);
        EXPECT_EQ(scripts.last, test.call) << test.identifier << (test.withService ? " with a service" : "");
    }
}

TEST(DoScriptTest, HandsOnWhatIsMissingAndAsksForNoNameTooMany) {
    NotingCreateDb scripts;
    scripts.clsCreateDb::DoScript("94", "f.db", {}, Variant::Missing(), Variant::Missing());
    EXPECT_EQ(scripts.last, "DoSybaseDb(String <f.db>, String <>, Missing)");

    auto service = std::make_shared<LanguageService>(std::map<std::int32_t, std::string>{});
    scripts.clsCreateDb::DoScript("MS SQL", "f.db", {}, Variant::Missing(), service);
    EXPECT_EQ(service->asked.size(), 1u);
}

}  // namespace
}  // namespace korvex::surface
