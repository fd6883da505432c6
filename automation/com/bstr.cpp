#include "automation/com/bstr.h"

#include "automation/error.h"
#include "automation/text.h"

#include <algorithm>

namespace korvex::com {

std::wstring ToWide(std::string_view utf8) {
    const std::u16string units = automation::ToUtf16(utf8);
    return {units.begin(), units.end()};
}

std::string FromWide(std::wstring_view text) {
    return automation::ToUtf8(std::u16string(text.begin(), text.end()));
}

std::string FromBstr(const OLECHAR* text) {
    if (text == nullptr) return {};
    return FromWide({text, SysStringLen(const_cast<BSTR>(text))});
}

BSTR ToBstr(std::string_view utf8) {
    const std::u16string units = automation::ToUtf16(utf8);
    BSTR text = SysAllocStringLen(nullptr, static_cast<UINT>(units.size()));
    if (text == nullptr) throw automation::Error(automation::OutOfMemory);
    std::copy(units.begin(), units.end(), text);
    return text;
}

}  // namespace korvex::com
