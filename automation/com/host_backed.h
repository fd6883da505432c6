#pragma once

#include "automation/com/com_ptr.h"
#include "automation/dispatch.h"

namespace korvex::com {

/// An automation object that stands for a COM object from outside. Handed to a host, it turns back into that
/// very object.
class HostBacked {
  public:
    virtual ~HostBacked() = default;
    virtual IDispatch* HostDispatch() const noexcept = 0;
};

/// What every COM object of this library answers to for the library itself.
MIDL_INTERFACE("2b8578bb-96c3-4346-a691-b4af5cc0fc8c")
IAutomationObject : public IUnknown {
  public:
    /// The automation object behind it, for a caller in the same module only: two modules that contain this
    /// library must not share its C++ objects. `module` is the caller's ModuleTag().
    virtual HRESULT STDMETHODCALLTYPE GetAutomationObject(const void* module,
                                                          automation::ObjectRef* object) noexcept = 0;
};

}  // namespace korvex::com

__CRT_UUID_DECL(korvex::com::IAutomationObject, 0x2b8578bb, 0x96c3, 0x4346, 0xa6, 0x91, 0xb4, 0xaf, 0x5c,
                0xc0, 0xfc, 0x8c)
