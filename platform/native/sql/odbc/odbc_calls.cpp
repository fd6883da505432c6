#include "platform/native/sql/odbc/odbc_calls.h"

#include <array>

namespace korvex::native::sql {
namespace {

/// A text as a narrow function takes it; null for none.
SQLCHAR* Narrow(std::string& text) noexcept {
    return text.empty() ? nullptr : reinterpret_cast<SQLCHAR*>(text.data());
}

template <auto NarrowCall, auto WideCall>
SQLRETURN Send(bool isNarrow, SQLHSTMT statement, std::string_view text) {
    if (isNarrow) {
        std::string narrow(text);
        return NarrowCall(statement, Narrow(narrow), static_cast<SQLINTEGER>(narrow.size()));
    }
    WideText wide(text);
    return WideCall(statement, wide.Data(), wide.LongLength());
}

}  // namespace

SQLRETURN OdbcCalls::Prepare(SQLHSTMT statement, std::string_view text) const {
    return Send<SQLPrepare, SQLPrepareW>(areNarrow, statement, text);
}

SQLRETURN OdbcCalls::Execute(SQLHSTMT statement, std::string_view text) const {
    return Send<SQLExecDirect, SQLExecDirectW>(areNarrow, statement, text);
}

SQLRETURN OdbcCalls::PrimaryKeys(SQLHSTMT query, const TableName& table) const {
    if (areNarrow) {
        TableName name = table;
        return SQLPrimaryKeys(query, Narrow(name.catalog), SQL_NTS, Narrow(name.schema), SQL_NTS,
                              Narrow(name.table), SQL_NTS);
    }
    WideText catalog(table.catalog);
    WideText schema(table.schema);
    WideText name(table.table);
    const auto pointer = [](WideText& text) { return text.IsEmpty() ? nullptr : text.Data(); };
    return SQLPrimaryKeysW(query, pointer(catalog), catalog.Length(), pointer(schema), schema.Length(),
                           name.Data(), name.Length());
}

std::string OdbcCalls::Attribute(SQLHSTMT statement, SQLUSMALLINT column, SQLUSMALLINT attribute) const {
    SQLSMALLINT bytes = 0;
    if (areNarrow) {
        std::array<char, 256> text{};
        const SQLRETURN result = SQLColAttribute(statement, column, attribute, text.data(),
                                                 static_cast<SQLSMALLINT>(text.size()), &bytes, nullptr);
        return SQL_SUCCEEDED(result) ? text.data() : std::string();
    }
    std::array<SQLWCHAR, 256> text{};
    const SQLRETURN result =
        SQLColAttributeW(statement, column, attribute, text.data(),
                         static_cast<SQLSMALLINT>(text.size() * sizeof(SQLWCHAR)), &bytes, nullptr);
    return SQL_SUCCEEDED(result) ? FromWide(text) : std::string();
}

}  // namespace korvex::native::sql
