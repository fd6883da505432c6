#include "hosts/cli/show/render.h"

#include "hosts/cli/model/data_types.h"

#include <algorithm>
#include <set>

namespace korvex::cli {

std::string TypeText(const ModelValue& value) {
    const std::string_view name = DataTypeText(value.dataType);
    std::string text = name.empty() ? std::to_string(value.dataType) : std::string(name);
    const bool hasLength = !value.maxLength.empty() && value.maxLength != "0";
    if (hasLength && HasLength(value.dataType, true)) text += "(" + value.maxLength + ")";
    return text;
}

std::vector<std::string> DiagramNames(const Model& model) {
    std::set<std::string> used;
    std::vector<std::string> names;
    for (const ModelObject& object : model.objects) {
        std::string base;
        for (const char c : object.name) {
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
