#pragma once

#include "automation/com/com_variant.h"
#include "automation/dispatch.h"
#include "automation/error.h"

#include <oaidl.h>
#include <windows.h>

#include <concepts>
#include <type_traits>
#include <utility>

/// Arguments and results of dual-interface slots, as the VARIANTs that a late-bound caller would use.
namespace korvex::com {

/// A borrowed VARIANT of the slot's argument; a null pointer is a left-out argument, or E_POINTER when it may
/// not be left out.
inline VARIANT SlotArgument(BSTR value, const automation::Parameter&) noexcept {
    VARIANT argument = {};
    argument.vt = VT_BSTR;
    argument.bstrVal = value;
    return argument;
}
inline VARIANT SlotArgument(LONG value, const automation::Parameter&) noexcept {
    VARIANT argument = {};
    argument.vt = VT_I4;
    argument.lVal = value;
    return argument;
}
/// Both a 16-bit integer and a Boolean are a short; the parameter tells which.
inline VARIANT SlotArgument(short value, const automation::Parameter& parameter) noexcept {
    VARIANT argument = {};
    argument.vt = parameter.type == automation::VarType::Boolean ? VT_BOOL : VT_I2;
    argument.iVal = value;
    return argument;
}
inline VARIANT SlotArgument(const VARIANT& value, const automation::Parameter&) noexcept { return value; }
inline VARIANT SlotArgument(IDispatch* value, const automation::Parameter&) noexcept {
    VARIANT argument = {};
    argument.vt = VT_DISPATCH;
    argument.pdispVal = value;
    return argument;
}

VARIANT ReferenceArgument(void* reference, VARTYPE type, const automation::Parameter& parameter);

inline VARIANT SlotArgument(BSTR* value, const automation::Parameter& parameter) {
    return ReferenceArgument(value, VT_BSTR, parameter);
}
inline VARIANT SlotArgument(VARIANT* value, const automation::Parameter& parameter) {
    return ReferenceArgument(value, VT_VARIANT, parameter);
}
template <std::derived_from<IDispatch> T>
VARIANT SlotArgument(T** value, const automation::Parameter& parameter) {
    return ReferenceArgument(value, VT_DISPATCH, parameter);
}

/// Moves a result of the declared type into the caller's variable.
inline void TakeResult(ComVariant& value, BSTR* result) noexcept { *result = value.Detach().bstrVal; }
inline void TakeResult(ComVariant& value, VARIANT* result) noexcept { *result = value.Detach(); }
inline void TakeResult(ComVariant& value, short* result) noexcept { *result = value.Value().iVal; }
/// 32-bit integers and the enumerations that travel as such.
template <class T>
requires((std::is_integral_v<T> || std::is_enum_v<T>)&&sizeof(T) ==
         sizeof(LONG)) void TakeResult(ComVariant& value, T* result) noexcept {
    *result = static_cast<T>(value.Value().lVal);
}
template <std::derived_from<IDispatch> T>
void TakeResult(ComVariant& value, T** result) {
    IDispatch* object = value.Value().pdispVal;
    if (object == nullptr) return;
    if (FAILED(object->QueryInterface(__uuidof(T), reinterpret_cast<void**>(result)))) {
        throw automation::Error(automation::TypeMismatch);
    }
}

}  // namespace korvex::com
