#include "automation/com/host_object.h"
#include "automation/error.h"
#include "platform/platform.h"
#include "platform/windows/windows_platform.h"
#include "surface/com/qor_object_adapter.h"

namespace korvex {

namespace {

/// A new object of the class that the data objects' library registers; nothing where there is none, or where
/// it has other slots.
automation::ObjectRef NewDataObject() {
    HRESULT failure = S_OK;
    const auto object = com::CreateHostObject("QOROBJLib.QORObject", failure);
    try {
        return com::BindDataObject(object);
    } catch (const automation::Error&) {
        return nullptr;
    }
}

}  // namespace

Platform DefaultPlatform() {
    return {.repositoryEngine = windows::DaoEngine(),
            .targetProvider = windows::AdoProvider(),
            .desktop = windows::WindowsDesktop(),
            .files = windows::WindowsFiles(),
            .newDataObject = NewDataObject};
}

}  // namespace korvex
