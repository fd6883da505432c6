#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace korvex::automation {

/// Error numbers of the automation runtime that this library raises itself. Engines add their own numbers
/// (DAO 3024, an ADO HRESULT ...) to the same field.
enum ErrorNumber : std::int32_t {
    InvalidProcedureCall = 5,   ///< an argument is outside what the operation accepts
    Overflow = 6,               ///< a number does not fit its target
    OutOfMemory = 7,            ///< the machine has no more
    SubscriptOutOfRange = 9,    ///< an index beyond a collection
    TypeMismatch = 13,          ///< a value that does not convert
    OutOfStackSpace = 28,       ///< a recursion that cannot end
    BadFileNameOrNumber = 52,   ///< a name that no file can have
    DeviceIoError = 57,         ///< the device failed to read or write
    DiskFull = 61,              ///< no room for a file
    PermissionDenied = 70,      ///< a file that may not be written or read
    PathFileAccessError = 75,   ///< a path that leads to no file that can be written
    PathNotFound = 76,          ///< a folder that is not there
    ObjectVariableNotSet = 91,  ///< a member call on nothing
    InvalidUseOfNull = 94,      ///< Null where a value is needed
    PropertyIsReadOnly = 383,   ///< a let of a property that has only a get
    ObjectRequired = 424,       ///< a value that is no object, where one is needed
    CannotCreateObject = 429,   ///< no class of that program identifier
    MemberNotFound = 438,       ///< the object has no member of that name
    ArgumentNotOptional = 449,  ///< an argument that cannot be left out is missing
    WrongArgumentCount = 450,   ///< more arguments than the member takes
    KeyAlreadyUsed = 457,       ///< a collection key that is taken
};

/// The one exception type of the library: what the automation error object holds.
class Error : public std::exception {
  public:
    /// `description` is what a person reads; when empty the runtime's standard text for `number` stands in.
    explicit Error(std::int32_t number, std::string description = {}, std::string source = "Korvex");

    /// An error whose description is the standard text for `number` and, behind a colon, what it is about.
    static Error About(std::int32_t number, std::string_view detail);

    /// An automation::ErrorNumber, a dao::ErrorNumber, an ado::ErrorNumber or an engine's own.
    std::int32_t Number() const noexcept { return m_number; }
    /// Who raised it: "Korvex", or what the engine calls itself.
    const std::string& Source() const noexcept { return m_source; }
    /// What a person reads, in UTF-8; never empty.
    const std::string& Description() const noexcept { return m_description; }
    /// Description, for handlers of std::exception.
    const char* what() const noexcept override { return m_description.c_str(); }

  private:
    std::int32_t m_number;
    std::string m_source;
    std::string m_description;
};

/// The automation runtime's standard text for `number` ("Type mismatch" for 13), or
/// "Application-defined or object-defined error" for a number it does not know.
std::string_view StandardErrorText(std::int32_t number) noexcept;

}  // namespace korvex::automation
