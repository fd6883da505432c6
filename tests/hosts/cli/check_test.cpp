#include "hosts/cli/korvex_command.h"

#include <gmock/gmock.h>

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

TEST(Check, NamesWhatAnEngineWillNotTake) {
    const RepositoryFile repository(Values(
        R"({"name":"Order","type":"long"},{"name":"MaxValue","type":"long","default":"many"},{"name":"a-b","type":"long"})"));
    const auto errors = [&](const char* dialect) {
        const CommandResult result =
            RunKorvex({"repository", "check", repository.Path(), "--dialect", dialect});
        EXPECT_EQ(result.exitCode, 1) << result.messages;
        std::vector<std::string> lines = Lines(result.output);
        std::erase_if(lines, [](const std::string& line) { return !line.starts_with("error: definition "); });
        return lines;
    };
    const auto expected = [](const std::string& dialect) {
        const std::string place = "error: definition S: column tA.";
        std::vector<std::string> lines = {
            place + "Order is a reserved word of " + dialect,
            "error: definition S: tA.MaxValue: the default \"many\" is no value that the column can hold. "
            "Change the default of the value.",
            place + "a-b is no name that can stand unquoted in " + dialect};
        if (dialect == "mariadb")
            lines.insert(lines.begin() + 1, place + "MaxValue is a reserved word of " + dialect);
        return lines;
    };
    for (const char* dialect : {"sqlite", "mariadb", "postgresql"})
        EXPECT_EQ(errors(dialect), expected(dialect));
    EXPECT_EQ(errors("all-engines").size(), 8U) << "the default is told once";
    ExpectFailure(RunKorvex({"script", "--repository", repository.Path(), "--dialect", "sqlite", "--out",
                             repository.Folder().Path("out")}),
                  "korvex: error 5: tA.MaxValue: the default \"many\"");
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
          "error: " + a + ": column Unit price is no identifier; names stand in SQL text without quotes"}},
        {Values(
             R"({"name":"Größe_1$#","type":"long"},{"name":"1st","type":"long"},{"name":"a;b","type":"long"})"),
         {"error: " + a + ": column 1st is no identifier; names stand in SQL text without quotes",
          "error: " + a + ": column a;b holds \";\", which SQL takes for more than a name"}},
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

TEST(Check, FindsNamesThatScriptsWouldUseTwiceOrNotBeginSo) {
    const std::string cut = "1_LettersThatFillTheRestOfIt";
    const auto begins = [&cut](const std::string& name, const std::string& what) {
        return "error: definition S: procedure " + name + " " + what + " table t" + cut + "x begins with '" +
               name.front() + "', being cut to 30 characters";
    };
    const Case cases[] = {
        {Children({cut + "x"}),
         {begins(cut.substr(1) + "xAR", "to read all rows of"),
          begins(cut.substr(1) + "xAD", "to delete all rows of"), begins(cut + "xR", "to read a row of"),
          begins(cut + "xD", "to delete a row of"), begins(cut + "xC", "to insert a row of"),
          begins(cut + "xU", "to update a row of")}},
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

/// Two parents of one name share a child: the library goes on, and the last parent stands in the scripts.
TEST(Check, FindsParentsWithOneKeyNameAndAnswersForThePrefix) {
    const std::string model =
        R"({"definitions":[{"storage":"S","root":"outer"}],"objects":[{"name":"A","id":"outer","values":[)"
        R"({"name":"Y","child":{"name":"A","id":"inner","values":[{"name":"X","child":"Shared"}]}},)"
        R"({"name":"X","child":"Shared"}]},{"name":"Shared","values":[{"name":"S","type":"long"}]}]})";
    const RepositoryFile repository;
    const std::string finding =
        "object Shared (ObjectID 3): the key of A (ObjectID 2) and the key of A (ObjectID 1) both become "
        "column "
        "FK_AID";
    const std::string warning = "korvex: warning: " + finding + "\n";
    EXPECT_EQ(repository.Import(model).messages, warning);
    for (int run = 0; run < 2; ++run) {
        const CommandResult result = RunKorvex({"repository", "check", repository.Path()});
        EXPECT_THAT(
            Lines(result.output),
            testing::IsSupersetOf({"error: " + finding,
                                   std::string("warning: object Shared (ObjectID 3) is reached along 2 ways; "
                                               "the scripts hold table tShared2 as often")}));
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(RunKorvex({"relate", "--repository", repository.Path()}).messages, warning);
    }
    const std::string out = repository.Folder().Path("out");
    const CommandResult script = RunKorvex(
        {"script", "--repository", repository.Path(), "--dialect", "mssql", "--out", out, "--quiet"});
    EXPECT_EQ(script.messages, warning);
    EXPECT_EQ(script.exitCode, 0);
    EXPECT_THAT(
        repository.Folder().Read("out/MSFKCr.sql"),
        testing::HasSubstr("ALTER TABLE tShared2\r\nADD CONSTRAINT FK_tShared2_1 FOREIGN KEY (FK_AID)\r\n"
                           " REFERENCES tA(AID)"));
    for (const char* command : {"save", "update --key 1", "delete --key 1"}) {
        std::vector<std::string> words = Words(command);
        for (const std::string& word :
             {std::string("--repository"), repository.Path(), std::string("--storage"), std::string("S"),
              std::string("--connection"),
              "Provider=SQLite;Data Source=" + repository.Folder().Path("none.db")})
            words.push_back(word);
        ExpectFailure(RunKorvex(words),
                      "error 5: Nothing was done, because data would be mixed up or lost: " + finding);
    }

    const RepositoryFile plain(Children({"B"}));
    plain.Execute({"update tValues set Name = 'RefAID' where Name = 'W'"});
    EXPECT_EQ(RunKorvex({"repository", "check", plain.Path()}).exitCode, 0);
    EXPECT_EQ(RunKorvex({"repository", "check", plain.Path(), "--fk-prefix", "Ref"}).exitCode, 1);
    const CommandResult blank = RunKorvex({"repository", "check", plain.Path(), "--fk-prefix", " FK_"});
    EXPECT_EQ(
        blank.output,
        "warning: the foreign-key prefix \" FK_\" begins with a blank, which the columns lose; foreign keys "
        "are not found by it\n");
}

TEST(Check, FindsSqlTextInNames) {
    const RepositoryFile repository(Children({"B", "C", "D"}));
    ASSERT_EQ(RunKorvex({"relate", "--repository", repository.Path()}).exitCode, 0);
    repository.Execute({"update tObjects set TableName = 'written anew' where Name = 'B'",
                        "update tObjects set Name = 'D' || char(10) where Name = 'D'",
                        "update tValues set DataType = 1, FieldName = 'W) --' where ValueID = 5",
                        "update tValues set DefaultVal = '0)' || char(10) || 'GO' where Name = 'U'",
                        "update tInterfaces set Name = char(9) where InterfaceID = 1"});
    const CommandResult result = RunKorvex({"repository", "check", repository.Path()});
    std::vector<std::string> errors = Lines(result.output);
    std::erase_if(errors, [](const std::string& line) { return !line.starts_with("error: "); });
    EXPECT_THAT(
        errors,
        testing::UnorderedElementsAre(
            "error: object D\\n (ObjectID 4): its name holds a control character",
            "error: object D\\n (ObjectID 4): table tD\\n holds a control character, which SQL takes for "
            "more than a "
            "name",
            "error: object D\\n (ObjectID 4): column D\\nID holds a control character, which SQL takes for "
            "more "
            "than a name",
            "error: interface \\x09: its name holds a control character",
            "error: object B (ObjectID 2): column W) -- holds a bracket, which SQL takes for more than a "
            "name",
            "error: object A (ObjectID 1): value U: the default holds a control character, which ends a line "
            "of the "
            "scripts"))
        << result.output;
    ExpectFailure(
        RunKorvex({"delete", "--repository", repository.Path(), "--storage", "S", "--connection",
                   "Provider=SQLite;Data Source=none.db", "--key", "2"}),
        "error 5: Nothing was done, because data would be mixed up or lost: object D\\n (ObjectID 4): "
        "column D\\nID holds");
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
