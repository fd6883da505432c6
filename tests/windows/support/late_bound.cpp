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

}  // namespace

DISPID IdOf(IDispatch* object, std::string_view name) {
    std::wstring wide = com::ToWide(name);
    LPOLESTR names[] = {wide.data()};
    DISPID id = DISPID_UNKNOWN;
    const HRESULT found = object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
    return SUCCEEDED(found) ? id : DISPID_UNKNOWN;
}

CallOutcome InvokeById(IDispatch* object, DISPID id, WORD flags, std::initializer_list<VARIANT> arguments) {
    std::vector<VARIANT> list(arguments);
    std::ranges::reverse(list);
    DISPPARAMS parameters = {};
    parameters.rgvarg = list.data();
    parameters.cArgs = static_cast<UINT>(list.size());
    DISPID assigned = DISPID_PROPERTYPUT;
    const bool isAssignment = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (isAssignment) {
        parameters.rgdispidNamedArgs = &assigned;
        parameters.cNamedArgs = 1;
    }
    CallOutcome outcome;
    EXCEPINFO exception = {};
    outcome.result =
        object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                       isAssignment ? nullptr : &outcome.value, &exception, &outcome.badArgument);
    outcome.scode = exception.scode;
    outcome.source = Taken(exception.bstrSource);
    outcome.description = Taken(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return outcome;
}

CallOutcome InvokeByName(IDispatch* object, std::string_view name, WORD flags,
                         std::initializer_list<VARIANT> arguments) {
    return InvokeById(object, IdOf(object, name), flags, arguments);
}

}  // namespace korvex::tests
