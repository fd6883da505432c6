#pragma once

#include "automation/variant.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

namespace korvex::automation {

/// How a member is reached; the values are the platform's dispatch flags.
enum class InvokeKind : std::uint16_t { Method = 1, PropertyGet = 2, PropertyLet = 4, PropertySet = 8 };

/// For Each over an object: Next gives the items in order, then nothing.
class Enumerator {
  public:
    virtual ~Enumerator() = default;
    virtual std::optional<Variant> Next() = 0;
};

/// Base of everything that can be held in a Variant and bound late. Always owned by a shared_ptr.
class Object : public std::enable_shared_from_this<Object> {
  public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;

    /// Calls a member by name, in any case. For PropertyLet and PropertySet the new value is the last
    /// argument. `arguments` are the caller's variables: a by-reference parameter may change its variable.
    /// Trailing optional arguments may be left out or passed as Missing. Raises MemberNotFound (438),
    /// PropertyIsReadOnly (383), WrongArgumentCount (450), ArgumentNotOptional (449), the conversion errors,
    /// and whatever the member raises.
    virtual Variant Invoke(std::string_view name, InvokeKind kind, std::span<Variant> arguments) = 0;

    /// Starts a For Each; raises MemberNotFound (438) for an object that is no collection.
    virtual std::unique_ptr<Enumerator> NewEnum();
};

enum class Passing : std::uint8_t { ByValue, ByReference };

/// One declared parameter of a member.
struct Parameter {
    std::string_view name;
    VarType type = VarType::Variant;
    Passing passing = Passing::ByValue;
    bool optional = false;
    /// For VarType::Object: the name of the interface expected ("QORObject"), or empty for any object.
    std::string_view interfaceName = {};
};

/// One row of a class's member table; rows stand in slot order.
struct Member {
    std::string_view name;
    InvokeKind kind = InvokeKind::Method;
    std::span<const Parameter> parameters;  ///< for a let: the indexes, then the new value
    VarType result = VarType::Void;
    /// Receives one value per parameter, converted to the declared type. Missing optionals arrive as Missing
    /// (Variant parameters) or as the empty text (String parameters). Changes to by-reference parameters go
    /// back.
    Variant (*call)(Object& self, std::span<Variant> arguments) = nullptr;
    std::string_view description = {};  ///< published help text
    std::string_view resultTypeName =
        {};  ///< named type of the result ("dbResults", "ADODB.Connection"), if any
};

/// The member table of a public class: the one source for late binding on every build.
struct ClassInfo {
    std::string_view name;         ///< "clsCreateDb"
    std::string_view description;  ///< published help text
    std::span<const Member> members;
};

/// An object whose late-bound calls are served from its class's member table.
class TableObject : public Object {
  public:
    virtual const ClassInfo& Class() const noexcept = 0;
    Variant Invoke(std::string_view name, InvokeKind kind, std::span<Variant> arguments) override;
};

/// The row that serves (`name`, `kind`), or nullptr. A get is also found for Method, as late-bound callers
/// that cannot tell the two apart send both.
const Member* FindMember(const ClassInfo& info, std::string_view name, InvokeKind kind) noexcept;

/// Calls one row: counts, fills and converts the arguments, calls, writes the by-reference ones back (also
/// when the member has raised nothing but changed them; not when it raised).
Variant CallMember(Object& self, const ClassInfo& info, const Member& member, std::span<Variant> arguments);

/// Shorthand for hosts: by-value calls on any object. `Call(o, "Add", 1, "x")`, `Get(o, "Count")`, `Let(o,
/// "FKPrefix", "F_")`.
template <class... Args>
Variant Call(Object& object, std::string_view name, Args&&... args) {
    Variant values[] = {Variant(std::forward<Args>(args))..., Variant()};
    return object.Invoke(name, InvokeKind::Method, std::span<Variant>(values, sizeof...(Args)));
}
Variant Get(Object& object, std::string_view name);
void Let(Object& object, std::string_view name, Variant value);

}  // namespace korvex::automation
