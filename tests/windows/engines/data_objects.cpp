#include "tests/windows/engines/data_objects.h"

#include "automation/member_rows.h"
#include "objects/json.h"
#include "objects/load_definition.h"
#include "tests/windows/engines/dao_files.h"

namespace korvex::test {

namespace {

using automation::MethodRow;
using automation::Parameter;
using automation::VarType;
using objects::DataObject;

std::shared_ptr<DataObject> Create(DataObjects& self, const std::string& repository,
                                   const std::string& storage) {
    return std::make_shared<DataObject>(self.DefinitionOf(repository, storage));
}

std::shared_ptr<DataObject> FromJson(DataObjects& self, const std::string& repository,
                                     const std::string& storage, const std::string& text) {
    return objects::FromJson(self.DefinitionOf(repository, storage), text);
}

void ApplyJson(DataObjects&, const std::shared_ptr<DataObject>& data, const std::string& text) {
    objects::ApplyJson(*data, text);
}

std::string ToJson(DataObjects&, const std::shared_ptr<DataObject>& data) { return objects::ToJson(*data); }

std::int32_t madeAlone = 0;

std::int32_t WorkingObjects(DataObjects&) { return madeAlone; }

constexpr Parameter CreateParameters[] = {{"Repository", VarType::String}, {"Storage", VarType::String}};
constexpr Parameter FromJsonParameters[] = {
    {"Repository", VarType::String}, {"Storage", VarType::String}, {"Text", VarType::String}};
constexpr Parameter ObjectParameter[] = {{"Data", VarType::Object}};
constexpr Parameter ApplyParameters[] = {{"Data", VarType::Object}, {"Text", VarType::String}};

constexpr automation::Member Members[] = {
    MethodRow<Create>("Create", {CreateParameters}),
    MethodRow<FromJson>("FromJson", {FromJsonParameters}),
    MethodRow<ApplyJson>("ApplyJson", {ApplyParameters}),
    MethodRow<ToJson>("ToJson", {ObjectParameter}),
    automation::GetRow<WorkingObjects>("WorkingObjects"),
};
constexpr automation::ClassInfo Info{"DataObjects", {}, Members};

}  // namespace

const automation::ClassInfo& DataObjects::Class() const noexcept { return Info; }

std::shared_ptr<automation::TableObject> CreateDataObject() {
    ++madeAlone;
    return std::make_shared<DataObject>();
}

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
