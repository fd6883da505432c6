#include "hosts/cli/data/found_text.h"

#include "automation/convert.h"
#include "automation/text.h"
#include "hosts/cli/wording.h"
#include "objects/base64.h"
#include "objects/json_value.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace korvex::cli {

namespace {

using automation::Variant;
using objects::FoundObject;
using objects::FoundObjects;

void WriteJsonLine(const FoundObject& object, const std::vector<std::string>& names, std::ostream& results) {
    std::string line;
    for (std::size_t i = 0; i < names.size(); ++i) {
        line += i == 0 ? "{" : ", ";
        objects::WriteText(line, names[i]);
        line += ": ";
        objects::WriteValue(line, object.values[i]);
    }
    results << line << "}\n";
}

std::string CsvField(const Variant& value) {
    std::string text = LineOf(value);
    if (value.IsNull() || (!text.empty() && text.find_first_of(",\"\r\n") == std::string::npos)) return text;
    return InQuotes(text, '"');
}

void WriteCsvLine(const std::vector<Variant>& values, std::ostream& results) {
    for (std::size_t i = 0; i < values.size(); ++i)
        results << (i == 0 ? "" : ",") << CsvField(values[i]);
    results << '\n';
}

bool IsNumber(const Variant& value) {
    return !value.IsNull() && !value.IsEmpty() && !value.IsString() && !value.Holds<bool>() &&
           !value.Holds<automation::Date>() && !value.Holds<automation::Bytes>();
}

/// Columns as wide as their longest cell; what is longer than a person compares at a glance is cut.
void WriteTable(FoundObjects& found, std::ostream& results) {
    constexpr std::size_t widest = 40;
    struct Cell {
        std::string text;
        bool isNumber = false;
    };
    std::vector<std::vector<Cell>> lines(1);
    for (const std::string& name : found.Names())
        lines.front().push_back({automation::Readable(name, widest), false});
    while (const auto object = found.Next()) {
        lines.emplace_back();
        for (const Variant& value : object->values)
            lines.back().push_back({automation::Readable(LineOf(value), widest), IsNumber(value)});
    }
    std::vector<std::size_t> widths(found.Names().size());
    for (const auto& line : lines)
        for (std::size_t i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], automation::Length(line[i].text));
    for (const auto& line : lines) {
        std::string row;
        for (std::size_t i = 0; i < line.size(); ++i) {
            const std::string pad(widths[i] - automation::Length(line[i].text), ' ');
            if (i > 0) row += "  ";
            row += line[i].isNumber ? pad + line[i].text : line[i].text + pad;
        }
        row.erase(row.find_last_not_of(' ') + 1);
        results << row << '\n';
    }
}

}  // namespace

std::string LineOf(const Variant& value) {
    if (value.IsNull() || value.IsEmpty()) return {};
    if (const auto* flag = value.If<bool>()) return *flag ? "true" : "false";
    if (const auto* date = value.If<automation::Date>()) return automation::FormatIsoDate(*date);
    if (const auto* data = value.If<automation::Bytes>()) return objects::ToBase64(*data);
    return automation::ToString(value);
}

void WriteFound(FoundObjects& found, std::string_view format, std::ostream& results) {
    if (format == "table") return WriteTable(found, results);
    if (format == "csv") WriteCsvLine({found.Names().begin(), found.Names().end()}, results);
    while (const auto object = found.Next()) {
        if (format == "keys") {
            results << object->key << '\n';
        } else if (format == "csv") {
            WriteCsvLine(object->values, results);
        } else {
            WriteJsonLine(*object, found.Names(), results);
        }
    }
}

}  // namespace korvex::cli
