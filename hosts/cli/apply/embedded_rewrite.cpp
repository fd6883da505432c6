#include "hosts/cli/apply/embedded_rewrite.h"

#include "automation/text.h"
#include "hosts/cli/apply/embedded_columns.h"
#include "hosts/cli/apply/sql_tokens.h"
#include "hosts/cli/apply/table_text.h"
#include "hosts/cli/apply/text_edits.h"

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace korvex::cli {

namespace {

/// The statement without "dbo." in front of names.
std::string RemoveOwners(std::string_view statement) {
    const std::vector<Token> tokens = Tokenize(statement);
    TextEdits edits(statement);
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
        const bool isOwner = tokens[i].kind != TokenKind::Text &&
                             automation::EqualsIgnoreCase(NameOf(tokens[i]), "dbo") && Is(tokens[i + 1], ".");
        if (isOwner) edits.Replace(tokens[i].at, tokens[i + 1].End(), {});
    }
    return std::move(edits).Finish();
}

std::string RewriteTable(const std::string& statement) {
    std::optional<TableText> table = TableText::Read(statement);
    if (!table) return statement;
    RewriteEntries(*table);
    return table->Text();
}

/// Without CLUSTERED and NONCLUSTERED in front of the column list.
std::string RewriteIndex(const std::string& statement) {
    TextEdits edits(statement);
    for (const Token& token : Tokenize(statement)) {
        if (Is(token, "(")) break;
        if (Is(token, "clustered") || Is(token, "nonclustered")) edits.Remove(token.at, token.End());
    }
    return std::move(edits).Finish();
}

}  // namespace

std::string RewriteForEmbedded(const StatementSubject& subject, std::string_view statement) {
    std::string text = RemoveOwners(statement);
    switch (subject.kind) {
        case StatementKind::CreateTable:
            return RewriteTable(text);
        case StatementKind::CreateIndex:
            return RewriteIndex(text);
        case StatementKind::DropTable:
            if (subject.isGuarded) return "DROP TABLE IF EXISTS " + QuoteName(subject.name);
            return text;
        default:
            return text;
    }
}

}  // namespace korvex::cli
