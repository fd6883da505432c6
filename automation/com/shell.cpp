#include "automation/com/shell.h"

#include <string>

namespace korvex::com {

VARIANT ReferenceArgument(void* reference, VARTYPE type, const automation::Parameter& parameter) {
    VARIANT argument = {};
    argument.vt = static_cast<VARTYPE>(VT_BYREF | type);
    argument.byref = reference;
    if (reference != nullptr) return argument;
    if (!parameter.optional) {
        throw automation::Error(E_POINTER,
                                std::string("Null pointer for the argument ").append(parameter.name));
    }
    argument.vt = VT_ERROR;
    argument.scode = DISP_E_PARAMNOTFOUND;
    return argument;
}

HRESULT LoadTypeInfo(REFGUID id, ITypeInfo** info) noexcept {
    return Guard(id, [&] {
        ComPtr<ITypeLib> library;
        const HRESULT loaded = LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.Put());
        return FAILED(loaded) ? loaded : library->GetTypeInfoOfGuid(id, info);
    });
}

}  // namespace korvex::com
