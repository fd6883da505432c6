#include "hosts/cli/apply/index_names.h"

#include "automation/text.h"
#include "hosts/cli/apply/sql_tokens.h"

#include <algorithm>
#include <vector>

namespace korvex::cli {

using automation::EqualsIgnoreCase;
using automation::ToUpperAscii;

IndexNames::IndexNames(std::span<const ApplyStep> steps) {
    for (const ApplyStep& step : steps)
        if (step.subject.kind == StatementKind::CreateTable) m_tables.insert(ToUpperAscii(step.subject.name));
}

std::string IndexNames::Rename(const StatementSubject& index, const std::string& statement) {
    const std::vector<Token> tokens = Tokenize(statement);
    const auto name = std::ranges::find_if(
        tokens, [&](const Token& token) { return EqualsIgnoreCase(NameOf(token), index.name); });
    const auto on = std::ranges::find_if(tokens, [](const Token& token) { return Is(token, "on"); });
    if (name == tokens.end() || on == tokens.end() || on + 1 == tokens.end()) return statement;

    const std::string table = ToUpperAscii(NameOf(*(on + 1)));
    const std::string wanted = ToUpperAscii(index.name);
    const bool isFree =
        !m_tables.contains(wanted) && m_indexes.try_emplace(wanted, table).first->second == table;
    if (isFree) return statement;
    std::string renamed = statement;
    return renamed.replace(name->at, name->text.size(), QuoteName(index.name + "_" + NameOf(*(on + 1))));
}

}  // namespace korvex::cli
