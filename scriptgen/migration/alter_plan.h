#pragma once

#include "scriptgen/migration/alter_text.h"

namespace korvex::scriptgen {

/// The statements that bring a database from one model to the other, in their order: what refers to what
/// changes goes first, then names change, tables and columns come, types change, indexes, constraints and
/// triggers are made, and what the definition does not have any more goes last. Without `allowsLoss` tables
/// and columns keep what lossy and destructive steps would take.
std::vector<AlterStep> PlanAlter(const Comparison& comparison, AlterText& text, bool allowsLoss);

/// The script of these steps. Those that are not run stand as comments.
std::string AlterScriptText(std::span<const AlterStep> steps, const AlterText& text, bool allowsLoss);

}  // namespace korvex::scriptgen
