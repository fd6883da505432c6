#include "scriptgen/migration/database_update.h"

#include "automation/error.h"
#include "automation/text.h"
#include "platform/ado_transaction.h"
#include "scriptgen/migration/live_tables.h"
#include "scriptgen/migration/table_rebuild.h"

#include <optional>

namespace korvex::scriptgen {

using automation::AddSentence;
using automation::Error;

namespace {

struct FitCount {
    std::size_t records = 0, rounded = 0, none = 0;
};

FitCount CountFits(ado::Connection& connection, const std::string& query, const ColumnType& before,
                   const ColumnType& now) {
    FitCount count;
    const auto rows = connection.Execute(query);
    for (const auto value = rows->Fields(0); !rows->Eof(); rows->MoveNext()) {
        const Fit fit = FitOf(value->Value(), before, now);
        ++count.records;
        if (fit == Fit::Rounded) ++count.rounded;
        if (fit == Fit::None) ++count.none;
    }
    rows->Close();
    return count;
}

/// Records that refer to none although a constraint will have it so.
std::size_t CountDangling(ado::Connection& connection, const TablePlan& plan, const ColumnPlan& column,
                          const TablePlan* target, const ForeignKey& key) {
    const std::string& name = column.before->FieldName;
    const bool isNumber = ColumnTypeOf(column.before->TypeSize, false).kind != TypeKind::Text;
    const auto comparable = [&](const std::string& value) {
        return isNumber ? value : "cast(" + value + " as char(40))";
    };
    std::string query = "select count(*) from " + plan.before->Name + " where " + name + " is not null and " +
                        comparable(name) + " <> " + (isNumber ? "0" : "'0'");
    const ColumnPlan* parent = target != nullptr ? ColumnNow(*target, key.KeyField) : nullptr;
    if (target != nullptr && target->before != nullptr && parent != nullptr && parent->before != nullptr)
        query += " and " + comparable(name) + " not in (select " + comparable(parent->before->FieldName) +
                 " from " + target->before->Name + ")";
    return static_cast<std::size_t>(std::stoull(ReadTexts(connection, query).front()));
}

/// Those of the constraints that columns with values get.
void AddDangling(std::vector<Misfit>& misfits, ado::Connection& connection, const Comparison& comparison,
                 const TablePlan& plan) {
    if (!plan.Stays()) return;
    for (const ForeignKey& key : plan.now->ForeignKeys) {
        const ColumnPlan* column = ColumnNow(plan, key.FieldName);
        if (!key.IsInRun || column->before == nullptr || !column->conversion.isPossible ||
            comparison.SameKeyBefore(plan, key) != nullptr)
            continue;
        const std::size_t count = CountDangling(connection, plan, *column, comparison.TargetNow(key), key);
        if (count > 0)
            misfits.push_back({plan.before->Name + "." + column->before->FieldName + ": " +
                               std::to_string(count) + (count == 1 ? " record refers" : " records refer") +
                               " to none of " + key.Table});
    }
}

}  // namespace

std::vector<Misfit> CountMisfits(ado::Connection& connection, const EngineDialect& dialect,
                                 const Comparison& comparison) {
    std::vector<Misfit> misfits;
    for (const TablePlan& plan : comparison.Tables()) {
        for (const ColumnPlan& column : plan.columns) {
            if (column.conversion.cls != ChangeClass::Lossy) continue;
            const std::string& name = column.before->FieldName;
            const ColumnType before = ColumnTypeOf(column.before->TypeSize, dialect.FloatIsSingle());
            const ColumnType now = ColumnTypeOf(column.now->TypeSize, dialect.FloatIsSingle());
            // A driver gives points in time with fewer digits than a column may hold.
            const bool areDates = before.kind == TypeKind::Date && now.kind == TypeKind::Date;
            const FitCount count =
                CountFits(connection,
                          "select " + (areDates ? "cast(" + name + " as char(30))" : name) + " from " +
                              plan.before->Name + " where " + name + " is not null",
                          before, now);
            const std::string place = plan.before->Name + "." + name + ": " + column.now->TypeSize;
            const std::string all = " of " + std::to_string(count.records) + " values";
            if (count.none > 0)
                misfits.push_back({place + " does not hold " + std::to_string(count.none) + all});
            if (count.rounded > 0)
                misfits.push_back({place + " rounds " + std::to_string(count.rounded) + all, true});
        }
        AddDangling(misfits, connection, comparison, plan);
    }
    return misfits;
}

void ChangeTables(const std::shared_ptr<ado::Connection>& connection, const EngineDialect& dialect,
                  bool makesAnew, const std::function<void()>& work,
                  const std::function<std::string()>& kept) {
    std::optional<ReferencesOff> references;
    if (makesAnew) references.emplace(*connection);
    std::optional<ado::Transaction> transaction;
    try {
        if (dialect.DefinitionsRollBack()) transaction.emplace(connection);
        work();
        if (references) references->CheckReferences();
        if (transaction) transaction->Commit();
    } catch (const Error& error) {
        const std::string end = transaction                     ? transaction->TakeBack()
                                : dialect.DefinitionsRollBack() ? "The database is as it was."
                                                                : kept();
        throw Error(error.Number(), AddSentence(error.Description(), end), error.Source());
    }
}

void UpdateDatabase(const std::shared_ptr<ado::Connection>& connection, const EngineDialect& dialect,
                    std::span<const AlterStep> steps,
                    const std::function<std::string(std::span<const AlterStep>)>& keepRest) {
    std::size_t done = 0;
    const auto run = [&] {
        for (; done < steps.size(); ++done)
            connection->Execute(steps[done].text);
    };
    ChangeTables(connection, dialect, !dialect.AltersForeignKeys(), run, [&] {
        return std::to_string(done) + " of " + std::to_string(steps.size()) + " statements were run." +
               (keepRest ? " " + keepRest(steps.subspan(done)) : "");
    });
}

}  // namespace korvex::scriptgen
