// Statements on their way to an engine, under the lexical rules that the first byte says.
#include "automation/sql_tokens.h"
#include "platform/native/sql/statement_text.h"
#include "target.h"

#include <algorithm>

using namespace korvex;
using namespace korvex::native;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const auto has = [flags = *data](unsigned bit) { return (flags >> bit & 1U) != 0; };
    const sql::LexicalRules rules{has(0), has(1), has(2), has(3), has(4), has(5), has(6)};
    const std::string_view text = fuzz::TextOf(data + 1, size - 1);

    sql::StatementText scanned;
    sql::ScanStatement(text, rules, scanned);
    fuzz::Expect(static_cast<std::size_t>(std::count(scanned.text.begin(), scanned.text.end(), '?')) >=
                     scanned.literals.size() + scanned.placeholders,
                 "every value has its place");
    const sql::StatementText first = scanned;
    if (scanned.Repeats(text)) {
        fuzz::Expect(scanned.text == first.text && scanned.literals == first.literals,
                     "a statement that comes again is the same");
    }
    sql::SoleTableOf(text);
    sql::VerbOf(text);
    sql::HoldsStatement(text);

    std::size_t end = 0;
    for (const automation::sql::Token& token : automation::sql::Tokenize(text)) {
        fuzz::Expect(token.at >= end && token.End() <= text.size(), "pieces stand one behind the other");
        end = token.End();
    }
    automation::sql::HoldsBody(text);
    return 0;
}
