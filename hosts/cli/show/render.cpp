#include "hosts/cli/show/render.h"

#include "automation/text.h"
#include "hosts/cli/model/data_types.h"
#include "hosts/cli/wording.h"

#include <cctype>

namespace korvex::cli {

std::string TypeText(std::int32_t dataType, const std::string& maxLength) {
    const std::string_view name = DataTypeText(dataType);
    std::string text = name.empty() ? std::to_string(dataType) : std::string(name);
    const bool hasLength = !maxLength.empty() && maxLength != "0";
    if (hasLength && HasLength(dataType, true)) text += "(" + maxLength + ")";
    return text;
}

std::string ObjectLink(const ShownObject& object) { return "#object-" + object.identifier; }

std::string PictureID(const ShownObject& object) { return "picture-" + object.identifier; }

std::string MarkupText(std::string_view text) {
    std::string markup;
    for (const char c :
         Escaped(automation::ToUtf8(automation::ToUtf16(text)),
                 {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\'', "&#39;"}})) {
        const bool isControl = static_cast<unsigned char>(c) < 0x20 || c == '\x7F';
        if (isControl && c != '\t' && c != '\n')
            markup += "\xEF\xBF\xBD";
        else
            markup += c;
    }
    return markup;
}

bool IsPlain(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; }

std::string AsIdentifier(std::string word) {
    if (word.empty() || std::isdigit(static_cast<unsigned char>(word.front())) != 0) word.insert(0, "_");
    return word;
}

}  // namespace korvex::cli
