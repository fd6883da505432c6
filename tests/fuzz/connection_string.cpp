// Connection strings, as ADO reads them and as ODBC does.
#include "platform/native/ado/connection_string.h"

#include "platform/native/sql/odbc/odbc_string.h"
#include "target.h"

using namespace korvex;
using namespace korvex::native;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::TextOf(data, size);
    fuzz::Accepts([&] {
        const ado_engine::ConnectionString parsed(text);
        for (const ado_engine::ConnectionEntry& entry : parsed.Entries())
            fuzz::Expect(parsed.Find(entry.key).has_value(), "a key that is there is found");
    });
    fuzz::Accepts([&] {
        const sql::OdbcString odbc(text);
        const std::string shown = odbc.WithoutPassword();
        fuzz::Expect(sql::OdbcString(shown).WithoutPassword() == shown,
                     "a shown string has nothing left to hide");
        odbc.WithNeededSettings();
    });
    return 0;
}
