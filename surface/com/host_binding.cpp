#include "surface/com/host_binding.h"

#include "automation/com/host_object.h"
#include "automation/error.h"
#include "platform/windows/ado_objects.h"
#include "surface/com/qor_object_adapter.h"

#include <memory>

namespace korvex::com {

namespace {

using automation::ObjectRef;

/// GetString(library, category, number): the number is the third argument.
constexpr HostObject::ByReference LanguageServiceReferences = 1u << 2;

ObjectRef BindConnection(ObjectRef object) {
    if (dynamic_cast<ado::Connection*>(object.get()) != nullptr) return object;
    auto host = std::dynamic_pointer_cast<HostObject>(object);
    if (!host) throw automation::Error(automation::TypeMismatch, "The object is no ADO connection");
    return std::make_shared<windows::AdoConnection>(std::move(host));
}

ObjectRef BindLanguageService(ObjectRef object) {
    const auto* host = dynamic_cast<const HostBacked*>(object.get());
    if (host == nullptr) return object;
    return std::make_shared<HostObject>(ComPtr<IDispatch>(host->HostDispatch()), LanguageServiceReferences);
}

}  // namespace

ObjectRef BindHostObject(ObjectRef object, const automation::Parameter& parameter) {
    if (parameter.interfaceName == "QORObject") return BindDataObject(object);
    if (parameter.interfaceName == "ADODB.Connection") return BindConnection(std::move(object));
    if (parameter.name == "oLanguageSvr") return BindLanguageService(std::move(object));
    return object;
}

}  // namespace korvex::com
