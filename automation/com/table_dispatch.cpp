#include "automation/com/table_dispatch.h"

#include "automation/com/bstr.h"
#include "automation/com/com_error.h"
#include "automation/com/enum_variant.h"
#include "automation/convert.h"
#include "automation/text.h"

#include <algorithm>
#include <vector>

namespace korvex::com {

namespace {

using automation::Error;
using automation::InvokeKind;
using automation::Member;
using automation::Parameter;
using automation::Variant;

constexpr std::string_view EnumeratorName = "_NewEnum";

/// The default member has the identifier of the object's value.
DISPID MemberId(const automation::ClassInfo& info, std::string_view name) {
    if (!name.empty() && automation::EqualsIgnoreCase(info.defaultMember, name)) return DISPID_VALUE;
    for (std::size_t i = 0; i < info.members.size(); ++i) {
        if (automation::EqualsIgnoreCase(info.members[i].name, name)) return static_cast<DISPID>(i + 1);
    }
    return DISPID_UNKNOWN;
}

/// Position of a named argument in any of the rows of that member.
DISPID ParameterId(const automation::ClassInfo& info, std::string_view memberName, std::string_view name) {
    for (const Member& row : info.members) {
        if (!automation::EqualsIgnoreCase(row.name, memberName)) continue;
        for (std::size_t i = 0; i < row.parameters.size(); ++i) {
            if (automation::EqualsIgnoreCase(row.parameters[i].name, name)) return static_cast<DISPID>(i);
        }
    }
    return DISPID_UNKNOWN;
}

/// The caller's arguments in the order of the parameters. Callers list positional arguments from the last to
/// the first, behind the named ones.
HRESULT OrderArguments(DISPPARAMS& parameters, std::span<VARIANT*> ordered, UINT* badArgument) {
    const std::size_t count = ordered.size();
    if (parameters.cArgs > count || parameters.cNamedArgs > parameters.cArgs) return DISP_E_BADPARAMCOUNT;
    for (UINT i = 0; i < parameters.cArgs - parameters.cNamedArgs; ++i) {
        ordered[i] = &parameters.rgvarg[parameters.cArgs - 1 - i];
    }
    for (UINT i = 0; i < parameters.cNamedArgs; ++i) {
        const DISPID id = parameters.rgdispidNamedArgs[i];
        const std::size_t position = id == DISPID_PROPERTYPUT ? count - 1 : static_cast<std::size_t>(id);
        if (position >= count || ordered[position] != nullptr) {
            if (badArgument != nullptr) *badArgument = i;
            return DISP_E_PARAMNOTFOUND;
        }
        ordered[position] = &parameters.rgvarg[i];
    }
    return S_OK;
}

bool LacksArgument(const Member& member, std::span<VARIANT* const> ordered) {
    for (std::size_t i = 0; i < member.parameters.size(); ++i) {
        if (!member.parameters[i].optional && ordered[i] == nullptr) return true;
    }
    return false;
}

/// What a late-bound caller is told about an argument that does not fit.
HRESULT ArgumentResult(const Error& error) noexcept {
    switch (error.Number()) {
        case automation::Overflow:
            return DISP_E_OVERFLOW;
        case automation::ArgumentNotOptional:
            return DISP_E_PARAMNOTOPTIONAL;
        case automation::OutOfMemory:
            return E_OUTOFMEMORY;
        default:
            return DISP_E_TYPEMISMATCH;
    }
}

constexpr bool IsRead(WORD flags) noexcept { return (flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) != 0; }

bool IsWritable(const Parameter& parameter, const VARIANT* argument) noexcept {
    return parameter.passing == automation::Passing::ByReference && argument != nullptr &&
           (argument->vt & VT_BYREF) != 0;
}

}  // namespace

HRESULT TableDispatch::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count,
                                     DISPID* ids) const noexcept {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
    if (std::find(names, names + count, nullptr) != names + count) return E_INVALIDARG;
    try {
        std::fill_n(ids, count, DISPID_UNKNOWN);
        const automation::ClassInfo& info = m_object->Class();
        const std::string member = FromWide(names[0]);
        const bool isEnumerator = automation::EqualsIgnoreCase(member, EnumeratorName) && NewEnum();
        ids[0] = isEnumerator ? DISPID_NEWENUM : MemberId(info, member);
        for (UINT i = 1; i < count; ++i)
            ids[i] = ParameterId(info, member, FromWide(names[i]));
        return std::find(ids, ids + count, DISPID_UNKNOWN) == ids + count ? S_OK : DISP_E_UNKNOWNNAME;
    } catch (...) {
        return ReportException(IID_IDispatch);
    }
}

const Member* TableDispatch::FindRow(DISPID id, WORD flags) const noexcept {
    const automation::ClassInfo& info = m_object->Class();
    std::string_view name = info.defaultMember;
    if (id != DISPID_VALUE) {
        if (id < 1 || static_cast<std::size_t>(id) > info.members.size()) return nullptr;
        name = info.members[static_cast<std::size_t>(id - 1)].name;
        if (MemberId(info, name) != id) return nullptr;
    }
    return name.empty() ? nullptr : automation::FindMember(info, name, static_cast<InvokeKind>(flags));
}

HRESULT TableDispatch::Invoke(DISPID id, REFIID reserved, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                              EXCEPINFO* exception, UINT* badArgument) const noexcept {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (parameters == nullptr || (parameters->cArgs > 0 && parameters->rgvarg == nullptr) ||
        (parameters->cNamedArgs > 0 && parameters->rgdispidNamedArgs == nullptr))
        return E_INVALIDARG;
    try {
        if (result != nullptr) VariantInit(result);
        ComVariant value;
        if (id == DISPID_NEWENUM) {
            auto items = IsRead(flags) ? NewEnum() : ComPtr<IEnumVARIANT>();
            if (!items) return DISP_E_MEMBERNOTFOUND;
            if (parameters->cArgs > 0) return DISP_E_BADPARAMCOUNT;
            value.Value().punkVal = items.Detach();
            value.Value().vt = VT_UNKNOWN;
        } else {
            const Member* member = FindRow(id, flags);
            if (member == nullptr) return DISP_E_MEMBERNOTFOUND;
            std::vector<VARIANT*> ordered(member->parameters.size());
            const HRESULT ordering = OrderArguments(*parameters, ordered, badArgument);
            if (FAILED(ordering)) return ordering;
            if (LacksArgument(*member, ordered)) return DISP_E_BADPARAMCOUNT;
            std::vector<Variant> values;
            std::size_t position = 0;
            try {
                values = ReadArguments(*member, ordered, position);
            } catch (const Error& error) {
                if (badArgument != nullptr)
                    *badArgument = static_cast<UINT>(ordered[position] - parameters->rgvarg);
                return ArgumentResult(error);
            }
            value = ComVariant(Call(*member, ordered, std::move(values)));
        }
        if (result != nullptr) *result = value.Detach();
        return S_OK;
    } catch (...) {
        return ReportException(exception);
    }
}

ComVariant TableDispatch::CallSlot(std::size_t slot, std::span<VARIANT> arguments) const {
    const Member& member = Row(slot);
    std::vector<VARIANT*> pointers;
    for (VARIANT& argument : arguments)
        pointers.push_back(&argument);
    std::size_t position = 0;
    Variant value = Call(member, pointers, ReadArguments(member, pointers, position));
    const bool isTyped =
        member.result != automation::VarType::Variant && member.result != automation::VarType::Void;
    return ComVariant(isTyped ? automation::ChangeType(value, member.result) : value);
}

std::vector<Variant> TableDispatch::ReadArguments(const Member& member, std::span<VARIANT* const> arguments,
                                                  std::size_t& position) const {
    std::vector<Variant> values(arguments.size(), Variant::Missing());
    for (position = 0; position < arguments.size(); ++position) {
        const Parameter& parameter = member.parameters[position];
        Variant& value = values[position];
        if (arguments[position] != nullptr) value = FromVariant(*arguments[position]);
        if (value.IsMissing() && !parameter.optional) {
            throw Error(automation::ArgumentNotOptional,
                        std::string(member.name).append(": ").append(parameter.name));
        }
        if (value.IsMissing()) continue;
        value = automation::ChangeType(value, parameter.type);
        const auto* object = value.If<automation::ObjectRef>();
        if (object != nullptr && *object != nullptr && m_bind != nullptr) value = m_bind(*object, parameter);
    }
    return values;
}

Variant TableDispatch::Call(const Member& member, std::span<VARIANT* const> arguments,
                            std::vector<Variant> values) const {
    std::vector<Variant> before(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (IsWritable(member.parameters[i], arguments[i])) before[i] = values[i];
    }
    Variant result = automation::CallMember(*m_object, m_object->Class(), member, values);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const bool isWritable = IsWritable(member.parameters[i], arguments[i]);
        if (isWritable && before[i] != values[i]) WriteBack(*arguments[i], values[i]);
    }
    return result;
}

ComPtr<IEnumVARIANT> TableDispatch::NewEnum() const {
    try {
        return EnumerateForHost(m_object);
    } catch (const Error& error) {
        if (error.Number() != automation::MemberNotFound) throw;
        return {};
    }
}

}  // namespace korvex::com
