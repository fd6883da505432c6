#include "hosts/cli/show/render.h"

#include "automation/text.h"
#include "hosts/cli/model/data_types.h"

#include <algorithm>
#include <set>

namespace korvex::cli {

namespace {

const char* EscapeOf(char c) {
    switch (c) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\'':
            return "&#39;";
        default:
            return nullptr;
    }
}

}  // namespace

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
    for (const char c : automation::ToUtf8(automation::ToUtf16(text))) {
        const bool isControl = static_cast<unsigned char>(c) < 0x20 || c == '\x7F';
        if (const char* escape = EscapeOf(c)) {
            markup += escape;
        } else if (isControl && c != '\t' && c != '\n') {
            markup += "\xEF\xBF\xBD";
        } else {
            markup += c;
        }
    }
    return markup;
}

std::vector<std::string> DiagramNames(const Model& model) {
    std::set<std::string> used;
    std::vector<std::string> names;
    for (const ModelObject& object : model.objects) {
        std::string base;
        for (const char c : object.Name) {
            const bool isPlain =
                (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
            base += isPlain ? c : '_';
        }
        if (base.empty() || (base.front() >= '0' && base.front() <= '9')) base.insert(0, "_");
        std::string name = base;
        for (int n = 2; !used.insert(name).second; ++n) {
            name = base + "_" + std::to_string(n);
        }
        names.push_back(name);
    }
    return names;
}

}  // namespace korvex::cli
