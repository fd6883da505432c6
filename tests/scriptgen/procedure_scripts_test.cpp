#include "table_in_hand.h"

#include <gtest/gtest.h>

#include <regex>

namespace korvex::scriptgen {
namespace {

std::vector<Column> Orders() {
    return {Key(Counter(Plain("OrderID", 3))), Reference("CustomerID", 7), Plain("Note", 8, "40"),
            Reference("PayerID", 7)};
}

std::vector<std::string> Procedures(const std::string& script) {
    static const std::regex Header("PROCEDURE ([^\r]*)\r\n");
    std::vector<std::string> names;
    for (std::sregex_iterator match(script.begin(), script.end(), Header), end; match != end; ++match) {
        names.push_back((*match)[1]);
    }
    return names;
}

TEST(ProcedureScripts, SqlServerFamily) {
    const std::string ofCustomer = " WHERE CustomerID = @CustomerID AND PayerID = @PayerID";
    for (const ScriptType type : {ScriptType::SqlServer, ScriptType::Sybase}) {
        RunState run = RunWith(type, "Orders", Orders());
        EXPECT_EQ(ProcedureText(run), Lines({"CREATE PROCEDURE OrdersAR",
                                             "AS",
                                             "\tSELECT *  FROM Orders",
                                             "GO",
                                             "",
                                             "CREATE PROCEDURE OrdersAD",
                                             "AS",
                                             "\tDELETE  FROM Orders",
                                             "GO",
                                             "",
                                             "CREATE PROCEDURE OrdersR",
                                             "(@OrderID\tint)",
                                             "AS",
                                             "\tSELECT *  FROM Orders WHERE OrderID = @OrderID",
                                             "GO",
                                             "",
                                             "CREATE PROCEDURE OrdersD",
                                             "(@OrderID\tint)",
                                             "AS",
                                             "\tDELETE  FROM Orders WHERE OrderID = @OrderID",
                                             "GO",
                                             "",
                                             "CREATE PROCEDURE Orders_CustomerIDR",
                                             "(@CustomerID\tint, ",
                                             "@PayerID\tint)",
                                             "AS",
                                             "\tSELECT *  FROM Orders" + ofCustomer,
                                             "GO",
                                             "",
                                             "CREATE PROCEDURE Orders_CustomerIDD",
                                             "(@CustomerID\tint, ",
                                             "@PayerID\tint)",
                                             "AS",
                                             "\tDELETE  FROM Orders" + ofCustomer,
                                             "GO",
                                             "",
                                             "CREATE PROCEDURE OrdersC",
                                             "(@CustomerID\tint,",
                                             "@Note\tvarchar(40),",
                                             "@PayerID\tint,",
                                             "@OrderID\tint OUTPUT)",
                                             "AS",
                                             "BEGIN",
                                             "\tINSERT INTO Orders",
                                             "\t(CustomerID,",
                                             "\tNote,",
                                             "\tPayerID)",
                                             "\tVALUES ",
                                             "\t(@CustomerID,",
                                             "\t@Note,",
                                             "\t@PayerID)",
                                             "",
                                             "\tSELECT @OrderID=max(OrderID) FROM Orders",
                                             "END",
                                             "GO",
                                             "",
                                             "CREATE PROCEDURE OrdersU",
                                             "(@OrderID\tint,",
                                             "@CustomerID\tint,",
                                             "@Note\tvarchar(40),",
                                             "@PayerID\tint)",
                                             "AS",
                                             "BEGIN",
                                             "\tUPDATE Orders SET",
                                             "\t\tCustomerID=@CustomerID,",
                                             "\t\tNote=@Note,",
                                             "\t\tPayerID=@PayerID",
                                             "\t WHERE OrderID=@OrderID",
                                             "END",
                                             "GO",
                                             ""}));

        std::string drops;
        for (const std::string name : {"OrdersAR", "OrdersAD", "OrdersR", "OrdersD", "Orders_CustomerIDR",
                                       "Orders_CustomerIDD", "OrdersC", "OrdersU"}) {
            drops += Lines({"if exists(select * from sysobjects where id = object_id('dbo." + name +
                                "') and sysstat & 0xf = 4)",
                            "\tDROP PROCEDURE dbo." + name, "GO", ""});
        }
        EXPECT_EQ(run.m_sDropSQL, drops);
    }
}

TEST(ProcedureScripts, Oracle) {
    RunState run = RunWith(ScriptType::Oracle, "Orders", Orders());
    EXPECT_EQ(ProcedureText(run),
              Lines({"CREATE OR REPLACE PROCEDURE OrdersAR",
                     "AS",
                     "BEGIN",
                     "\tSELECT *  FROM Orders; ",
                     "END; ",
                     "/",
                     "",
                     "CREATE OR REPLACE PROCEDURE OrdersAD",
                     "AS",
                     "BEGIN",
                     "\tDELETE  FROM Orders; ",
                     "\tCommit; ",
                     "END; ",
                     "/",
                     "",
                     "CREATE OR REPLACE PROCEDURE OrdersR",
                     "(p_OrderID\tOrders.OrderID%TYPE)",
                     "AS",
                     "BEGIN",
                     "\tSELECT *  FROM Orders WHERE OrderID = p_OrderID; ",
                     "END; ",
                     "/",
                     "",
                     "CREATE OR REPLACE PROCEDURE OrdersD",
                     "(p_OrderID\tOrders.OrderID%TYPE)",
                     "AS",
                     "BEGIN",
                     "\tDELETE  FROM Orders WHERE OrderID = p_OrderID; ",
                     "\tCommit; ",
                     "END; ",
                     "/",
                     "",
                     "CREATE OR REPLACE PROCEDURE Orders_CustomerIDR",
                     "(p_CustomerID\tOrders.CustomerID%TYPE, ",
                     "p_PayerID\tOrders.PayerID%TYPE)",
                     "AS",
                     "BEGIN",
                     "\tSELECT *  FROM Orders WHERE CustomerID = p_CustomerID AND PayerID = p_PayerID; ",
                     "END; ",
                     "/",
                     "",
                     "CREATE OR REPLACE PROCEDURE Orders_CustomerIDD",
                     "(p_CustomerID\tOrders.CustomerID%TYPE, ",
                     "p_PayerID\tOrders.PayerID%TYPE)",
                     "AS",
                     "BEGIN",
                     "\tDELETE  FROM Orders WHERE CustomerID = p_CustomerID AND PayerID = p_PayerID; ",
                     "\tCommit; ",
                     "END; ",
                     "/",
                     "",
                     "CREATE OR REPLACE PROCEDURE OrdersC",
                     "(p_CustomerID\tOrders.CustomerID%TYPE,",
                     "p_Note\tOrders.Note%TYPE,",
                     "p_PayerID\tOrders.PayerID%TYPE,",
                     "p_OrderID\tOUT Orders.OrderID%TYPE)",
                     "AS",
                     "BEGIN",
                     "\tINSERT INTO Orders",
                     "\t(CustomerID,",
                     "\tNote,",
                     "\tPayerID)",
                     "\tVALUES ",
                     "\t(p_CustomerID,",
                     "\tp_Note,",
                     "\tp_PayerID); ",
                     "\tCommit; ",
                     "\tSELECT max(OrderID) into p_OrderID FROM Orders; ",
                     "",
                     "\tRETURN; ",
                     "END; ",
                     "/",
                     "",
                     "CREATE OR REPLACE PROCEDURE OrdersU",
                     "(p_OrderID\tOrders.OrderID%TYPE,",
                     "p_CustomerID\tOrders.CustomerID%TYPE,",
                     "p_Note\tOrders.Note%TYPE,",
                     "p_PayerID\tOrders.PayerID%TYPE)",
                     "AS",
                     "BEGIN",
                     "\tUPDATE Orders SET",
                     "\t\tCustomerID=p_CustomerID,",
                     "\t\tNote=p_Note,",
                     "\t\tPayerID=p_PayerID",
                     "\t WHERE OrderID=p_OrderID; ",
                     "\tCommit; ",
                     "END; ",
                     "/",
                     "",
                     ""}));
    EXPECT_EQ(run.m_sDropSQL, "");
}

TEST(ProcedureScripts, CompositeKeyWithoutAnythingElse) {
    const std::vector<Column> keys{Key(Plain("K1", 3), 1), Key(Plain("K2", 2), 2)};
    RunState server = RunWith(ScriptType::SqlServer, "T", keys);
    const std::string text = ProcedureText(server);
    EXPECT_EQ(Procedures(text), (std::vector<std::string>{"TAR", "TAD", "TR", "TD", "TC"}));
    EXPECT_EQ(text.substr(text.find("CREATE PROCEDURE TR")),
              Lines({"CREATE PROCEDURE TR",
                     "(@K1\tint, ",
                     "@K2\tsmallint)",
                     "AS",
                     "\tSELECT *  FROM T WHERE K1 = @K1 AND K2 = @K2",
                     "GO",
                     "",
                     "CREATE PROCEDURE TD",
                     "(@K1\tint, ",
                     "@K2\tsmallint)",
                     "AS",
                     "\tDELETE  FROM T WHERE K1 = @K1 AND K2 = @K2",
                     "GO",
                     "",
                     "CREATE PROCEDURE TC",
                     "(@K1\tint,",
                     "@K2\tsmallint)",
                     "AS",
                     "BEGIN",
                     "\tINSERT INTO T",
                     "\t(K1,",
                     "\tK2)",
                     "\tVALUES ",
                     "\t(@K1,",
                     "\t@K2)",
                     "",
                     "END",
                     "GO",
                     ""}));

    RunState oracle = RunWith(ScriptType::Oracle, "T", keys);
    const std::string oracleText = ProcedureText(oracle);
    EXPECT_EQ(Procedures(oracleText), (std::vector<std::string>{"TAR", "TAD", "TR", "TD", "TC"}));
    EXPECT_NE(oracleText.find("PROCEDURE TR\r\n(p_K1\tT.K1%TYPE,\r\np_K2\tT.K2%TYPE)\r\nAS\r\n"),
              std::string::npos);
    EXPECT_EQ(oracleText.substr(oracleText.find("CREATE OR REPLACE PROCEDURE TC")),
              Lines({"CREATE OR REPLACE PROCEDURE TC", "(p_K1\tT.K1%TYPE,", "p_K2\tT.K2%TYPE)", "AS", "BEGIN",
                     "\tINSERT INTO T", "\t(K1,", "\tK2)", "\tVALUES ", "\t(p_K1,", "\tp_K2); ", "\tCommit; ",
                     "; ", "END; ", "/", ""}));
}

TEST(ProcedureScripts, UpdateConditionOfACompositeKey) {
    const std::vector<Column> columns{Key(Plain("K1", 3)), Counter(Plain("N", 3)), Key(Plain("K2", 3))};
    RunState server = RunWith(ScriptType::Sybase, "T", columns);
    EXPECT_NE(
        ProcedureText(server).find("\tUPDATE T SET\r\n\t\tN=@N\r\n\t WHERE K1=@K1 AND K2=@K2\r\nEND\r\n"),
        std::string::npos);
    RunState oracle = RunWith(ScriptType::Oracle, "T", columns);
    EXPECT_NE(ProcedureText(oracle).find("\tUPDATE T SET\r\n\t\tN=p_N\r\n\t WHERE K1=p_K1 AND K2=p_K2; \r\n"),
              std::string::npos);
}

TEST(ProcedureScripts, TableWithoutKeyHasNoKeyProceduresAndNoUpdate) {
    for (const ScriptType type : {ScriptType::SqlServer, ScriptType::Oracle}) {
        RunState run = RunWith(type, "T", {Plain("A", 3), Reference("B", 5)});
        EXPECT_EQ(Procedures(ProcedureText(run)),
                  (std::vector<std::string>{"TAR", "TAD", "T_BR", "T_BD", "TC"}));
    }
}

TEST(ProcedureScripts, OnlyACounter) {
    RunState server = RunWith(ScriptType::SqlServer, "T", {Counter(Plain("N", 3))});
    EXPECT_NE(ProcedureText(server).find(
                  Lines({"CREATE PROCEDURE TC", "(,", "@N\tint OUTPUT)", "AS", "BEGIN", "\tINSERT INTO T",
                         "\t()", "\tVALUES ", "\t()", "", "\tSELECT @N=max(N) FROM T", "END", "GO", ""})),
              std::string::npos);
    RunState oracle = RunWith(ScriptType::Oracle, "T", {Counter(Plain("N", 3))});
    EXPECT_NE(ProcedureText(oracle).find("PROCEDURE TC\r\n(,\r\np_N\tOUT T.N%TYPE)\r\n"), std::string::npos);
}

TEST(ProcedureScripts, LastOfTwoCountersIsTheOutputParameter) {
    RunState run = RunWith(ScriptType::SqlServer, "T", {Counter(Plain("M", 3)), Counter(Plain("N", 3))});
    const std::string text = ProcedureText(run);
    EXPECT_NE(text.find("(,\r\n@N\tint OUTPUT)\r\n"), std::string::npos);
    EXPECT_EQ(text.find("@M"), std::string::npos);
}

TEST(ProcedureScripts, LongNamesLoseTheirFront) {
    const std::string table = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123";
    for (const ScriptType type : {ScriptType::SqlServer, ScriptType::Oracle}) {
        RunState run = RunWith(type, table, {Key(Plain("K", 3)), Reference("F", 5)});
        const std::string text = ProcedureText(run);
        EXPECT_EQ(Procedures(text), (std::vector<std::string>{
                                        "CDEFGHIJKLMNOPQRSTUVWXYZ0123AR", "CDEFGHIJKLMNOPQRSTUVWXYZ0123AD",
                                        "BCDEFGHIJKLMNOPQRSTUVWXYZ0123R", "BCDEFGHIJKLMNOPQRSTUVWXYZ0123D",
                                        "DEFGHIJKLMNOPQRSTUVWXYZ0123_FR", "DEFGHIJKLMNOPQRSTUVWXYZ0123_FD",
                                        "BCDEFGHIJKLMNOPQRSTUVWXYZ0123C", "BCDEFGHIJKLMNOPQRSTUVWXYZ0123U"}));
        EXPECT_NE(text.find("FROM " + table), std::string::npos);
    }
}

}  // namespace
}  // namespace korvex::scriptgen
