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

}  // namespace

std::vector<Misfit> CountMisfits(ado::Connection& connection, const EngineDialect& dialect,
                                 const Comparison& comparison) {
    std::vector<Misfit> misfits;
    for (const TablePlan& plan : comparison.Tables()) {
        for (const ColumnPlan& column : plan.columns) {
            if (column.conversion.cls != ChangeClass::Lossy) continue;
            const FitCount count =
                CountFits(connection,
                          "select " + column.before->FieldName + " from " + plan.before->Name + " where " +
                              column.before->FieldName + " is not null",
                          ColumnTypeOf(column.before->TypeSize, dialect.FloatIsSingle()),
                          ColumnTypeOf(column.now->TypeSize, dialect.FloatIsSingle()));
            const std::string place =
                plan.before->Name + "." + column.before->FieldName + ": " + column.now->TypeSize;
            const std::string all = " of " + std::to_string(count.records) + " values";
            if (count.none > 0)
                misfits.push_back({place + " does not hold " + std::to_string(count.none) + all});
            if (count.rounded > 0)
                misfits.push_back({place + " rounds " + std::to_string(count.rounded) + all, true});
        }
    }
    return misfits;
}

DatabaseUpdate::DatabaseUpdate(std::shared_ptr<ado::Connection> connection, const EngineDialect& dialect,
                               KeepRest keepRest)
    : m_connection(std::move(connection)), m_dialect(dialect), m_keepRest(std::move(keepRest)) {}

void DatabaseUpdate::RunSteps(std::span<const AlterStep> steps) {
    for (const AlterStep& step : steps) {
        m_connection->Execute(step.text);
        ++m_done;
    }
}

void DatabaseUpdate::Run(const std::vector<AlterStep>& steps) {
    m_done = 0;
    const bool rollsBack = m_dialect.DefinitionsRollBack();
    std::optional<ReferencesOff> references;
    if (!m_dialect.AltersForeignKeys()) references.emplace(*m_connection);
    try {
        std::optional<ado::Transaction> transaction;
        if (rollsBack) transaction.emplace(m_connection);
        RunSteps(steps);
        if (references) references->CheckReferences();
        if (transaction) transaction->Commit();
    } catch (const Error& error) {
        std::string end = "The database is as it was.";
        if (!rollsBack)
            end = std::to_string(m_done) + " of " + std::to_string(steps.size()) + " statements were run." +
                  (m_keepRest ? " " + m_keepRest(std::span(steps).subspan(m_done)) : "");
        throw Error(error.Number(), AddSentence(error.Description(), end), error.Source());
    }
}

}  // namespace korvex::scriptgen
