#include "scriptgen/migration/definition_diff.h"

#include "automation/error.h"
#include "scriptgen/migration/alter_plan.h"
#include "scriptgen/migration/engine_alter.h"
#include "scriptgen/migration/published_alter.h"

namespace korvex::scriptgen {

namespace {

std::unique_ptr<AlterText> MakeEngineAlter(const EngineDialect& dialect,
                                           std::span<const DescribedTable> now) {
    if (&dialect == &SqliteDialect()) return MakeSqliteAlter(dialect, now);
    if (&dialect == &MariaDbDialect()) return MakeMariaDbAlter(dialect, now);
    if (&dialect == &PostgreSqlDialect()) return MakePostgreSqlAlter(dialect, now);
    throw automation::Error(automation::InvalidProcedureCall,
                            "Tables cannot be changed on " + std::string(dialect.Name()) + ".");
}

}  // namespace

DefinitionDiff::DefinitionDiff(std::string_view dialect, std::span<const DescribedTable> before,
                               std::span<const DescribedTable> now, const DiffOptions& options, bool isLive) {
    EngineTraits traits;
    const ScriptTypeInfo* published = FindScriptType(dialect);
    if (published == nullptr) {
        const EngineDialect& engine = EngineDialectOf(dialect);
        m_before = isLive ? std::vector(before.begin(), before.end()) : engine.Tables(before);
        m_now = engine.Tables(now);
        m_text = MakeEngineAlter(engine, now);
        traits = {.foldsTableNames = engine.FoldsTableNames(), .floatIsSingle = engine.FloatIsSingle()};
    } else if (published->type == ScriptType::Sybase) {
        throw automation::Error(automation::InvalidProcedureCall,
                                "There is no script that changes tables on Sybase: run the drop and create "
                                "scripts of korvex script, or those of another dialect.");
    } else {
        const bool isOracle = published->type == ScriptType::Oracle;
        m_before = FindDialect(published->type)->Tables(before);
        m_now = FindDialect(published->type)->Tables(now);
        m_text = isOracle ? MakeOracleAlter() : MakeSqlServerAlter();
        traits = {.numbersAnew = false, .fixedTypes = isOracle ? "LONG" : ""};
    }
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
