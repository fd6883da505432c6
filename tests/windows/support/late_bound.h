#pragma once

#include "automation/com/com_ptr.h"
#include "automation/com/com_variant.h"

#include <oaidl.h>
#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace korvex::tests {

/// What a late-bound call came to, as the caller sees it.
struct CallOutcome {
    HRESULT result = S_OK;
    com::ComVariant value;
    /// From the EXCEPINFO; empty and 0 when the callee did not fill it.
    HRESULT scode = S_OK;
    std::string source;
    std::string description;
    UINT badArgument = UINT_MAX;  ///< stays UINT_MAX when the callee does not set it
};

/// DISPID of a name; DISPID_UNKNOWN for none.
DISPID IdOf(IDispatch* object, std::string_view name);

/// IDispatch::Invoke by name. `arguments` stand in the order of the parameters and are the caller's own
/// variables: by-reference ones are written to. The last one is the new value for a property put.
CallOutcome InvokeByName(IDispatch* object, std::string_view name, WORD flags,
                         std::vector<VARIANT> arguments = {});

/// The same for a known identifier.
CallOutcome InvokeById(IDispatch* object, DISPID id, WORD flags, std::vector<VARIANT> arguments = {});

/// The slot of a dual interface that its type information `slots` gives under that identifier, called as a
/// client does that was built with the type library. `object` is the interface.
CallOutcome InvokeSlot(ITypeInfo* slots, void* object, DISPID id, WORD flags, std::vector<VARIANT> arguments);

/// By name with arguments by value.
CallOutcome CallByName(IDispatch* object, std::string_view name, WORD flags,
                       const std::vector<automation::Variant>& arguments = {});

}  // namespace korvex::tests
