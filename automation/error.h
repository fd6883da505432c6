#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace korvex::automation {

/// Error numbers of the automation runtime that this library raises itself. Engines add their own numbers
/// (DAO 3024, an ADO HRESULT ...) to the same field.
enum ErrorNumber : std::int32_t {
    InvalidProcedureCall = 5,  ///< an argument is outside what the operation accepts
    Overflow = 6,              ///< a number does not fit its target
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,  ///< an index beyond a collection
    TypeMismatch = 13,        ///< a value that does not convert
    OutOfStackSpace = 28,     ///< a recursion that cannot end
    BadFileNameOrNumber = 52,
    DeviceIoError = 57,
    DiskFull = 61,
    PermissionDenied = 70,
    PathFileAccessError = 75,
    PathNotFound = 76,
    ObjectVariableNotSet = 91,  ///< a member call on nothing
    InvalidUseOfNull = 94,
    PropertyIsReadOnly = 383,
    ObjectRequired = 424,
    CannotCreateObject = 429,
    MemberNotFound = 438,  ///< the object has no member of that name
    ArgumentNotOptional = 449,
    WrongArgumentCount = 450,
    KeyAlreadyUsed = 457,  ///< a collection key that is taken
};

/// The one exception type of the library: what the automation error object holds.
class Error : public std::exception {
  public:
    /// `description` is what a person reads; when empty the runtime's standard text for `number` stands in.
    explicit Error(std::int32_t number, std::string description = {}, std::string source = "Korvex");

    std::int32_t Number() const noexcept { return m_number; }
    const std::string& Source() const noexcept { return m_source; }
    const std::string& Description() const noexcept { return m_description; }
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
