#include "hosts/cli/korvex_command.h"
#include "hosts/cli/target_database.h"
#include "support/definition_repository.h"
#include "support/json_holds.h"
#include "support/text_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace korvex::tests {
namespace {

using nlohmann::json;
using testing::ElementsAre;

using Arguments = std::vector<std::string>;

constexpr const char* OrderFile = KORVEX_TEST_DATA "/order.json";

/// `options` with those of `more`, which replace options of the same name.
Arguments Merge(Arguments options, const Arguments& more) {
    for (std::size_t i = 0; i < more.size(); ++i) {
        const auto same = std::ranges::find(options, more[i]);
        if (!more[i].starts_with("--") || same == options.end()) {
            options.push_back(more[i]);
        } else {
            *(same + 1) = more[++i];
        }
    }
    return options;
}

/// The example's definition, ready for use, and an empty database for it.
class StoredData : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        s_repository = std::make_unique<RepositoryFile>(ReadFile(KORVEX_TEST_DATA "/orders.json"));
        const TargetDatabase target;
        ASSERT_EQ(RunKorvex({"database", "create", "--repository", s_repository->Path(), "--storage",
                             "Orders", "--connection", target.Connection()})
                      .messages,
                  "");
        std::filesystem::copy(target.Path(), EmptyDatabase());
    }
    static void TearDownTestSuite() { s_repository.reset(); }

    StoredData() { std::filesystem::copy(EmptyDatabase(), m_target.Path()); }

    static std::string EmptyDatabase() { return s_repository->Folder().Path("empty.db"); }

    /// Runs a command on the definition and the database.
    CommandResult Run(const std::string& command, const Arguments& arguments,
                      const std::string& input = {}) const {
        const Arguments all = Merge({command, "--repository", s_repository->Path(), "--storage", "Orders",
                                     "--connection", m_target.Connection()},
                                    arguments);
        return RunKorvex(all, {}, {},
                         input.empty() ? "/dev/null" : m_target.Folder().Write("input.json", input));
    }
    CommandResult RunField(const std::string& command, const Arguments& arguments) const {
        return RunKorvex(Merge({"field", command, "--connection", m_target.Connection(), "--table", "tOrder",
                                "--key-field", "OrderID"},
                               arguments));
    }
    /// Runs one that must succeed without a word on standard error.
    std::string Expect(const CommandResult& result) const {
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.messages, "");
        return result.output;
    }
    json Load(int key = 1) const { return json::parse(Expect(Run("load", {"--key", std::to_string(key)}))); }

    /// The number of records of every table that has any.
    std::vector<std::string> Counts() const {
        std::string query;
        for (const std::string& table : m_target.Query("select name from sqlite_master where type = 'table'"))
            query +=
                (query.empty() ? "" : " union all ") + ("select '" + table + "' t, count(*) n from " + table);
        return m_target.Query("select t, n from (" + query +
                              ") where n > 0 and t not like 'sqlite_%' order by t");
    }

    TargetDatabase m_target;

  private:
    static inline std::unique_ptr<RepositoryFile> s_repository;
};

const std::vector<std::string> CountsOfTheExample = {
    "tAddress2 2",       "tContact 2",         "tContacts 1",  "tCustomer 1",
    "tLineAllocation 3", "tLineAllocations 3", "tOrder 1",     "tOrderLine 3",
    "tOrderLines 1",     "tParcel 2",          "tPayment 1",   "tPayments 1",
    "tProduct 3",        "tShipment 1",        "tShipments 1", "trnationalDeliveryInstructions 1"};

TEST_F(StoredData, IsSavedLoadedUpdatedAndDeleted) {
    const json given = json::parse(ReadFile(OrderFile));
    EXPECT_EQ(Expect(Run("exists", {"--key", "1"})), "false\n");
    EXPECT_EQ(Expect(Run("save", {OrderFile})), "1\n");
    EXPECT_EQ(Expect(Run("exists", {"--key", "1"})), "true\n");
    EXPECT_EQ(Counts(), CountsOfTheExample);
    const json saved = Load();
    EXPECT_TRUE(Holds(saved, given)) << saved;

    const CommandResult unchanged = Run("update", {"--key", "1"}, saved.dump());
    EXPECT_EQ(unchanged.exitCode, 0);
    EXPECT_EQ(unchanged.messages, "korvex: dbObjectNotModified: Nothing differs from what is stored.\n");
    EXPECT_EQ(Load(), saved);

    Expect(Run("update", {"--key", "1", "-"},
               R"({"State": 4, "Customer": {"Rating": 1}, "Notes": null,
                   "Payments": {"$items": [{"PaymentID": 1, "Amount": 1936.55}, {"PaymentMethod": 2}]},
                   "Shipments": {"$items": []}})"));
    const json updated = Load();
    EXPECT_EQ(json::diff(saved, updated), json::parse(R"([
        {"op": "replace", "path": "/Customer/Rating", "value": 1},
        {"op": "replace", "path": "/Notes", "value": ""},
        {"op": "replace", "path": "/Payments/$items/0/Amount", "value": 1936.55},
        {"op": "add", "path": "/Payments/$items/-", "value":
            {"Amount": 0, "PaidOn": "1899-12-30", "PaymentMethod": 2, "BankReference": "", "CreatedOn": "1899-12-30",
             "ChangedOn": "1899-12-30", "ChangedBy": "", "PaymentID": 2, "FK_PaymentsID": 1}},
        {"op": "remove", "path": "/Shipments/$items/0"},
        {"op": "replace", "path": "/State", "value": 4}])"));

    Expect(Run("update", {"--key", "1", "--retain-root", OrderFile}));
    const json replaced = Load();
    EXPECT_TRUE(Holds(replaced, given)) << replaced;
    EXPECT_EQ(replaced["OrderID"], 1);
    EXPECT_EQ(replaced["Customer"]["CustomerID"], 2);
    EXPECT_EQ(Counts(), CountsOfTheExample);

    EXPECT_EQ(Expect(Run("delete", {"--key", "1"})), "");
    EXPECT_EQ(Expect(Run("exists", {"--key", "1"})), "false\n");
    EXPECT_THAT(Counts(), testing::IsEmpty());

    ASSERT_EQ(m_target.Execute("insert into tOrder (OrderID) values (0)"), 0);
    for (const char* command : {"delete", "load", "update"}) {
        ExpectFailure(Run(command, {"--key", "0"}),
                      "dbPrimaryKeyMissing: The record of tOrder with OrderID = 0 is no record of an object");
    }
}

TEST_F(StoredData, AnArrayIsSavedAsAWholeOrNotAtAll) {
    const std::string order = R"({"OrderNumber": "A", "Payments": {"$items": [{}, {}]}})";
    EXPECT_EQ(Expect(Run("save", {}, "[" + order + ", {}, " + order + "]")), "1\n2\n3\n");
    EXPECT_EQ(Expect(Run("save", {"-"}, "[]")), "");
    const std::vector<std::string> counts = Counts();
    EXPECT_THAT(counts, testing::Contains("tPayment 4"));

    ASSERT_EQ(m_target.Execute("create unique index OneB on tOrder(OrderNumber) where OrderNumber = 'B'"), 0);
    // No key is printed of a record that was taken back.
    ExpectFailure(Run("save", {}, R"([{"OrderNumber": "B"}, {"OrderNumber": "B"}])"),
                  "UNIQUE constraint failed");
    EXPECT_EQ(Counts(), counts);
}

TEST_F(StoredData, FieldsAreReadAndWritten) {
    Expect(Run("save", {OrderFile}));
    const struct {
        const char* field;
        const char* before;
        const char* set;
        const char* after;
    } cases[] = {
        {"OrderNumber", "2026-004711", "it's Ö", "it's Ö"},
        {"State", "3", " 9", "9"},
        {"Total", "1936.55", "0.1", "0.1"},
        {"IsPaid", "false", "True", "true"},
        {"OrderedOn", "2026-03-02T09:14:30", "2026-12-24 18:00", "2026-12-24T18:00:00"},
        {"InternalRemarks", nullptr, "short", "short"},
        {"ExternalReference", "UE8gMTAwNDIvQg==", "AAEC/w==", "AAEC/w=="},
        {"ExternalReference", "AAEC/w==", nullptr, ""},
        {"RequiredBy", "2026-03-20", nullptr, ""},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.field);
        const Arguments where = {"--key", "1", "--field", test.field};
        const auto with = [&where](Arguments more) {
            more.insert(more.begin(), where.begin(), where.end());
            return more;
        };
        const std::string before = Expect(RunField("get", where));
        if (test.before != nullptr) {
            EXPECT_EQ(before, std::string(test.before) + "\n");
        }
        Expect(RunField("set", test.set != nullptr ? with({"--value", test.set}) : with({"--null"})));
        EXPECT_EQ(Expect(RunField("get", where)), std::string(test.after) + "\n");
    }
}

struct BadCase {
    const char* name;
    std::string command;  ///< a line; FILE stands for the example's file
    std::string message;  ///< a part of it
    std::string input = {};
    int exitCode = 1;
};

void PrintTo(const BadCase& test, std::ostream* stream) { *stream << test.name; }

/// The example is stored under the key 1; the table tParcel and the column tPayment.Amount are missing.
class BadInput : public StoredData, public testing::WithParamInterface<BadCase> {};

TEST_P(BadInput, OneClearErrorAndNothingChanged) {
    Expect(Run("save", {OrderFile}));
    const BadCase& test = GetParam();
    if (test.message.find("tParcel") != std::string::npos) {
        ASSERT_EQ(m_target.Execute("drop table tParcel"), 0);
    }
    if (test.message.find("Amount") != std::string::npos) {
        ASSERT_EQ(m_target.Execute("alter table tPayment drop column Amount"), 0);
    }
    const std::vector<std::string> counts = Counts();
    Arguments arguments = Words(test.command);
    std::ranges::replace(arguments, "FILE", OrderFile);
    const std::string command = arguments.front();
    arguments.erase(arguments.begin());
    const bool isField = command == "get" || command == "set";
    ExpectFailure(isField ? RunField(command, arguments) : Run(command, arguments, test.input), test.message,
                  test.exitCode);
    EXPECT_EQ(Counts(), counts);
    EXPECT_THAT(m_target.Query("select State, Rating, FK_OrderID from tOrder, tCustomer"),
                ElementsAre("3 2 1"));
}

const BadCase Json[] = {
    {"Malformed", "save",
     "error 5: standard input: line 2, column 12: ", "{\"State\": 1,\n  \"Notes\": oops}"},
    {"TextForANumber", "save", "error 13: standard input: Lines.$items[1].Quantity: ",
     R"({"Lines": {"$items": [{}, {"Quantity": "x"}]}})"},
    {"OutOfRange", "save", "error 6: standard input: [1].State: 40000 is out of range",
     R"([{"State": 1}, {"State": 40000}])"},
    {"UnknownMember", "update --key 1", "the nearest name that it knows is \"Rating\"",
     R"({"Customer": {"Ratting": 5}})"},
    {"NotAnObject", "update --key 1", "error 13: standard input: ", "[]"},
    {"Nothing", "save", "error 5: standard input: line 1, column 1: "},
    {"NoFile", "save /nowhere/x.json", "error 53: /nowhere/x.json: No such file"},
};
const BadCase Keys[] = {
    {"NotANumber", "load --key one", "error 13: The key \"one\" is not a whole number."},
    {"MoreThanANumber", "delete --key '1 or 1=1'", "error 13: "},
    {"Fraction", "get --key 1.5 --field State", "error 13: "},
    {"TooLarge", "exists --key 4294967297", "error 6: "},
    {"Missing", "load", "--key or --all is required", "", 2},
    {"LoadNoRecord", "load --key 2",
     "dbNoMatchingRecord: There is no record of tOrder with OrderID = 2. Check the key."},
    {"UpdateNoRecord", "update --key 2", "record of tOrder with OrderID = 2", "{}"},
    {"ReplaceNoRecord", "update --key 2 --retain-root", "record of tOrder with OrderID = 2", "{}"},
    {"DeleteNoRecord", "delete --key 2",
     "dbNoMatchingRecord: There is no record of tOrder with OrderID = 2."},
    {"FieldNoRecord", "set --key 2 --field State --value 1", "record of tOrder with OrderID = 2"},
};
const BadCase Fields[] = {
    {"NoSuchColumn", "get --key 1 --field Stat",
     "error -2146825023: The recordset has no field \"Stat\"; did you mean \"State\"? (select * from tOrder "
     "where"},
    {"NoSuchTable", "get --table tOrdr --key 1 --field State",
     "dbCannotOpenRecordset: No such table: tOrdr; did you mean \"tOrder\"? (select * from tOrdr where "
     "OrderID = 1). Make the tables"},
    {"LongName", "get --key 1 --field " + std::string(100000, 'x') + "y\x1b[31m",
     "The recordset has no field \"" + std::string(25, 'x') + "..." + std::string(6, 'x') +
         "y\\u001b[31m\" ("},
    {"EmptyName", "get --key 1 --field ''", "dbBadParameter: "},
    {"WrongType", "set --key 1 --field State --value many", "tOrder.State"},
    {"NotBase64", "set --key 1 --field ExternalReference --value oops!",
     "error 13: tOrder.ExternalReference holds binary data"},
    {"TooLong", "set --key 1 --field OrderNumber --value 123456789012345678901", "tOrder.OrderNumber"},
    {"RefusedByTheDatabase",
     "set --table tCustomer --key-field CustomerID --key 1 --field FK_OrderID --value 7",
     "FOREIGN KEY constraint failed (the record of tCustomer with CustomerID = 1)"},
    {"ValueAndNull", "set --key 1 --field State --value 1 --null", "--null", "", 2},
    {"NoValue", "set --key 1 --field State", "--value", "", 2},
};
const char* const NoParcels = "dbCannotOpenRecordset: No such table: tParcel";
const BadCase Databases[] = {
    {"LoadWithoutATable", "load --key 1", NoParcels},
    {"SaveWithoutATable", "save FILE", NoParcels},
    {"UpdateWithoutATable", "update --key 1", "No such table: tParcel", R"({"State": 1})"},
    {"DeleteWithoutATable", "delete --key 1", "No such table: tParcel"},
    {"LoadWithoutAColumn", "load --key 1", "Amount"},
    {"SaveWithoutAColumn", "save FILE", "Amount"},
};
std::string BadCaseName(const testing::TestParamInfo<BadCase>& info) { return info.param.name; }
INSTANTIATE_TEST_SUITE_P(Json, BadInput, testing::ValuesIn(Json), BadCaseName);
INSTANTIATE_TEST_SUITE_P(Keys, BadInput, testing::ValuesIn(Keys), BadCaseName);
INSTANTIATE_TEST_SUITE_P(Fields, BadInput, testing::ValuesIn(Fields), BadCaseName);
INSTANTIATE_TEST_SUITE_P(Databases, BadInput, testing::ValuesIn(Databases), BadCaseName);

TEST_F(StoredData, BadSettings) {
    const struct {
        Arguments arguments;
        std::string message;
    } cases[] = {
        {{"--storage", "Order"}, "error 5: No definition has the storage name \"Order\"; there is Orders."},
        {{"--storage", "O'"}, "error 5: "},
        {{"--repository", "/nowhere/r.db"}, "error 3024: "},
        {{"--connection", ""},
         "dbConnectError: The connection string names no provider. Use \"Provider=SQLite;Data Source=FILE\""},
        {{"--connection", "target.db"}, "has no \"=\". Use \"Provider=SQLite;Data Source=FILE\""},
        {{"--connection", "Provider=SQLite;Data Source"}, "dbConnectError: "},
        {{"--connection", "Provider=SQLite;Data Source=/nowhere/x.db"}, "/nowhere/x.db"},
        {{"--connection", std::string("Provider=SQLite;Data Source=") + OrderFile},
         "The file is no database"},
    };
    for (const auto& test : cases)
        ExpectFailure(Run("exists", Merge({"--key", "1"}, test.arguments)), test.message);
}

TEST_F(StoredData, WhatCannotBeWrittenStaysAsItIs) {
    Expect(Run("save", {OrderFile}));
    const std::vector<std::pair<std::string, Arguments>> writes = {
        {"save", {OrderFile}},
        {"update", {"--key", "1", "--retain-root", OrderFile}},
        {"delete", {"--key", "1"}}};
    const std::string readOnly = m_target.Connection() + ";Mode=Read";
    const std::string cannotWrite =
        "The database cannot be written, check its mode and the rights to it: " + m_target.Path() + " (";
    for (const auto& [command, arguments] : writes)
        ExpectFailure(Run(command, Merge({"--connection", readOnly}, arguments)), cannotWrite);
    ExpectFailure(
        RunField("set", {"--connection", readOnly, "--key", "1", "--field", "State", "--value", "1"}),
        cannotWrite);
    EXPECT_EQ(Expect(RunField("get", {"--connection", readOnly, "--key", "1", "--field", "State"})), "3\n");

    const auto other = m_target.Open();
    other->BeginTrans();
    ExpectFailure(
        Run("save", {OrderFile}),
        "korvex: error -2147467259: The data is locked by another user, try again when that work is "
        "done: " +
            m_target.Path() + " (database is locked)\n");
    other->RollbackTrans();
    EXPECT_EQ(Counts(), CountsOfTheExample);
}

/// Orders with an address, which has a definition of its own, a draft, which is not stored, and lines.
class SmallModel : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(RunKorvex({"database", "create", "--repository", m_repository.Path(), "--storage", "Orders",
                             "--connection", m_target.Connection()})
                      .messages,
                  "");
        ASSERT_EQ(Run("Orders", "save", R"({"Number": "a", "Lines": {"$items": [{"Sku": "A"}]}})").output,
                  "1\n");
    }
    CommandResult Run(const std::string& storage, const std::string& command,
                      const std::string& input) const {
        const Arguments arguments = Merge(Words(command), {"--repository", m_repository.Path(), "--storage",
                                                           storage, "--connection", m_target.Connection()});
        return RunKorvex(arguments, {}, {}, m_target.Folder().Write("input.json", input));
    }

    RepositoryFile m_repository{R"({"version": 1,
      "definitions": [{"storage": "Orders", "root": "Order"}, {"storage": "Addresses", "root": "Address"}],
      "objects": [
        {"name": "Order", "values": [
          {"name": "Number", "type": "string"},
          {"name": "Address", "child": "Address"},
          {"name": "Draft", "type": "unknown"},
          {"name": "Lines", "child": {"name": "Lines", "element": {
            "name": "Line", "values": [{"name": "Sku", "type": "string"}]}}}]},
        {"name": "Address", "values": [{"name": "City", "type": "string"}]}]})"};
    TargetDatabase m_target;
};

TEST_F(SmallModel, WhatIsNotStoredIsNamed) {
    const std::string draft =
        "korvex: standard input: Draft is left out: its definition does not have it stored.\n";
    const auto key = [](const char* given) {
        return "korvex: standard input: OrderID is " + std::string(given) +
               ", which is passed over: --key names the record 1.\n";
    };
    const std::string nothing = "korvex: dbObjectNotModified: Nothing differs from what is stored.\n";
    const struct {
        const char* command;
        const char* input;
        std::string messages;
        const char* orders;
    } cases[] = {
        {"save", R"([{"Number": "b", "Draft": "x"}, {"Draft": ""}])", draft, "1 a,2 b,3 "},
        {"update --key 1", R"({"OrderID": 2, "Number": "c"})", key("2"), "1 c,2 b,3 "},
        {"update --key 1", R"({"OrderID": 1, "Number": "d"})", "", "1 d,2 b,3 "},
        {"update --key 1", R"({"OrderID": 2})", key("2") + nothing, "1 d,2 b,3 "},
        {"update --key 1", R"({"OrderID": null, "Draft": "y"})", draft + key("null") + nothing, "1 d,2 b,3 "},
        {"update --key 3", R"({"Number": null})", nothing, "1 d,2 b,3 "},
        {"update --key 1 --retain-root", R"({"OrderID": 3, "Number": "e", "Draft": "y"})", draft + key("3"),
         "1 e,2 b,3 "},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(std::string(test.command) + " " + test.input);
        const CommandResult result = Run("Orders", test.command, test.input);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.messages, test.messages);
        EXPECT_THAT(m_target.Query("select group_concat(OrderID || ' ' || Number) from tOrder"),
                    ElementsAre(test.orders));
    }
}

/// A run of both definitions meets the address twice, and so gives it another table.
TEST_F(SmallModel, TablesAreThoseOfTheDefinitionWhateverWasScriptedLast) {
    const std::string order = R"({"Number": "b", "Address": {"City": "Ghent"}, "Lines": {"$items": []}})";
    for (const char* prefix : {"FK_", "P2_"}) {
        ASSERT_EQ(RunKorvex({"script", "--repository", m_repository.Path(), "--dialect", "mssql", "--out",
                             m_target.Folder().Path("out"), "--fk-prefix", prefix})
                      .exitCode,
                  0);
        ASSERT_THAT(ReadRows(DefaultPlatform(), m_repository.Path(),
                             "select TableName from tObjects where Name = 'Address'", {"TableName"}),
                    ElementsAre("tAddress2"));
        const std::string key = Run("Orders", "save", order).output;
        const CommandResult updated =
            Run("Orders", "update --key " + key, R"({"Address": {"City": "Lier"}})");
        EXPECT_EQ(updated.exitCode, 0) << updated.messages;
        EXPECT_EQ(json::parse(Run("Orders", "load --key " + key, "-").output)["Address"]["City"], "Lier");
        EXPECT_EQ(Run("Addresses", "exists --key 1", "-").output, "true\n");
        EXPECT_EQ(Run("Orders", "delete --key " + key, "-").messages, "");
        EXPECT_THAT(m_target.Query("select count(*) from tAddress"), ElementsAre("1"));
    }
}

TEST_F(SmallModel, AnElementThatIsGoneIsNotPassedOverSilently) {
    ASSERT_EQ(m_target.Execute("create trigger gone after update on tOrder begin delete from tLine; end"), 0);
    ExpectFailure(Run("Orders", "update --key 1",
                      R"({"Number": "b", "Lines": {"$items": [{"LineID": 1, "Sku": "B"}]}})"),
                  "dbNoMatchingRecord: A record that the file changes has been deleted meanwhile");
    EXPECT_THAT(m_target.Query("select Number, Sku from tOrder, tLine"), ElementsAre("a A"));
}

TEST_F(SmallModel, ARootThatIsAChildElsewhereKeepsItsParent) {
    const struct {
        const char* command;
        const char* input;
        const char* parents;  ///< of the addresses, the first of which came with the order
    } cases[] = {
        {"save", R"({"City": "Ghent", "FK_OrderID": 1})", "1,1"},
        {"update --key 2", R"({"City": "Lier"})", "1,1"},
        {"update --key 2", R"({"FK_OrderID": 0})", "1,-"},
        {"update --key 2", R"({"FK_OrderID": 1})", "1,1"},
        {"update --key 2", R"({"FK_OrderID": null})", "1,-"},
        {"update --key 2 --retain-root", R"({"City": "Mons", "FK_OrderID": 1})", "1,1"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(std::string(test.command) + " " + test.input);
        const CommandResult result = Run("Addresses", test.command, test.input);
        EXPECT_EQ(result.exitCode, 0) << result.messages;
        EXPECT_EQ(result.messages, "");
        EXPECT_THAT(m_target.Query("select group_concat(coalesce(FK_OrderID, '-')) from (select * from "
                                   "tAddress order by AddressID)"),
                    ElementsAre(test.parents));
    }
    EXPECT_EQ(json::parse(Run("Addresses", "load --key 2", "-").output)["FK_OrderID"], 1);
    ExpectFailure(Run("Addresses", "save", R"({"FK_OrderID": 9})"), "FOREIGN KEY constraint failed");
}

}  // namespace
}  // namespace korvex::tests
