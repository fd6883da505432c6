#include "scriptgen/script_names.h"

#include "automation/text.h"
#include "hosts/cli/check/check.h"
#include "scriptgen/column_lists.h"

#include <algorithm>
#include <map>
#include <span>
#include <unordered_set>

namespace korvex::cli {

namespace {

using scriptgen::DescribedTable;
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

/// `targets` are the objects that the table refers to in the scripts.
void AddProcedures(const DescribedTable& table, std::span<const repository::ObjectId> targets,
                   UniqueNames& procedures) {
    const std::string ofTable = " of table " + table.Name;
    for (const auto& [suffix, what] :
         {std::pair("AR", "to read all rows"), std::pair("AD", "to delete all rows"),
          std::pair("R", "to read a row"), std::pair("D", "to delete a row"),
          std::pair("C", "to insert a row"), std::pair("U", "to update a row")})
        procedures.Add(ProcedureName(table.Name, suffix), what + ofTable);
    for (const repository::ObjectId target : targets) {
        const auto column = std::ranges::find(table.Columns, target, &scriptgen::Column::FKObjectID);
        const std::string group = scriptgen::GroupBase(table.Name, column->FieldName);
        const std::string by = " by " + column->FieldName + ofTable;
        procedures.Add(ProcedureName(group, "R"), "to read rows" + by);
        procedures.Add(ProcedureName(group, "D"), "to delete rows" + by);
    }
}

/// All constraints of one table have the same name.
void AddConstraint(const DescribedTable& table, std::size_t targets, const std::string& owner,
                   UniqueNames& constraints, Findings& findings) {
    if (targets == 0) return;
    const std::string name = scriptgen::ForeignKeyName(table.Name);
    constraints.Add(name, "of table " + table.Name);
    if (targets > 1) {
        findings.Warning(owner + " refers to " + std::to_string(targets) +
                         " objects; the constraints are all named " + name +
                         ", so a server takes only the first");
    }
}

/// The scripts take an object as listed whose digits stand within those of one listed before: 2 after 12.
void CheckTargets(const CheckedDefinition& definition, const DescribedTable& table,
                  std::span<const repository::ObjectId> targets, const std::string& owner,
                  Findings& findings) {
    const std::unordered_set<repository::ObjectId> listed(targets.begin(), targets.end());
    for (const scriptgen::ForeignKey& key : table.ForeignKeys) {
        if (listed.contains(key.FKObjectID)) continue;
        const repository::ObjectRow* target = definition.rows.FindObject(key.FKObjectID);
        findings.Error(owner + " refers to " +
                       (target == nullptr ? std::to_string(Number(key.FKObjectID)) : ObjectText(*target)) +
                       " without a constraint, an index or procedures: the digits of its ObjectID "
                       "stand in that of an object referred to before");
    }
}

void CheckTableName(const DescribedTable& table, const std::string& owner, Findings& findings) {
    CheckIdentifier(owner + ": table ", table.Name, true, findings);
    if (automation::Length(table.Name) > LongestTableName) {
        findings.Warning(owner + ": the names of sequence, trigger, index or key of table " + table.Name +
                         " get longer than 30 characters, which older Oracle servers refuse");
    }
    if (const std::string dialects(ReservedBy(table.Name)); !dialects.empty()) {
        findings.Warning(owner + ": table " + table.Name + " is a reserved word (" + dialects + ")");
    }
}

}  // namespace

void CheckScriptNames(const CheckedDefinition& definition, Findings& findings) {
    const std::string place = "definition " + definition.storage + ": ";
    UniqueNames tables(place + "table", findings);
    UniqueNames procedures(place + "procedure", findings);
    UniqueNames constraints(place + "constraint", findings);
    for (const DescribedTable& table : definition.tables) {
        const Findings::About about(findings, {table.ObjectID});
        const std::string owner = ObjectText(*definition.rows.FindObject(table.ObjectID));
        const std::vector<repository::ObjectId> targets = scriptgen::GetForeignKeyTargets(table.Columns);
        // What has the same table has all the rest in common as well.
        if (tables.Add(table.Name, owner)) {
            AddProcedures(table, targets, procedures);
            AddConstraint(table, targets.size(), owner, constraints, findings);
        }
        CheckTargets(definition, table, targets, owner, findings);
        CheckTableName(table, owner, findings);
    }
}

}  // namespace korvex::cli
