#include "random_tree.h"

#include "automation/text.h"

#include <array>

namespace korvex::tests {

using automation::Variant;
using objects::DataObject;

Variant RandomTree::ValueOf(std::int32_t dataType) {
    constexpr std::array<const char*, 6> Pieces = {"a", "Z ", "ü", "'", "\\", "😀"};
    std::string text;
    for (int i = 1 + Random(4); i > 0; --i)
        text += Pieces[static_cast<std::size_t>(Random(static_cast<int>(Pieces.size())))];
    switch (dataType) {
        case 2:
            return static_cast<std::int16_t>(Random(65536) - 32768);
        case 3:
            return static_cast<std::int32_t>(m_random());
        case 4:
            return static_cast<float>(Random(100000)) / 7;
        case 5:
            return static_cast<double>(m_random()) / 7;
        case 6:
            return automation::Currency{static_cast<std::int64_t>(m_random()) * 1001 - 7};
        case 7:
            return automation::Date{Random(80000) / 8.0 + 20000};  // every third hour
        case 8:
            return automation::Trim(text) == text ? text : text + ".";
        case 11:
            return Random(2) == 0;
        default:
            return automation::Bytes(text.begin(), text.end());
    }
}

Variant RandomTree::PlainValueOf(std::int32_t dataType) {
    switch (dataType) {
        case 7:
        case 12:
            return ValueOf(dataType);
        case 8:
            return std::to_string(Random(2));
        default:
            return Random(2);
    }
}

void RandomTree::Fill(DataObject& object) {
    objects::Definition& type = object.Type();
    const std::string table = automation::ToUpperAscii(type.StringAttribute(attTableName)) + ".";
    for (const auto& value : type.Values()) {
        const objects::ValueInfo& info = value->Info();
        if (value->Child() != nullptr) {
            Fill(*object.Child(info.name));
        } else if (!info.isAutoNumber && !info.column.empty() && !info.column.starts_with("FK_")) {
            const bool isPlain = m_plain.contains(table + automation::ToUpperAscii(info.column));
            if (Random(8) > 0)
                object.Set(info.name, isPlain ? PlainValueOf(info.dataType) : ValueOf(info.dataType));
        }
    }
    if (type.ElementDefinition() == nullptr) return object.LongAttribute(attCounter, 1 + Random(9));
    for (int i = object.Items().empty() ? Random(3) : 0; i > 0; --i)
        object.Add();
    for (const auto& item : object.Items())
        Fill(*item);
}

DataObject::Shared RandomTree::New(const std::shared_ptr<objects::Definition>& definition) {
    auto object = std::make_shared<DataObject>(definition);
    Fill(*object);
    return object;
}

}  // namespace korvex::tests
