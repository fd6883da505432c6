#include "automation/dispatch.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"

#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace korvex::automation {

namespace {

constexpr unsigned Flags(InvokeKind kind) noexcept { return static_cast<unsigned>(kind); }

constexpr unsigned MethodFlag = Flags(InvokeKind::Method);
constexpr unsigned GetFlag = Flags(InvokeKind::PropertyGet);
constexpr unsigned AssignFlags = Flags(InvokeKind::PropertyLet) | Flags(InvokeKind::PropertySet);

constexpr bool IsAssignment(InvokeKind kind) noexcept { return (Flags(kind) & AssignFlags) != 0; }

const Member* FindByFlags(const ClassInfo& info, std::string_view name, unsigned flags) noexcept {
    for (const Member& member : info.members) {
        if ((Flags(member.kind) & flags) != 0 && EqualsIgnoreCase(member.name, name)) return &member;
    }
    return nullptr;
}

[[noreturn]] void RaiseFor(std::int32_t number, const ClassInfo& info, std::string_view member) {
    throw Error::About(number, std::string(info.name).append(".").append(member));
}

[[noreturn]] void RaiseNotFound(const ClassInfo& info, std::string_view name, InvokeKind kind) {
    const bool isReadOnly = IsAssignment(kind) && FindByFlags(info, name, GetFlag) != nullptr;
    RaiseFor(isReadOnly ? PropertyIsReadOnly : MemberNotFound, info, name);
}

/// What a parameter holds when its argument was left out.
Variant MissingArgument(const ClassInfo& info, const Member& member, const Parameter& parameter) {
    if (!parameter.optional) {
        std::string place(member.name);
        place.append(", argument ").append(parameter.name);
        RaiseFor(ArgumentNotOptional, info, place);
    }
    if (parameter.type == VarType::Variant) return Variant::Missing();
    if (parameter.type == VarType::Object) return ObjectRef();
    return ChangeType({}, parameter.type);
}

Variant ConvertedArgument(const ClassInfo& info, const Member& member, const Parameter& parameter,
                          const Variant& argument) {
    try {
        return ChangeType(argument, parameter.type);
    } catch (const Error& error) {
        std::string description = error.Description();
        description.append(" (argument ").append(parameter.name).append(" of ");
        description.append(info.name).append(".").append(member.name).append(")");
        throw Error(error.Number(), std::move(description), error.Source());
    }
}

/// The arguments of one call as the member receives them.
class CallFrame {
  public:
    CallFrame(const ClassInfo& info, const Member& member, std::span<Variant> arguments)
        : m_member(member), m_arguments(arguments) {
        const std::size_t count = member.parameters.size();
        if (arguments.size() > count) RaiseFor(WrongArgumentCount, info, member.name);
        if (count > m_inlineValues.size()) m_moreValues.resize(count);
        m_values = m_moreValues.empty() ? std::span(m_inlineValues).first(count) : std::span(m_moreValues);

        for (std::size_t i = 0; i < count; ++i) {
            const Parameter& parameter = member.parameters[i];
            const Variant* argument = ArgumentOf(i);
            m_values[i] = argument == nullptr || argument->IsMissing()
                              ? MissingArgument(info, member, parameter)
                              : ConvertedArgument(info, member, parameter, *argument);
        }
    }

    std::span<Variant> Values() noexcept { return m_values; }

    void WriteBack() {
        for (std::size_t i = 0; i < m_values.size(); ++i) {
            const Parameter& parameter = m_member.parameters[i];
            Variant* argument = ArgumentOf(i);
            if (parameter.passing != Passing::ByReference || argument == nullptr) continue;
            if (!IsUnchanged(m_values[i], *argument, parameter)) *argument = std::move(m_values[i]);
        }
    }

  private:
    /// The caller's variable for parameter `i`, or nullptr. A new value is the last argument and the last
    /// parameter, however many indexes stand before it.
    Variant* ArgumentOf(std::size_t i) const noexcept {
        if (IsAssignment(m_member.kind) && !m_arguments.empty()) {
            if (i + 1 == m_member.parameters.size()) return &m_arguments.back();
            return i + 1 < m_arguments.size() ? &m_arguments[i] : nullptr;
        }
        return i < m_arguments.size() ? &m_arguments[i] : nullptr;
    }

    /// Whether `value` is still what `argument` became before the call. In most calls the types agree, and
    /// nothing has to be converted once more to tell.
    static bool IsUnchanged(const Variant& value, const Variant& argument, const Parameter& parameter) {
        if (value == argument) return true;
        if (parameter.type == VarType::Variant || parameter.type == argument.Type()) return false;
        if (!argument.IsMissing()) return value == ChangeType(argument, parameter.type);
        if (parameter.type == VarType::Object) return value.IsNothing();
        return value == ChangeType({}, parameter.type);
    }

    const Member& m_member;
    std::span<Variant> m_arguments;
    std::array<Variant, 6> m_inlineValues;
    std::vector<Variant> m_moreValues;
    std::span<Variant> m_values;
};

}  // namespace

std::unique_ptr<Enumerator> Object::NewEnum() { throw Error::About(MemberNotFound, "it is no collection"); }

Variant TableObject::Invoke(std::string_view name, InvokeKind kind, std::span<Variant> arguments) {
    const ClassInfo& info = Class();
    if (name.empty()) name = info.defaultMember;
    const Member* member = FindMember(info, name, kind);
    if (member == nullptr) RaiseNotFound(info, name, kind);
    if (kind == InvokeKind::PropertySet && !arguments.empty() && !arguments.back().IsObject()) {
        RaiseFor(ObjectRequired, info, member->name);
    }
    return CallMember(*this, info, *member, arguments);
}

const Member* FindMember(const ClassInfo& info, std::string_view name, InvokeKind kind) noexcept {
    if (const Member* exact = FindByFlags(info, name, Flags(kind))) return exact;
    if ((Flags(kind) & MethodFlag) != 0) return FindByFlags(info, name, GetFlag);
    if (IsAssignment(kind)) return FindByFlags(info, name, AssignFlags);
    return nullptr;
}

Variant CallMember(Object& self, const ClassInfo& info, const Member& member, std::span<Variant> arguments) {
    CallFrame frame(info, member, arguments);
    Variant result = member.call(self, frame.Values());
    frame.WriteBack();
    return result;
}

Variant Get(Object& object, std::string_view name) {
    return object.Invoke(name, InvokeKind::PropertyGet, {});
}

void Let(Object& object, std::string_view name, Variant value) {
    object.Invoke(name, InvokeKind::PropertyLet, {&value, 1});
}

}  // namespace korvex::automation
