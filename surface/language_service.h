#pragma once

#include "automation/variant.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Display texts from the host's language service: an object with a member GetString(library number,
/// category, string number).
namespace korvex::surface {

/// The service in an optional argument: Nothing when it is missing. ObjectRequired (424) for anything that is
/// no object.
automation::ObjectRef LanguageService(const automation::Variant& oLanguageSvr);

/// The service's text of that number; `sDefault` without a service or when its text is empty.
std::string GetLocalString(const automation::ObjectRef& oLanguageSvr, std::int32_t lStringID,
                           std::string_view sDefault);

}  // namespace korvex::surface
