#include "automation/convert.h"
#include "platform/ado_fixture.h"

#include <gmock/gmock.h>

#include <limits>
#include <tuple>

namespace korvex::tests {
namespace {

using automation::Bytes;
using automation::Currency;
using automation::Date;
using automation::Variant;
using testing::HasSubstr;

constexpr std::int32_t noLimit = std::numeric_limits<std::int32_t>::max();

class AdoColumns : public AdoTest {};
INSTANTIATE_TEST_SUITE_P(Drivers, AdoColumns, AllDrivers(), DriverName);

/// Every type that the generated scripts declare, and the common ones of hand-made tables.
TEST_P(AdoColumns, FieldsFollowTheDeclaredTypes) {
    const struct {
        std::string declared;
        std::int32_t type;
        std::int32_t definedSize;
        bool isLong = false;
    } cases[] = {
        {"int", ado::adInteger, 4},
        {"smallint", ado::adSmallInt, 2},
        {"tinyint", ado::adUnsignedTinyInt, 1},
        {"bigint", ado::adBigInt, 8},
        {"bit", ado::adBoolean, 2},
        {"real", ado::adSingle, 4},
        {"float", ado::adDouble, 8},
        {"datetime", ado::adDBTimeStamp, 16},
        {"varchar(40)", ado::adVarChar, 40},
        {"varchar(255)", ado::adVarChar, 255},
        {"text", ado::adLongVarChar, noLimit, true},
        {"image", ado::adLongVarBinary, noLimit, true},
        {"numeric(18, 0)", ado::adNumeric, 19},
        {"INTEGER", ado::adInteger, 4},
        {"NUMBER(5)", ado::adNumeric, 19},
        {"NUMBER(12,2)", ado::adNumeric, 19},
        {"NUMBER(15, 2)", ado::adNumeric, 19},
        {"VARCHAR2(4000)", ado::adVarChar, 4000},
        {"LONG", ado::adLongVarChar, noLimit, true},
        {"LONG RAW", ado::adLongVarBinary, noLimit, true},
        {"RAW(50)", ado::adVarBinary, 50},
        {"DATE", ado::adDBTimeStamp, 16},
        {"char(5)", ado::adChar, 5},
        {"money", ado::adCurrency, 8},
        {"blob", ado::adLongVarBinary, noLimit, true},
        {"varchar", ado::adLongVarChar, noLimit, true},
    };
    std::string text = "create table t (last int";
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        if (const auto type = TypeIn(GetParam(), cases[i].declared))
            text.append(", c").append(std::to_string(i)).append(" ").append(*type);
    }
    const auto connection = Connect();
    connection->Execute(text + ")");
    const auto recordset = Open(connection, "select * from t");
    recordset->AddNew();
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        if (!TypeIn(GetParam(), cases[i].declared)) continue;
        SCOPED_TRACE(cases[i].declared);
        const auto field = recordset->Fields("c" + std::to_string(i));
        EXPECT_EQ(field->Type(), cases[i].type);
        EXPECT_EQ(field->DefinedSize(), cases[i].definedSize);
        EXPECT_EQ((field->Attributes() & ado::adFldLong) != 0, cases[i].isLong);
        EXPECT_NE(field->Attributes() & ado::adFldUpdatable, 0);
        if (field->TakesBlankText())
            EXPECT_NO_THROW(field->Value(""));
        else
            EXPECT_EQ(ErrorOf([&] { field->Value(""); }), ado::adErrDataConversion);
    }
}

TEST_P(AdoColumns, AreFoundByNameInAnyCaseAndTheFirstOfSeveral) {
    std::string text = "select 1 as A1, 2 as b, 3 as a1, 5 as B";
    std::vector<std::pair<std::string, int>> fields = {{"A1", 1}, {"a1", 1}, {"B", 2}};
    if (QuotesAnyName(GetParam())) {
        text += ", 4 as \"\", 6 as \"A 1\"";
        fields.insert(fields.end(), {{"", 4}, {"a 1", 6}});
    }
    const auto recordset = Open(Connect(), text);
    for (const auto& [name, value] : fields)
        EXPECT_EQ(automation::ToLong(recordset->Fields(name)->Value()), value) << name;
    for (const char* name : {"A", "a\x11", "1", "b "})
        EXPECT_EQ(ErrorOf([&] { recordset->Fields(name); }), ado::adErrItemNotFound) << name;
}

/// What a column makes of a value: the value that comes back, from the edit and from the database, or an
/// error.
TEST_P(AdoColumns, TakeWhatFitsAndRefuseTheRest) {
    const Variant null = Variant::Null();
    const Bytes bytes{0, 1, 255};
    const Date date{46347.354166666664};  // 2026-11-21 08:30:00
    struct Outcome {
        Outcome(Variant stored) : value(std::move(stored)) {}
        Outcome(ado::ErrorNumber number) : error(number) {}
        Variant value;
        std::int32_t error = 0;
    };
    const struct {
        std::string declared;
        Variant value;
        Outcome outcome;
    } cases[] = {
        {"int", 12, Variant(12)},
        {"int", " 12 ", Variant(12)},
        {"int", 2.5, Variant(2)},
        {"int", true, Variant(-1)},
        {"int", null, null},
        {"int", Variant(), null},
        {"int", "", ado::adErrDataConversion},
        {"int", "twelve", ado::adErrDataConversion},
        {"int", bytes, ado::adErrDataConversion},
        {"int", 2147483648.0, ado::DbEOverflow},
        {"int", "99999999999", ado::DbEOverflow},
        {"smallint", std::int16_t{-7}, Variant(std::int16_t{-7})},
        {"smallint", 32768, ado::DbEOverflow},
        {"smallint", "-32768", Variant(std::int16_t{-32768})},
        {"smallint", "", ado::adErrDataConversion},
        {"tinyint", 255, Variant(std::uint8_t{255})},
        {"tinyint", -1, ado::DbEOverflow},
        {"bigint", std::int64_t{5'000'000'000}, Variant(std::int64_t{5'000'000'000})},
        {"bigint", -std::numeric_limits<std::int64_t>::max(),
         Variant(-std::numeric_limits<std::int64_t>::max())},
        {"bit", 5, Variant(true)},
        {"bit", std::int16_t{0}, Variant(false)},
        {"bit", "True", Variant(true)},
        {"bit", "", ado::adErrDataConversion},
        {"bit", "maybe", ado::adErrDataConversion},
        {"real", 0.1, Variant(0.1F)},
        {"real", 1e39, ado::DbEOverflow},
        {"float", "-1.5e-3", Variant(-0.0015)},
        {"float", Currency{12345}, Variant(1.2345)},
        {"float", "", ado::adErrDataConversion},
        {"float", "1e400", ado::DbEOverflow},
        {"datetime", date, Variant(date)},
        {"datetime", "2026-11-21 08:30:00", Variant(date)},
        {"datetime", "11/21/2026 8:30 AM", Variant(date)},
        {"datetime", "1899-12-29 06:00", Variant(Date{-1.25})},
        {"datetime", std::int16_t{0}, Variant(Date{0})},
        {"datetime", "", ado::adErrDataConversion},
        {"datetime", "soon", ado::adErrDataConversion},
        {"datetime", 1e9, ado::DbEOverflow},
        {"varchar(5)", "", Variant("")},
        {"varchar(5)", "12345", Variant("12345")},
        {"varchar(5)", "123456", ado::DbEOverflow},
        {"varchar(5)", 12.5, Variant("12.5")},
        {"varchar(5)", bytes, ado::adErrDataConversion},
        {"varchar(2)", "🍀", Variant("🍀")},
        {"varchar(1)", "🍀", ado::DbEOverflow},
        {"text", "", Variant("")},
        {"text", "Grüße", Variant("Grüße")},
        {"image", bytes, Variant(bytes)},
        {"image", "", ado::adErrDataConversion},
        {"image", 0, ado::adErrDataConversion},
        {"RAW(3)", bytes, Variant(bytes)},
        {"RAW(2)", bytes, ado::DbEOverflow},
        {"numeric(18, 0)", "", ado::adErrDataConversion},
        {"NUMBER(18)", 2.5, Variant(3)},
        {"NUMBER(5)", -99999, Variant(-99999)},
        {"NUMBER(5)", 99999.6, ado::DbEOverflow},
        {"NUMBER(5)", 100000, ado::DbEOverflow},
        {"NUMBER(12,2)", 7, Variant(7.0)},
        {"NUMBER(12,2)", "1234.567", Variant(1234.57)},
        {"NUMBER(1)", true, Variant(-1)},
        {"money", "1.23456", Variant(Currency{12346})},
        {"decimal(19,4)", "1.23456", Variant(Currency{12346})},
        {"decimal(19,4)", -0.5, Variant(Currency{-5000})},
        {"decimal(19,4)", 1e15, ado::DbEOverflow},
    };
    const auto connection = Connect();
    for (const auto& c : cases) {
        SCOPED_TRACE(
            c.declared + " <- " +
            (c.value.IsNull() || c.value.Holds<Bytes>() ? "Null or bytes" : automation::ToString(c.value)));
        const auto type = TypeIn(GetParam(), c.declared);
        if (!type) continue;
        connection->Execute(InWordsOf(GetParam(), "create table t (id integer primary key, c ") + *type +
                            ")");
        const auto recordset = Open(connection, "select * from t");
        recordset->AddNew();
        const auto field = recordset->Fields("c");
        if (c.outcome.error != 0) {
            const auto error = ErrorOf([&] { field->Value(c.value); });
            EXPECT_EQ(error, c.outcome.error);
            EXPECT_THAT(error.description, HasSubstr("t.c"));
            EXPECT_TRUE(field->Value().IsEmpty());
            recordset->CancelUpdate();
        } else {
            field->Value(c.value);
            EXPECT_EQ(field->Value(), c.outcome.value);
            recordset->Update();
            EXPECT_EQ(Open(connection, "select c from t")->Fields("c")->Value(), c.outcome.value);
        }
        recordset->Close();
        connection->Execute("drop table t");
    }
}

/// Whatever the connection string asks for, and whatever the column's character set is.
TEST_P(AdoColumns, TextsAreStoredAsTheyAreOrRefusedWithTheColumn) {
    using namespace std::string_literals;
    const bool isMariaDb = GetParam() == Driver::MariaDb;
    Run(Connect(), "create table t (id integer primary key, c varchar(20), l text, n varchar(20)"s +
                       (isMariaDb ? " character set latin1)" : ")"));
    for (const char* settings :
         {"", ";CHARSET=latin1;OPTION=8", ";INITSTMT={set names latin1}", ";INITSTMT={set sql_mode=''}"}) {
        if (*settings != '\0' && !isMariaDb) continue;
        const auto connection = Connect(ConnectionString() + settings);
        for (const std::string& text :
             {"plain"s, "\u00E4\u20AC\u201C"s, "\u0142\u6F22"s, "\U0001F600"s, "a\0b"s, "\0"s}) {
            for (const char* column : {"c", "l", "n"}) {
                SCOPED_TRACE(settings + " "s + column + " <- " + text);
                const auto recordset = Open(connection, "select * from t");
                recordset->AddNew();
                const auto error = ErrorOf([&] {
                    recordset->Fields(column)->Value(text);
                    recordset->Update();
                });
                if (error != 0) {
                    const bool holdsNul = text.find('\0') != std::string::npos;
                    EXPECT_TRUE(holdsNul || (isMariaDb && *column == 'n')) << error.description;
                    EXPECT_THAT(error.description, HasSubstr(holdsNul ? "t."s + column : "`n`"));
                    recordset->CancelUpdate();
                    continue;
                }
                const auto key = automation::ToString(recordset->Fields("id")->Value());
                for (const auto& reader : {connection, Connect()}) {
                    EXPECT_EQ(Scalar(reader, "select "s + column + " from t where id = " + key),
                              Variant(text));
                }
            }
        }
    }
}

/// An engine without types of its own may hold anything; reading gives what is there.
class AdoUntyped : public AdoTest {};
INSTANTIATE_TEST_SUITE_P(Drivers, AdoUntyped, FileDrivers(), DriverName);

TEST_P(AdoUntyped, GiveStoredValuesOfOtherTypesAsTheyAre) {
    const auto connection = Connect();
    Run(connection, "create table t (s smallint, i int, d datetime)");
    connection->Execute("insert into t values (40000, 'many', 'soon')");
    connection->Execute("insert into t (d) values (2461366.5), (-86400.5)");  // a Julian day, Unix time
    const auto recordset = Open(connection, "select * from t");
    EXPECT_EQ(automation::ToLong(recordset->Fields("s")->Value()), 40000);
    if (GetParam() != Driver::Sqlite) return;  // the ODBC driver converts such values itself
    EXPECT_EQ(recordset->Fields("i")->Value(), Variant("many"));
    for (const char* date : {"soon", "11/22/2026", "12/30/1969 11:59:59 PM"}) {
        EXPECT_EQ(automation::ToString(recordset->Fields("d")->Value()), date);
        recordset->MoveNext();
    }
}

TEST_P(AdoColumns, SizesCountCharactersOfTextAndBytesOfTheRest) {
    const auto connection = Connect();
    Run(connection, "create table t (v varchar(20), l text, b image, n int, d datetime, e text)");
    const auto recordset = Open(connection, "select * from t");
    recordset->AddNew();
    EXPECT_EQ(recordset->Fields("v")->ActualSize(), 0);
    recordset->Fields("v")->Value("aü🍀");
    recordset->Fields("l")->AppendChunk("üü");
    recordset->Fields("b")->AppendChunk(Bytes{1, 2, 3});
    recordset->Fields("n")->Value(1);
    recordset->Update();
    for (const auto& rows : {recordset, Open(connection, "select * from t")}) {
        EXPECT_EQ(rows->Fields("v")->ActualSize(), 4);
        EXPECT_EQ(rows->Fields("l")->ActualSize(), 2);
        EXPECT_EQ(rows->Fields("b")->ActualSize(), 3);
        EXPECT_EQ(rows->Fields("n")->ActualSize(), 4);
        EXPECT_EQ(rows->Fields("d")->ActualSize(), 0);
        EXPECT_EQ(rows->Fields("e")->ActualSize(), 0);
    }
}

TEST_P(AdoColumns, LongValuesAreWrittenAndReadInChunks) {
    const auto connection = Connect();
    Run(connection, "create table t (id integer primary key, l text, b image, v varchar(9))");
    auto recordset = Open(connection, "select * from t");
    recordset->AddNew();
    const auto text = recordset->Fields("l");
    const auto binary = recordset->Fields("b");
    text->AppendChunk("replaced by the next, as another field came between");
    binary->AppendChunk(Bytes{1, 2, 3});
    binary->AppendChunk(Bytes{4, 5});
    text->AppendChunk("äb");
    text->AppendChunk("🍀");
    text->AppendChunk("c");
    EXPECT_EQ(text->Value(), Variant("äb🍀c"));
    EXPECT_EQ(ErrorOf([&] { binary->AppendChunk("text"); }), ado::adErrDataConversion);
    EXPECT_EQ(ErrorOf([&] { recordset->Fields("v")->AppendChunk("x"); }), ado::adErrIllegalOperation);
    recordset->Update();

    recordset = Open(connection, "select * from t");
    const auto l = recordset->Fields("l");
    const auto b = recordset->Fields("b");
    EXPECT_EQ(l->ActualSize(), 5);
    EXPECT_EQ(l->GetChunk(3), Variant("äb"));  // a character of two units stays whole
    EXPECT_EQ(l->GetChunk(1), Variant("🍀"));
    EXPECT_EQ(l->GetChunk(100), Variant("c"));
    EXPECT_EQ(l->GetChunk(100), Variant::Null());
    EXPECT_EQ(b->GetChunk(3), Variant(Bytes{1, 2, 3}));
    EXPECT_EQ(l->GetChunk(5), Variant("äb🍀c"));  // from the front again
    EXPECT_EQ(l->GetChunk(5), Variant::Null());
    EXPECT_EQ(l->ActualSize(), 5);
    EXPECT_EQ(b->GetChunk(9), Variant(Bytes{1, 2, 3, 4, 5}));
    EXPECT_EQ(ErrorOf([&] { b->GetChunk(0); }), ado::adErrInvalidArgument);
    EXPECT_EQ(ErrorOf([&] { recordset->Fields("v")->GetChunk(1); }), ado::adErrIllegalOperation);
}

TEST_P(AdoColumns, ManyChunksCostWhatTheirDataCosts) {
    const auto connection = Connect();
    Run(connection, "create table t (l text)");
    auto recordset = Open(connection, "select * from t");
    recordset->AddNew();
    std::string expected;
    for (int i = 0; i < 20'000; ++i) {
        const std::string chunk(50, static_cast<char>('a' + i % 26));
        recordset->Fields("l")->AppendChunk(chunk);
        expected += chunk;
    }
    recordset->Update();
    recordset = Open(connection, "select * from t");
    std::string read;
    for (Variant chunk = recordset->Fields("l")->GetChunk(70); !chunk.IsNull();
         chunk = recordset->Fields("l")->GetChunk(70)) {
        read += *chunk.If<std::string>();
    }
    EXPECT_TRUE(read == expected);
}

}  // namespace
}  // namespace korvex::tests
