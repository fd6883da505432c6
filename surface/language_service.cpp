#include "surface/language_service.h"

#include "automation/convert.h"
#include "automation/dispatch.h"

namespace korvex::surface {

using automation::ObjectRef;
using automation::Variant;

namespace {

// What a language service knows this library's texts by.
constexpr std::int16_t LibraryNumber = 410;
constexpr std::int16_t TextCategory = 13;

}  // namespace

ObjectRef LanguageService(const Variant& oLanguageSvr) {
    if (oLanguageSvr.IsMissing() || oLanguageSvr.IsNothing()) return nullptr;
    return automation::ToObject(oLanguageSvr);
}

std::string GetLocalString(const ObjectRef& oLanguageSvr, std::int32_t lStringID, std::string_view sDefault) {
    if (!oLanguageSvr) return std::string(sDefault);
    Variant arguments[] = {LibraryNumber, TextCategory, lStringID};
    std::string text =
        automation::ToString(oLanguageSvr->Invoke("GetString", automation::InvokeKind::Method, arguments));
    return text.empty() ? std::string(sDefault) : text;
}

}  // namespace korvex::surface
