// Script files, divided into statements in every style, and what korvex apply takes their statements for.
#include "hosts/cli/apply/script_reader.h"
#include "hosts/cli/apply/statement_subject.h"
#include "target.h"

using namespace korvex;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::TextOf(data, size);
    cli::GuessStyle(text);
    for (const auto style : {cli::ScriptStyle::Batches, cli::ScriptStyle::SqlPlus, cli::ScriptStyle::Plain}) {
        fuzz::Accepts([&] {
            std::size_t line = 1;
            for (const cli::ScriptStatement& statement : cli::ReadScript("f.sql", text, style)) {
                fuzz::Expect(statement.line >= line, "statements stand in their order");
                line = statement.line;
                fuzz::Expect(text.find(statement.text) != std::string_view::npos,
                             "a statement stands in the file as it is sent");
                cli::SubjectOf(statement.text);
            }
        });
    }
    return 0;
}
