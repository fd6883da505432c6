#include "platform/windows/ado_objects.h"

#include "automation/error.h"
#include "automation/text.h"
#include "platform/windows/windows_platform.h"

namespace korvex::windows {

namespace {

using automation::Variant;

std::shared_ptr<com::HostObject> CreateAdoObject(std::string_view progId) {
    HRESULT failure = S_OK;
    if (auto object = com::CreateHostObject(progId, failure)) return object;
    throw automation::Error(automation::CannotCreateObject,
                            "The database access of clsCRUD is not available: " + std::string(progId) +
                                " cannot be created (" + com::SystemText(failure) +
                                "). ADO is a part of Windows; registering msado15.dll in Common "
                                "Files\\System\\ado installs it again.");
}

class InstalledAdo final : public ado::Provider {
  public:
    std::shared_ptr<ado::Connection> CreateConnection() override {
        return std::make_shared<AdoConnection>(CreateAdoObject("ADODB.Connection"));
    }
    std::shared_ptr<ado::Recordset> CreateRecordset() override {
        return std::make_shared<AdoRecordset>(CreateAdoObject("ADODB.Recordset"));
    }
};

}  // namespace

std::shared_ptr<ado::Field> AdoRecordset::Fields(std::string_view name) {
    const std::string key = automation::ToUpperAscii(name);
    for (const auto& [known, field] : m_fields) {
        if (known == key) return field;
    }
    return m_fields.emplace_back(key, FieldList().Item(name)).second;
}

std::shared_ptr<ado::Recordset> AdoConnection::Execute(std::string_view text, std::int32_t options,
                                                       std::int32_t* recordsAffected) {
    Variant arguments[] = {text, Variant(), options};
    const Variant recordset = CallWithResult("Execute", arguments, 1);
    if (recordsAffected != nullptr) *recordsAffected = automation::ToLong(arguments[1]);
    return std::make_shared<AdoRecordset>(com::AsHost(recordset));
}

std::shared_ptr<ado::Provider> AdoProvider() { return std::make_shared<InstalledAdo>(); }

}  // namespace korvex::windows
