// The entry points of the test engines' DLL; the .def file exports them undecorated.

#include "automation/com/class_factory.h"
#include "automation/com/com_error.h"
#include "automation/com/module.h"
#include "tests/windows/engines/server_classes.h"

using namespace korvex;

STDAPI DllGetClassObject(REFCLSID classId, REFIID interfaceId, void** object) {
    for (const test::ServerClass& entry : test::ServerClasses()) {
        if (entry.id == classId) {
            return com::MakeClassFactory(entry.create)->QueryInterface(interfaceId, object);
        }
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() { return com::IsModuleIdle() ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() {
    return com::Guard(IID_NULL, [] { return test::RegisterServer(); });
}

STDAPI DllUnregisterServer() {
    return com::Guard(IID_NULL, [] { return test::UnregisterServer(); });
}
