#include "tests/windows/engines/data_objects.h"

#include "hosts/objects/json.h"
#include "hosts/objects/load_definition.h"
#include "tests/windows/engines/dao_files.h"

namespace korvex::test {

namespace {

using automation::InvokeKind;
using automation::Member;
using automation::Object;
using automation::ObjectAs;
using automation::Parameter;
using automation::Variant;
using automation::VarType;
using Arguments = std::span<Variant>;

const std::string& Text(const Variant& argument) { return *argument.If<std::string>(); }

const std::shared_ptr<objects::Definition>& DefinitionOf(Object& self, Arguments arguments) {
    return static_cast<DataObjects&>(self).DefinitionOf(Text(arguments[0]), Text(arguments[1]));
}

constexpr Parameter CreateParameters[] = {{"Repository", VarType::String}, {"Storage", VarType::String}};
constexpr Parameter FromJsonParameters[] = {
    {"Repository", VarType::String}, {"Storage", VarType::String}, {"Text", VarType::String}};
constexpr Parameter ObjectParameter[] = {{"Data", VarType::Object}};
constexpr Parameter ApplyParameters[] = {{"Data", VarType::Object}, {"Text", VarType::String}};

constexpr Member Members[] = {
    {"Create", InvokeKind::Method, CreateParameters, VarType::Object,
     [](Object& self, Arguments arguments) -> Variant {
         return std::make_shared<objects::DataObject>(DefinitionOf(self, arguments));
     }},
    {"FromJson", InvokeKind::Method, FromJsonParameters, VarType::Object,
     [](Object& self, Arguments arguments) -> Variant {
         return objects::FromJson(DefinitionOf(self, arguments), Text(arguments[2]));
     }},
    {"ApplyJson", InvokeKind::Method, ApplyParameters, VarType::Void,
     [](Object&, Arguments arguments) -> Variant {
         objects::ApplyJson(*ObjectAs<objects::DataObject>(arguments[0]), Text(arguments[1]));
         return {};
     }},
    {"ToJson", InvokeKind::Method, ObjectParameter, VarType::String,
     [](Object&, Arguments arguments) -> Variant {
         return objects::ToJson(*ObjectAs<objects::DataObject>(arguments[0]));
     }},
};
constexpr automation::ClassInfo Info{"DataObjects", {}, Members};

}  // namespace

const automation::ClassInfo& DataObjects::Class() const noexcept { return Info; }

const std::shared_ptr<objects::Definition>& DataObjects::DefinitionOf(const std::string& repository,
                                                                      const std::string& storage) {
    auto& definition = m_definitions[{repository, storage}];
    if (definition == nullptr) {
        const auto database = OpenDatabaseFile(repository);
        definition = objects::LoadDefinition(repository::Catalog::Read(*database), storage);
    }
    return definition;
}

}  // namespace korvex::test
