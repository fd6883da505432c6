#include "hosts/cli/korvex_command.h"

#include <gtest/gtest.h>

#include <sstream>

namespace korvex::tests {
namespace {

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

/// A definition of one object with these values.
std::string Values(std::string_view values) {
    return R"({"definitions":[{"storage":"S","root":"A"}],"objects":[{"name":"A","values":[)" +
           std::string(values) + "]}]}";
}

/// Objects under one root, each with one value.
std::string Children(const std::vector<std::string>& names) {
    std::string values;
    for (std::size_t i = 0; i < names.size(); ++i) {
        values += (i > 0 ? "," : "") + std::string(R"({"name":"V)") + std::to_string(i) +
                  R"(","child":{"name":")" + names[i] + R"(","values":[{"name":"W","type":"long"}]}})";
    }
    return Values(R"({"name":"U","type":"long"},)" + values);
}

struct Case {
    std::string model;
    std::vector<std::string> findings;
};

void ExpectFindings(const RepositoryFile& repository, const std::vector<std::string>& findings) {
    const CommandResult result = RunKorvex({"repository", "check", repository.Path()});
    EXPECT_EQ(Lines(result.output), findings);
    bool hasErrors = false;
    for (const std::string& finding : findings)
        hasErrors = hasErrors || finding.starts_with("error: ");
    EXPECT_EQ(result.exitCode, hasErrors ? 1 : 0);
}

TEST(Check, FindsWhatAModelMakesOfItsColumns) {
    const std::string a = "object A (ObjectID 1)";
    const Case cases[] = {
        {Values(R"({"name":"V","type":"string","maxLength":20,"default":"x"})"), {}},
        {Values(R"({"name":"Total","type":"long"},{"name":"total","type":"long"})"),
         {"error: " + a + ": value Total (ValueID 1) and value total (ValueID 2) both become column total"}},
        {Values(R"({"name":"First_LengthOfTheLongestDeliveryRoute","type":"long"},)"
                R"({"name":"SecondLengthOfTheLongestDeliveryRoute","type":"long"})"),
         {"error: " + a +
          ": value First_LengthOfTheLongestDeliveryRoute (ValueID 1) and value "
          "SecondLengthOfTheLongestDeliveryRoute (ValueID 2) both become column "
          "engthOfTheLongestDeliveryRoute"}},
        {Values(R"({"name":"AID","type":"long"})"),
         {"error: " + a + ": value AID (ValueID 1) and the own key both become column AID"}},
        {Values(R"({"name":"QORCounter","type":"long"})"),
         {"error: " + a +
          ": value QORCounter (ValueID 1) and an added column both become column QORCounter"}},
        {Values(
             R"({"name":"Order","type":"long"},{"name":"Level","type":"long"},{"name":"Unit price","type":"long"})"),
         {"warning: " + a + ": column Order is a reserved word (MS SQL, Oracle, Sybase)",
          "warning: " + a + ": column Level is a reserved word (Oracle, Sybase)",
          "warning: " + a + ": column Unit price is no plain identifier; the scripts do not quote names"}},
        {Values(R"({"name":"V","type":99})"),
         {"warning: " + a + ": value V: unknown data type 99; it becomes a text column",
          "warning: " + a +
              ": value V: a column of this data type gets an empty default clause, which servers refuse"}},
        {Values(R"({"name":"V","type":"object","default":"x"},{"name":"W","type":"variant"})"),
         {"warning: " + a +
          ": value V: a column of this data type gets an empty default clause, which servers refuse"}},
        {Values(R"({"name":"V","type":"long","default":"many"})"),
         {"warning: " + a + ": value V: the default many is no number"}},
        {Values(R"({"name":"V","type":"string","maxLength":3,"default":"it's"})"),
         {"warning: " + a + ": value V: the default holds a single quote, which ends the text early",
          "warning: " + a + ": value V: the default is longer than MaxLength"}},
        {Values(R"({"name":"V","type":"string","maxLength":4001},{"name":"W","type":"object"})"),
         {"warning: " + a + " has 2 LONG or LONG RAW columns in Oracle, which takes one in a table"}},
        {Values(R"({"name":"V","type":"long","autoNumber":true})"),
         {"warning: " + a +
          ": value V is numbered automatically beside the own key; MS SQL and Sybase take one such column in "
          "a table"}},
        {Values(R"({"name":"V","type":"unknown"},{"name":"V","type":"null"})"), {}},
        {R"({"definitions":[{"storage":"S","root":"A"}],"objects":[{"name":"A"}]})",
         {"warning: " + a + " has no values; its table will hold keys only"}},
    };
    for (const auto& [model, findings] : cases) {
        SCOPED_TRACE(model);
        ExpectFindings(RepositoryFile(model), findings);
    }
}

TEST(Check, FindsNamesThatScriptsWouldUseTwice) {
    const Case cases[] = {
        {Children({"B", "B", "C"}), {}},
        {Children({"Item", "item"}),
         {"error: definition S: table titem would be made twice: object Item (ObjectID 2) and object item "
          "(ObjectID 3)"}},
        // Different names, but the same last 29 characters.
        {Children({"DomesticDeliveryInstructionsOfTheCarrier", "OverseasDeliveryInstructionsOfTheCarrier"}),
         {"error: definition S: table tiveryInstructionsOfTheCarrier would be made twice: object "
          "DomesticDeliveryInstructionsOfTheCarrier (ObjectID 2) and object "
          "OverseasDeliveryInstructionsOfTheCarrier "
          "(ObjectID 3)"}},
        // The procedure that reads all rows of one table has the name of the one that reads a row of another.
        {Children({"Item", "ItemA"}),
         {"error: definition S: procedure tItemAR would be made twice: to read all rows of table tItem and "
          "to "
          "read a row of table tItemA",
          "error: definition S: procedure tItemAD would be made twice: to delete all rows of table tItem and "
          "to delete a row of table tItemA"}},
    };
    for (const auto& [model, findings] : cases) {
        SCOPED_TRACE(model);
        const CommandResult result = RunKorvex({"repository", "check", RepositoryFile(model).Path()});
        std::vector<std::string> errors = Lines(result.output);
        std::erase_if(errors, [](const std::string& line) { return !line.starts_with("error: "); });
        EXPECT_EQ(errors, findings);
        EXPECT_EQ(result.exitCode, findings.empty() ? 0 : 1) << result.output;
    }
}

TEST(Check, FindsParentsWithOneKeyNameAndAnswersForThePrefix) {
    const std::string model =
        Values(R"({"name":"U","type":"long"},{"name":"X","child":"Shared"},)"
               R"({"name":"Y","child":{"name":"A","id":"inner","values":[{"name":"X","child":"Shared"},)"
               R"({"name":"ShopID","type":"long"}]}})");
    const std::string shared =
        Replace(model, "}]}]}", R"(}]},{"name":"Shared","values":[{"name":"S","type":"long"}]}]})");
    const RepositoryFile repository(shared);
    const CommandResult result = RunKorvex({"repository", "check", repository.Path()});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(
        result.output.find("error: object Shared (ObjectID 3): the key of A (ObjectID 1) and the key of A "
                           "(ObjectID 2) both become column FK_AID\n"),
        std::string::npos)
        << result.output;
    EXPECT_NE(
        result.output.find("warning: object Shared (ObjectID 3) is reached along 2 ways; the scripts hold "
                           "table tShared2 as often\n"),
        std::string::npos)
        << result.output;
    // The builder refuses the same thing.
    EXPECT_EQ(RunKorvex({"relate", "--repository", repository.Path()}).exitCode, 1);

    const RepositoryFile plain(Children({"B"}));
    plain.Execute({"update tValues set Name = 'RefAID' where Name = 'W'"});
    EXPECT_EQ(RunKorvex({"repository", "check", plain.Path()}).exitCode, 0);
    EXPECT_EQ(RunKorvex({"repository", "check", plain.Path(), "--fk-prefix", "Ref"}).exitCode, 1);
}

TEST(Check, FindsRowsThatLeadNowhere) {
    const RepositoryFile repository(Children({"B"}));
    ASSERT_EQ(RunKorvex({"relate", "--repository", repository.Path()}).exitCode, 0);
    ExpectFindings(repository, {});
    repository.Execute({
        "insert into tDataDefs (Storage, RootObjectID) values ('S', 70)",
        "update tObjects set CollectionObjectID = 71 where Name = 'B'",
        "insert into tObjectInterfaces (ObjectID, InterfaceID) values (1, 72)",
        "insert into tObjectInterfaces (ObjectID, InterfaceID) values (73, 1)",
        "insert into tObjectInterfaces (ObjectID, InterfaceID) values (2, 2)",
        "insert into tValues (InterfaceID, Name, ChildObjectID, DataType) values (74, 'Lost', 75, 3)",
        "insert into tPrimaryKeys (ObjectID, ValueID, Seq) values (1, 76, 2)",
        "insert into tForeignKeys (ObjectID, ValueID, FKObjectID, FKValueID) values (2, 1, 77, 1)",
        "insert into tObjects (Name) values ('Alone''s')",
        "insert into tInterfaces (Name) values ('INobody')",
    });
    ExpectFindings(
        repository,
        {"error: definition S: its root object, ObjectID 70, does not exist",
         "warning: storage name S stands for several definitions; their scripts go into the same files",
         "error: object B (ObjectID 2): the object of its elements, ObjectID 71, does not exist",
         "error: object A (ObjectID 1): its interface, InterfaceID 72, does not exist",
         "error: tObjectInterfaces: ObjectID 73 does not exist",
         "error: object B (ObjectID 2) has the interface InterfaceID 2 twice",
         "error: value Lost (ValueID 7): its interface, InterfaceID 74, does not exist",
         "error: value Lost (ValueID 7): its child, ObjectID 75, does not exist",
         "error: tPrimaryKeys: ObjectID 1 or ValueID 76 does not exist",
         "error: tForeignKeys: ObjectID 2, ValueID 1, FKObjectID 77 or FKValueID 1 does not exist",
         "warning: object Alone's (ObjectID 3) is part of no definition",
         "warning: interface INobody (InterfaceID 5) belongs to no object",
         "error: object Alone's (ObjectID 3): its name holds a single quote",
         "warning: object Alone's (ObjectID 3) has no values; its table will hold keys only",
         "error: object B (ObjectID 2): value W (ValueID 3) and value W (ValueID 3) both become column W"});
}

TEST(Check, FindsKeysThatEarlierRunsLeft) {
    const RepositoryFile repository(Children({"B", "C"}));
    ASSERT_EQ(RunKorvex({"relate", "--repository", repository.Path()}).exitCode, 0);
    repository.Execute({
        "update tObjects set Name = 'Renamed' where Name = 'B'",
        "update tValues set ChildObjectID = 0, DataType = 13 where ChildObjectID = 3",
        "delete from tForeignKeys where ObjectID = 2",
    });
    ExpectFindings(
        repository,
        {"warning: object C (ObjectID 3) is part of no definition",
         "warning: object Renamed (ObjectID 2): the key interface BDBKeys is left from an earlier name",
         "warning: value FK_AID (ValueID 8) was a key once and is none any more; it stays a column",
         "warning: object C (ObjectID 3) still refers to object A (ObjectID 1), which does not hold it any "
         "more",
         "error: object Renamed (ObjectID 2): value FK_AID (ValueID 8) and the key of A (ObjectID 1) both "
         "become column FK_AID"});
}

TEST(Check, FindsTargetsThatTheScriptsLeaveOut) {
    // Twelve objects, so that one of them has the number 12; the shared one belongs to 12 and then to 2.
    std::string objects = R"({"name":"Root","values":[{"name":"U","type":"long"})";
    std::string rest;
    for (int i = 2; i <= 12; ++i) {
        const std::string name = "O" + std::to_string(i);
        const std::string shared = i == 2 || i == 12 ? R"(,{"name":"S","child":"Shared"})" : "";
        const int child = i == 12 ? 2 : i == 2 ? 12 : i;
        objects += R"(,{"name":"V)" + std::to_string(i) + R"(","child":"O)" + std::to_string(child) + "\"}";
        rest += R"(,{"name":")" + name + R"(","values":[{"name":"W","type":"long"})" + shared + "]}";
    }
    const RepositoryFile repository(R"({"definitions":[{"storage":"S","root":"Root"}],"objects":[)" +
                                    objects + "]}" + rest +
                                    R"(,{"name":"Shared","values":[{"name":"W","type":"long"}]}]})");
    ASSERT_EQ(RunKorvex({"relate", "--repository", repository.Path()}).exitCode, 0);
    const CommandResult result = RunKorvex({"repository", "check", repository.Path()});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(
        result.output.find("error: object Shared (ObjectID 13) refers to object O2 (ObjectID 2) without a "
                           "constraint, an index or procedures: "),
        std::string::npos)
        << result.output;
    const std::string out = repository.Folder().Path("out");
    ASSERT_EQ(
        RunKorvex({"script", "--repository", repository.Path(), "--dialect", "mssql", "--out", out}).exitCode,
        0);
    const std::string constraints = repository.Folder().Read("out/MSFKCr.sql");
    EXPECT_NE(constraints.find("REFERENCES tO12("), std::string::npos);
    EXPECT_EQ(constraints.find("REFERENCES tO2("), std::string::npos);
}

}  // namespace
}  // namespace korvex::tests
