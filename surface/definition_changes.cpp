#include "surface/definition_changes.h"

#include "scriptgen/migration/definition_diff.h"
#include "scriptgen/migration/definition_identity.h"

namespace korvex {

struct DefinitionChanges::Impl {
    Impl(const std::string& sDialect, const scriptgen::DefinitionState& before,
         const scriptgen::DefinitionState& now, const scriptgen::DiffOptions& options)
        : diff(sDialect, before.tables, now.tables, options) {
        for (const scriptgen::TableChange& change : diff.Changes())
            changes.push_back({std::string(scriptgen::ClassName(change.cls)), scriptgen::ChangeText(change)});
    }

    scriptgen::DefinitionDiff diff;
    std::vector<DefinitionChange> changes;
};

DefinitionChanges::DefinitionChanges(const std::string& sDialect, const repository::Catalog& before,
                                     const repository::Catalog& now, const std::string& storageName,
                                     const std::string& sFKPrefix, const std::vector<Rename>& renames) {
    const scriptgen::DefinitionState state = scriptgen::DescribeState(now, storageName, sFKPrefix);
    scriptgen::DiffOptions options;
    options.kept = state.others;
    for (const auto& [old, name] : renames)
        options.renames.push_back({old, name});
    m_impl = std::make_unique<Impl>(sDialect, scriptgen::DescribeState(before, storageName, sFKPrefix), state,
                                    options);
}

DefinitionChanges::~DefinitionChanges() = default;

const std::vector<DefinitionChange>& DefinitionChanges::Changes() const noexcept { return m_impl->changes; }

std::string DefinitionChanges::Script(bool allowsLoss) const { return m_impl->diff.Script(allowsLoss); }

}  // namespace korvex
