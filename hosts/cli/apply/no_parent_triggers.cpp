#include "hosts/cli/apply/no_parent_triggers.h"

#include <algorithm>

namespace korvex::cli {

namespace {

constexpr std::string_view NamePrefix = "korvex_no_parent_";

std::string TriggerText(const std::string& table, std::string_view name, std::string_view event,
                        const std::vector<std::string>& columns) {
    std::string condition;
    std::string assignments;
    for (const std::string& column : columns) {
        const std::string quoted = QuoteName(column);
        condition += (condition.empty() ? "" : " OR ") + ("NEW." + quoted + " = 0");
        assignments += (assignments.empty() ? "" : ", ") + (quoted + " = nullif(" + quoted + ", 0)");
    }
    const std::string fullName = std::string(NamePrefix) + std::string(name) + table;
    return "CREATE TRIGGER " + QuoteName(fullName) + " AFTER " + std::string(event) + " ON " +
           QuoteName(table) + " WHEN " + condition + " BEGIN UPDATE " + QuoteName(table) + " SET " +
           assignments + " WHERE rowid = NEW.rowid; END";
}

}  // namespace

std::vector<std::string> ParentColumns(const std::vector<ForeignKey>& keys) {
    std::vector<std::string> columns;

    for (const ForeignKey& key : keys) {
        if (key.columns.size() == 1) columns.push_back(key.columns.front());
    }
    return columns;
}

std::vector<std::string> NoParentTriggers(const std::string& table, const std::vector<ForeignKey>& keys) {
    const std::vector<std::string> columns = ParentColumns(keys);
    if (keys.size() < 2 || columns.empty()) return {};

    return {TriggerText(table, "insert_", "INSERT", columns),
            TriggerText(table, "update_", "UPDATE OF " + JoinColumns(columns), columns)};
}

bool IsNoParentTrigger(const std::string& name) { return name.starts_with(NamePrefix); }

}  // namespace korvex::cli
