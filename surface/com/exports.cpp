// The four entry points; the .def file exports them undecorated.

#include "automation/com/class_factory.h"
#include "automation/com/com_error.h"
#include "automation/com/module.h"
#include "surface/com/class_table.h"
#include "surface/com/registration.h"
#include "surface/create_object.h"

using namespace korvex::com;

STDAPI DllGetClassObject(REFCLSID classId, REFIID interfaceId, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    const CreatableClass* creatable = FindClass(classId);
    if (creatable == nullptr) return CLASS_E_CLASSNOTAVAILABLE;
    return Guard(interfaceId, [&] {
        const auto create = [creatable] { return korvex::CreateObject(creatable->progId); };
        return MakeClassFactory(create)->QueryInterface(interfaceId, object);
    });
}

STDAPI DllCanUnloadNow() { return IsModuleIdle() ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() {
    return Guard(IID_NULL, [] { return RegisterModule(); });
}

STDAPI DllUnregisterServer() {
    return Guard(IID_NULL, [] { return UnregisterModule(); });
}
