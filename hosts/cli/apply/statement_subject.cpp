#include "hosts/cli/apply/statement_subject.h"

#include "automation/sql_tokens.h"

#include <array>

namespace korvex::cli {

namespace {

using automation::sql::Is;
using automation::sql::Token;
using automation::sql::Tokenize;
using automation::sql::TokenReader;

constexpr std::array<std::string_view, ThingCount> Nouns = {
    "sequence", "table", "view", "index", "trigger", "procedure", "function", "constraint"};

/// Steps behind "if exists ( ... )", if it stands there.
void TakeGuard(TokenReader& words) {
    if (!words.Take("if exists (")) return;
    for (int depth = 1; depth > 0 && !words.AtEnd();) {
        const Token& token = words.Next();
        if (Is(token, "(")) ++depth;
        if (Is(token, ")")) --depth;
    }
}

StatementSubject SubjectOfAlterTable(TokenReader& words) {
    words.Take("if exists");
    StatementSubject subject{Deed::Other, Thing::Constraint, words.TakeName()};
    if (words.Take("add constraint")) subject.deed = Deed::Create;
    if (words.Take("drop constraint") || words.Take("drop foreign key")) subject.deed = Deed::Drop;
    return subject;
}

}  // namespace

StatementSubject SubjectOf(std::string_view statement) {
    TokenReader words(Tokenize(statement));
    TakeGuard(words);
    if (words.Take("alter table")) return SubjectOfAlterTable(words);
    const bool isCreate = words.Take("create");
    if (!isCreate && !words.Take("drop")) return {};
    words.Take("or replace");
    for (const std::string_view word :
         {"unique", "clustered", "nonclustered", "temp", "temporary", "editionable", "noneditionable"})
        words.Take(word);
    for (std::size_t i = 0; i < ThingCount; ++i) {
        const auto thing = static_cast<Thing>(i);
        if (!words.Take(Nouns[i]) && !(thing == Thing::Procedure && words.Take("proc"))) continue;
        if (!words.Take("if exists")) words.Take("if not exists");
        return {isCreate ? Deed::Create : Deed::Drop, thing, words.TakeName()};
    }
    return {};
}

std::string_view NounOf(Thing thing) noexcept { return Nouns[static_cast<std::size_t>(thing)]; }

}  // namespace korvex::cli
