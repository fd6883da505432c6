#include "support/type_library.h"

#include "automation/com/bstr.h"

#include <functional>
#include <map>
#include <memory>
#include <stdexcept>

namespace korvex::tests {

namespace {

constexpr SHORT dispatchSlots = 7;

void Require(HRESULT result, const char* what) {
    if (FAILED(result)) throw std::runtime_error(std::string(what) + " fails");
}

using Function = std::unique_ptr<FUNCDESC, std::function<void(FUNCDESC*)>>;

/// Nothing behind the last one.
Function FunctionAt(ITypeInfo* view, UINT index) {
    FUNCDESC* function = nullptr;
    view->GetFuncDesc(index, &function);
    return {function, [view](FUNCDESC* held) { view->ReleaseFuncDesc(held); }};
}

std::string TypeName(ITypeInfo* view, const TYPEDESC& type) {
    static const std::map<VARTYPE, std::string> names = {
        {VT_I2, "integer"},      {VT_I4, "long"},         {VT_BSTR, "string"},    {VT_BOOL, "boolean"},
        {VT_VARIANT, "variant"}, {VT_DISPATCH, "object"}, {VT_HRESULT, "result"},
    };
    if (type.vt == VT_PTR && type.lptdesc->vt == VT_USERDEFINED) return TypeName(view, *type.lptdesc);
    if (type.vt != VT_USERDEFINED) return names.at(type.vt);
    com::ComPtr<ITypeInfo> named;
    Require(view->GetRefTypeInfo(type.hreftype, named.Put()), "GetRefTypeInfo");
    const std::string name = DocumentationOf(named.Get()).name;
    return name == "IDispatch" ? "object" : name;
}

std::string TextOf(ITypeInfo* view, const ELEMDESC& parameter, const std::string& name) {
    const USHORT flags = parameter.paramdesc.wParamFlags;
    const bool isReference = (flags & PARAMFLAG_FOUT) != 0;
    const TYPEDESC& type = isReference ? *parameter.tdesc.lptdesc : parameter.tdesc;
    return ParameterText(name, TypeName(view, type), (flags & PARAMFLAG_FOPT) != 0, isReference);
}

/// Names of the member and of parameters; those of a property are its get's.
std::vector<std::string> NamesOf(ITypeInfo* view, MEMBERID id) {
    BSTR found[16] = {};
    UINT count = 0;
    Require(view->GetNames(id, found, ARRAYSIZE(found), &count), "GetNames");
    std::vector<std::string> names;
    for (UINT i = 0; i < count; ++i) {
        com::Bstr name;
        *name.Put() = found[i];
        names.push_back(name.Text());
    }
    return names;
}

std::string TextOf(ITypeInfo* view, const FUNCDESC& function) {
    const std::vector<std::string> names = NamesOf(view, function.memid);
    const bool isAssignment = (function.invkind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) != 0;
    std::vector<std::string> parameters;
    std::string result = "none";
    for (SHORT i = 0; i < function.cParams; ++i) {
        const ELEMDESC& parameter = function.lprgelemdescParam[i];
        const bool isLast = i + 1 == function.cParams;
        if ((parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0) {
            result = TypeName(view, *parameter.tdesc.lptdesc);
        } else {
            const bool isNewValue = isAssignment && isLast;
            const auto place = static_cast<std::size_t>(i + 1);
            parameters.push_back(TextOf(view, parameter, isNewValue ? "newValue" : names.at(place)));
        }
    }
    return MemberText(function.memid, names.at(0), static_cast<automation::InvokeKind>(function.invkind),
                      parameters, result, DocumentationOf(view, function.memid).help);
}

}  // namespace

com::ComPtr<ITypeInfo> SlotView(ITypeInfo* type) {
    com::ComPtr<ITypeInfo> view(type);
    HREFTYPE reference = 0;
    if (SUCCEEDED(type->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference))) {
        Require(type->GetRefTypeInfo(reference, view.Put()), "GetRefTypeInfo");
    }
    return view;
}

Documentation DocumentationOf(ITypeInfo* type, MEMBERID id) {
    com::Bstr name;
    com::Bstr help;
    Require(type->GetDocumentation(id, name.Put(), help.Put(), nullptr, nullptr), "GetDocumentation");
    return {name.Text(), help.Text()};
}

std::string MembersText(ITypeInfo* interfaceType) {
    const auto view = SlotView(interfaceType);
    std::string text;
    int members = 0;
    for (UINT i = 0; const Function function = FunctionAt(view.Get(), i); ++i) {
        const int slot = function->oVft / static_cast<int>(sizeof(void*)) - dispatchSlots;
        if (slot < 0) continue;  // a member of IDispatch
        if (slot != members++) throw std::runtime_error("a gap in the slots");
        if (function->memid != DISPID_NEWENUM) text += TextOf(view.Get(), *function);
    }
    return text;
}

}  // namespace korvex::tests
