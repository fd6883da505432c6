#include "automation/error.h"

#include <algorithm>
#include <array>
#include <utility>

namespace korvex::automation {

namespace {

struct StandardText {
    std::int32_t number;
    std::string_view text;
};

/// Sorted by number.
constexpr auto StandardTexts = std::to_array<StandardText>({
    {3, "Return without GoSub"},
    {5, "Invalid procedure call or argument"},
    {6, "Overflow"},
    {7, "Out of memory"},
    {9, "Subscript out of range"},
    {10, "This array is fixed or temporarily locked"},
    {11, "Division by zero"},
    {13, "Type mismatch"},
    {14, "Out of string space"},
    {16, "Expression too complex"},
    {17, "Can't perform requested operation"},
    {18, "User interrupt occurred"},
    {20, "Resume without error"},
    {28, "Out of stack space"},
    {35, "Sub or Function not defined"},
    {47, "Too many DLL application clients"},
    {48, "Error in loading DLL"},
    {49, "Bad DLL calling convention"},
    {51, "Internal error"},
    {52, "Bad file name or number"},
    {53, "File not found"},
    {54, "Bad file mode"},
    {55, "File already open"},
    {57, "Device I/O error"},
    {58, "File already exists"},
    {59, "Bad record length"},
    {61, "Disk full"},
    {62, "Input past end of file"},
    {63, "Bad record number"},
    {67, "Too many files"},
    {68, "Device unavailable"},
    {70, "Permission denied"},
    {71, "Disk not ready"},
    {74, "Can't rename with different drive"},
    {75, "Path/File access error"},
    {76, "Path not found"},
    {91, "Object variable or With block variable not set"},
    {92, "For loop not initialized"},
    {93, "Invalid pattern string"},
    {94, "Invalid use of Null"},
    {321, "Invalid file format"},
    {322, "Can't create necessary temporary file"},
    {325, "Invalid format in resource file"},
    {380, "Invalid property value"},
    {381, "Invalid property array index"},
    {382, "Set not supported at runtime"},
    {383, "Set not supported (read-only property)"},
    {385, "Need property array index"},
    {387, "Set not permitted"},
    {393, "Get not supported at runtime"},
    {394, "Get not supported (write-only property)"},
    {422, "Property not found"},
    {423, "Property or method not found"},
    {424, "Object required"},
    {429, "ActiveX component can't create object"},
    {430, "Class does not support Automation or does not support expected interface"},
    {432, "File name or class name not found during Automation operation"},
    {438, "Object doesn't support this property or method"},
    {440, "Automation error"},
    {442, "Connection to type library or object library for remote process has been lost"},
    {443, "Automation object does not have a default value"},
    {445, "Object doesn't support this action"},
    {446, "Object doesn't support named arguments"},
    {447, "Object doesn't support current locale setting"},
    {448, "Named argument not found"},
    {449, "Argument not optional"},
    {450, "Wrong number of arguments or invalid property assignment"},
    {451, "Property let procedure not defined and property get procedure did not return an object"},
    {452, "Invalid ordinal"},
    {453, "Specified DLL function not found"},
    {454, "Code resource not found"},
    {455, "Code resource lock error"},
    {457, "This key is already associated with an element of this collection"},
    {462, "The remote server machine does not exist or is unavailable"},
    {463, "Class not registered on local machine"},
});
static_assert(std::ranges::is_sorted(StandardTexts, {}, &StandardText::number));

}  // namespace

Error::Error(std::int32_t number, std::string description, std::string source)
    : m_number(number), m_source(std::move(source)), m_description(std::move(description)) {
    if (m_description.empty()) m_description = StandardErrorText(number);
}

Error Error::About(std::int32_t number, std::string_view detail) {
    return Error(number, std::string(StandardErrorText(number)).append(": ").append(detail));
}

std::string_view StandardErrorText(std::int32_t number) noexcept {
    const auto* found = std::ranges::lower_bound(StandardTexts, number, {}, &StandardText::number);
    if (found != StandardTexts.end() && found->number == number) return found->text;
    return "Application-defined or object-defined error";
}

}  // namespace korvex::automation
