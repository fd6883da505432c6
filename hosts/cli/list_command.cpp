#include "automation/text.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/data/data_session.h"
#include "hosts/cli/data/found_text.h"
#include "objects/find.h"

#include <memory>
#include <string>
#include <vector>

namespace korvex::cli {

namespace {

struct ListOptions : CommonOptions {
    std::vector<std::string> where;
    std::vector<std::string> fields;
    std::string order;
    bool isDescending = false;
    std::int64_t limit = -1;
    std::string format = "table";
};

objects::Search SearchOf(const ListOptions& options) {
    objects::Search search{
        .fields = options.fields, .order = options.order, .isDescending = options.isDescending};
    for (const std::string& condition : options.where)
        search.where.push_back(objects::ReadCondition(condition));
    if (options.limit >= 0) search.limit = static_cast<std::size_t>(options.limit);
    return search;
}

void RunList(const ListOptions& options, Console& console) {
    const objects::Search search = SearchOf(options);
    const auto definition = OpenDefinition(options, console);
    const DataSession session(options, console);
    objects::FoundObjects found = objects::Find(*definition, session.Crud().DbConn(), search);
    WriteFound(found, options.format, console.Results());
}

}  // namespace

void AddListCommand(CLI::App& parent, Console& console) {
    const auto [command, options] =
        AddCommand(parent, console, "list", "List stored objects, one line each",
                   DataExample("list", "--where \"State = 3\" --fields OrderNumber,Total", true), RunList);
    AddDataOptions(command, options, true);
    AddOption(
        command, "--where", "CONDITION", options.where,
        "Only those whose value compares so: \"State = 4\", \"Customer.Rating > 3\"; operators are =, <>, "
        "<, <=, >, >=, like (with % and _), is null, is not null. All of several must hold")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    AddOption(command, "--fields", "NAMES", options.fields,
              "Values to give, Customer.Name too (all of the object unless given)")
        ->delimiter(',');
    AddOption(command, "--order", "NAME", options.order, "Value to sort by (the key unless given)");
    command.add_flag("--descending", options.isDescending, "Sort from the highest down");
    AddOption(command, "--limit", "N", options.limit, "At most so many")->check(CLI::NonNegativeNumber);
    AddChoice(command, "--format", "FORMAT", options.format, {"table", "json", "csv", "keys"},
              "table, json (a line each), csv or keys (table unless given)");
}

}  // namespace korvex::cli
