#pragma once

#include "automation/error.h"
#include "automation/variant.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

namespace korvex::automation {

struct ClassInfo;

/// How a member is reached; the values are the platform's dispatch flags.
enum class InvokeKind : std::uint16_t {
    Method = 1,       ///< a call
    PropertyGet = 2,  ///< reading a property
    PropertyLet = 4,  ///< setting a property to a value
    PropertySet = 8,  ///< setting a property to an object
};

/// For Each over an object: Next gives the items in order, then nothing.
class Enumerator {
  public:
    virtual ~Enumerator() = default;
    /// The next item; nothing behind the last one, and ever after.
    virtual std::optional<Variant> Next() = 0;
};

/// Base of everything that can be held in a Variant and bound late. Always owned by a shared_ptr.
class Object : public std::enable_shared_from_this<Object> {
  public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;

    /// Calls a member by name, in any case; the empty name is the default member. For PropertyLet and
    /// PropertySet the new value is the last argument. `arguments` are the caller's variables: a by-reference
    /// parameter may change its variable. Optional arguments may be left out or passed as Missing. Raises
    /// MemberNotFound (438), PropertyIsReadOnly (383), WrongArgumentCount (450) for too many arguments,
    /// ArgumentNotOptional (449) for too few, the conversion errors, and whatever the member raises.
    virtual Variant Invoke(std::string_view name, InvokeKind kind, std::span<Variant> arguments) = 0;

    /// Starts a For Each; raises MemberNotFound (438) for an object that is no collection.
    virtual std::unique_ptr<Enumerator> NewEnum();

    /// Whether the object is of the class that `info` describes, or of one that derives from it. Answered by
    /// classes that are looked for all the time, for which a cast's search through the hierarchy is too slow.
    virtual bool IsA(const ClassInfo& /*info*/) const noexcept { return false; }
};

/// How an argument reaches a member.
enum class Passing : std::uint8_t {
    ByValue,      ///< a copy
    ByReference,  ///< the caller's variable, which the member may change
};

/// One declared parameter of a member.
struct Parameter {
    std::string_view name;               ///< as it is published: "sFKPrefix"
    VarType type = VarType::Variant;     ///< what arguments are converted to
    Passing passing = Passing::ByValue;  ///< by value or by reference
    bool optional = false;               ///< may be left out
    /// For VarType::Object: the name of the interface expected ("QORObject"), or empty for any object.
    std::string_view interfaceName = {};
};

/// One row of a class's member table; rows stand in slot order.
struct Member {
    std::string_view name;                       ///< as it is published; found in any case
    InvokeKind kind = InvokeKind::Method;        ///< one of the four
    std::span<const Parameter> parameters = {};  ///< for a let: the indexes, then the new value
    VarType result = VarType::Void;              ///< declared type of the result
    /// Receives one value per parameter, converted to the declared type. Missing optionals arrive as Missing
    /// (Variant parameters), as Nothing (Object) or as the Empty value of their type ("", 0, False). Changes
    /// to by-reference parameters go back.
    Variant (*call)(Object& self, std::span<Variant> arguments) = nullptr;
    std::string_view description = {};  ///< published help text
    /// Named type of the result ("dbResults", "ADODB.Connection"), if any.
    std::string_view resultTypeName = {};
    /// Bit i is set for a parameter i that the member answers in: a by-reference parameter that is more than
    /// read.
    std::uint32_t outputs = 0;
};

/// The member table of a public class: the one source for late binding on every build.
struct ClassInfo {
    std::string_view name;                 ///< "clsCreateDb"
    std::string_view description;          ///< published help text
    std::span<const Member> members = {};  ///< in slot order
    std::string_view defaultMember = {};   ///< what an object alone stands for, if anything ("Item")
};

/// An object whose late-bound calls are served from its class's member table.
class TableObject : public Object {
  public:
    /// The member table of the object's class; lasts as long as the program.
    virtual const ClassInfo& Class() const noexcept = 0;
    Variant Invoke(std::string_view name, InvokeKind kind, std::span<Variant> arguments) override;
};

/// The row that serves (`name`, `kind`), or nullptr. `kind` may hold several flags, as late-bound callers
/// send them that cannot tell a get from a call; a get is also found for Method alone. Let and Set serve each
/// other when only one of them is there.
const Member* FindMember(const ClassInfo& info, std::string_view name, InvokeKind kind) noexcept;

/// Calls one row: counts, fills and converts the arguments, calls, and puts by-reference arguments that the
/// member changed back into the caller's variables (not when it raised). A variable of another type that the
/// member only read keeps its type.
Variant CallMember(Object& self, const ClassInfo& info, const Member& member, std::span<Variant> arguments);

/// The object in `value` as a T for the rows of a member table: a null reference for Nothing, TypeMismatch
/// (13) for anything that is no T.
template <class T>
std::shared_ptr<T> ObjectAs(const Variant& value) {
    const auto* object = value.If<ObjectRef>();
    if (object != nullptr && *object == nullptr) return nullptr;
    auto typed = object != nullptr ? std::dynamic_pointer_cast<T>(*object) : nullptr;
    if (typed == nullptr) throw Error(TypeMismatch);
    return typed;
}

/// Calls a method by name with arguments by value: `Call(o, "Add", 1, "x")`. Errors as for Object::Invoke.
template <class... Args>
Variant Call(Object& object, std::string_view name, Args&&... args) {
    Variant values[] = {Variant(std::forward<Args>(args))..., Variant()};
    return object.Invoke(name, InvokeKind::Method, std::span<Variant>(values, sizeof...(Args)));
}
/// Reads a property by name: `Get(o, "Count")`. Errors as for Object::Invoke.
Variant Get(Object& object, std::string_view name);
/// Sets a property by name: `Let(o, "FKPrefix", "F_")`. Errors as for Object::Invoke.
void Let(Object& object, std::string_view name, Variant value);

}  // namespace korvex::automation
