#include "support/late_bound.h"

#include "automation/com/bstr.h"

#include <algorithm>
#include <vector>

namespace korvex::tests {

namespace {

std::string Taken(BSTR text) {
    com::Bstr owner;
    *owner.Put() = text;
    return owner.Text();
}

/// `invoke` gets the arguments and where the answer goes.
template <class Invoke>
CallOutcome Invoked(WORD flags, std::vector<VARIANT> arguments, Invoke invoke) {
    std::ranges::reverse(arguments);
    DISPPARAMS parameters = {};
    parameters.rgvarg = arguments.data();
    parameters.cArgs = static_cast<UINT>(arguments.size());
    DISPID assigned = DISPID_PROPERTYPUT;
    const bool isAssignment = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (isAssignment) {
        parameters.rgdispidNamedArgs = &assigned;
        parameters.cNamedArgs = 1;
    }
    CallOutcome outcome;
    EXCEPINFO exception = {};
    outcome.result =
        invoke(&parameters, isAssignment ? nullptr : &outcome.value, &exception, &outcome.badArgument);
    outcome.scode = exception.scode;
    outcome.source = Taken(exception.bstrSource);
    outcome.description = Taken(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return outcome;
}

}  // namespace

DISPID IdOf(IDispatch* object, std::string_view name) {
    std::wstring wide = com::ToWide(name);
    LPOLESTR names[] = {wide.data()};
    DISPID id = DISPID_UNKNOWN;
    const HRESULT found = object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
    return SUCCEEDED(found) ? id : DISPID_UNKNOWN;
}

CallOutcome InvokeById(IDispatch* object, DISPID id, WORD flags, std::vector<VARIANT> arguments) {
    return Invoked(flags, std::move(arguments), [&](auto... places) {
        return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, places...);
    });
}

CallOutcome InvokeSlot(ITypeInfo* slots, void* object, DISPID id, WORD flags,
                       std::vector<VARIANT> arguments) {
    return Invoked(flags, std::move(arguments),
                   [&](auto... places) { return slots->Invoke(object, id, flags, places...); });
}

CallOutcome InvokeByName(IDispatch* object, std::string_view name, WORD flags,
                         std::vector<VARIANT> arguments) {
    return InvokeById(object, IdOf(object, name), flags, std::move(arguments));
}

CallOutcome CallByName(IDispatch* object, std::string_view name, WORD flags,
                       const std::vector<automation::Variant>& arguments) {
    std::vector<com::ComVariant> owned;
    std::vector<VARIANT> list;
    for (const automation::Variant& argument : arguments) {
        list.push_back(owned.emplace_back(argument).Value());
    }
    return InvokeByName(object, name, flags, std::move(list));
}

}  // namespace korvex::tests
