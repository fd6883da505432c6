#include "hosts/cli/apply/statement_kind.h"

#include "hosts/cli/apply/sql_tokens.h"

namespace korvex::cli {

namespace {

struct ObjectWord {
    std::string_view word;
    StatementKind create;
    StatementKind drop;
};

constexpr ObjectWord ObjectWords[] = {
    {"table", StatementKind::CreateTable, StatementKind::DropTable},
    {"index", StatementKind::CreateIndex, StatementKind::DropIndex},
    {"procedure", StatementKind::CreateProcedure, StatementKind::DropProcedure},
    {"proc", StatementKind::CreateProcedure, StatementKind::DropProcedure},
    {"function", StatementKind::CreateFunction, StatementKind::DropFunction},
    {"trigger", StatementKind::CreateTrigger, StatementKind::DropTrigger},
    {"sequence", StatementKind::CreateSequence, StatementKind::DropSequence},
};

/// Steps behind "if exists ( ... )"; false, taking nothing, when there is none.
bool TakeGuard(TokenReader& words) {
    if (!words.Take("if exists (")) return false;
    for (int depth = 1; depth > 0 && !words.AtEnd();) {
        const Token& token = words.Next();
        if (Is(token, "(")) ++depth;
        if (Is(token, ")")) --depth;
    }
    return true;
}

StatementSubject SubjectOfAlterTable(TokenReader& words) {
    StatementSubject subject;
    words.Take("if exists");
    subject.name = words.TakeName();
    if (words.Take("add constraint")) subject.kind = StatementKind::AddConstraint;
    if (words.Take("drop constraint") || words.Take("drop foreign key"))
        subject.kind = StatementKind::DropConstraint;
    return subject;
}

}  // namespace

StatementSubject SubjectOf(std::string_view statement) {
    TokenReader words(Tokenize(statement));
    StatementSubject subject;
    subject.isGuarded = TakeGuard(words);
    if (words.Take("alter table")) return SubjectOfAlterTable(words);
    const bool isCreate = words.Take("create");
    if (!isCreate && !words.Take("drop")) return subject;
    words.Take("or replace");
    for (const std::string_view word : {"unique", "clustered", "nonclustered", "temp", "temporary"})
        words.Take(word);
    for (const ObjectWord& object : ObjectWords) {
        if (!words.Take(object.word)) continue;
        subject.kind = isCreate ? object.create : object.drop;
        if (!words.Take("if exists")) words.Take("if not exists");
        subject.name = words.TakeName();
        break;
    }
    return subject;
}

bool Makes(StatementKind kind) noexcept { return kind <= StatementKind::AddConstraint; }

bool Drops(StatementKind kind) noexcept {
    return kind >= StatementKind::DropTable && kind <= StatementKind::DropConstraint;
}

}  // namespace korvex::cli
