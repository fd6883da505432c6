#include "support/outcome_text.h"

#include "automation/com/bstr.h"
#include "support/print_variant.h"

#include <cstdio>
#include <map>

namespace korvex::tests {

namespace {

std::string Bracketed(const std::string& source, const std::string& description) {
    return " <" + source + "> <" + description + ">";
}

std::string ValueText(const VARIANT& value) {
    if (value.vt == VT_UNKNOWN) return "Unknown";
    return automation::Describe(com::FromVariant(value));
}

}  // namespace

std::string ResultName(HRESULT result) {
#define NAMED(name) \
    { name, #name }
    static const std::map<HRESULT, std::string> names = {
        NAMED(S_OK),
        NAMED(S_FALSE),
        NAMED(E_POINTER),
        NAMED(E_FAIL),
        NAMED(E_ACCESSDENIED),
        NAMED(DISP_E_MEMBERNOTFOUND),
        NAMED(DISP_E_TYPEMISMATCH),
        NAMED(DISP_E_OVERFLOW),
        NAMED(DISP_E_BADPARAMCOUNT),
        NAMED(DISP_E_PARAMNOTOPTIONAL),
    };
#undef NAMED
    if (const auto known = names.find(result); known != names.end()) return known->second;
    char text[16];
    std::snprintf(text, sizeof text, "0x%08lX", static_cast<unsigned long>(result));
    return text;
}

std::string OutcomeText(const CallOutcome& outcome) {
    if (outcome.result == S_OK) return ValueText(outcome.value.Value());
    if (outcome.result == DISP_E_EXCEPTION) {
        return ResultName(outcome.scode) + Bracketed(outcome.source, outcome.description);
    }
    std::string text = ResultName(outcome.result);
    if (outcome.badArgument != UINT_MAX) text += " at " + std::to_string(outcome.badArgument);
    return text;
}

std::string SlotText(HRESULT result, IUnknown* object, REFIID interfaceId) {
    com::ComPtr<IErrorInfo> info;
    const auto support = com::ComPtr<IUnknown>(object).As<ISupportErrorInfo>();
    const bool isSupported = support && support->InterfaceSupportsErrorInfo(interfaceId) == S_OK;
    if (!isSupported || GetErrorInfo(0, info.Put()) != S_OK) return ResultName(result);
    com::Bstr source;
    com::Bstr description;
    info->GetSource(source.Put());
    info->GetDescription(description.Put());
    return ResultName(result) + Bracketed(source.Text(), description.Text());
}

}  // namespace korvex::tests
