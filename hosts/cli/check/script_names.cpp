#include "scriptgen/script_names.h"

#include "automation/text.h"
#include "hosts/cli/check/check.h"
#include "hosts/cli/check/reserved_words.h"

#include <map>

namespace korvex::cli {

namespace {

using scriptgen::ProcedureName;

/// "SEQ_" and a table name of this length make the longest name that older servers take; the scripts do not
/// cut these names.
constexpr std::size_t LongestTableName = repository::MaxNameLength - 4;

/// Things of one kind that must not share a name, names without regard to case.
class UniqueNames {
  public:
    UniqueNames(std::string kind, Findings& findings) : m_kind(std::move(kind)), m_findings(findings) {}

    /// `owner` says whose name it is. False when the name is taken.
    bool Add(const std::string& name, const std::string& owner) {
        // The cut takes the beginning of a name that is too long.
        if (name.front() == '_' || (name.front() >= '0' && name.front() <= '9')) {
            m_findings.Error(m_kind + " " + name + " " + owner + " begins with '" + name.front() +
                             "', being cut to " + std::to_string(repository::MaxNameLength) + " characters");
        }
        const auto [entry, isNew] = m_owners.emplace(automation::ToUpperAscii(name), owner);
        if (!isNew) {
            m_findings.Error(m_kind + " " + name + " would be made twice: " + entry->second + " and " +
                             owner);
        }
        return isNew;
    }

  private:
    std::string m_kind;
    Findings& m_findings;
    std::map<std::string, std::string> m_owners;
};

void AddProcedures(const PlannedTable& table, UniqueNames& procedures) {
    const std::string ofTable = " of table " + table.name;
    for (const auto& [suffix, what] :
         {std::pair("AR", "to read all rows"), std::pair("AD", "to delete all rows"),
          std::pair("R", "to read a row"), std::pair("D", "to delete a row"),
          std::pair("C", "to insert a row"), std::pair("U", "to update a row")})
        procedures.Add(ProcedureName(table.name, suffix), what + ofTable);
    for (const PlannedColumn& column : table.columns) {
        if (column.parentID == 0) continue;
        const std::string group = scriptgen::GroupBase(table.name, column.name);
        const std::string by = " by " + column.name + ofTable;
        procedures.Add(ProcedureName(group, "R"), "to read rows" + by);
        procedures.Add(ProcedureName(group, "D"), "to delete rows" + by);
    }
}

/// All constraints of one table have the same name.
void AddConstraint(const PlannedTable& table, const std::string& owner, UniqueNames& constraints,
                   Findings& findings) {
    if (table.parents.empty()) return;
    const std::string name = scriptgen::ForeignKeyName(table.name);
    constraints.Add(name, "of table " + table.name);
    if (table.parents.size() > 1) {
        findings.Warning(owner + " refers to " + std::to_string(table.parents.size()) +
                         " objects; the constraints are all named " + name +
                         ", so a server takes only the first");
    }
}

void CheckTableName(const PlannedTable& table, const std::string& owner, Findings& findings) {
    CheckIdentifier(owner + ": table ", table.name, true, findings);
    if (automation::Length(table.name) > LongestTableName) {
        findings.Warning(owner + ": the names of sequence, trigger, index or key of table " + table.name +
                         " get longer than 30 characters, which older Oracle servers refuse");
    }
    if (const std::string dialects = ReservedBy(table.name); !dialects.empty()) {
        findings.Warning(owner + ": table " + table.name + " is a reserved word (" + dialects + ")");
    }
}

}  // namespace

void CheckScriptNames(const PlannedDefinition& definition, Findings& findings) {
    const std::string place = "definition " + definition.storage + ": ";
    UniqueNames tables(place + "table", findings);
    UniqueNames procedures(place + "procedure", findings);
    UniqueNames constraints(place + "constraint", findings);
    for (const PlannedTable& table : definition.tables) {
        const std::string owner = ObjectText(*table.object);
        // What has the same table has all the rest in common as well.
        if (tables.Add(table.name, owner)) {
            AddProcedures(table, procedures);
            AddConstraint(table, owner, constraints, findings);
        }
        CheckTableName(table, owner, findings);
    }
}

}  // namespace korvex::cli
