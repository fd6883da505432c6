#include "hosts/cli/model/model_match.h"

#include "automation/text.h"
#include "repository/key_values.h"
#include "scriptgen/migration/identity.h"

#include <utility>

namespace korvex::cli {

namespace {

/// A model as far as identity goes; the values of its interfaces stand one behind the other.
class ModelIdentity {
  public:
    /// `inScope`: objects that names tell; all where it is empty.
    ModelIdentity(const Model& model, const std::vector<bool>& inScope) {
        for (const ModelInterface& interface : model.interfaces)
            AddInterface(interface);
        for (std::size_t i = 0; i < model.objects.size(); ++i) {
            const ModelObject& object = model.objects[i];
            m_result.objects.push_back({.name = object.Name,
                                        .guid = automation::ToUpperAscii(object.Guid),
                                        .isNamed = inScope.empty() || inScope[i],
                                        .interfaces = object.interfaces,
                                        .element = object.element});
            for (const ModelPrimaryKey& key : object.primaryKeys)
                if (IsKey(key.value)) m_result.objects.back().keys.push_back(Position(key.value));
            for (const ModelForeignKey& key : object.foreignKeys)
                if (IsKey(key.value))
                    m_result.objects.back().references.emplace_back(Position(key.value), key.object);
        }
        for (const ModelDefinition& definition : model.definitions)
            m_result.roots.emplace_back(definition.storage, definition.root);
    }

    const scriptgen::DefinitionIdentity& Result() const noexcept { return m_result; }
    std::size_t Position(const ModelValueRef& ref) const {
        return m_result.interfaces[ref.interface].values[ref.value];
    }

  private:
    void AddInterface(const ModelInterface& interface) {
        m_result.interfaces.push_back({.name = interface.Name});
        for (const ModelValue& value : interface.values) {
            m_result.interfaces.back().values.push_back(m_result.values.size());
            m_result.values.push_back({.name = value.Name,
                                       .number = value.isNumbered ? value.VID : 0,
                                       .isGiven = value.isNumbered,
                                       .isKey = IsKeyValue(interface, value),
                                       .child = value.child});
        }
    }
    bool IsKey(const ModelValueRef& ref) const { return m_result.values[Position(ref)].isKey; }

    scriptgen::DefinitionIdentity m_result;
};

}  // namespace

bool IsKeyValue(const ModelInterface& interface, const ModelValue& value) {
    return value.isNumbered && repository::IsKeyValue(value.VID, interface.Name);
}

ModelMatch MatchModels(const Model& before, const std::vector<bool>& inScope, const Model& now) {
    const ModelIdentity old(before, inScope);
    const ModelIdentity recent(now, {});
    scriptgen::IdentityMatch match = scriptgen::MatchDefinitions(old.Result(), recent.Result());
    ModelMatch result{std::move(match.objects), std::move(match.interfaces), {}};
    for (std::size_t i = 0; i < now.interfaces.size(); ++i) {
        ModelMatch::Positions& values = result.values.emplace_back(now.interfaces[i].values.size());
        if (!result.interfaces[i] || before.interfaces[*result.interfaces[i]].values.empty()) continue;
        const std::size_t count = before.interfaces[*result.interfaces[i]].values.size();
        const std::size_t first = old.Position({*result.interfaces[i], 0});
        for (std::size_t value = 0; value < values.size(); ++value) {
            const std::optional<std::size_t> same = match.values[recent.Position({i, value})];
            if (same && *same >= first && *same < first + count) values[value] = *same - first;
        }
    }
    return result;
}

}  // namespace korvex::cli
