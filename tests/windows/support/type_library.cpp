#include "support/type_library.h"

#include "automation/com/bstr.h"

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>

namespace korvex::tests {

namespace {

using automation::VarType;

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

/// "sID string optional by reference"
std::string ParameterText(const std::string& name, const std::string& type, bool isOptional,
                          bool isReference) {
    return name + " " + type + (isOptional ? " optional" : "") +
           (isReference ? " by reference" : " by value");
}

std::string ParameterText(ITypeInfo* view, const ELEMDESC& parameter, const std::string& name) {
    const USHORT flags = parameter.paramdesc.wParamFlags;
    const bool isReference = (flags & PARAMFLAG_FOUT) != 0;
    const TYPEDESC& type = isReference ? *parameter.tdesc.lptdesc : parameter.tdesc;
    return ParameterText(name, TypeName(view, type), (flags & PARAMFLAG_FOPT) != 0, isReference);
}

std::string KindText(int kind) {
    switch (kind) {
        case INVOKE_FUNC:
            return "method";
        case INVOKE_PROPERTYGET:
            return "get";
        case INVOKE_PROPERTYPUT:
            return "let";
        default:
            return "set";
    }
}

std::string MemberText(MEMBERID id, std::string_view name, int kind,
                       const std::vector<std::string>& parameters, const std::string& result) {
    std::string text = std::to_string(id) + " " + std::string(name) + " " + KindText(kind) + " (";
    for (const std::string& parameter : parameters)
        text += (&parameter == parameters.data() ? "" : ", ") + parameter;
    return text + ") " + result;
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

std::string Signature(ITypeInfo* view, const FUNCDESC& function) {
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
            parameters.push_back(ParameterText(view, parameter, isNewValue ? "newValue" : names.at(place)));
        }
    }
    return MemberText(function.memid, names.at(0), function.invkind, parameters, result);
}

std::string TypeName(VarType type, std::string_view interfaceName) {
    static const std::map<VarType, std::string> names = {
        {VarType::Integer, "integer"}, {VarType::Long, "long"},       {VarType::String, "string"},
        {VarType::Boolean, "boolean"}, {VarType::Variant, "variant"}, {VarType::Void, "none"},
        {VarType::Object, "object"},
    };
    const bool isPublished = interfaceName == "QORObject" || interfaceName == "dbResults";
    return isPublished ? std::string(interfaceName) : names.at(type);
}

std::string Signature(const automation::ClassInfo& info, const automation::Member& member) {
    std::vector<std::string> parameters;
    for (const automation::Parameter& parameter : member.parameters) {
        parameters.push_back(
            ParameterText(std::string(parameter.name), TypeName(parameter.type, parameter.interfaceName),
                          parameter.optional, parameter.passing == automation::Passing::ByReference));
    }
    const auto first = std::ranges::find(info.members, member.name, &automation::Member::name);
    return MemberText(static_cast<MEMBERID>(first - info.members.begin() + 1), member.name,
                      static_cast<int>(member.kind), parameters,
                      TypeName(member.result, member.resultTypeName));
}

/// What `describe` makes of each of the interface's own members; checks that they stand in consecutive slots.
template <class Describe>
std::vector<std::string> ForEachMember(ITypeInfo* interfaceType, Describe describe) {
    const auto view = SlotView(interfaceType);
    std::vector<std::string> lines;
    for (UINT i = 0; const Function function = FunctionAt(view.Get(), i); ++i) {
        const int slot = function->oVft / static_cast<int>(sizeof(void*)) - dispatchSlots;
        if (slot < 0) continue;  // a member of IDispatch
        if (static_cast<std::size_t>(slot) != lines.size()) throw std::runtime_error("a gap in the slots");
        lines.push_back(describe(view.Get(), *function));
    }
    return lines;
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

std::vector<std::string> SignaturesOf(ITypeInfo* interfaceType) {
    return ForEachMember(interfaceType,
                         [](ITypeInfo* view, const FUNCDESC& function) { return Signature(view, function); });
}

std::vector<std::string> SignaturesOf(const automation::ClassInfo& info) {
    std::vector<std::string> lines;
    for (const automation::Member& member : info.members)
        lines.push_back(Signature(info, member));
    return lines;
}

std::vector<std::string> DescriptionsOf(ITypeInfo* interfaceType) {
    return ForEachMember(interfaceType, [](ITypeInfo* view, const FUNCDESC& function) {
        return DocumentationOf(view, function.memid).help;
    });
}

std::vector<std::string> DescriptionsOf(const automation::ClassInfo& info) {
    std::vector<std::string> lines;
    for (const automation::Member& member : info.members)
        lines.emplace_back(member.description);
    return lines;
}

}  // namespace korvex::tests
