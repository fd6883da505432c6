#include "scriptgen/migration/definition_diff.h"

#include "automation/error.h"
#include "scriptgen/migration/alter_plan.h"
#include "scriptgen/migration/engine_alter.h"
#include "scriptgen/migration/published_alter.h"

namespace korvex::scriptgen {

namespace {

EngineTraits TraitsOf(const EngineDialect& dialect) {
    return {.foldsTableNames = dialect.FoldsTableNames(), .floatIsSingle = dialect.FloatIsSingle()};
}

}  // namespace

DefinitionDiff::DefinitionDiff(std::string_view dialect, std::span<const DescribedTable> before,
                               std::span<const DescribedTable> now, const DiffOptions& options) {
    if (dialect == "sybase")
        throw automation::Error(automation::InvalidProcedureCall,
                                "There is no script that changes tables on Sybase: run the drop and create "
                                "scripts of korvex script, or those of another dialect.");
    if (const ScriptTypeInfo* published = FindScriptType(dialect)) {
        const bool isOracle = published->type == ScriptType::Oracle;
        m_before = PublishedTables(*FindDialect(published->type), before);
        m_now = PublishedTables(*FindDialect(published->type), now);
        m_text = isOracle ? MakeOracleAlter() : MakeSqlServerAlter();
        Compare({.numbersAnew = false, .fixedTypes = isOracle ? "LONG" : ""}, options);
        return;
    }
    const EngineDialect& engine = EngineDialectOf(dialect);
    m_before = engine.Tables(before);
    m_now = engine.Tables(now);
    m_text = MakeEngineAlter(engine, now);
    Compare(TraitsOf(engine), options);
}

std::unique_ptr<DefinitionDiff> DefinitionDiff::FromLive(const EngineDialect& dialect,
                                                         std::vector<DescribedTable> live,
                                                         std::span<const DescribedTable> now,
                                                         const DiffOptions& options) {
    std::unique_ptr<DefinitionDiff> diff(new DefinitionDiff());
    diff->m_before = std::move(live);
    diff->m_now = dialect.Tables(now);
    diff->m_text = MakeEngineAlter(dialect, now);
    diff->Compare(TraitsOf(dialect), options);
    return diff;
}

void DefinitionDiff::Compare(const EngineTraits& traits, const DiffOptions& options) {
    m_comparison = std::make_unique<Comparison>(m_before, m_now, traits, options);
}

std::vector<AlterStep> DefinitionDiff::Steps(bool allowsLoss) const {
    return PlanAlter(*m_comparison, *m_text, allowsLoss);
}

std::string DefinitionDiff::Script(bool allowsLoss) const {
    return AlterScriptText(Steps(allowsLoss), *m_text, allowsLoss);
}

std::string DefinitionDiff::ScriptOf(std::span<const AlterStep> steps) const {
    return AlterScriptText(steps, *m_text, true);
}

}  // namespace korvex::scriptgen
