#include "hosts/cli/diff_source.h"

#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/session.h"
#include "hosts/cli/source.h"
#include "repository/catalog.h"
#include "scriptgen/migration/live_tables.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <utility>

namespace korvex::cli {

using automation::Error;
using Json = nlohmann::ordered_json;

namespace {

scriptgen::DiffOptions OptionsOf(const DiffSettings& settings, const DefinitionState& now) {
    scriptgen::DiffOptions options;
    options.kept = now.others;
    for (const std::string& rename : settings.renames) {
        const std::size_t sign = rename.find('=');
        if (sign == std::string::npos)
            throw Error(
                automation::InvalidProcedureCall,
                "--rename takes Old=New or Old.Column=New.Column, not " + automation::Quoted(rename) + ".");
        options.renames.push_back({rename.substr(0, sign), rename.substr(sign + 1)});
    }
    return options;
}

Json ChangeJson(const scriptgen::TableChange& change) {
    constexpr std::array<const char*, 4> Kinds = {"added", "renamed", "changed", "dropped"};
    constexpr std::array<const char*, 5> Things = {"table", "column", "primary key", "foreign key", "index"};
    Json json = {{"class", scriptgen::ClassName(change.cls)},
                 {"change", Kinds[static_cast<std::size_t>(change.kind)]},
                 {"thing", Things[static_cast<std::size_t>(change.thing)]},
                 {"table", change.table}};
    const std::pair<const char*, const std::string*> texts[] = {{"column", &change.column},
                                                                {"before", &change.before},
                                                                {"now", &change.now},
                                                                {"reason", &change.reason}};
    for (const auto& [name, text] : texts)
        if (!text->empty()) json[name] = *text;
    return json;
}

}  // namespace

void AddDiffOptions(CLI::App& command, DiffSettings& settings) {
    AddStorageOption(command, settings, "; without it all definitions, as one run");
    AddFKPrefixOption(command, settings);
    AddOption(command, "--rename", "OLD=NEW", settings.renames,
              "Old.Column=New.Column, or Old=New for a table: what keeps its values under another name");
    command.add_flag("--allow-loss", settings.allowsLoss, "Run what rounds, cuts or drops values, too");
}

DefinitionState DescribeSource(const std::string& place, const DiffSettings& settings, Console& console) {
    try {
        Source source = OpenSource(Session(console).platform, place);
        ExpectStorage(source.repository, settings.storage);
        const auto* numbered = source.numbered ? &*source.numbered : nullptr;
        const repository::Catalog catalog = repository::Catalog::Read(source.repository.Open());
        return scriptgen::DescribeState(catalog, settings.storage, settings.fkPrefix, numbered);
    } catch (const Error& error) {
        const bool isNamed = error.Description().find(place) != std::string::npos;
        throw Error(error.Number(), (isNamed ? "" : place + ": ") + error.Description(), error.Source());
    }
}

std::unique_ptr<scriptgen::DefinitionDiff> Compare(const std::string& dialect, const DefinitionState& before,
                                                   const DefinitionState& now, const DiffSettings& settings) {
    return std::make_unique<scriptgen::DefinitionDiff>(dialect, before.tables, now.tables,
                                                       OptionsOf(settings, now));
}

std::unique_ptr<scriptgen::DefinitionDiff> CompareLive(const scriptgen::EngineDialect& dialect,
                                                       ado::Connection& live, const DefinitionState& now,
                                                       const DiffSettings& settings) {
    return std::make_unique<scriptgen::DefinitionDiff>(
        dialect.Name(), scriptgen::ReadLiveTables(live, dialect), now.tables, OptionsOf(settings, now), true);
}

const scriptgen::EngineDialect& ReadableDialect(ado::Connection& connection) {
    const std::string engine = scriptgen::EngineBehind(connection);
    for (const scriptgen::EngineDialect* dialect : scriptgen::AllEngineDialects())
        if (dialect->Name() == engine) return *dialect;
    throw Error(ado::adErrFeatureNotAvailable,
                "The tables of this server cannot be read: compare two definitions (korvex diff OLD NEW "
                "--dialect " +
                    engine + ") and run the script there.");
}

void PrintChanges(const scriptgen::DefinitionDiff& diff, Console& console) {
    for (const scriptgen::TableChange& change : diff.Changes())
        console.Results() << scriptgen::ClassName(change.cls) << ": " << scriptgen::ChangeText(change)
                          << '\n';
}

nlohmann::ordered_json ChangesJson(const scriptgen::DefinitionDiff& diff) {
    Json changes = Json::array();
    for (const scriptgen::TableChange& change : diff.Changes())
        changes.push_back(ChangeJson(change));
    return changes;
}

}  // namespace korvex::cli
